// What the items of a ChkCombo look like, held pixel by pixel against a picture painted here.

#include "host/container/PropertyBag.h"
#include "runtime/com/MakeCom.h"
#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/NamedRow.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestFont.h"

namespace kiv::test
{

namespace
{

constexpr SIZE CanvasSize = {120, 30};
constexpr long SystemColour = static_cast<long>(0x80000000);

// An item as it is to look.
struct ItemLook
{
    const char* Icon = nullptr; // a resource of the library
    COLORREF BackColor = 0;
    COLORREF ForeColor = 0;
    int IconTop = 0;
    std::wstring Text;
};

class Brush
{
public:
    explicit Brush(COLORREF color) : brush_(CreateSolidBrush(color)) {}
    Brush(const Brush&) = delete;
    Brush& operator=(const Brush&) = delete;
    ~Brush() { DeleteObject(brush_); }
    HBRUSH Get() const { return brush_; }

private:
    HBRUSH brush_;
};

void Fill(HDC dc, const RECT& place, COLORREF color)
{
    FillRect(dc, &place, Brush(color).Get());
}

void PaintItem(HDC dc, const RECT& place, const ItemLook& look, HFONT font)
{
    const HGDIOBJ formerFont = SelectObject(dc, font);
    Fill(dc, place, look.BackColor);
    RECT textPlace = place;
    textPlace.left += look.Icon ? 14 : 1;
    if (look.Icon)
    {
        const auto icon = static_cast<HICON>(
            LoadImageA(Library::UnderTest().Module(), look.Icon, IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
        ASSERT_NE(icon, nullptr);
        DrawIconEx(dc, place.left, look.IconTop, icon, 32, 32, 0, nullptr, DI_NORMAL);
        DestroyIcon(icon);
    }
    SetBkColor(dc, look.BackColor);
    SetTextColor(dc, look.ForeColor);
    DrawTextW(dc, look.Text.c_str(), -1, &textPlace, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(dc, formerFont);
}

class ChkComboPaint : public ChkComboTest
{
protected:
    static HFONT FontOf(const HostedCombo& combo)
    {
        return reinterpret_cast<HFONT>(SendMessageW(combo.Combo(), WM_GETFONT, 0, 0));
    }

    // What the control draws when the system asks for an item.
    static Pixels Drawn(const HostedCombo& combo, int index, UINT action, UINT state, RECT place)
    {
        const Canvas canvas(CanvasSize);
        Fill(canvas.Dc(), {0, 0, CanvasSize.cx, CanvasSize.cy}, RGB(1, 2, 3));
        const HGDIOBJ formerFont = SelectObject(canvas.Dc(), FontOf(combo));
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_COMBOBOX;
        item.itemID = static_cast<UINT>(index);
        item.itemAction = action;
        item.itemState = state;
        item.hwndItem = combo.Combo();
        item.hDC = canvas.Dc();
        item.rcItem = place;
        SendMessageW(combo.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
        SelectObject(canvas.Dc(), formerFont);
        return canvas.Content();
    }

    static Pixels Expected(const HostedCombo& combo, const ItemLook& look, RECT place)
    {
        const Canvas canvas(CanvasSize);
        Fill(canvas.Dc(), {0, 0, CanvasSize.cx, CanvasSize.cy}, RGB(1, 2, 3));
        PaintItem(canvas.Dc(), place, look, FontOf(combo));
        return canvas.Content();
    }
};

struct LookRow : NamedRow
{
    long Status;
    bool Selected;
    const char* Icon;
};

const LookRow LookRows[] = {
    {"Blank", 0, false, nullptr},         {"BlankSelected", 0, true, nullptr},
    {"Partial", 1, false, "CHKCMB_PAR"},  {"PartialSelected", 1, true, "CHKCMB_PAR_SEL"},
    {"Complete", 2, false, "CHKCMB_CHK"}, {"CompleteSelected", 2, true, "CHKCMB_CHK_SEL"},
    {"OtherStatus", 3, false, nullptr},   {"OtherStatusSelected", -1, true, nullptr},
};

class ChkComboItem : public ChkComboPaint, public testing::WithParamInterface<LookRow>
{
};

TEST_P(ChkComboItem, ShowsItsStatus)
{
    HostedCombo combo = AddCombo({GetParam().Status});
    for (const RECT place : {RECT{0, 0, 120, 20}, RECT{3, 4, 110, 21}, RECT{2, 10, 118, 20}})
    {
        ItemLook look;
        look.Icon = GetParam().Icon;
        look.BackColor = GetSysColor(GetParam().Selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
        look.ForeColor = GetSysColor(GetParam().Selected ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT);
        look.IconTop = (place.top + place.bottom - 14) / 2;
        look.Text = L"item 0";
        const UINT state = GetParam().Selected ? UINT{ODS_SELECTED} : 0U;
        const Pixels expected = Expected(combo, look, place);
        EXPECT_EQ(Difference(expected, Drawn(combo, 0, ODA_DRAWENTIRE, state, place)), "");
        EXPECT_EQ(Difference(expected, Drawn(combo, 0, ODA_SELECT, state, place)), "");
    }
}

// Of a disabled control only the text differs, also where the colours are the control's own.
TEST_P(ChkComboItem, IsGreyWhereItIsDisabled)
{
    HostedCombo combo = AddCombo({GetParam().Status});
    ASSERT_HRESULT_SUCCEEDED(combo->put_BackColor(0x80FFFF));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ForeColor(0x0000C0));
    const RECT place = {3, 4, 110, 21};
    ItemLook look;
    look.Icon = GetParam().Icon;
    look.BackColor = GetParam().Selected ? GetSysColor(COLOR_HIGHLIGHT) : 0x80FFFF;
    look.ForeColor = GetSysColor(COLOR_GRAYTEXT);
    look.IconTop = (place.top + place.bottom - 14) / 2;
    look.Text = L"item 0";
    const Pixels expected = Expected(combo, look, place);
    const UINT state = ODS_DISABLED | (GetParam().Selected ? UINT{ODS_SELECTED} : 0U);
    for (const UINT part : {0U, UINT{ODS_COMBOBOXEDIT}}) // of the list, and the field
        EXPECT_EQ(Difference(expected, Drawn(combo, 0, ODA_DRAWENTIRE, state | part, place)), "") << part;
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboItem, testing::ValuesIn(LookRows), RowName());

struct ColourRow : NamedRow
{
    long BackColor;
    long ForeColor;
    bool BackIsSystem;
    long BackShown;
    bool ForeIsSystem;
    long ForeShown;
};

const ColourRow ColourRows[] = {
    {"Plain", 0x80FFFF, 0x0000C0, false, 0x80FFFF, false, 0x0000C0},
    {"HighBitsOfPlainOnesAreDropped", 0x0280FFFF, 0x020000C0, false, 0x80FFFF, false, 0x0000C0},
    {"System", SystemColour | COLOR_BTNFACE, SystemColour | COLOR_HIGHLIGHT, true, COLOR_BTNFACE, true,
     COLOR_HIGHLIGHT},
    // Only the low four bits of the background count, of the text eight.
    {"BackgroundBeyondFifteen", SystemColour | COLOR_INFOBK, SystemColour | COLOR_INFOBK, true,
     COLOR_INFOBK & 0xF, true, COLOR_INFOBK},
};

class ChkComboColours : public ChkComboPaint, public testing::WithParamInterface<ColourRow>
{
};

TEST_P(ChkComboColours, AreThoseOfUnselectedItems)
{
    const ColourRow& row = GetParam();
    const auto resolved = [](bool isSystem, long color) {
        return isSystem ? GetSysColor(static_cast<int>(color)) : static_cast<COLORREF>(color);
    };
    HostedCombo combo = AddCombo({BlankStatus});
    ASSERT_HRESULT_SUCCEEDED(combo->put_BackColor(static_cast<OLE_COLOR>(row.BackColor)));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ForeColor(static_cast<OLE_COLOR>(row.ForeColor)));
    const RECT place = {0, 0, 120, 20};
    ItemLook look;
    look.BackColor = resolved(row.BackIsSystem, row.BackShown);
    look.ForeColor = resolved(row.ForeIsSystem, row.ForeShown);
    look.Text = L"item 0";
    EXPECT_EQ(Difference(Expected(combo, look, place), Drawn(combo, 0, ODA_DRAWENTIRE, 0, place)), "");
    look.BackColor = GetSysColor(COLOR_HIGHLIGHT);
    look.ForeColor = GetSysColor(COLOR_HIGHLIGHTTEXT);
    EXPECT_EQ(Difference(Expected(combo, look, place), Drawn(combo, 0, ODA_DRAWENTIRE, ODS_SELECTED, place)),
              "");
}

INSTANTIATE_TEST_SUITE_P(Rows, ChkComboColours, testing::ValuesIn(ColourRows), RowName());

TEST_F(ChkComboPaint, LeavesNoItemInTheWindowsColour)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_BackColor(0x80FFFF));
    const RECT place = {5, 5, 100, 25};
    const Canvas canvas(CanvasSize);
    Fill(canvas.Dc(), {0, 0, CanvasSize.cx, CanvasSize.cy}, RGB(1, 2, 3));
    Fill(canvas.Dc(), place, GetSysColor(COLOR_WINDOW));
    for (const UINT state : {0U, UINT{ODS_SELECTED}})
        EXPECT_EQ(Difference(canvas.Content(), Drawn(combo, -1, ODA_DRAWENTIRE, state, place)), "");
}

TEST_F(ChkComboPaint, DrawsTheFocusRectangleAlone)
{
    HostedCombo combo = AddCombo(OneOfEach());
    const RECT place = {5, 5, 100, 25};
    const Canvas canvas(CanvasSize);
    Fill(canvas.Dc(), {0, 0, CanvasSize.cx, CanvasSize.cy}, RGB(1, 2, 3));
    EXPECT_EQ(Difference(canvas.Content(), Drawn(combo, 1, ODA_FOCUS, 0, place)), "");
    DrawFocusRect(canvas.Dc(), &place);
    EXPECT_EQ(Difference(canvas.Content(), Drawn(combo, 1, ODA_FOCUS, ODS_FOCUS, place)), "");
}

// The text is no caption: its ampersands stay.
TEST_F(ChkComboPaint, ShowsAmpersands)
{
    HostedCombo combo = AddCombo();
    combo.Add(L"W-2 && 1099 &R");
    ItemLook look;
    look.BackColor = GetSysColor(COLOR_WINDOW);
    look.ForeColor = GetSysColor(COLOR_BTNTEXT);
    look.Text = L"W-2 && 1099 &R";
    const RECT place = {0, 0, 120, 20};
    EXPECT_EQ(Difference(Expected(combo, look, place), Drawn(combo, 0, ODA_DRAWENTIRE, 0, place)), "");
}

// Letters that the code page lacks are drawn as they are, not as those that come nearest to them.
TEST_F(ChkComboPaint, ShowsLettersThatTheCodePageLacks)
{
    const wchar_t* const texts[] = {L"\u0141\u00F3d\u017A", L"L\u00F3dz", L"Lodz"};
    HostedCombo combo = AddCombo();
    for (const wchar_t* const text : texts)
        combo.Add(text);
    const RECT place = {0, 0, 120, 20};
    const auto drawn = [&](int index) { return Drawn(combo, index, ODA_DRAWENTIRE, 0, place); };
    for (int index = 0; index < 3; ++index)
    {
        ItemLook look;
        look.BackColor = GetSysColor(COLOR_WINDOW);
        look.ForeColor = GetSysColor(COLOR_BTNTEXT);
        look.Text = texts[index];
        EXPECT_EQ(Difference(Expected(combo, look, place), drawn(index)), "") << index;
    }
    EXPECT_NE(Difference(drawn(1), drawn(0)), "");
    EXPECT_NE(Difference(drawn(2), drawn(0)), "");
}

TEST_F(ChkComboPaint, AnswersTheSystemsQuestionForAHeightWithItsOwn)
{
    HostedCombo combo = AddCombo();
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_COMBOBOX;
    measure.itemHeight = 123;
    measure.itemWidth = 45;
    SendMessageW(combo.Window(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 123U);
    EXPECT_EQ(measure.itemWidth, 45U);
}

// Another program may ask for what it does not name.
TEST_F(ChkComboPaint, DrawsNothingWhereItIsNotToldWhat)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    ShowForm();
    PumpPending(TheForm());
    const Pixels before = PixelsOfWindow(combo.Window());
    const DRAWITEMSTRUCT empty = {};
    for (const HWND window : {combo.Window(), combo.Combo(), combo.ScrollBar()})
    {
        for (const UINT message : {WM_DRAWITEM, WM_MEASUREITEM, WM_DELETEITEM, WM_COMPAREITEM, WM_GETDLGCODE})
            SendMessageA(window, message, 0, 0);
    }
    SendMessageA(combo.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&empty));
    ASSERT_HRESULT_SUCCEEDED(combo->Refresh());
    PumpPending(TheForm());
    EXPECT_EQ(Difference(before, PixelsOfWindow(combo.Window())), "");
    EXPECT_EQ(combo.Item(2), L"item 2");
}

// On the screen: the open list, and a status that changes while it is open.
TEST_F(ChkComboPaint, ShowsTheOpenList)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    combo.Open(true);
    Settle();
    const auto expectItem = [&](int index, const char* icon, bool selected, const wchar_t* text) {
        SCOPED_TRACE(testing::Message() << text);
        RECT place = {};
        SendMessageW(combo.List(), LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&place));
        ItemLook look;
        look.Icon = icon;
        look.BackColor = GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
        look.ForeColor = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT);
        look.IconTop = (place.top + place.bottom - 14) / 2;
        look.Text = text;
        const Pixels list = PixelsOfWindow(combo.List());
        const Canvas canvas(list.Size());
        PaintItem(canvas.Dc(), place, look, FontOf(combo));
        const Pixels whole = canvas.Content();
        Pixels expected({place.right - place.left, place.bottom - place.top});
        Pixels shown = expected;
        for (int y = place.top; y < place.bottom; ++y)
        {
            for (int x = place.left; x < place.right; ++x)
            {
                expected.Set(x - place.left, y - place.top, whole.At(x, y));
                shown.Set(x - place.left, y - place.top, list.At(x, y));
            }
        }
        EXPECT_EQ(Difference(expected, shown), "");
    };
    expectItem(0, nullptr, false, L"item 0");
    expectItem(1, "CHKCMB_PAR_SEL", true, L"item 1");
    expectItem(2, "CHKCMB_CHK", false, L"item 2");
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListCompletionStatus(0, Complete));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListCompletionStatus(1, Complete));
    Settle();
    expectItem(0, "CHKCMB_CHK", false, L"item 0");
    expectItem(1, "CHKCMB_CHK_SEL", true, L"item 1");
    expectItem(2, "CHKCMB_CHK", false, L"item 2");
    combo.Open(false);
}

