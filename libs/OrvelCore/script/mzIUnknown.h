#pragma once

/// @file
/// The interface of all objects of the script layer, and that of their failures.

#include <OrvelCore/script/mzComStringC.h>
#include <OrvelCore/script/mzIIDS.h>

class mzComPtrC;

/// The interface that every object of the script layer answers to: it finds the others and counts
/// references. A new object has no references; hold it in an mzComPtrT from the start. The release
/// of the last reference deletes the object, so there is no public destructor.
class ORVELCORE_EXPORT mzIUnknown
{
public:
    /// The identifier "mzIUnknown".
    static mzIIDS const &IID();

    /// Asks for another interface of the object. On success `target` holds it, with a reference,
    /// and the result is true; otherwise `target` becomes null and the result is false.
    virtual bool queryInterface(mzIIDS const &identifier, mzComPtrC &target) = 0;
    /// Counts a reference and returns how many there are now.
    virtual int addRef() = 0;
    /// Gives a reference back and returns how many are left; at 0 the object is gone.
    virtual int release() = 0;

protected:
    mzIUnknown() = default;
    mzIUnknown(mzIUnknown const &) = delete;
    mzIUnknown &operator=(mzIUnknown const &) = delete;
    ~mzIUnknown() = default;
};

/// Why a script call was refused.
enum mzExceptionCodeE {
    mzExceptionNoMember = 1,   ///< no member of that name, kind and parameter count
    mzExceptionTypeCast = 2,   ///< members are there, but none takes arguments of these types
    mzExceptionWrongThread = 3 ///< the object belongs to another thread
};

/// A failure as a script sees it.
class ORVELCORE_EXPORT mzIException : public mzIUnknown
{
public:
    /// The identifier "mzIException".
    static mzIIDS const &IID();

    virtual mzExceptionCodeE code() const = 0;
    /// One sentence that names the class, the member and the types of the arguments.
    virtual mzComStringC message() const = 0;

protected:
    ~mzIException() = default;
};
