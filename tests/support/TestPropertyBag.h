#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"

#include <ocidl.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kiv::test
{

// A container's property bag that keeps account of what is asked of it, in order.
class TestPropertyBag final : public ComObject<IPropertyBag>
{
public:
    // How a container may treat the type that a reader asks for.
    enum class Manner
    {
        AsStored,  // hands out whatever it holds
        Converting // converts, or fails and tells the log
    };
    struct Access
    {
        std::wstring Name;
        VARTYPE Type; // asked for, or written
    };

    explicit TestPropertyBag(Manner manner = Manner::AsStored) : manner_(manner) {}

    void Put(const std::wstring& name, Variant value) { values_[name] = std::move(value); }
    const std::map<std::wstring, Variant>& Values() const { return values_; }
    // The value under a name, Empty when there is none.
    Variant Find(const std::wstring& name) const;

    const std::vector<Access>& Reads() const { return reads_; }
    std::vector<std::wstring> NamesRead() const { return NamesOf(reads_); }
    std::vector<std::wstring> NamesWritten() const { return NamesOf(writes_); }
    // Every write from the given one on (0 the first) fails.
    void FailWritesFrom(std::size_t number) { firstFailingWrite_ = number; }
    void FailAllReads() { failReads_ = true; }

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) noexcept override;

private:
    static std::vector<std::wstring> NamesOf(const std::vector<Access>& accesses);

    Manner manner_;
    std::map<std::wstring, Variant> values_;
    std::vector<Access> reads_;
    std::vector<Access> writes_;
    std::size_t firstFailingWrite_ = ~std::size_t{0};
    bool failReads_ = false;
};

} // namespace kiv::test
