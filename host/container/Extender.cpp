#include "host/container/Extender.h"

#include "host/container/Automation.h"
#include "host/container/ControlSite.h"
#include "host/container/ItemOwner.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Boundary.h"

#include <algorithm>
#include <array>

namespace kiv::host
{

namespace
{

// Identifiers from the range that is set aside for extended objects.
enum ExtendedMember : DISPID
{
    ExtendedName = static_cast<DISPID>(0x80010000U),
    ExtendedObject,
    ExtendedLeft,
    ExtendedTop,
    ExtendedWidth,
    ExtendedHeight,
    ExtendedVisible,
    ExtendedEnabled,
    ExtendedTabIndex,
    ExtendedTabStop,
    ExtendedTag,
    ExtendedHelpContextID,
    ExtendedWhatsThisHelpID,
    ExtendedToolTipText,
    ExtendedAccessibleName,
    ExtendedLabelText,
};

struct MemberName
{
    const wchar_t* Name;
    ExtendedMember Member;
};

constexpr std::array<MemberName, 16> ExtendedMembers = {{
    {L"Name", ExtendedName},
    {L"Object", ExtendedObject},
    {L"Left", ExtendedLeft},
    {L"Top", ExtendedTop},
    {L"Width", ExtendedWidth},
    {L"Height", ExtendedHeight},
    {L"Visible", ExtendedVisible},
    {L"Enabled", ExtendedEnabled},
    {L"TabIndex", ExtendedTabIndex},
    {L"TabStop", ExtendedTabStop},
    {L"Tag", ExtendedTag},
    {L"HelpContextID", ExtendedHelpContextID},
    {L"WhatsThisHelpID", ExtendedWhatsThisHelpID},
    {L"ToolTipText", ExtendedToolTipText},
    {L"AccessibleName", ExtendedAccessibleName},
    {L"LabelText", ExtendedLabelText},
}};

bool IsExtended(DISPID member)
{
    return std::any_of(ExtendedMembers.begin(), ExtendedMembers.end(),
                       [member](const MemberName& each) { return each.Member == member; });
}

} // namespace

HRESULT Extender::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Extender::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept
{
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT Extender::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* found) noexcept
{
    if (!names || !found || count == 0)
        return E_INVALIDARG;
    return Boundary([&]() -> HRESULT {
        const auto own = std::find_if(ExtendedMembers.begin(), ExtendedMembers.end(),
                                      [&](const MemberName& each) { return SameName(each.Name, names[0]); });
        if (own != ExtendedMembers.end())
        {
            std::fill(found, found + count, DISPID_UNKNOWN);
            found[0] = own->Member;
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
        }
        if (!site_ || !site_->Control())
            return DISP_E_UNKNOWNNAME;
        return site_->Control()->GetIDsOfNames(iid, names, count, locale, found);
    });
}

HRESULT Extender::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                         VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept
{
    return Boundary([&]() -> HRESULT {
        if (!site_ || !site_->Control() || !arguments)
            return E_UNEXPECTED;
        if (!IsExtended(member))
            return site_->Control()->Invoke(member, iid, locale, flags, arguments, result, exception,
                                            argument);
        if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
        {
            if (arguments->cArgs != 1)
                return DISP_E_BADPARAMCOUNT;
            Put(member, Variant(arguments->rgvarg[0]));
        }
        else
        {
            if (arguments->cArgs != 0)
                return DISP_E_BADPARAMCOUNT;
            Variant value = Get(member);
            if (result)
                value.DetachTo(result);
        }
        return S_OK;
    });
}

POINT Extender::Origin() const
{
    const FormItem* const container = site_->Container();
    return container ? POINT{container->Bounds().left, container->Bounds().top} : POINT{};
}

Variant Extender::Get(DISPID member) const
{
    RECT bounds = site_->Bounds();
    const POINT origin = Origin();
    OffsetRect(&bounds, -origin.x, -origin.y);
    switch (member)
    {
    case ExtendedName:
        return Variant(std::wstring_view(site_->Name()));
    case ExtendedObject:
        return Variant(site_->Control());
    case ExtendedLeft:
        return Variant(TwipsX(bounds.left));
    case ExtendedTop:
        return Variant(TwipsY(bounds.top));
    case ExtendedWidth:
        return Variant(TwipsX(SizeOf(bounds).cx));
    case ExtendedHeight:
        return Variant(TwipsY(SizeOf(bounds).cy));
    case ExtendedVisible:
        return Variant(site_->Visible());
    case ExtendedEnabled:
        return Variant(site_->Enabled());
    case ExtendedTabIndex:
        return Variant(site_->TabIndex());
    case ExtendedTabStop:
        return Variant(site_->TabStop());
    case ExtendedTag:
        return Variant(std::wstring_view(tag_));
    case ExtendedHelpContextID:
        return Variant(helpContextId_);
    case ExtendedWhatsThisHelpID:
        return Variant(whatsThisHelpId_);
    case ExtendedToolTipText:
        return Variant(std::wstring_view(toolTipText_));
    case ExtendedAccessibleName:
        return Variant(std::wstring_view(accessibleName_));
    case ExtendedLabelText:
        return Variant(std::wstring_view(site_->Owner().LabelBefore(*site_)));
    default:
        throw ComError(DISP_E_MEMBERNOTFOUND);
    }
}

void Extender::Put(DISPID member, const Variant& value)
{
    RECT bounds = site_->Bounds();
    const SIZE size = SizeOf(bounds);
    const POINT origin = Origin();
    switch (member)
    {
    case ExtendedLeft:
        bounds.left = origin.x + PixelsX(value.Long());
        bounds.right = bounds.left + size.cx;
        return site_->Move(bounds);
    case ExtendedTop:
        bounds.top = origin.y + PixelsY(value.Long());
        bounds.bottom = bounds.top + size.cy;
        return site_->Move(bounds);
    case ExtendedWidth:
        bounds.right = bounds.left + PixelsX(value.Long());
        return site_->Move(bounds);
    case ExtendedHeight:
        bounds.bottom = bounds.top + PixelsY(value.Long());
        return site_->Move(bounds);
    case ExtendedVisible:
        return site_->SetVisible(value.Bool());
    case ExtendedEnabled:
        return site_->SetEnabled(value.Bool());
    case ExtendedTabIndex:
        return site_->SetTabIndex(value.Short());
    case ExtendedTabStop:
        return site_->SetTabStop(value.Bool());
    case ExtendedTag:
        tag_ = value.Text();
        return;
    case ExtendedHelpContextID:
        helpContextId_ = value.Long();
        return;
    case ExtendedWhatsThisHelpID:
        whatsThisHelpId_ = value.Long();
        return;
    case ExtendedToolTipText:
        toolTipText_ = value.Text();
        return;
    case ExtendedAccessibleName:
        accessibleName_ = value.Text();
        return;
    default: // Name, Object and LabelText cannot be changed
        throw ComError(DISP_E_MEMBERNOTFOUND);
    }
}

} // namespace kiv::host
