#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace kiv
{

// Owner of one automation string. Empty and null are the same text.
class Bstr
{
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text) :
        text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
    {
        if (!text_)
            throw std::bad_alloc();
    }
    Bstr(const Bstr& other) : Bstr(other.View()) {}
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept
    {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    std::wstring_view View() const { return ViewOf(text_); }
    std::wstring String() const { return std::wstring(View()); }

    // For a call that hands out a string; what was held is freed first.
    BSTR* Receive()
    {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    // Hands the string over to the caller.
    BSTR Detach() { return std::exchange(text_, nullptr); }

    // A borrowed string's text; null reads as empty.
    static std::wstring_view ViewOf(BSTR text)
    {
        return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
    }

private:
    BSTR text_ = nullptr;
};

} // namespace kiv
