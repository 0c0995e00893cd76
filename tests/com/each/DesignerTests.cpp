// What the property window of a designer asks a control, whichever designer it is.

#include "tests/com/ControlProperties.h"
#include "tests/com/each/PersistedControls.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/CategorizeProperties.h"
#include "runtime/com/Errors.h"
#include "runtime/com/TypeDescription.h"

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include <map>
#include <memory>
#include <set>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr DISPID NoSuchMember = 4711;

struct Offer
{
    const wchar_t* Class;
    const wchar_t* Property;
    const char* Names; // in the order of the window, each with its value
};

// All properties that are chosen from a list.
const std::vector<Offer>& Offers()
{
    static const char* const styles = "Code 0, Description 1";
    static const std::vector<Offer> offers = {
        {L"YesNo", L"Value", "Yes 1, No 2, Neither 0"},
        {L"NumberBox", L"Style", "SSN 0, Federal ID 1, Routing # 2, Custom 3"},
        {L"DateBox", L"Style",
         "mm/yy 0, mm/dd/yy 1, mm/dd/yyyy 2, mm/dd 3, yy 4, yyyy 5, mm/yyyy 6, "
         "mm/dd/yy Only Year Required 7"},
        {L"EnumList", L"DisplayStyle", styles},
        {L"EnumList", L"SortListBy", styles},
        {L"PicCommand", L"DetailStatus", "Blank 0, Partial 1, Complete 2"},
        {L"PicCommand", L"PictureType", "Check Mark 0, Plus 1, Minus 2, Note 3, Graph 4, WebLink 5"},
    };
    return offers;
}

struct Categories
{
    const wchar_t* Class;
    const char* Properties; // in the order of the contract
};

const Categories AllCategories[] = {
    {L"YesNo", "BackColor Appearance, ForeColor Appearance, Enabled Behavior, Font Font, hwnd Misc, "
               "YesText Data, NoText Data, Text Data, Value Data"},
    {L"NumberBox", "BackColor Appearance, ForeColor Appearance, Enabled Behavior, Font Font, hwnd Misc, "
                   "MaxLength Limits, Style Behavior, Text Data, Value Data"},
    {L"DateBox",
     "AllowVarious Limits, BackColor Appearance, ForeColor Appearance, Enabled Behavior, "
     "Font Font, hwnd Misc, Style Behavior, MaxDate Limits, MinDate Limits, Text Data, Value Data"},
    {L"CurrencyBox", "AllowRounding Behavior, BackColor Appearance, ForeColor Appearance, Enabled Behavior, "
                     "Font Font, hwnd Misc, NumDecDigits Limits, NumIntDigits Limits, MaxValue Limits, "
                     "MinValue Limits, Text Data, Value Data"},
    {L"PercentBox", "BackColor Appearance, ForeColor Appearance, Enabled Behavior, Font Font, "
                    "Complement Behavior, DisplayPercent Behavior, MaxDigits Limits, MaxDecimals Limits, "
                    "MaxValue Limits, MinValue Limits, Text Data, Value Data"},
    {L"EnumList", "StateCode Data, TableName Data, EnumListTitle Appearance, EnumText Data, "
                  "DisplayStyle Appearance, SortListBy Behavior, Enabled Behavior, EnumCode Data, "
                  "BoundEnumCode Data, Font Font, BackColor Appearance, ForeColor Appearance"},
    {L"ChkCombo", "BackColor Appearance, ForeColor Appearance, Enabled Behavior, Font Font, hwnd Misc, "
                  "Text Data, ListIndex List, ListCount List, NewIndex List, PreviousIndex List"},
    {L"PicCommand", "DetailStatus Data, BoundDetailStatus Data, PictureType Appearance, Enabled Behavior, "
                    "Caption Appearance, Font Font, hwnd Misc, Value Data"},
    {L"PicLite", "Picture Appearance, MaskColor Appearance, ReplaceColor Appearance, "
                 "ResultPicture Appearance"},
};

// As designers know the standard ones.
std::string CategoryName(ICategorizeProperties* categories, int number)
{
    static const std::map<int, std::string> standard = {
        {-1, "nil"},        {-2, "Misc"},     {-3, "Font"}, {-4, "Position"},
        {-5, "Appearance"}, {-6, "Behavior"}, {-7, "Data"}, {-8, "List"},
    };
    Bstr name;
    const HRESULT result = categories->GetCategoryName(number, LOCALE_USER_DEFAULT, name.Receive());
    const auto found = standard.find(number);
    if (found == standard.end())
        return result == S_OK ? Narrow(name.String()) : Hr(result);
    EXPECT_EQ(Hr(result), Hr(E_INVALIDARG)) << "the designer has names for the standard ones";
    EXPECT_EQ(name.Get(), nullptr);
    return found->second;
}

