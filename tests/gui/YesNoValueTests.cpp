// Value and Text of a YesNo as its host sets and reads them.

#include "tests/gui/HostedTest.h"
#include "tests/support/NamedRow.h"

#include "runtime/com/Errors.h"

namespace kiv::test
{

namespace
{

struct ValueRow : NamedRow
{
    long Before;
    long Value;
    const char* Outcome;
};

const ValueRow ValueRows[] = {
    {"Yes", 0, 1, "1 Y @None | Value, Text, Change 1"},
    {"YesAgain", 1, 1, "1 Y @None"},
    {"No", 0, 2, "2 N @None | Value, Text, Change 2"},
    {"NoInsteadOfYes", 1, 2, "2 N @None | Value, Text, Change 2"},
    {"NeitherAgain", 0, 0, "0 Null @None"},
    {"NeitherInsteadOfNo", 2, 0, "0 Null @None | Value, Text, Change 0"},
    {"NoAnswer", 1, 5, "5 Null @None | Value, Text, Change 5"},
    {"NoAnswerAgain", 5, 5, "5 Null @None"},
    {"BelowZero", 5, -1, "-1 Null @None | Value, Text, Change -1"},
    {"Smallest", 0, LONG_MIN, "-2147483648 Null @None | Value, Text, Change -2147483648"},
    {"YesInsteadOfNoAnswer", -1, 1, "1 Y @None | Value, Text, Change 1"},
};

class YesNoValue : public HostedTest, public testing::WithParamInterface<ValueRow>
{
};

TEST_P(YesNoValue, IsSet)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(GetParam().Before);
    ShowForm();
    control.TakeTrace();
    control.SetValue(GetParam().Value);
    EXPECT_EQ(control.TakeOutcome(), GetParam().Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoValue, testing::ValuesIn(ValueRows), RowName());

struct TextRow : NamedRow
{
    long Before;
    const wchar_t* YesText;
    const wchar_t* NoText;
    Variant Assigned;
    const char* Outcome;
};

Variant EmptyValue()
{
    return Variant();
}

Variant NullObject()
{
    return Variant(static_cast<IDispatch*>(nullptr));
}

Variant ErrorValue()
{
    VARIANT value = {};
    V_VT(&value) = VT_ERROR;
    V_ERROR(&value) = E_FAIL;
    return Variant(value);
}

const std::vector<TextRow>& TextRows()
{
    static const std::vector<TextRow> rows = {
        {{"Yes"}, 0, L"Y", L"N", Variant(L"Y"), "1 Y @None | Value, Text, Change 1"},
        {{"No"}, 0, L"Y", L"N", Variant(L"N"), "2 N @None | Value, Text, Change 2"},
        {{"NoInsteadOfYes"}, 1, L"Y", L"N", Variant(L"N"), "2 N @None | Value, Text, Change 2"},
        {{"YesAgain"}, 1, L"Y", L"N", Variant(L"Y"), "1 Y @None"},
        {{"NoAgain"}, 2, L"Y", L"N", Variant(L"N"), "2 N @None"},
        {{"YesInsteadOfNoAnswer"}, 5, L"Y", L"N", Variant(L"Y"), "1 Y @None | Value, Text, Change 1"},
        {{"OtherCaseClearsYes"}, 1, L"Y", L"N", Variant(L"y"), "0 Null @None | Value, Text, Change 0"},
        {{"OtherCaseClearsNo"}, 2, L"Y", L"N", Variant(L"n"), "0 Null @None | Value, Text, Change 0"},
        {{"OtherCaseOfALongText"},
         1,
         L"Oui",
         L"Non",
         Variant(L"oui"),
         "0 Null @None | Value, Text, Change 0"},
        {{"OtherTextOnNeither"}, 0, L"Y", L"N", Variant(L"maybe"), "0 Null @None"},
        {{"OtherTextOnNoAnswer"}, 5, L"Y", L"N", Variant(L"maybe"), "0 Null @None | Value, Text, Change 0"},
        {{"TextWithABlankBehind"}, 1, L"Y", L"N", Variant(L"Y "), "0 Null @None | Value, Text, Change 0"},
        {{"EmptyText"}, 1, L"Y", L"N", Variant(L""), "0 Null @None | Value, Text, Change 0"},
        {{"EmptyTextThatMeansYes"}, 0, L"", L"N", Variant(L""), "1  @None | Value, Text, Change 1"},
        {{"ZeroCharacterCounts"},
         1,
         L"Y",
         L"N",
         Variant(std::wstring_view(L"Y\0Y", 3)),
         "0 Null @None | Value, Text, Change 0"},
        {{"EqualTextsMeanNo"}, 0, L"X", L"X", Variant(L"X"), "2 X @None | Value, Text, Change 2"},
        {{"EqualTextsMeanNoInsteadOfYes"}, 1, L"X", L"X", Variant(L"X"), "2 X @None | Value, Text, Change 2"},
        {{"TextsThatWereChanged"}, 0, L"Oui", L"Non", Variant(L"Oui"), "1 Oui @None | Value, Text, Change 1"},
        {{"FormerTextsMeanNothing"},
         2,
         L"Oui",
         L"Non",
         Variant(L"N"),
         "0 Null @None | Value, Text, Change 0"},
        {{"NullClears"}, 2, L"Y", L"N", Variant::Null(), "0 Null @None | Value, Text, Change 0"},
        {{"NullOnNeither"}, 0, L"Y", L"N", Variant::Null(), "0 Null @None"},
        {{"NullOnNoAnswer"}, -1, L"Y", L"N", Variant::Null(), "0 Null @None | Value, Text, Change 0"},
        {{"NullIsNoEmptyText"}, 1, L"", L"", Variant::Null(), "0 Null @None | Value, Text, Change 0"},
        {{"EmptyClears"}, 1, L"Y", L"N", EmptyValue(), "0 Null @None | Value, Text, Change 0"},
        {{"NumberClears"}, 1, L"Y", L"N", Variant(2L), "0 Null @None | Value, Text, Change 0"},
        {{"BooleanClears"}, 2, L"Y", L"N", Variant(true), "0 Null @None | Value, Text, Change 0"},
        {{"NoObjectClears"}, 1, L"Y", L"N", NullObject(), "0 Null @None | Value, Text, Change 0"},
        {{"ErrorClears"}, 1, L"Y", L"N", ErrorValue(), "0 Null @None | Value, Text, Change 0"},
    };
    return rows;
}

class YesNoText : public HostedTest, public testing::WithParamInterface<TextRow>
{
};

TEST_P(YesNoText, IsSet)
{
    const TextRow& row = GetParam();
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    control.Site().Put(L"YesText", Variant(row.YesText));
    control.Site().Put(L"NoText", Variant(row.NoText));
    control.SetValue(row.Before);
    ShowForm();
    control.TakeTrace();
    control.SetText(row.Assigned);
    EXPECT_EQ(control.TakeOutcome(), row.Outcome);
}

INSTANTIATE_TEST_SUITE_P(Rows, YesNoText, testing::ValuesIn(TextRows()), RowName());

using YesNoTextTest = HostedTest;

TEST_F(YesNoTextTest, IsTakenByReference)
{
    HostedYesNo control(TheForm(), Placed());
    Bstr text(L"N");
    BSTR borrowed = text.Get();
    EXPECT_HRESULT_SUCCEEDED(control.Control()->put_Text(Variant::ByReference(VT_BSTR, &borrowed).Get()));
    EXPECT_EQ(control.Value(), 2);
    VARIANT inner = Variant(L"Y").Get();
    const Variant held(L"Y");
    inner = held.Get();
    EXPECT_HRESULT_SUCCEEDED(control.Control()->put_Text(Variant::ByReference(VT_VARIANT, &inner).Get()));
    EXPECT_EQ(control.Value(), 1);
}

TEST_F(YesNoTextTest, FollowsTheTextsOfTheOptions)
{
    HostedYesNo control(TheForm(), Placed());
    control.SetValue(1);
    control.TakeTrace();
    control.Site().Put(L"YesText", Variant(L"Da"));
    EXPECT_EQ(control.Text(), "Da");
    control.Site().Put(L"NoText", Variant(L"Nyet"));
    EXPECT_EQ(control.Text(), "Da");
    EXPECT_EQ(control.TakeTrace(), "YesText, NoText");
    control.SetValue(2);
    EXPECT_EQ(control.Text(), "Nyet");
}

// The captions stay "Yes" and "No", so a repaint would be for nothing.
TEST_F(YesNoTextTest, DoesNotRepaintForTheTextsOfTheOptions)
{
    AddElsewhere();
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const POINT mark = control.PlaceOf(Spot::Middle);
    const auto isMarked = [&] { return PixelsOfWindow(control.Window()).At(mark.x, mark.y) == RGB(1, 2, 3); };
    const HDC dc = GetDC(control.Window());
    SetPixelV(dc, mark.x, mark.y, RGB(1, 2, 3));
    ReleaseDC(control.Window(), dc);
    ASSERT_TRUE(isMarked());
    control.Site().Put(L"YesText", Variant(L"Da"));
    control.Site().Put(L"NoText", Variant(L"Nyet"));
    PumpPending(TheForm());
    EXPECT_TRUE(isMarked());
    // What does repaint takes the mark away.
    control.SetValue(1);
    EXPECT_FALSE(isMarked());
}

TEST_F(YesNoTextTest, IsEmptyWhereAnAnswerHasNoText)
{
    HostedYesNo control(TheForm(), Placed());
    control.Site().Put(L"NoText", Variant(L""));
    control.SetValue(2);
    EXPECT_EQ(control.Text(), "");
}

} // namespace

} // namespace kiv::test
