// How every control reads and writes what it keeps.

#include "tests/com/each/EachTest.h"

#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include <algorithm>
#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Names = std::vector<std::wstring>;

// What a container is asked for, and in which order. Part of what is published: containers keep such lists.
const std::map<std::wstring, Names> KeysAsRead = {
    {L"YesNo", {L"BackColor", L"ForeColor", L"Enabled", L"Font", L"YesText", L"NoText", L"Value"}},
    {L"NumberBox", {L"BackColor", L"ForeColor", L"Enabled", L"Font", L"Style"}},
    {L"DateBox",
     {L"AllowVarious", L"BackColor", L"Enabled", L"Font", L"ForeColor", L"Style", L"MaxDate", L"MinDate"}},
    {L"CurrencyBox",
     {L"BackColor", L"Enabled", L"ForeColor", L"Font", L"AllowRounding", L"NumDecDigits", L"NumIntDigits",
      L"MaxValue", L"MinValue"}},
    {L"PercentBox",
     {L"BackColor", L"Enabled", L"Font", L"ForeColor", L"Complement", L"DisplayPercent", L"MaxDigits",
      L"MaxDecimals", L"MaxValue", L"MinValue"}},
    {L"ChkCombo", {L"Font", L"BackColor", L"Enabled", L"ForeColor"}},
    {L"EnumList",
     {L"BackColor", L"ForeColor", L"Enabled", L"Font", L"TableName", L"StateCode", L"EnumListTitle",
      L"DisplayStyle", L"SortListBy"}},
    {L"PicCommand", {L"DetailStatus", L"PictureType", L"Enabled", L"Caption", L"Font", L"Value"}},
    {L"PicLite", {L"Picture", L"ReplaceColor", L"MaskColor"}},
};

class EachPersistence : public EachTest
{
protected:
    ComPtr<IUnknown> Made() { return TheLibrary().Create(ClassId()); }

    template<class Interface>
    static ComPtr<Interface> As(const ComPtr<IUnknown>& control)
    {
        ComPtr<Interface> asked;
        EXPECT_EQ(Hr(control.As(&asked)), Hr(S_OK));
        return asked;
    }
    static std::vector<std::uint8_t> BytesOf(const ComPtr<IUnknown>& control)
    {
        const auto stream = MakeCom<TestStream>();
        EXPECT_EQ(Hr(As<IPersistStreamInit>(control)->Save(stream.Get(), TRUE)), Hr(S_OK));
        return stream->Bytes();
    }
    static HRESULT Load(const ComPtr<IUnknown>& control, std::vector<std::uint8_t> bytes)
    {
        return As<IPersistStreamInit>(control)->Load(MakeCom<TestStream>(std::move(bytes)).Get());
    }
    static ComPtr<TestPropertyBag> SavedBag(const ComPtr<IUnknown>& control)
    {
        const auto bag = MakeCom<TestPropertyBag>();
        EXPECT_EQ(Hr(As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, TRUE)), Hr(S_OK));
        return bag;
    }
};

TEST_P(EachPersistence, AsksForItsKeysInTheirOrder)
{
    const auto control = Made();
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr)), Hr(S_OK));
    // One of a wanted type that the bag may not have is asked for again, without a type.
    Names read = bag->NamesRead();
    read.erase(std::unique(read.begin(), read.end()), read.end());
    EXPECT_EQ(read, KeysAsRead.at(GetParam().Name));
}

TEST_P(EachPersistence, ANewOneLeavesOutAllDefaults)
{
    const auto control = Made();
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(control)->InitNew()), Hr(S_OK));
    EXPECT_EQ(SavedBag(control)->NamesWritten(), Names());
}

TEST_P(EachPersistence, WhatIsReadFromNothingIsAsNew)
{
    const auto fresh = Made();
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(fresh)->InitNew()), Hr(S_OK));
    const auto read = Made();
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(read)->Load(MakeCom<TestPropertyBag>().Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(BytesOf(read), BytesOf(fresh));
}

// Under its key, in its type, and nothing else beside it.
TEST_P(EachPersistence, WhatIsStoredComesBack)
{
    const auto control = Made();
    const auto bag = MakeCom<TestPropertyBag>();
    const Names& keys = KeysAsRead.at(GetParam().Name);
    Names expected;
    for (const wchar_t* const key : {L"BackColor", L"Enabled", L"ForeColor", L"MaskColor"})
    {
        if (std::ranges::find(keys, key) == keys.end())
            continue;
        bag->Put(key, std::wstring_view(key) == L"Enabled" ? Variant(false) : Variant(0x123456L));
        expected.push_back(key);
    }
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr)), Hr(S_OK));
    const auto saved = SavedBag(control);
    Names written = saved->NamesWritten();
    std::ranges::sort(written);
    EXPECT_EQ(written, expected);
    for (const std::wstring& key : expected)
        EXPECT_TRUE(Identical(saved->Find(key), bag->Find(key))) << Narrow(key);
}

// Wherever a stream breaks off, the load fails and the control is as a new one.
TEST_P(EachPersistence, ACutStreamLeavesItNew)
{
    const auto fresh = Made();
    EXPECT_EQ(Hr(As<IPersistStreamInit>(fresh)->InitNew()), Hr(S_OK));
    const std::vector<std::uint8_t> asNew = BytesOf(fresh);

    const auto odd = Made();
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Enabled", Variant(false));
    bag->Put(L"MaskColor", Variant(7L));
    EXPECT_EQ(Hr(As<IPersistPropertyBag>(odd)->Load(bag.Get(), nullptr)), Hr(S_OK));
    const std::vector<std::uint8_t> whole = BytesOf(odd);
    ASSERT_NE(whole, asNew);

    for (std::size_t length = 0; length < whole.size(); ++length)
    {
        const auto control = Made();
        EXPECT_EQ(Hr(Load(control, whole)), Hr(S_OK));
        EXPECT_EQ(BytesOf(control), whole);
        const auto end = whole.begin() + static_cast<std::ptrdiff_t>(length);
        EXPECT_TRUE(FAILED(Load(control, {whole.begin(), end}))) << length;
        EXPECT_EQ(BytesOf(control), asNew) << length;
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, EachPersistence, testing::ValuesIn(PublishedClasses()), ClassName());

} // namespace

} // namespace kiv::test