// What a control hands out, freed as the interface asks.
class Predefined
{
public:
    Predefined(IPerPropertyBrowsing* browsing, DISPID property) :
        Result(browsing->GetPredefinedStrings(property, &strings_, &cookies_))
    {
    }
    Predefined(const Predefined&) = delete;
    Predefined& operator=(const Predefined&) = delete;
    ~Predefined()
    {
        for (ULONG i = 0; i < strings_.cElems; ++i)
            CoTaskMemFree(strings_.pElems[i]);
        CoTaskMemFree(strings_.pElems);
        CoTaskMemFree(cookies_.pElems);
    }

    bool IsEmpty() const
    {
        return strings_.cElems == 0 && !strings_.pElems && cookies_.cElems == 0 && !cookies_.pElems;
    }
    ULONG Count() const
    {
        EXPECT_EQ(strings_.cElems, cookies_.cElems);
        return strings_.cElems;
    }
    std::wstring Name(ULONG index) const { return strings_.pElems[index]; }
    DWORD Cookie(ULONG index) const { return cookies_.pElems[index]; }

private:
    // Not what a control may leave as it was.
    CALPOLESTR strings_ = {4711, nullptr};
    CADWORD cookies_ = {4711, nullptr};

public:
    const HRESULT Result; // comes of filling the above
};

class EachDesigner : public EachTest
{
protected:
    void SetUp() override
    {
        EachTest::SetUp();
        control_ = std::make_unique<EasyControl>(ClassId());
        control_->InitNew();
        browsing_ = control_->Query<IPerPropertyBrowsing>();
        Check(control_->Get()->QueryInterface(CategorizePropertiesId,
                                              reinterpret_cast<void**>(categories_.GetAddressOf())));
        for (const ControlProperty& each : PropertiesOf(control_->Get()))
        {
            if (each.CanBeRead)
                shown_.push_back(each);
        }
        ASSERT_FALSE(shown_.empty());
    }
    void TearDown() override
    {
        categories_.Reset();
        browsing_.Reset();
        control_.reset();
        EachTest::TearDown();
    }

