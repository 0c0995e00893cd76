#include "tests/com/ControlProperties.h"

#include "tests/com/PicLitePictures.h"
#include "tests/com/TypeDescription.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

void TakeType(ITypeInfo* info, const TYPEDESC& type, ControlProperty& property)
{
    if (type.vt == VT_PTR)
    {
        property.Type = VT_DISPATCH;
        if (type.lptdesc->vt != VT_USERDEFINED)
            return;
        ComPtr<ITypeInfo> named;
        Check(info->GetRefTypeInfo(type.lptdesc->hreftype, &named));
        property.IsFont = DocumentationOf(named.Get(), MEMBERID_NIL).Name == L"IFontDisp";
        return;
    }
    property.Type = type.vt;
    if (type.vt != VT_USERDEFINED)
        return;
    // A colour, which is another name for a number, or an enumeration.
    ComPtr<ITypeInfo> named;
    Check(info->GetRefTypeInfo(type.hreftype, &named));
    property.Type = VT_I4;
    property.IsEnumeration = TypeAttributes(named.Get())->typekind == TKIND_ENUM;
}

std::string ShowObject(IUnknown* object)
{
    if (!object)
        return "nothing";
    std::ostringstream text;
    ComPtr<IFont> font;
    ComPtr<IPicture> picture;
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&font))))
        text << "font " << FactsOf(object);
    else if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&picture))))
    {
        long width = 0;
        long height = 0;
        short type = 0;
        Check(picture->get_Width(&width));
        Check(picture->get_Height(&height));
        Check(picture->get_Type(&type));
        text << "picture of type " << type << ", " << width << "x" << height;
    }
    else
        text << "object";
    return text.str();
}

template<class Number>
std::string Digits(Number number)
{
    std::ostringstream text;
    text.precision(std::numeric_limits<Number>::max_digits10);
    text << number;
    return text.str();
}

Variant OtherFont(IUnknown* former)
{
    FontFacts facts = former ? FactsOf(former) : FontFacts();
    facts.Italic = !facts.Italic;
    return Variant(static_cast<IDispatch*>(MakeFont(facts).Get()));
}

Variant SomePicture()
{
    std::mt19937 random(1);
    return Variant(
        static_cast<IDispatch*>(PictureOf(RandomBitmap(BitmapFormats()[0], {8, 6}, random)).Get()));
}

} // namespace

std::vector<ControlProperty> PropertiesOf(IDispatch* control)
{
    ComPtr<ITypeInfo> info;
    Check(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
    const TypeAttributes attributes(info.Get());
    std::vector<ControlProperty> properties;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
    {
        const FunctionDescription function(info.Get(), i);
        const bool isGet = function->invkind == INVOKE_PROPERTYGET;
        if (function->invkind == INVOKE_FUNC || function->cParams != (isGet ? 0 : 1))
            continue;
        const DISPID id = function->memid;
        auto found = std::ranges::find(properties, id, &ControlProperty::Id);
        if (found == properties.end())
        {
            ControlProperty property;
            property.Id = id;
            property.Name = DocumentationOf(info.Get(), id).Name;
            found = properties.insert(properties.end(), property);
        }
        if (isGet)
            TakeType(info.Get(), function->elemdescFunc.tdesc, *found);
        (isGet ? found->CanBeRead : found->CanBePut) = true;
    }
    return properties;
}

ControlProperty PropertyOf(IDispatch* control, const std::wstring& name)
{
    const std::vector<ControlProperty> properties = PropertiesOf(control);
    const auto found = std::ranges::find(properties, name, &ControlProperty::Name);
    if (found == properties.end())
    {
        ADD_FAILURE() << "no property " << Narrow(name);
        return {};
    }
    return *found;
}

ControlState StateOf(IDispatch* control)
{
    ControlState state;
    for (const ControlProperty& property : PropertiesOf(control))
    {
        if (!property.CanBeRead || property.Id == DISPID_HWND)
            continue;
        const CallOutcome outcome = Invoke(control, property.Id, DISPATCH_PROPERTYGET);
        state[property.Name] =
            FAILED(outcome.Result) ? "error " + Hr(outcome.ErrorCode) : ShowExactly(outcome.Value);
    }
    return state;
}

std::string ShowExactly(const Variant& value)
{
    switch (value.Type())
    {
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return ShowObject(value.Object());
    case VT_R4:
        return "VT 4 " + Digits(V_R4(&value.Get()));
    case VT_R8:
        return "VT 5 " + Digits(V_R8(&value.Get()));
    case VT_DATE:
        return "VT 7 " + Digits(V_DATE(&value.Get()));
    default:
        return Show(value);
    }
}

Variant OtherThan(const Variant& value, const ControlProperty& property)
{
    switch (property.Type)
    {
    case VT_DISPATCH:
        return property.IsFont ? OtherFont(value.Object()) : SomePicture();
    case VT_BOOL:
        return Variant(!value.Bool());
    case VT_I2:
        return Variant(static_cast<short>(value.Short() - 1));
    case VT_I4:
        if (property.IsEnumeration)
            return Variant(value.Long() == 2 ? 1L : 2L);
        return Variant(value.Long() == 0x123456 ? 0x654321L : 0x123456L);
    case VT_R4:
        return Variant(V_R4(&value.Get()) / 2 + 0.25F);
    case VT_DATE:
        return Variant::Date(V_DATE(&value.Get()) - 100.25);
    case VT_CY:
        return Variant(Currency::FromUnits(V_CY(&value.Get()).int64 / 3 + 1));
    default:
        return Variant(L"Ja\u00DF \u65E5");
    }
}

} // namespace kiv::test
