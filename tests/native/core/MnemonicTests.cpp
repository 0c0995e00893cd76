#include "runtime/core/Mnemonic.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(MnemonicTest, IsTheFirstLetterThatASingleAmpersandMarks)
{
    const struct
    {
        const wchar_t* Caption;
        wchar_t Letter;
    } rows[] = {
        {L"", 0},
        {L"OK", 0},
        {L"&OK", L'O'},
        {L"E&xit", L'x'},
        {L"Exi&t", L't'},
        {L"Exit&", 0},
        {L"&", 0},
        {L"&&", 0},
        {L"A && B", 0},
        {L"A && &B", L'B'},
        {L"&&&B", L'B'},
        {L"&One &Two", L'O'},
        {L"&& & more", L' '},
        {L"&\u00C9", L'\u00C9'},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MnemonicOf(row.Caption), row.Letter) << testing::PrintToString(std::wstring(row.Caption));
}

TEST(MnemonicTest, IsNotShown)
{
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"", L""},           {L"OK", L"OK"},        {L"&OK", L"OK"},  {L"E&xit", L"Exit"},
        {L"Exit&", L"Exit&"}, {L"A && B", L"A & B"}, {L"&&&B", L"&B"}, {L"&One &Two", L"One Two"},
        {L"&&", L"&"},        {L"&", L"&"},
    };
    for (const auto& [caption, shown] : rows)
        EXPECT_EQ(WithoutMnemonic(caption), shown) << testing::PrintToString(std::wstring(caption));
}

TEST(MnemonicTest, IsPressedWithAlt)
{
    EXPECT_EQ(AccessKeyOf(L"E&xit"), L"Alt+x");
    EXPECT_EQ(AccessKeyOf(L"A && B"), L"");
    EXPECT_EQ(AccessKeyOf(L""), L"");
}

} // namespace

} // namespace kiv::test