    // What the window shows of a property, which must not be told when there is an error.
    std::string Displayed(DISPID property) const
    {
        BSTR text = Bstr(L"left as it was").Detach();
        const BSTR former = text;
        const HRESULT result = browsing_->GetDisplayString(property, &text);
        SysFreeString(former);
        EXPECT_NE(text, former);
        EXPECT_EQ(text != nullptr, result == S_OK);
        const std::string shown = result == S_OK ? Narrow(std::wstring(Bstr::ViewOf(text))) : Hr(result);
        SysFreeString(text);
        return shown;
    }
    // Identifiers of which the property window knows nothing: of methods, of properties with an index, of
    // those that cannot be read, and of nothing at all.
    std::set<DISPID> Others() const
    {
        std::set<DISPID> others = {NoSuchMember, DISPID_UNKNOWN};
        ComPtr<ITypeInfo> info;
        Check(control_->Get()->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
        const UINT count = TypeAttributes(info.Get())->cFuncs;
        for (UINT i = 0; i < count; ++i)
            others.insert(FunctionDescription(info.Get(), i)->memid);
        for (const ControlProperty& each : shown_)
            others.erase(each.Id);
        return others;
    }

    std::unique_ptr<EasyControl> control_;
    ComPtr<IPerPropertyBrowsing> browsing_;
    ComPtr<ICategorizeProperties> categories_;
    std::vector<ControlProperty> shown_;
};

TEST_P(EachDesigner, OffersTheMembersOfEnumerations)
{
    for (const ControlProperty& property : shown_)
    {
        SCOPED_TRACE(Narrow(property.Name));
        const auto offer = std::ranges::find_if(Offers(), [&](const Offer& each) {
            return each.Class == std::wstring_view(GetParam().Name) && each.Property == property.Name;
        });
        EXPECT_EQ(offer != Offers().end(), property.IsEnumeration);
        const Predefined predefined(browsing_.Get(), property.Id);
        if (offer == Offers().end())
        {
            EXPECT_EQ(Hr(predefined.Result), Hr(E_NOTIMPL));
            EXPECT_TRUE(predefined.IsEmpty());
            continue;
        }
        ASSERT_EQ(Hr(predefined.Result), Hr(S_OK));
        std::string names;
        for (ULONG i = 0; i < predefined.Count(); ++i)
            names += (i == 0 ? "" : ", ") + Narrow(predefined.Name(i)) + " " +
                     std::to_string(predefined.Cookie(i));
        EXPECT_EQ(names, offer->Names);
    }
}

// As the window sets what was chosen, and shows it then.
TEST_P(EachDesigner, TakesWhatItOffersAndShowsItByName)
{
    for (const ControlProperty& property : shown_)
    {
        if (!property.IsEnumeration)
            continue;
        const Predefined predefined(browsing_.Get(), property.Id);
        ASSERT_EQ(Hr(predefined.Result), Hr(S_OK));
        for (ULONG i = 0; i < predefined.Count(); ++i)
        {
            SCOPED_TRACE(Narrow(property.Name) + " " + Narrow(predefined.Name(i)));
            Variant value;
            EXPECT_EQ(Hr(browsing_->GetPredefinedValue(property.Id, predefined.Cookie(i), value.Receive())),
                      Hr(S_OK));
            EXPECT_EQ(Show(value), Show(Variant(static_cast<long>(predefined.Cookie(i)))));
            control_->Put(property.Name.c_str(), value);
            EXPECT_EQ(Displayed(property.Id), Narrow(predefined.Name(i)));
        }
        Variant value(L"left as it was");
        EXPECT_EQ(Hr(browsing_->GetPredefinedValue(property.Id, 4711, value.Borrow())), Hr(E_INVALIDARG));
        EXPECT_EQ(value.Type(), VT_EMPTY);
    }
}

TEST_P(EachDesigner, ShowsBooleansAsWords)
{
    for (const ControlProperty& property : shown_)
    {
        if (property.Type != VT_BOOL)
            continue;
        SCOPED_TRACE(Narrow(property.Name));
        for (int round = 0; round < 2; ++round)
        {
            const bool is = control_->Property(property.Name.c_str()).Bool();
            EXPECT_EQ(Displayed(property.Id), is ? "True" : "False");
            control_->Put(property.Name.c_str(), Variant(!is));
        }
    }
}

// The window shows the value in its own way.
TEST_P(EachDesigner, LeavesOtherValuesToTheWindow)
{
    for (const ControlProperty& property : shown_)
    {
        if (property.Type == VT_BOOL || property.IsEnumeration)
            continue;
        SCOPED_TRACE(Narrow(property.Name));
        EXPECT_EQ(Displayed(property.Id), Hr(E_NOTIMPL));
        Variant value(L"left as it was");
        EXPECT_EQ(Hr(browsing_->GetPredefinedValue(property.Id, 0, value.Borrow())), Hr(E_INVALIDARG));
        EXPECT_EQ(value.Type(), VT_EMPTY);
    }
}

TEST_P(EachDesigner, SortsItsPropertiesIntoCategories)
{
    const auto row = std::ranges::find(AllCategories, std::wstring_view(GetParam().Name), &Categories::Class);
    ASSERT_NE(row, std::end(AllCategories));
    std::string categories;
    for (const ControlProperty& property : shown_)
    {
        int category = 4711;
        EXPECT_EQ(Hr(categories_->MapPropertyToCategory(property.Id, &category)), Hr(S_OK));
        categories += (categories.empty() ? "" : ", ") + Narrow(property.Name) + " " +
                      CategoryName(categories_.Get(), category);
    }
    EXPECT_EQ(categories, row->Properties);
}

TEST_P(EachDesigner, NamesNoOtherCategories)
{
    for (const int number : {0, 2, -12, 4711})
    {
        BSTR name = nullptr;
        EXPECT_EQ(Hr(categories_->GetCategoryName(number, LOCALE_USER_DEFAULT, &name)), Hr(E_INVALIDARG));
        EXPECT_EQ(name, nullptr);
    }
}

// A menu has those that are marked for it; each does what it says.
TEST_P(EachDesigner, OffersItsVerbs)
{
    const auto object = control_->Query<IOleObject>();
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(Hr(object->EnumVerbs(&verbs)), Hr(S_OK));
    std::string offered;
    OLEVERB verb = {};
    ULONG fetched = 0;
    while (verbs->Next(1, &verb, &fetched) == S_OK)
    {
        const bool onMenu = (verb.grfAttribs & OLEVERBATTRIB_ONCONTAINERMENU) != 0;
        offered += Narrow(verb.lpszVerbName) + " " + std::to_string(verb.lVerb) + (onMenu ? " menu; " : "; ");
        CoTaskMemFree(verb.lpszVerbName);
        EXPECT_EQ(Hr(object->DoVerb(verb.lVerb, nullptr, &control_->Site(), 0,
                                    control_->Site().Window().Handle(), &control_->Site().Position())),
                  Hr(S_OK));
        HWND window = nullptr;
        EXPECT_EQ(Hr(control_->Query<IOleInPlaceObject>()->GetWindow(&window)), Hr(S_OK));
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_EQ(Hr(control_->Query<IOleInPlaceObject>()->InPlaceDeactivate()), Hr(S_OK));
    }
    EXPECT_EQ(offered, "&Edit 0 menu; Show -1; ");
    EXPECT_EQ(Hr(object->DoVerb(OLEIVERB_PROPERTIES, nullptr, &control_->Site(), 0,
                                control_->Site().Window().Handle(), &control_->Site().Position())),
              Hr(E_NOTIMPL))
        << "there are no pages, and so the verb is not offered";
}

TEST_P(EachDesigner, HasNoPropertyPages)
{
    for (const ControlProperty& property : shown_)
    {
        CLSID page = IID_IUnknown;
        EXPECT_EQ(Hr(browsing_->MapPropertyToPage(property.Id, &page)), Hr(PERPROP_E_NOPAGEAVAILABLE))
            << Narrow(property.Name);
        EXPECT_EQ(GuidText(page), GuidText(CLSID_NULL));
    }
}

TEST_P(EachDesigner, KnowsOnlyWhatAWindowShows)
{
    for (const DISPID each : Others())
    {
        SCOPED_TRACE(each);
        EXPECT_EQ(Displayed(each), Hr(DISP_E_MEMBERNOTFOUND));
        const Predefined predefined(browsing_.Get(), each);
        EXPECT_EQ(Hr(predefined.Result), Hr(DISP_E_MEMBERNOTFOUND));
        EXPECT_TRUE(predefined.IsEmpty());
        Variant value;
        EXPECT_EQ(Hr(browsing_->GetPredefinedValue(each, 0, value.Receive())), Hr(DISP_E_MEMBERNOTFOUND));
        CLSID page = {};
        EXPECT_EQ(Hr(browsing_->MapPropertyToPage(each, &page)), Hr(DISP_E_MEMBERNOTFOUND));
        int category = 4711;
        EXPECT_EQ(Hr(categories_->MapPropertyToCategory(each, &category)), Hr(DISP_E_MEMBERNOTFOUND));
        EXPECT_EQ(CategoryName(categories_.Get(), category), "nil");
    }
}

TEST_P(EachDesigner, RefusesToAnswerNowhere)
{
    const DISPID property = shown_.front().Id;
    CALPOLESTR strings = {};
    CADWORD cookies = {};
    EXPECT_EQ(Hr(browsing_->GetDisplayString(property, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(browsing_->MapPropertyToPage(property, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(browsing_->GetPredefinedStrings(property, nullptr, &cookies)), Hr(E_POINTER));
    EXPECT_EQ(Hr(browsing_->GetPredefinedStrings(property, &strings, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(browsing_->GetPredefinedValue(property, 0, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(categories_->MapPropertyToCategory(property, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(categories_->GetCategoryName(1, LOCALE_USER_DEFAULT, nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->Query<IOleObject>()->EnumVerbs(nullptr)), Hr(E_POINTER));
}

INSTANTIATE_TEST_SUITE_P(Controls, EachDesigner, testing::ValuesIn(PublishedClasses()), ClassName());

class DesignerTest : public LibraryTest
{
};

// A status that is none is kept, and shown as the number that it is.
TEST_F(DesignerTest, ShowsNoNameForAValueThatHasNone)
{
    const EasyControl button(Id(ClassNamed(L"PicCommand").Class));
    button.InitNew();
    button.Put(L"DetailStatus", Variant(7L));
    BSTR text = nullptr;
    const DISPID property = PropertyOf(button.Get(), L"DetailStatus").Id;
    EXPECT_EQ(Hr(button.Query<IPerPropertyBrowsing>()->GetDisplayString(property, &text)), Hr(E_NOTIMPL));
    EXPECT_EQ(text, nullptr);
}

} // namespace

} // namespace kiv::test
