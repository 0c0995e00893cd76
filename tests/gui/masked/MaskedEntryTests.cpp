// What the box holds and what the host reads, assigns and asks of it, on a form.

#include "tests/gui/masked/MaskedTest.h"
#include "tests/native/masked/DateBoxEntryRows.h"
#include "tests/native/masked/NumberBoxEntryRows.h"
#include "tests/support/MessageBoxWatcher.h"

#include "runtime/com/Errors.h"
#include "tests/support/Text.h"

namespace kiv::test
{

namespace
{

class MaskedEntryTest : public MaskedTest
{
protected:
    static void TakePeriod(HostedBox& box, const DateEntryRow& row)
    {
        // In the widest layout, which keeps the bounds whole.
        box.SetStyle(2);
        box.Site().Put(L"MinDate", Variant::Date(row.MinDate));
        box.Site().Put(L"MaxDate", Variant::Date(row.MaxDate));
        box.Site().Put(L"AllowVarious", Variant(row.AllowVarious));
        box.SetStyle(row.Style);
    }
};

TEST_F(MaskedEntryTest, NumbersReadAsTheRowsSay)
{
    HostedBox box = ShownNumberBox();
    for (const NumberEntryRow& row : NumberEntryRows)
    {
        SCOPED_TRACE(row.Name);
        box.SetStyle(row.Style);
        box.Site().Put(L"MaxLength", Variant(static_cast<short>(row.MaxLength)));
        box.Show({row.BoxText, 1, 0});
        EXPECT_EQ(box.Site().Get(L"Text").Text(), row.Text);
        EXPECT_EQ(box.Value(), row.Value.value_or(L"Null"));
        EXPECT_EQ(box.IsValidInput(), row.Message.empty());
        EXPECT_EQ(box.Look().SelLength, 0) << "nobody is shown anything";
        box.ExpectComplaint(row.Message);
        EXPECT_EQ(box.TakeEvents(), Texts());
    }
}

TEST_F(MaskedEntryTest, NumbersAreAssignedAsTheRowsSay)
{
    HostedBox box = ShownNumberBox();
    for (const NumberAssignmentRow& row : NumberAssignmentRows)
    {
        for (const wchar_t* property : {L"Value", L"Text"})
        {
            SCOPED_TRACE(std::string(row.Name) + " to " + Narrow(property));
            box.SetStyle(row.Style);
            box.Site().Put(L"MaxLength", Variant(static_cast<short>(row.MaxLength)));
            const std::wstring before = box.Text();
            box.TakeEvents();
            RecordOf(box.Site()).ClearNotifications();
            const auto assign = [&] { box.Site().Put(property, Variant(row.Assigned)); };
            if (row.Refused)
                EXPECT_THROW(assign(), ComError);
            else
                assign();
            const std::wstring after = row.Refused ? before : row.After;
            EXPECT_EQ(box.Text(), after);
            EXPECT_EQ(box.TakeEvents(), after == before ? Texts() : Texts{L"Change " + after});
            const std::size_t told = row.Refused ? 0 : after == before ? 1 : 2;
            EXPECT_EQ(RecordOf(box.Site()).Notifications(), Texts(told, L"Value"));
        }
    }
}

TEST_F(MaskedEntryTest, DatesReadAsTheRowsSay)
{
    HostedBox box = ShownDateBox();
    for (const DateEntryRow& row : DateEntryRows)
    {
        SCOPED_TRACE(row.Name);
        TakePeriod(box, row);
        box.Show({row.BoxText, 0, 0});
        EXPECT_EQ(box.Site().Get(L"Text").Text(), row.BoxText) << "exactly as it is displayed";
        const bool hasValue = row.Judged == Judgement::Valid || row.Judged == Judgement::OutsidePeriod;
        EXPECT_EQ(box.Value(), hasValue ? row.After : L"Null");
        const bool valid = row.Judged == Judgement::Valid || row.Judged == Judgement::Blank;
        EXPECT_EQ(box.IsValidInput(), valid);
        const std::wstring after = valid ? row.After : row.BoxText;
        EXPECT_EQ(box.Text(), after);
        EXPECT_EQ(box.TakeEvents(), after == row.BoxText ? Texts() : Texts{L"Change " + after});
        const int length = static_cast<int>(after.size());
        EXPECT_EQ(box.Look().SelLength, row.Judged == Judgement::OutsidePeriod ? length : 0);
    }
}

TEST_F(MaskedEntryTest, DatesAreAssignedAsTheRowsSay)
{
    HostedBox box = ShownDateBox();
    for (const DateAssignmentRow& row : DateAssignmentRows)
    {
        SCOPED_TRACE(row.Name);
        box.SetStyle(row.Style);
        box.Site().Put(L"AllowVarious", Variant(row.AllowVarious));
        EXPECT_EQ(Hr(box.Assign(Variant::Null())), Hr(S_OK));
        box.TakeEvents();
        EXPECT_EQ(Hr(box.Assign(Variant(row.Assigned))), Hr(row.Refused ? RunTimeError(380) : S_OK));
        EXPECT_EQ(box.Text(), row.After);
    }
}

struct ComplaintRow
{
    int Style;
    const wchar_t* BoxText;
    const wchar_t* Message;
};

TEST_F(MaskedEntryTest, DatesComplainInFixedWords)
{
    const ComplaintRow rows[] = {
        {1, L"02/29/01", L"'02/29/01' is not a valid date."},
        {1, L"1_/__/__", L"'1_/__/__' is not a valid date."},
        {1, L"99/99/99", L"'99/99/99' is not a valid date."},
        {3, L"02/29", L"'02/29' is not a valid date."},
        {6, L"03/2001", L"'03/2001' is not a valid date."},
        {2, L"01/01/2005", L"Please enter a date within the period 01/01/1905 - 12/31/2004."},
        {2, L"12/31/1904", L"Please enter a date within the period 01/01/1905 - 12/31/2004."},
        {7, L"01/05/29", L"Please enter a date within the period 01/01/1905 - 12/31/2004."},
        {1, L"02/29/04", L""},
        {1, L"__/__/__", L""},
    };
    HostedBox box = ShownDateBox();
    for (const ComplaintRow& row : rows)
    {
        SCOPED_TRACE(Narrow(row.BoxText));
        box.SetStyle(row.Style);
        box.Show({row.BoxText, 0, 0});
        box.ExpectComplaint(row.Message);
        EXPECT_EQ(box.TakeEvents(), Texts());
    }
}

// Before the day from which automation counts, the fraction still counts forward.
TEST_F(MaskedEntryTest, DatesMayLieBeforeTheFirstAutomationDate)
{
    HostedBox box = ShownDateBox();
    box.SetStyle(2);
    box.Site().Put(L"MinDate", Variant::Date(-36522.0)); // 01/01/1800
    box.Site().Put(L"MaxDate", Variant::Date(-1.75));    // 12/29/1899, 18:00
    EXPECT_EQ(V_DATE(&box.Site().Get(L"MinDate").Get()), -36522.0);
    EXPECT_EQ(V_DATE(&box.Site().Get(L"MaxDate").Get()), -1.0);
    box.Show({L"01/01/1800", 0, 0});
    EXPECT_TRUE(box.IsValidInput());
    box.Show({L"12/29/1899", 0, 0});
    EXPECT_TRUE(box.IsValidInput());
    box.Show({L"12/30/1899", 0, 0});
    box.ExpectComplaint(L"Please enter a date within the period 01/01/1800 - 12/29/1899.");
    EXPECT_EQ(Hr(box.Assign(Variant::Date(-2.5))), Hr(S_OK));
    EXPECT_EQ(box.Text(), L"12/28/1899");
}

// A message stands over the box: what the host does meanwhile must not disturb.
TEST_F(MaskedEntryTest, ComplaintsBelongToTheFormAndGiveTheFocusBack)
{
    HostedBox box = ShownNumberBox();
    box.Show({L"123-45-678_", 0, 0});
    MessageBoxWatcher watcher;
    EXPECT_FALSE(box.IsValidInput(true));
    const std::vector<ShownMessageBox> shown = watcher.Stop();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].Owner, TheForm().Window());
    EXPECT_TRUE(PumpUntil(TheForm(), [&] { return GetFocus() == box.Edit(); }));
    EXPECT_EQ(box.Look(), (BoxLook{L"123-45-678_", 0, 11}));
}

} // namespace

} // namespace kiv::test
