#include "controls/lists/EnumList.h"

#include "controls/lists/CodePicker.h"
#include "controls/lists/EnumMessages.h"
#include "controls/lists/EnumRecordset.h"
#include "controls/lists/EnumRules.h"
#include "resources/ResourceIds.h"
#include "runtime/com/LateBound.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/MousePointer.h"
#include "runtime/drawing/WindowResolution.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

constexpr double ButtonWidth = 255; // twips

// With this number as its WhatsThisHelpID a control's picker shows codes, whatever the control itself shows.
constexpr long ShowCodesHelpId = 1;

} // namespace

const ControlClass EnumList::Class = {
    CLSID_EnumList,          __uuidof(_EnumList),  __uuidof(__EnumList), L"EnumList",
    L"KivControls.EnumList", KIV_TOOLBOX_ENUMLIST, {1815, 285},          true,
};

EnumList::EnumList(IUnknown* outer) : EnumListMembers(Class, outer) {}

struct EnumList::Properties
{
    static constexpr PropertyTable Table{
        BackColorProperty(SystemColor(COLOR_WINDOW)),
        ForeColorProperty(SystemColor(COLOR_BTNTEXT)),
        EnabledProperty(),
        FontProperty(),
        Field<L"TableName">(&EnumList::TableName, L"").Silently().In(PropertyCategory::Data),
        Field<L"StateCode">(&EnumList::StateCode, L"").Silently().In(PropertyCategory::Data),
        Field<L"EnumListTitle">(&EnumList::EnumListTitle, L"").Silently().In(PropertyCategory::Appearance),
        Property<L"DisplayStyle">([](auto& list) { return list.displayStyle_; },
                                  [](auto& list, long style) { list.DisplayStyle(style); }, Code)
            .In(PropertyCategory::Appearance),
        // The default moves with the style.
        Property<L"SortListBy">([](auto& list) { return list.sortListBy_; },
                                [](auto& list, long order) { list.SortListBy(order); },
                                [](auto& list) { return list.displayStyle_; })
            .In(PropertyCategory::Behavior),
        Unstored<L"Database">([](auto& list) { return list.Database; },
                              // The former one goes last.
                              [](auto& list, ComPtr<IDispatch> database) { list.Database.Swap(database); }),
        Unstored<L"EnumText">([](auto& list) { return list.EnumText(); }).In(PropertyCategory::Data),
        Unstored<L"EnumCode">([](auto& list) { return list.enumCode_; },
                              [](auto& list, std::wstring_view code) { list.EnumCode(code); })
            .In(PropertyCategory::Data),
        Unstored<L"BoundEnumCode">(
            [](auto& list) { return list.enumCode_.empty() ? Variant::Null() : Variant(list.enumCode_); },
            [](auto& list, const Variant& code) { list.BoundEnumCode(code); })
            .In(PropertyCategory::Data),
    };
};

// --- The control's life ---

void EnumList::UserControl_Initialize()
{
    cmd.OnClick = [this] { cmd_Click(); };
    cmd.OnDropDown = [this] {
        if (TakesInput())
            cmd_Click();
    };
}

void EnumList::UserControl_InitProperties()
{
    Clear();
    Properties::Table.Reset(*this);
}

void EnumList::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Clear();
    Properties::Table.Read(*this, PropBag);
    PickerSortOrder = sortListBy_;
}

void EnumList::UserControl_Resize()
{
    RequestFit([this] { return NeededSize(); });
    const EnumListLayout layout = Layout();
    const Resolution& resolution = TheSurface().TheResolution();
    cmd.Move(resolution.PixelsX(layout.ButtonLeft), 0, resolution.PixelsX(ButtonWidth),
             resolution.PixelsY(TheSurface().ScaleHeight()));
    if (layout.MissingWidth <= 0 && layout.MissingHeight <= 0)
        lbl.Move(0, resolution.PixelsY(layout.LabelTop), resolution.PixelsX(layout.LabelWidth),
                 resolution.PixelsY(LabelHeight()));
}

EnumListLayout EnumList::Layout() const
{
    const Surface& surface = TheSurface();
    return CalcEnumListLayout(surface.ScaleWidth(), surface.ScaleHeight(), ButtonWidth, LabelHeight());
}

// Only what is missing changes, and that not by the outer size: a window smaller than its border has none
// that says anything.
std::optional<SIZE> EnumList::NeededSize() const
{
    const EnumListLayout layout = Layout();
    if (layout.MissingWidth <= 0 && layout.MissingHeight <= 0)
        return std::nullopt;
    const Surface& surface = TheSurface();
    const Resolution& resolution = surface.TheResolution();
    SIZE size = surface.OuterSize();
    if (layout.MissingWidth > 0)
        size.cx = resolution.PixelsX(surface.ScaleWidth() + layout.MissingWidth) +
                  2 * SystemMetric(SM_CXEDGE, resolution);
    if (layout.MissingHeight > 0)
        size.cy = resolution.PixelsY(surface.ScaleHeight() + layout.MissingHeight) +
                  2 * SystemMetric(SM_CYEDGE, resolution);
    return size;
}

void EnumList::UserControl_Paint()
{
    lbl.Draw();
}

// F4 drops the list down, as it does that of a combo box.
void EnumList::UserControl_KeyDown(short& KeyCode, short Shift)
{
    if (KeyCode != VK_F4 || Shift != 0)
        return;
    KeyCode = 0;
    cmd_Click();
}

void EnumList::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

// A control that is taken away takes its picker along: nobody would hear of a choice.
void EnumList::UserControl_Hide()
{
    if (picking_)
        PickerTurn::Leave();
}

