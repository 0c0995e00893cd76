#pragma once

#include "runtime/com/Module.h"

#include <unknwn.h>

#include <atomic>

namespace kiv
{

// Lifetime and identity of an object that another object may aggregate. The derived class implements
// IUnknown of all its interfaces by asking Outer(); Inner() is the object's own identity, which the class
// factory hands to an aggregating client.
class Aggregatable
{
public:
    // The object's own IUnknown. It starts with one reference, which the maker owns.
    IUnknown* Inner() noexcept { return &inner_; }
    // The identity that the outside sees: the aggregating object's, or the own one.
    IUnknown* Outer() noexcept { return outer_; }

protected:
    // outer: the aggregating object, not counted; null when there is none.
    explicit Aggregatable(IUnknown* outer) noexcept;
    Aggregatable(const Aggregatable&) = delete;
    Aggregatable& operator=(const Aggregatable&) = delete;
    virtual ~Aggregatable() = default;

    // The pointer that answers for iid, not counted; null when the object has no such interface.
    virtual void* FindInterface(REFIID iid) noexcept = 0;

    // Whether the object cannot go where its last reference has gone, and has seen to it that it is
    // referenced and let go of once more where it can.
    virtual bool GoesElsewhere() noexcept { return false; }

    // Runs when the last reference is gone, with the object still whole and held by one reference of its own.
    virtual void FinalRelease() noexcept {}

private:
    class InnerUnknown final : public IUnknown
    {
    public:
        explicit InnerUnknown(Aggregatable& object) noexcept : object_(object) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override;
        ULONG STDMETHODCALLTYPE Release() noexcept override;

    private:
        Aggregatable& object_;
        std::atomic<ULONG> references_ = 1;
    };

    ModuleReference moduleReference_;
    InnerUnknown inner_;
    IUnknown* outer_;
};

} // namespace kiv
