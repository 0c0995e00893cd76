#pragma once

#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"

#include <algorithm>
#include <vector>

namespace kiv
{

// A COM enumerator over copies of some items. Item is an owner with a CopyTo(Element*) that hands out a
// counted copy.
template<class Interface, class Element, class Item>
class Enumerator final : public ComObject<Interface>
{
public:
    explicit Enumerator(std::vector<Item> items, std::size_t position = 0) :
        items_(std::move(items)), position_(position)
    {
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Element* elements, ULONG* fetched) noexcept override
    {
        if (!elements || (!fetched && count != 1))
            return E_POINTER;
        const std::size_t taken = std::min<std::size_t>(count, items_.size() - position_);
        for (std::size_t i = 0; i < taken; ++i)
            items_[position_ + i].CopyTo(elements + i);
        position_ += taken;
        if (fetched)
            *fetched = static_cast<ULONG>(taken);
        return taken == count ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override
    {
        const std::size_t skipped = std::min<std::size_t>(count, items_.size() - position_);
        position_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE Reset() noexcept override
    {
        position_ = 0;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Clone(Interface** clone) noexcept override
    {
        if (!clone)
            return E_POINTER;
        *clone = nullptr;
        return Boundary([&] { *clone = MakeCom<Enumerator>(items_, position_).Detach(); });
    }

private:
    std::vector<Item> items_;
    std::size_t position_;
};

} // namespace kiv