// Drawn without a window, as a printed form is, the field shows what it shows on the screen.
TEST_F(ChkComboPaint, IsDrawnInactiveAsOnTheScreen)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    const auto difference = [&] {
        PumpPending(TheForm());
        const Pixels shown = PixelsOfWindow(combo.Window());
        const Canvas canvas(shown.Size());
        EXPECT_HRESULT_SUCCEEDED(combo.Site().Draw(canvas.Dc(), {0, 0, shown.Size().cx, shown.Size().cy}));
        return Difference(shown, canvas.Content());
    };
    EXPECT_EQ(difference(), "");
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(2));
    EXPECT_EQ(difference(), "");
}

// The field without its frame and its button, as it is on the screen.
Pixels FieldOf(const HostedCombo& combo)
{
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    GetComboBoxInfo(combo.Combo(), &information);
    const Pixels whole = PixelsOfWindow(combo.Combo());
    const RECT& place = information.rcItem;
    Pixels field({place.right - place.left, place.bottom - place.top});
    for (int y = 0; y < field.Size().cy; ++y)
    {
        for (int x = 0; x < field.Size().cx; ++x)
            field.Set(x, y, whole.At(place.left + x, place.top + y));
    }
    return field;
}

// On the screen and where it is drawn without a window.
TEST_F(ChkComboPaint, ShowsADisabledFieldInGrey)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ForeColor(0x0000C0));
    ShowForm();
    const auto shown = [&](bool enabled) {
        EXPECT_HRESULT_SUCCEEDED(combo->put_Enabled(enabled ? VARIANT_TRUE : VARIANT_FALSE));
        PumpPending(TheForm());
        const Pixels control = PixelsOfWindow(combo.Window());
        const Canvas canvas(control.Size());
        EXPECT_HRESULT_SUCCEEDED(
            combo.Site().Draw(canvas.Dc(), {0, 0, control.Size().cx, control.Size().cy}));
        EXPECT_EQ(Difference(control, canvas.Content()), "") << enabled;
        return FieldOf(combo);
    };
    EXPECT_EQ(Difference(shown(true), shown(false)), "") << "an empty field is as before";
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    const Pixels enabled = shown(true);
    const Pixels disabled = shown(false);
    Pixels expected = enabled;
    for (int y = 0; y < expected.Size().cy; ++y)
    {
        for (int x = 0; x < expected.Size().cx; ++x)
        {
            if (enabled.At(x, y) == 0x0000C0)
                expected.Set(x, y, GetSysColor(COLOR_GRAYTEXT));
        }
    }
    EXPECT_GT(enabled.Count(0x0000C0), 10);
    EXPECT_EQ(Difference(expected, disabled), "");
    EXPECT_EQ(Difference(enabled, shown(true)), "");
}

