#include "runtime/com/Variant.h"

namespace kiv
{

namespace
{

// The text of a Boolean is a word; as a number it would be -1.
HRESULT Change(VARIANT* target, VARIANT* value, VARTYPE type)
{
    return VariantChangeType(target, value, type == VT_BSTR ? VARIANT_ALPHABOOL : 0, type);
}

} // namespace

Variant::Variant(bool value) noexcept : Variant()
{
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(short value) noexcept : Variant()
{
    V_VT(&value_) = VT_I2;
    V_I2(&value_) = value;
}

Variant::Variant(long value) noexcept : Variant()
{
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = value;
}

Variant::Variant(float value) noexcept : Variant()
{
    V_VT(&value_) = VT_R4;
    V_R4(&value_) = value;
}

Variant::Variant(double value) noexcept : Variant()
{
    V_VT(&value_) = VT_R8;
    V_R8(&value_) = value;
}

Variant::Variant(Currency amount) noexcept : Variant()
{
    V_VT(&value_) = VT_CY;
    V_CY(&value_).int64 = amount.Units();
}

Variant::Variant(std::wstring_view text) : Variant()
{
    V_BSTR(&value_) = Bstr(text).Detach();
    V_VT(&value_) = VT_BSTR;
}

Variant::Variant(IDispatch* object) noexcept : Variant()
{
    V_VT(&value_) = VT_DISPATCH;
    V_DISPATCH(&value_) = object;
    if (object)
        object->AddRef();
}

Variant::Variant(IUnknown* object) noexcept : Variant()
{
    V_VT(&value_) = VT_UNKNOWN;
    V_UNKNOWN(&value_) = object;
    if (object)
        object->AddRef();
}

Variant::Variant(const VARIANT& value) : Variant()
{
    Check(VariantCopyInd(&value_, const_cast<VARIANT*>(&value)));
}

Variant::Variant(const Variant& other) : Variant()
{
    Check(VariantCopy(&value_, other.Borrow()));
}

Variant Variant::Null() noexcept
{
    Variant null;
    V_VT(&null.value_) = VT_NULL;
    return null;
}

Variant Variant::Date(double date) noexcept
{
    Variant value;
    V_VT(&value.value_) = VT_DATE;
    V_DATE(&value.value_) = date;
    return value;
}

Variant Variant::ByReference(VARTYPE type, void* storage) noexcept
{
    Variant reference;
    V_VT(&reference.value_) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&reference.value_) = storage;
    return reference;
}

void Variant::DetachTo(VARIANT* target)
{
    *target = value_;
    VariantInit(&value_);
}

std::optional<Variant> Variant::As(VARTYPE type) const
{
    Variant converted;
    // An object stays an object: its default member is not asked for a value behind the host's back.
    if (Object() && type != VT_DISPATCH && type != VT_UNKNOWN)
        return std::nullopt;
    if (FAILED(Change(&converted.value_, Borrow(), type)))
        return std::nullopt;
    return converted;
}

Variant Variant::Converted(VARTYPE type) const
{
    Variant converted;
    Check(Change(&converted.value_, Borrow(), type));
    return converted;
}

bool Variant::Bool() const
{
    const Variant converted = Converted(VT_BOOL);
    return V_BOOL(&converted.value_) != VARIANT_FALSE;
}

short Variant::Short() const
{
    const Variant converted = Converted(VT_I2);
    return V_I2(&converted.value_);
}

long Variant::Long() const
{
    const Variant converted = Converted(VT_I4);
    return V_I4(&converted.value_);
}

std::wstring Variant::Text() const
{
    const Variant converted = Converted(VT_BSTR);
    return std::wstring(Bstr::ViewOf(V_BSTR(&converted.value_)));
}

IUnknown* Variant::Object() const
{
    return Type() == VT_DISPATCH || Type() == VT_UNKNOWN ? V_UNKNOWN(&value_) : nullptr;
}

std::size_t ScalarSize(VARTYPE type)
{
    switch (type)
    {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    default:
        return 0;
    }
}

bool Identical(const Variant& one, const Variant& other)
{
    if (one.Type() != other.Type())
        return false;
    const VARIANT& a = one.Get();
    const VARIANT& b = other.Get();
    switch (one.Type())
    {
    case VT_EMPTY:
    case VT_NULL:
        return true;
    case VT_BSTR:
        return Bstr::ViewOf(V_BSTR(&a)) == Bstr::ViewOf(V_BSTR(&b));
    case VT_BOOL:
        return (V_BOOL(&a) != VARIANT_FALSE) == (V_BOOL(&b) != VARIANT_FALSE);
    case VT_I2:
        return V_I2(&a) == V_I2(&b);
    case VT_I4:
        return V_I4(&a) == V_I4(&b);
    case VT_R4:
        return V_R4(&a) == V_R4(&b);
    case VT_CY:
        return V_CY(&a).int64 == V_CY(&b).int64;
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return one.Object() == other.Object();
    default:
        return VarCmp(one.Borrow(), other.Borrow(), LOCALE_INVARIANT, 0) == VARCMP_EQ;
    }
}

} // namespace kiv
