#pragma once

#include <memory>

/** Something that a manager or a maker gave out and that wants to be given back. */
class IDisposable
{
public:
    virtual ~IDisposable() = default;
    /** The caller doesn't use it any more; it may be deleted by that. */
    virtual void Dispose() = 0;
};

struct SDisposer
{
    void operator()(IDisposable* pObject) const { pObject->Dispose(); }
};

/** Gives the object back at the end of its scope. */
template <class T> using CLease = std::unique_ptr<T, SDisposer>;
