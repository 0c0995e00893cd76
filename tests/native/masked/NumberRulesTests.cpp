#include "controls/masked/NumberRules.h"

#include "tests/native/masked/NumberBoxEntryRows.h"
#include "tests/native/masked/RowName.h"

namespace kiv::test
{

namespace
{

template<class Row>
NumberRules RulesOf(const Row& row)
{
    NumberRules rules;
    rules.SetStyle(static_cast<NumberFormat>(row.Style));
    rules.SetMaxLength(row.MaxLength);
    return rules;
}

class NumberEntryTest : public testing::TestWithParam<NumberEntryRow>
{
};

TEST_P(NumberEntryTest, ReadsAsTheRowSays)
{
    const NumberEntryRow& row = GetParam();
    const NumberRules rules = RulesOf(row);
    EXPECT_EQ(rules.Text(row.BoxText), row.Text);
    EXPECT_EQ(rules.Value(row.BoxText), row.Value);
    EXPECT_EQ(rules.Complaint(row.BoxText).value_or(L""), row.Message);
    EXPECT_EQ(rules.IsComplete(row.BoxText), row.Message.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberEntryTest, testing::ValuesIn(NumberEntryRows), NameOfRow);

class NumberAssignmentTest : public testing::TestWithParam<NumberAssignmentRow>
{
};

TEST_P(NumberAssignmentTest, IsTakenOrRefused)
{
    const NumberAssignmentRow& row = GetParam();
    const std::optional<std::wstring> expected = row.Refused ? std::nullopt : std::optional(row.After);
    EXPECT_EQ(RulesOf(row).Assigned(row.Assigned), expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberAssignmentTest, testing::ValuesIn(NumberAssignmentRows), NameOfRow);

class NumberPasteTest : public testing::TestWithParam<NumberPasteRow>
{
};

TEST_P(NumberPasteTest, IsTakenWholeOrNotAtAll)
{
    const NumberRules rules = RulesOf(GetParam());
    EXPECT_EQ(rules.Pasted(GetParam().Clipboard), GetParam().After);
    EXPECT_TRUE(!GetParam().After || rules.IsComplete(*GetParam().After));
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberPasteTest, testing::ValuesIn(NumberPasteRows), NameOfRow);

struct StyleRow
{
    const char* Name;
    NumberFormat Style;
    std::wstring Mask;
    int MaxLength;
    bool UsesRoutingBox;
};

class NumberStyleTest : public testing::TestWithParam<StyleRow>
{
};

TEST_P(NumberStyleTest, BringsItsMaskItsLengthAndItsBox)
{
    NumberRules rules;
    rules.SetStyle(GetParam().Style);
    EXPECT_EQ(rules.Style(), GetParam().Style);
    EXPECT_EQ(rules.Mask(), GetParam().Mask);
    EXPECT_EQ(rules.MaxLength(), GetParam().MaxLength);
    EXPECT_EQ(rules.UsesRoutingBox(), GetParam().UsesRoutingBox);
    // Only Custom has a length of the host's choice.
    const bool custom = GetParam().Style == NumberFormat::Custom;
    EXPECT_EQ(rules.SetMaxLength(5), custom);
    EXPECT_EQ(rules.MaxLength(), custom ? 5 : GetParam().MaxLength);
}

// Custom keeps the length that it finds: that of an SSN here. So does a number that is no style, with all
// else.
INSTANTIATE_TEST_SUITE_P(Rows, NumberStyleTest,
                         testing::Values(StyleRow{"SSN", NumberFormat::SSN, L"___-__-____", 11, false},
                                         StyleRow{"FederalId", NumberFormat::FederalId, L"__-_______", 10,
                                                  false},
                                         StyleRow{"Routing", NumberFormat::Routing, L"", 9, true},
                                         StyleRow{"Custom", NumberFormat::Custom, L"", 11, false},
                                         StyleRow{"None", NumberFormat(4), L"___-__-____", 11, false},
                                         StyleRow{"Negative", NumberFormat(-1), L"___-__-____", 11, false}),
                         NameOfRow);

TEST(NumberRulesTest, StartsAsASocialSecurityNumber)
{
    const NumberRules rules;
    EXPECT_EQ(rules.Style(), NumberFormat::SSN);
    EXPECT_EQ(rules.Mask(), L"___-__-____");
    EXPECT_EQ(rules.Value(rules.Mask()), std::nullopt);
    EXPECT_EQ(rules.Text(rules.Mask()), L"");
    EXPECT_EQ(rules.Complaint(rules.Mask()), std::nullopt);
}

TEST(NumberRulesTest, CustomKeepsTheLengthOfRoutingNumbers)
{
    NumberRules rules;
    rules.SetStyle(NumberFormat::Routing);
    rules.SetStyle(NumberFormat::Custom);
    EXPECT_EQ(rules.MaxLength(), NumberRules::RoutingLength);
    EXPECT_FALSE(rules.UsesRoutingBox());
}

TEST(NumberRulesTest, EveryOtherStyleLeavesTheRoutingBox)
{
    for (const NumberFormat style : {NumberFormat::SSN, NumberFormat::FederalId, NumberFormat::Custom})
    {
        NumberRules rules;
        rules.SetStyle(NumberFormat::Routing);
        rules.SetStyle(style);
        EXPECT_FALSE(rules.UsesRoutingBox());
    }
}

TEST(NumberRulesTest, CustomMayBeASingleDigit)
{
    NumberRules rules;
    rules.SetStyle(NumberFormat::Custom);
    rules.SetMaxLength(1);
    EXPECT_TRUE(rules.IsComplete(L"1"));
    EXPECT_FALSE(rules.IsComplete(L"12"));
}

TEST(NumberRulesTest, ANumberThatIsNoStyleKeepsTheRoutingBox)
{
    NumberRules rules;
    rules.SetStyle(NumberFormat::Routing);
    rules.SetStyle(NumberFormat(77));
    EXPECT_TRUE(rules.UsesRoutingBox());
    EXPECT_EQ(rules.Mask(), L"");
}

TEST(NumberRulesTest, ANumberThatIsNoStyleAsksForTheLengthOnly)
{
    NumberRules rules;
    rules.SetStyle(NumberFormat(77));
    EXPECT_TRUE(rules.IsComplete(L"anything 11"));
    EXPECT_FALSE(rules.IsComplete(L"anything 012"));
    EXPECT_EQ(rules.Value(L"___-__-____"), std::nullopt);
}

TEST(NumberRulesTest, AnEmptyBoxIsValidInEveryStyle)
{
    for (int style = 0; style < 4; ++style)
    {
        NumberRules rules;
        rules.SetStyle(NumberFormat(style));
        EXPECT_EQ(rules.Complaint(L""), std::nullopt);
    }
}

TEST(NumberRulesTest, KnowsTheRoutingDistricts)
{
    NumberRules rules;
    rules.SetStyle(NumberFormat::Routing);
    for (int prefix = 0; prefix < 100; ++prefix)
    {
        const std::wstring number = (prefix < 10 ? L"0" : L"") + std::to_wstring(prefix) + L"1000015";
        const bool district = (prefix >= 1 && prefix <= 12) || (prefix >= 21 && prefix <= 32);
        EXPECT_EQ(rules.IsComplete(number), district) << prefix;
    }
}

} // namespace

} // namespace kiv::test
