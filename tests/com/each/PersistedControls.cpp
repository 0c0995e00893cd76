#include "tests/com/each/PersistedControls.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr char Face[] = "VT 3 -2147483633";
constexpr char Window[] = "VT 3 -2147483643";
constexpr char WindowText[] = "VT 3 -2147483640";
constexpr char ButtonText[] = "VT 3 -2147483630";
constexpr char ContainersFont[] = "font Tahoma, size 97500, weight 400, charset 0";
constexpr char On[] = "VT 11 True";
constexpr char Off[] = "VT 11 False";
constexpr char NoText[] = "VT 8 \"\"";

const std::vector<PersistedControl>& PersistedControls()
{
    static const std::vector<PersistedControl> controls = {
        {L"YesNo",
         {{L"BackColor", Face},
          {L"ForeColor", ButtonText},
          {L"Enabled", On},
          {L"Font", ContainersFont},
          {L"YesText", "VT 8 \"Y\""},
          {.Name = L"NoText",
           .Default = "VT 8 \"N\"",
           .Other = Variant(std::wstring(300, L'n')),
           .TakesAnyType = true},
          {L"Value", "VT 3 0"}},
         {L"BackColor", L"ForeColor", L"Enabled", L"YesText", L"NoText", L"Value", L"Font"}},
        {L"NumberBox",
         {{L"BackColor", Window},
          {L"ForeColor", WindowText},
          {L"Enabled", On},
          {L"Font", ContainersFont},
          {.Name = L"Style", .Default = "VT 3 0", .Other = Variant(3L), .Brings = {L"MaxLength"}},
          {.Name = L"MaxLength", .Default = "VT 2 11", .Depends = true}},
         {L"BackColor", L"Enabled", L"ForeColor", L"Style", L"MaxLength", L"Font"}},
        {L"DateBox",
         {{L"AllowVarious", Off},
          {L"BackColor", Window},
          {L"Enabled", On},
          {L"Font", ContainersFont},
          {L"ForeColor", WindowText},
          {L"Style", "VT 3 1"},
          {L"MaxDate", "VT 7 38352"},
          {L"MinDate", "VT 7 1828"}},
         {L"AllowVarious", L"BackColor", L"Enabled", L"ForeColor", L"Style", L"MaxDate", L"MinDate",
          L"Font"}},
        {L"CurrencyBox",
         {{L"BackColor", Window},
          {L"Enabled", On},
          {L"ForeColor", WindowText},
          {L"Font", ContainersFont},
          {L"AllowRounding", On},
          {.Name = L"NumDecDigits", .Default = "VT 2 2", .Brings = {L"MaxValue", L"MinValue"}},
          {.Name = L"NumIntDigits", .Default = "VT 2 14", .Brings = {L"MaxValue", L"MinValue"}},
          {L"MaxValue", "VT 6 99999999999999"},
          {L"MinValue", "VT 6 -99999999999999"}}},
        {L"PercentBox",
         {{L"BackColor", Window},
          {L"Enabled", On},
          {L"Font", ContainersFont},
          {L"ForeColor", WindowText},
          {L"Complement", Off},
          {L"DisplayPercent", On},
          {L"MaxDigits", "VT 2 3"},
          {L"MaxDecimals", "VT 2 4"},
          {L"MaxValue", "VT 4 100"},
          {L"MinValue", "VT 4 0"}}},
        {L"ChkCombo",
         {{L"Font", ContainersFont}, {L"BackColor", Window}, {L"Enabled", On}, {L"ForeColor", ButtonText}}},
        {L"EnumList",
         {{L"BackColor", Window},
          {L"ForeColor", ButtonText},
          {L"Enabled", On},
          {.Name = L"Font", .Default = ContainersFont, .IsQuiet = true},
          {.Name = L"TableName", .Default = NoText, .IsQuiet = true},
          {.Name = L"StateCode", .Default = NoText, .IsQuiet = true},
          {.Name = L"EnumListTitle", .Default = NoText, .IsQuiet = true},
          // Not that of SortListBy, whose default is the style.
          {.Name = L"DisplayStyle", .Default = "VT 3 0", .Other = Variant(1L)},
          {L"SortListBy", "VT 3 0"}}},
        {L"PicCommand",
         {{L"DetailStatus", "VT 3 0"},
          {L"PictureType", "VT 3 0"},
          {L"Enabled", On},
          {L"Caption", NoText},
          {L"Font", ContainersFont},
          {.Name = L"Value", .Default = Off, .IsMomentary = true}},
         {L"DetailStatus", L"PictureType", L"Enabled", L"Caption", L"Font"}},
        {L"PicLite", {{L"Picture", "nothing"}, {L"ReplaceColor", "VT 3 0"}, {L"MaskColor", "VT 3 0"}}},
    };
    return controls;
}

template<class Interface>
Microsoft::WRL::ComPtr<Interface> As(IUnknown* control)
{
    Microsoft::WRL::ComPtr<Interface> asked;
    Check(control->QueryInterface(IID_PPV_ARGS(&asked)));
    return asked;
}

} // namespace

