#pragma once

/// @file
/// Objects that count the references to themselves.

#include <OrvelCore/OrvelCoreExport.h>

#include <atomic>

/// What a reference-counted object offers to the holders of references.
///
/// The virtual slots stand in the order destructor, addRef, release.
class ORVELCORE_EXPORT PRefObjectI
{
public:
    virtual ~PRefObjectI();
    /// Takes one reference. Safe from any thread.
    virtual void addRef() const = 0;
    /// Gives one reference back; the last one deletes the object. Safe from any thread.
    virtual void release() const = 0;
};

/// Base of the reference-counted classes.
///
/// A new object has the count 0: the first holder, usually a PRefPtr, takes the first reference,
/// and the object is deleted when the count comes back to 0. Copying an object doesn't copy its
/// count. The count is atomic; what the object holds besides is the derived class's affair.
class ORVELCORE_EXPORT PRefObject : public PRefObjectI
{
public:
    PRefObject();
    PRefObject(PRefObject const &);
    PRefObject &operator=(PRefObject const &);
    ~PRefObject() override;

    void addRef() const override;
    void release() const override;

    /// References held at the moment; of use to tests and assertions only.
    int refCount() const;

    /// Lets `slot` hold one reference to `object` in place of the one that it held.
    ///
    /// Both may be null, which means nothing. The new reference is taken before the old one is
    /// given back, so that a slot may be set to what it holds already.
    template <typename T>
    static void setStrongPtr(T *&slot, T *object)
    {
        if (object) {
            object->addRef();
        }
        T *const former = slot;
        slot = object;
        if (former) {
            former->release();
        }
    }

private:
    mutable std::atomic<int> m_count;
};