// As it comes from a form's file.
TEST_F(ChkComboPaint, ShowsAFieldThatIsLoadedDisabledInGrey)
{
    AddElsewhere();
    const auto bag = MakeCom<host::PropertyBag>();
    bag->Set(L"Enabled", Variant(false));
    bag->Set(L"ForeColor", Variant(0x0000C0L));
    host::SiteOptions options = Wide();
    options.load = bag.Get();
    HostedCombo combo = AddCombo(OneOfEach(), options);
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    ShowForm();
    PumpPending(TheForm());
    EXPECT_EQ(FieldOf(combo).Count(0x0000C0), 0);
    EXPECT_GT(FieldOf(combo).Count(GetSysColor(COLOR_GRAYTEXT)), 10);
}

TEST_F(ChkComboPaint, TakesNewColoursUpWithTheNextDrawing)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    ShowForm();
    PumpPending(TheForm());
    const auto inside = [&] { return PixelsOfWindow(combo.Combo()).At(80, 12); };
    EXPECT_EQ(inside(), GetSysColor(COLOR_WINDOW));
    ASSERT_HRESULT_SUCCEEDED(combo->put_BackColor(0x80FFFF));
    PumpPending(TheForm());
    EXPECT_EQ(inside(), GetSysColor(COLOR_WINDOW));
    ASSERT_HRESULT_SUCCEEDED(combo->Refresh());
    PumpPending(TheForm());
    EXPECT_EQ(inside(), 0x80FFFFU);
}