const PersistedControl& PersistedBy(const PublishedClass& control)
{
    return *std::ranges::find_if(PersistedControls(), [&](const PersistedControl& each) {
        return std::wstring_view(each.Class) == control.Name;
    });
}

Names NamesOf(const std::vector<PersistedKey>& keys)
{
    Names names;
    for (const PersistedKey& key : keys)
        names.emplace_back(key.Name);
    return names;
}

HRESULT Load(IUnknown* control, TestPropertyBag* bag, IErrorLog* log)
{
    return As<IPersistPropertyBag>(control)->Load(bag, log);
}

HRESULT Load(IUnknown* control, IStream* stream)
{
    return As<IPersistStreamInit>(control)->Load(stream);
}

HRESULT Load(IUnknown* control, const Bytes& bytes)
{
    return Load(control, MakeCom<TestStream>(bytes).Get());
}

HRESULT Save(IUnknown* control, TestPropertyBag* bag, bool clearDirty)
{
    return As<IPersistPropertyBag>(control)->Save(bag, clearDirty, FALSE);
}

HRESULT Save(IUnknown* control, IStream* stream, bool clearDirty)
{
    return As<IPersistStreamInit>(control)->Save(stream, clearDirty);
}

bool IsDirty(IUnknown* control)
{
    const HRESULT answer = As<IPersistStreamInit>(control)->IsDirty();
    EXPECT_TRUE(answer == S_OK || answer == S_FALSE) << Hr(answer);
    return answer == S_OK;
}

Names EachPersisted::KeysAsWritten()
{
    return Row().AsWritten.empty() ? NamesOf(Keys()) : Row().AsWritten;
}

bool EachPersisted::Has(const wchar_t* key)
{
    return std::ranges::any_of(
        Keys(), [key](const PersistedKey& each) { return std::wstring_view(each.Name) == key; });
}

const Variant& EachPersisted::OtherValue(const PersistedKey& key)
{
    if (others_.empty())
    {
        const EasyControl control(ClassId());
        control.InitNew();
        for (const PersistedKey& each : Keys())
            others_[each.Name] =
                each.Other.Type() != VT_EMPTY
                    ? each.Other
                    : OtherThan(control.Property(each.Name), PropertyOf(control.Get(), each.Name));
    }
    return others_.at(key.Name);
}

Microsoft::WRL::ComPtr<TestPropertyBag> EachPersisted::UnusualBag()
{
    const auto bag = MakeCom<TestPropertyBag>();
    for (const PersistedKey& key : Keys())
        bag->Put(key.Name, OtherValue(key));
    return bag;
}

void EachPersisted::MakeUnusual(const HeldControl& control)
{
    EXPECT_EQ(Hr(Load(control.Get(), UnusualBag().Get())), Hr(S_OK));
}

const ControlState& EachPersisted::UnusualState()
{
    if (unusualState_.empty())
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        unusualState_ = StateOf(control.Get());
    }
    return unusualState_;
}

const Bytes& EachPersisted::UnusualBytes()
{
    if (unusualBytes_.empty())
    {
        const EasyControl control(ClassId());
        MakeUnusual(control);
        unusualBytes_ = SavedBytes(control);
    }
    return unusualBytes_;
}

const ControlState& EachPersisted::NewState()
{
    if (newState_.empty())
    {
        const EasyControl control(ClassId());
        control.InitNew();
        newState_ = StateOf(control.Get());
    }
    return newState_;
}

void EachPersisted::Change(IDispatch* control)
{
    const std::vector<ControlProperty> properties = PropertiesOf(control);
    for (const PersistedKey& key : Keys())
    {
        const ControlProperty& property = *std::ranges::find(properties, key.Name, &ControlProperty::Name);
        if (property.Type != VT_I4)
            continue;
        const Variant other = OtherThan(GetByName(control, key.Name).Value, property);
        EXPECT_EQ(Hr(PutByName(control, key.Name, other).Result), Hr(S_OK));
        return;
    }
    ADD_FAILURE() << "nothing to change";
}

ControlState EachPersisted::KeptBy(const HeldControl& control)
{
    ControlState state = StateOf(control.Get());
    const Names kept = NamesOf(Keys());
    std::erase_if(state, [&](const auto& each) { return std::ranges::find(kept, each.first) == kept.end(); });
    EXPECT_EQ(state.size(), kept.size());
    return state;
}

Microsoft::WRL::ComPtr<TestPropertyBag> EachPersisted::SavedBag(const HeldControl& control)
{
    const auto bag = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(control.Get(), bag.Get(), false)), Hr(S_OK));
    return bag;
}

Bytes EachPersisted::SavedBytes(const HeldControl& control)
{
    const auto stream = MakeCom<TestStream>();
    EXPECT_EQ(Hr(Save(control.Get(), stream.Get(), false)), Hr(S_OK));
    return stream->Bytes();
}

} // namespace kiv::test
