#include "controls/lists/frmEnums.h"

#include "controls/lists/EnumLayout.h"
#include "controls/lists/EnumMessages.h"
#include "runtime/core/Scoped.h"
#include "runtime/drawing/CharacterWidths.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/MousePointer.h"

#include <exception>

namespace kiv
{

namespace
{

// The design, in twips.
constexpr double InnerWidth = 3780;
constexpr double InnerHeight = 4080;
constexpr FormPlace ListPlace = {120, 360, 4335, 2400};
constexpr FormPlace HeadingPlaces[] = {{180, 120, 615, 195}, {1170, 120, 1215, 195}};
constexpr FormPlace FramePlace = {120, 2880, 3015, 615};
constexpr FormPlace OptionPlaces[] = {{180, 240, 915, 255}, {1260, 240, 1515, 255}}; // in the frame
constexpr FormPlace OkPlace = {840, 3600, 1095, 375};
constexpr FormPlace CancelPlace = {2040, 3600, 1095, 375};
constexpr wchar_t FontName[] = L"MS Sans Serif";
constexpr double FontSize = 8.25;

// Where the second part of an item begins, in dialog units: beside the codes, or far out of sight.
constexpr int TextTabStop = 45;
constexpr int HiddenTabStop = 1000;

// So many characters are wider than any width that is kept.
constexpr std::size_t LongestMeasured = 4096;

constexpr wchar_t NoneItem[] = L"(none)\t";

} // namespace

frmEnums::frmEnums() : Form(InnerWidth, InnerHeight) {}

// The order in which the parts are made is the tab order.
frmEnums::Controls::Controls(ConstituentOwner& owner, const Surface& surface) :
    lstEnums(owner, surface.hWnd()),
    fraSort(owner, surface.hWnd(), L"Sort List By"),
    optSortBy{{owner, fraSort.hWnd(), L"&Code"}, {owner, fraSort.hWnd(), L"&Description"}},
    cmdOK(owner, surface.hWnd(), L"OK"),
    cmdCancel(owner, surface.hWnd(), L"Cancel"),
    lbl{{surface, Label::Alignment::Left}, {surface, Label::Alignment::Left}}
{
}

// --- The form's life ---

void frmEnums::Form_Load()
{
    cancel_ = true;
    TheSurface().Font(CreateFontObject(FontName, FontSize, FW_NORMAL), {});
    controls_ = std::make_unique<Controls>(static_cast<ConstituentOwner&>(*this), TheSurface());
    Controls& form = *controls_;

    form.Bold.Set(CreateFontObject(FontName, FontSize, FW_BOLD), {});
    Form_ResolutionChanged();
    DefaultButton(form.cmdOK);
    CancelButton(form.cmdCancel);
    for (const long index : {ByCode, ByDescription})
    {
        form.optSortBy[index].OnClick = [this, index] { optSortBy_Click(index); };
        Label& heading = form.lbl[index];
        heading.Caption(index == ByCode ? L"Code" : L"Description");
        heading.BackColor(SystemColor(COLOR_BTNFACE));
        heading.ForeColor(SystemColor(COLOR_BTNTEXT));
    }
    const bool showCodes = request_->ShowCodes;
    form.lstEnums.SpokenName = showCodes ? L"Code, Description" : L"Description";
    form.lstEnums.SpokenItem = [showCodes](std::wstring_view item) { return SpokenItem(showCodes, item); };
    form.lstEnums.OnClick = [this] { lstEnums_Click(); };
    form.lstEnums.OnDblClick = [this] { lstEnums_DblClick(); };
    form.cmdOK.OnClick = [this] { cmdOK_Click(); };
    form.cmdCancel.OnClick = [this] { cmdCancel_Click(); };

    form.fraSort.Visible(request_->ShowCodes);
}

void frmEnums::Form_ResolutionChanged()
{
    if (!controls_)
        return;
    Controls& form = *controls_;
    const HFONT bold = form.Bold.Handle(TheSurface().TheResolution());
    form.lstEnums.Font(TheSurface().FontHandle());
    // A stop is counted in widths of the list's font.
    form.lstEnums.TabStop(request_->ShowCodes ? TextTabStop : HiddenTabStop);
    for (Constituent* each : std::initializer_list<Constituent*>{
             &form.fraSort, &form.optSortBy[0], &form.optSortBy[1], &form.cmdOK, &form.cmdCancel})
        each->Font(bold);
    Move(form.lstEnums, ListPlace);
    Move(form.fraSort, FramePlace);
    Move(form.cmdOK, OkPlace);
    Move(form.cmdCancel, CancelPlace);
    for (const long index : {ByCode, ByDescription})
    {
        Move(form.optSortBy[index], OptionPlaces[index]);
        form.lbl[index].Font(bold);
        Move(form.lbl[index], HeadingPlaces[index]);
    }
}

void frmEnums::Form_Resize()
{
    Controls& form = *controls_;
    const Surface& surface = TheSurface();
    const PickerSizes sizes = {.Margin = ListPlace.Left,
                               .ListTop = ListPlace.Top,
                               .ButtonWidth = OkPlace.Width,
                               .ButtonHeight = OkPlace.Height,
                               .FrameHeight = FramePlace.Height,
                               .FrameShown = request_->ShowCodes};
    const std::optional<PickerColumns> columns = CalcPickerColumns(surface.ScaleWidth(), sizes);
    const std::optional<PickerRows> rows = CalcPickerRows(surface.ScaleHeight(), sizes);

    FormPlace list = PlaceOf(form.lstEnums);
    FormPlace frame = PlaceOf(form.fraSort);
    FormPlace ok = PlaceOf(form.cmdOK);
    FormPlace cancel = PlaceOf(form.cmdCancel);
    if (columns)
    {
        list.Width = frame.Width = columns->ListWidth;
        cancel.Left = columns->CancelLeft;
        ok.Left = columns->OkLeft;
    }
    if (rows)
    {
        ok.Top = cancel.Top = rows->ButtonTop;
        frame.Top = rows->FrameTop;
        list.Height = rows->ListHeight;
    }
    Move(form.lstEnums, list);
    Move(form.fraSort, frame);
    Move(form.cmdOK, ok);
    Move(form.cmdCancel, cancel);
}

void frmEnums::Form_Paint()
{
    if (!controls_ || !request_->ShowCodes)
        return;
    for (const Label& heading : controls_->lbl)
        heading.Draw();
}

// Closing the window by its frame is leaving without a choice.
void frmEnums::Form_QueryUnload()
{
    cmdCancel_Click();
}

void frmEnums::Form_Unload()
{
    controls_.reset();
}

// --- Filling and sorting ---

// With codes hidden the remembered order is by description, and the rows still come in the order of the
// button that was clicked.
void frmEnums::optSortBy_Click(long Index)
{
    sortListBy_ = request_->ShowCodes ? Index : ByDescription;
    const int filling = ++fillings_;
    std::optional<EnumRecordset> rows = [&] {
        const Hourglass hourglass;
        return EnumRecordset::Open(request_->Database.Get(),
                                   ListQuery(request_->StateCode, request_->TableName, Index));
    }();
    if (Superseded(filling))
        return;
    bool complete = false;
    if (rows)
    {
        try
        {
            Fill(*rows, filling);
            complete = true;
        }
        catch (const std::exception&)
        {
            // The list keeps the rows that came.
        }
        rows.reset();
    }
    if (!complete)
        TellTableUnread();
}

// A database object may do anything while it is asked for a row: unload the form, or have the list filled
// anew, which ends this filling.
void frmEnums::Fill(EnumRecordset& rows, int filling)
{
    ListBox& list = controls_->lstEnums;
    const ListBox::Batch batch(list);
    MaxTextWidth = 0;
    list.Clear();
    list.AddItem(NoneItem);
    const Variant textColumn(EnumTextColumn);
    const Variant codeColumn(EnumCodeColumn);
    const CharacterWidths widths(TheSurface().FontHandle());
    const double twipsPerPixel = TheSurface().TheResolution().TwipsPerPixelX();
    for (bool atEnd = rows.AtEnd(); !atEnd && !Superseded(filling); atEnd = rows.AtEnd())
    {
        const Bstr description = rows.Text(textColumn);
        const Bstr code = rows.Text(codeColumn);
        if (Superseded(filling))
            return;
        const int first = list.ListCount();
        std::wstring_view rest = description.View();
        do
        {
            const std::wstring_view line = TakeLine(rest);
            const std::wstring_view measured = line.substr(0, LongestMeasured);
            if (!widths.FitsIn(measured, static_cast<int>(MaxTextWidth / twipsPerPixel)))
                MaxTextWidth = WidestLine(MaxTextWidth, TheSurface().TextWidth(measured));
            const bool isFirst = list.ListCount() == first;
            const int item = list.AddItem(
                ItemText(request_->ShowCodes, isFirst ? code.View() : std::wstring_view(), line));
            list.ItemData(item, first);
        } while (!rest.empty());
        rows.MoveNext();
    }
}

// --- Selection and closing ---

std::wstring frmEnums::ListItemCode(int index) const
{
    return ItemCode(request_->ShowCodes, controls_->lstEnums.List(index));
}

// Empty for "(none)", and when nothing is selected, as after the list was sorted anew.
std::wstring frmEnums::SelectedCode() const
{
    const ListBox& list = controls_->lstEnums;
    const int entry = list.ItemData(list.ListIndex());
    return entry >= 1 ? ListItemCode(entry) : std::wstring();
}

void frmEnums::lstEnums_Click()
{
    enumCode_ = SelectedCode();
}

void frmEnums::lstEnums_DblClick()
{
    cmdOK_Click();
}

void frmEnums::cmdOK_Click()
{
    enumCode_ = SelectedCode();
    cancel_ = false;
    Unload();
}

void frmEnums::cmdCancel_Click()
{
    cancel_ = true;
    enumCode_.clear();
    Unload();
}

// --- For the caller ---

PickAnswer frmEnums::PickCode(const PickRequest& request)
{
    const Scoped<const PickRequest*> asked(request_, &request);
    {
        const Loaded loaded(*this, request.Owner, request.Title);
        SortListBy(request.SortListBy);
        EnumCode(request.Present());
        Display();
    }
    return {sortListBy_, cancel_ ? std::nullopt : std::optional(enumCode_)};
}

// A number that is no order counts as that by code.
void frmEnums::SortListBy(long order)
{
    sortListBy_ = order;
    controls_->optSortBy[order == ByDescription ? ByDescription : ByCode].Value(true);
}

// A code that the table does not have leaves the selection as it is.
void frmEnums::EnumCode(std::wstring_view code)
{
    enumCode_ = code;
    ListBox& list = controls_->lstEnums;
    if (enumCode_.empty())
        return;
    for (int item = 1; item < list.ListCount(); ++item)
    {
        if (ListItemCode(item) == enumCode_)
        {
            list.ListIndex(item);
            list.TopIndex(item);
            return;
        }
    }
}

void frmEnums::Display()
{
    const double screenWidth = GetSystemMetrics(SM_CXSCREEN) * TheSurface().TheResolution().TwipsPerPixelX();
    OuterWidth(
        PickerWidth(OuterWidth(), TheSurface().ScaleWidth(), ListPlace.Left, MaxTextWidth, screenWidth));
    ShowModal(request_->Teller());
}

} // namespace kiv
