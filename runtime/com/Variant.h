#pragma once

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"
#include "runtime/core/Currency.h"

#include <concepts>
#include <optional>

namespace kiv
{

// Owner of one automation value.
class Variant
{
public:
    Variant() noexcept { VariantInit(&value_); }
    explicit Variant(bool value) noexcept;
    explicit Variant(short value) noexcept;
    explicit Variant(long value) noexcept;
    explicit Variant(float value) noexcept;
    explicit Variant(double value) noexcept;
    explicit Variant(Currency amount) noexcept;
    explicit Variant(std::wstring_view text);
    explicit Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    // References; null is kept as a null reference of its type.
    explicit Variant(IDispatch* object) noexcept;
    explicit Variant(IUnknown* object) noexcept;
    // A copy of the value; a by-reference value is copied by what it refers to.
    explicit Variant(const VARIANT& value);
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    Variant& operator=(Variant other) noexcept
    {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    static Variant Null() noexcept;
    // An automation date.
    static Variant Date(double date) noexcept;
    // A by-reference argument; type is that of what is referred to, and the caller keeps the storage alive.
    static Variant ByReference(VARTYPE type, void* storage) noexcept;

    const VARIANT& Get() const { return value_; }
    // For calls that read a value but are not declared so.
    VARIANT* Borrow() const { return const_cast<VARIANT*>(&value_); }
    VARTYPE Type() const { return V_VT(&value_); }
    bool IsNull() const { return Type() == VT_NULL; }

    // For a call that hands out a value; what was held is released first.
    VARIANT* Receive()
    {
        VariantClear(&value_);
        return &value_;
    }
    // Hands the value over; the target's former content is not released ([out] parameters hold none).
    void DetachTo(VARIANT* target);

    // The value as another type, or nothing when it cannot be that. The text of a Boolean is "True" or
    // "False".
    std::optional<Variant> As(VARTYPE type) const;

    // The value converted; throws ComError (DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW) when it cannot be.
    bool Bool() const;
    short Short() const;
    long Long() const;
    std::wstring Text() const;
    // The object reference, or null when the value holds none.
    IUnknown* Object() const;

private:
    Variant Converted(VARTYPE type) const;

    VARIANT value_;
};

// Size in bytes of a value that lies in the VARIANT itself, as a number does; 0 for other types.
std::size_t ScalarSize(VARTYPE type);

// Same type and same content: numbers by value, texts binary, objects by reference.
bool Identical(const Variant& one, const Variant& other);

} // namespace kiv
