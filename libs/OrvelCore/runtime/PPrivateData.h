#pragma once

/// @file
/// The base of the private halves of exported classes.

/// Base of every private class: the way back to the public object.
///
/// The public object owns its private one and destroys it through the virtual destructor, the only
/// virtual operation.
template <typename T>
class PPrivateData
{
public:
    explicit PPrivateData(T *publicObject)
        : q(publicObject)
    {
    }
    virtual ~PPrivateData() = default;

    PPrivateData(PPrivateData const &) = delete;
    PPrivateData &operator=(PPrivateData const &) = delete;

    T *q; ///< the public object; not owned
};