TEST_F(ChkComboPaint, PaintsTenThousandTimesAndLeavesNothing)
{
    AddElsewhere();
    HostedCombo combo = AddCombo(OneOfEach());
    ShowForm();
    const RECT place = {0, 0, 120, 20};
    const Pixels before = Drawn(combo, 2, ODA_DRAWENTIRE, 0, place);
    std::vector<HPEN> pens;
    while (const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3)))
        pens.push_back(pen);
    for (int i = 0; i < 200; ++i, pens.pop_back())
        DeleteObject(pens.back());
    for (int turn = 0; turn < 10000; ++turn)
    {
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_COMBOBOX;
        item.itemID = static_cast<UINT>(turn % 3);
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = turn % 2 == 0 ? UINT{ODS_SELECTED} : 0U;
        item.hwndItem = combo.Combo();
        item.hDC = GetDC(combo.Combo());
        item.rcItem = place;
        SendMessageW(combo.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
        ReleaseDC(combo.Combo(), item.hDC);
    }
    for (int turn = 0; turn < 500; ++turn)
        RedrawWindow(combo.Combo(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(Difference(before, Drawn(combo, 2, ODA_DRAWENTIRE, 0, place)), "");
    for (const HPEN pen : pens)
        DeleteObject(pen);
}

} // namespace

} // namespace kiv::test