// What is no part of a new control, and none of a form's file.
void EnumList::Clear()
{
    StateCode.clear();
    TableName.clear();
    EnumListTitle.clear();
    enumCode_.clear();
    displayStyle_ = sortListBy_ = PickerSortOrder = Code;
    lbl.Caption(L"");
}

// --- The picker ---

void EnumList::cmd_Click()
{
    // Taken before anything else: the host is asked on the way, and may click on a list meanwhile.
    const PickerTurn turn;
    if (!turn)
        return;
    const Scoped<bool> picking(picking_, true);
    PickRequest request;
    request.StateCode = StateCode;
    request.TableName = TableName;
    request.Database = Database;
    request.ShowCodes = ShowsCodes();
    request.Owner = GetAncestor(TheSurface().hWnd(), GA_ROOT);
    request.Title = EnumListTitle;
    request.SortListBy = PickerSortOrder;
    request.Present = [this] { return enumCode_; };
    request.Teller = [this] { return ModalTeller(); };
    const PickAnswer answer = turn.PickCode(request);
    PickerSortOrder = answer.SortListBy;
    if (!answer.Code || *answer.Code == enumCode_)
        return;
    if (FAILED(Boundary([&] { EnumCode(*answer.Code); })))
        TellTableUnread(); // no caller is there to get the error
    RaiseEvent(EnumListEvents::SelectionChanged);
}

bool EnumList::ShowsCodes() const
{
    const std::optional<Variant> helpId = Extender().Get(L"WhatsThisHelpID").As(VT_I4);
    return (helpId && helpId->Long() == ShowCodesHelpId) || displayStyle_ == Code;
}

// --- Properties ---

// The surface shows above and below a label that is lower than the control.
void EnumList::BackColor(OLE_COLOR newColor)
{
    lbl.BackColor(newColor);
    TheSurface().BackColor(newColor);
    PropertyChanged(L"BackColor");
    Refresh();
}

void EnumList::ForeColor(OLE_COLOR newColor)
{
    lbl.ForeColor(newColor);
    PropertyChanged(L"ForeColor");
    Refresh();
}

void EnumList::Enabled(bool newState)
{
    EnableWindow(TheSurface().hWnd(), newState);
    TheSurface().Enabled(newState);
    cmd.Enabled(newState);
    lbl.Enabled(newState);
    PropertyChanged(L"Enabled");
    Refresh();
}

// The control grows for a label that needs more, and never shrinks for one that needs less.
void EnumList::ApplyFont()
{
    UserControl_Resize();
    Refresh();
}

// Unlike the other controls' fonts: hosts are not told.
void EnumList::FontAssigned() {}

double EnumList::LabelHeight() const
{
    return lbl.LineHeight() * TheSurface().TheResolution().TwipsPerPixelY();
}

// Any number is taken; one that is not Code shows the description.
void EnumList::DisplayStyle(long newStyle)
{
    displayStyle_ = newStyle;
    SortListBy(newStyle);
    PropertyChanged(L"DisplayStyle");
    RefreshEnumLabel();
}

void EnumList::SortListBy(long newOrder)
{
    sortListBy_ = newOrder;
    PropertyChanged(L"SortListBy");
}

std::wstring EnumList::EnumText() const
{
    return displayStyle_ == Code ? enumCode_ : lbl.Caption();
}

void EnumList::EnumCode(std::wstring_view newCode)
{
    enumCode_ = newCode;
    PropertyChanged(L"EnumCode");
    PropertyChanged(L"BoundEnumCode");
    RefreshEnumLabel();
}

// Both notifications come twice: from EnumCode and from here. Data-bound hosts rely on it.
void EnumList::BoundEnumCode(const Variant& newCode)
{
    const std::optional<Variant> text = newCode.IsNull() ? Variant(L"") : newCode.As(VT_BSTR);
    if (!text)
        throw ComError(DISP_E_TYPEMISMATCH);
    EnumCode(text->Text());
    PropertyChanged(L"EnumCode");
    PropertyChanged(L"BoundEnumCode");
}

// --- For assistive tools: a combo box, whose list is the picker ---

AccessibleInfo EnumList::Accessible() const
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_COMBOBOX;
    info.Value = lbl.Caption();
    info.DefaultAction = L"Choose";
    info.KeyboardShortcut = L"F4";
    info.State = STATE_SYSTEM_HASPOPUP | (picking_ ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
    return info;
}

// Who asks does not wait for what is chosen.
bool EnumList::DoDefaultAction(int)
{
    return TakesInput() && cmd.Enabled() && cmd.Post(BM_CLICK);
}

// --- The label ---

void EnumList::ShowCaption(std::wstring_view caption)
{
    lbl.Caption(caption);
    Refresh();
    Announce(EVENT_OBJECT_VALUECHANGE);
}

// The database may do anything while it is asked, and so may the user while the message is shown: what a
// later refresh has found stays.
void EnumList::RefreshEnumLabel()
{
    const int refresh = ++refreshes_;
    if (enumCode_.empty() || displayStyle_ == Code)
        return ShowCaption(enumCode_);
    if (TableName.empty() || StateCode.empty())
        return ShowCaption(L"");
    const ComPtr<IDispatch> database = Database;
    std::optional<EnumRecordset> rows = [&] {
        const Hourglass hourglass;
        return EnumRecordset::Open(database.Get(), LabelQuery(StateCode, TableName, enumCode_));
    }();
    // An error from here on is the caller's.
    const bool found = rows && !rows->AtEnd();
    const std::wstring caption = found ? rows->Text(Variant(EnumTextColumn)).String() : std::wstring();
    const bool answered = rows.has_value();
    rows.reset();
    if (refresh != refreshes_)
        return;
    ShowCaption(caption);
    if (!answered)
        TellTableUnread();
}

} // namespace kiv
