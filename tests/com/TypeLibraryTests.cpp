// The type library that hosts read from the library's file, member by member against the published contract.

#include "tests/com/PublishedClasses.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"

#include <oleauto.h>

#include <algorithm>
#include <map>
#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// Attributes that have to be given back.
class TypeAttributes
{
public:
    explicit TypeAttributes(ITypeInfo* info) : info_(info) { Check(info->GetTypeAttr(&attributes_)); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() { info_->ReleaseTypeAttr(attributes_); }
    const TYPEATTR* operator->() const { return attributes_; }

private:
    ITypeInfo* info_;
    TYPEATTR* attributes_ = nullptr;
};

class FunctionDescription
{
public:
    FunctionDescription(ITypeInfo* info, UINT index) : info_(info)
    {
        Check(info->GetFuncDesc(index, &function_));
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;
    ~FunctionDescription() { info_->ReleaseFuncDesc(function_); }
    const FUNCDESC* operator->() const { return function_; }

private:
    ITypeInfo* info_;
    FUNCDESC* function_ = nullptr;
};

struct Documentation
{
    std::wstring Name;
    std::wstring Help;
};

template<class Info>
Documentation DocumentationOf(Info* info, int member)
{
    Bstr name;
    Bstr help;
    Check(info->GetDocumentation(member, name.Receive(), help.Receive(), nullptr, nullptr));
    return {name.String(), help.String()};
}

// A type as an interface definition would name it.
std::wstring TypeName(ITypeInfo* info, const TYPEDESC& type)
{
    switch (type.vt)
    {
    case VT_I2:
        return L"short";
    case VT_I4:
        return L"long";
    case VT_I8:
        return L"hyper";
    case VT_UI4:
        return L"unsigned long";
    case VT_BOOL:
        return L"VARIANT_BOOL";
    case VT_BSTR:
        return L"BSTR";
    case VT_VARIANT:
        return L"VARIANT";
    case VT_VOID:
        return L"void";
    case VT_HRESULT:
        return L"HRESULT";
    case VT_DISPATCH:
        return L"IDispatch*";
    case VT_PTR:
        return TypeName(info, *type.lptdesc) + L"*";
    case VT_USERDEFINED: {
        ComPtr<ITypeInfo> named;
        Check(info->GetRefTypeInfo(type.hreftype, &named));
        return DocumentationOf(named.Get(), MEMBERID_NIL).Name;
    }
    default:
        return L"VT " + std::to_wstring(type.vt);
    }
}

std::wstring ParameterText(ITypeInfo* info, const ELEMDESC& element, const std::wstring& name)
{
    const USHORT flags = element.paramdesc.wParamFlags;
    std::wstring text;
    const std::pair<USHORT, const wchar_t*> words[] = {{PARAMFLAG_FIN, L"in "},
                                                       {PARAMFLAG_FOUT, L"out "},
                                                       {PARAMFLAG_FRETVAL, L"retval "},
                                                       {PARAMFLAG_FOPT, L"optional "}};
    for (const auto& [flag, word] : words)
        text += (flags & flag) != 0 ? word : L"";
    if ((flags & PARAMFLAG_FHASDEFAULT) != 0)
        text += L"=" + Variant(element.paramdesc.pparamdescex->varDefaultValue).Text() + L" ";
    text += TypeName(info, element.tdesc);
    return name.empty() ? text : text + L" " + name;
}

// One member in one line: kind, name, parameters, result, flags. Hosts see a property's value as its result.
std::wstring MemberText(ITypeInfo* info, UINT index)
{
    const FunctionDescription function(info, index);
    const std::map<INVOKEKIND, std::wstring> kinds = {{INVOKE_FUNC, L"method"},
                                                      {INVOKE_PROPERTYGET, L"get"},
                                                      {INVOKE_PROPERTYPUT, L"put"},
                                                      {INVOKE_PROPERTYPUTREF, L"putref"}};
    BSTR names[8] = {};
    UINT count = 0;
    Check(info->GetNames(function->memid, names, ARRAYSIZE(names), &count));
    std::vector<std::wstring> parameterNames;
    for (UINT i = 0; i < count; ++i)
    {
        parameterNames.emplace_back(Bstr::ViewOf(names[i]));
        SysFreeString(names[i]);
    }
    parameterNames.resize(1 + static_cast<std::size_t>(function->cParams));

    std::wstring text = kinds.at(function->invkind) + L" " + std::to_wstring(function->memid) + L" " +
                        parameterNames[0] + L"(";
    for (SHORT i = 0; i < function->cParams; ++i)
    {
        const std::size_t number = static_cast<std::size_t>(i);
        const bool named = function->invkind == INVOKE_FUNC;
        text += (i == 0 ? L"" : L", ") + ParameterText(info, function->lprgelemdescParam[i],
                                                       named ? parameterNames[number + 1] : std::wstring());
    }
    text += L") " + TypeName(info, function->elemdescFunc.tdesc);
    const std::pair<USHORT, const wchar_t*> words[] = {
        {FUNCFLAG_FBINDABLE, L" bindable"},       {FUNCFLAG_FREQUESTEDIT, L" requestedit"},
        {FUNCFLAG_FDISPLAYBIND, L" displaybind"}, {FUNCFLAG_FDEFAULTBIND, L" defaultbind"},
        {FUNCFLAG_FHIDDEN, L" hidden"},           {FUNCFLAG_FNONBROWSABLE, L" nonbrowsable"},
        {FUNCFLAG_FRESTRICTED, L" restricted"},   {FUNCFLAG_FUIDEFAULT, L" uidefault"}};
    for (const auto& [flag, word] : words)
        text += (function->wFuncFlags & flag) != 0 ? word : L"";
    return text;
}

// Where an interface's own members begin: a dispinterface view of a dual one lists IDispatch's seven first.
constexpr MEMBERID FirstOfIDispatch = 0x60000000;
constexpr MEMBERID LastOfIDispatch = 0x60010003;

std::vector<std::wstring> OwnMembers(ITypeInfo* info)
{
    const TypeAttributes attributes(info);
    std::vector<std::wstring> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
    {
        const FunctionDescription function(info, i);
        if (function->memid < FirstOfIDispatch || function->memid > LastOfIDispatch)
            members.push_back(MemberText(info, i));
    }
    return members;
}

// The vtable's side of a dual interface.
ComPtr<ITypeInfo> VtableSide(ITypeInfo* info)
{
    HREFTYPE reference = 0;
    Check(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ComPtr<ITypeInfo> vtable;
    Check(info->GetRefTypeInfo(reference, &vtable));
    return vtable;
}

class TypeLibraryTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        ASSERT_HRESULT_SUCCEEDED(LoadTypeLibEx(TheLibrary().Path().c_str(), REGKIND_NONE, &library_));
    }
    void TearDown() override
    {
        library_.Reset();
        LibraryTest::TearDown();
    }

    ComPtr<ITypeInfo> InfoOf(REFGUID guid) const
    {
        ComPtr<ITypeInfo> info;
        Check(library_->GetTypeInfoOfGuid(guid, &info));
        return info;
    }

    ComPtr<ITypeLib> library_;
};

TEST_F(TypeLibraryTest, IsTheOneThatFormsReferTo)
{
    TLIBATTR* attributes = nullptr;
    ASSERT_HRESULT_SUCCEEDED(library_->GetLibAttr(&attributes));
    EXPECT_EQ(GuidText(attributes->guid), L"{3E649255-873E-11D3-BB17-00105A16D8EF}");
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 0U);
    EXPECT_EQ(attributes->wLibFlags & (LIBFLAG_FRESTRICTED | LIBFLAG_FHIDDEN), 0);
    EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    library_->ReleaseTLibAttr(attributes);

    const Documentation documentation = DocumentationOf(library_.Get(), MEMBERID_NIL);
    EXPECT_EQ(documentation.Name, L"KivControls");
    EXPECT_EQ(documentation.Help, L"Form Folio Custom Controls");
}

TEST_F(TypeLibraryTest, IsFoundInTheRegistry)
{
    ComPtr<ITypeLib> registered;
    ASSERT_HRESULT_SUCCEEDED(LoadRegTypeLib(Id(0x3E649255), 1, 0, LOCALE_NEUTRAL, &registered));
    EXPECT_EQ(registered->GetTypeInfoCount(), library_->GetTypeInfoCount());
    EXPECT_EQ(DocumentationOf(registered.Get(), MEMBERID_NIL).Help, L"Form Folio Custom Controls");
}

struct PublishedType
{
    std::wstring Name;
    TYPEKIND Kind;
    unsigned long Id;
};

// Nothing else is in it: no class without a control behind it, and nothing internal.
TEST_F(TypeLibraryTest, HoldsThePublishedTypesAndNoOthers)
{
    std::vector<PublishedType> types = {
        {L"AnswerEnums", TKIND_ENUM, 0x3E649238},
        {L"NumberFormatEnums", TKIND_ENUM, 0x3E64924E},
        {L"DisplayStyleEnums", TKIND_ENUM, 0x3E649234},
        {L"DetailStatusEnums", TKIND_ENUM, 0x3E649240},
        {L"ButtonPictureTypeEnums", TKIND_ENUM, 0x3E649241},
        {L"DateFormatEnums", TKIND_ENUM, 0x3E64923C},
        {L"ISubClass", TKIND_DISPATCH, 0x3E649230},
    };
    for (const PublishedClass& each : ClassesIn(library_.Get()))
    {
        const std::wstring name = each.Name;
        types.push_back({name, TKIND_COCLASS, each.Class});
        types.push_back({L"_" + name, TKIND_DISPATCH, each.Properties});
        types.push_back({L"__" + name, TKIND_DISPATCH, each.Events});
    }
    std::map<std::wstring, PublishedType> expected;
    for (const PublishedType& type : types)
        expected.emplace(type.Name, type);

    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i)
    {
        ComPtr<ITypeInfo> info;
        ASSERT_HRESULT_SUCCEEDED(library_->GetTypeInfo(i, &info));
        const std::wstring name = DocumentationOf(info.Get(), MEMBERID_NIL).Name;
        const TypeAttributes attributes(info.Get());
        const auto found = expected.find(name);
        // Aliases of standard types that members refer to come along.
        if (found == expected.end())
        {
            EXPECT_EQ(attributes->typekind, TKIND_ALIAS) << Narrow(name);
            continue;
        }
        EXPECT_EQ(attributes->typekind, found->second.Kind) << Narrow(name);
        EXPECT_EQ(GuidText(attributes->guid), GuidText(Id(found->second.Id))) << Narrow(name);
        EXPECT_NE(DocumentationOf(info.Get(), MEMBERID_NIL).Help, L"") << Narrow(name);
        expected.erase(found);
    }
    for (const auto& [name, type] : expected)
        ADD_FAILURE() << Narrow(name) << " is missing";
}

TEST_F(TypeLibraryTest, HoldsExactlyTheClassesThatCanBeMade)
{
    const auto classes = ClassesIn(library_.Get());
    EXPECT_FALSE(classes.empty());
    for (const PublishedClass& each : PublishedClasses())
    {
        ComPtr<IClassFactory> factory;
        const HRESULT made = TheLibrary().GetClassObject(Id(each.Class), IID_PPV_ARGS(&factory));
        const bool published = std::ranges::any_of(
            classes, [&each](const PublishedClass& other) { return other.Class == each.Class; });
        EXPECT_EQ(Hr(made), Hr(published ? S_OK : CLASS_E_CLASSNOTAVAILABLE)) << Narrow(each.Name);
    }
}

struct Member
{
    const wchar_t* Name;
    long Value;
};

struct Enumeration
{
    const char* Name;
    unsigned long Id;
    std::vector<Member> Members;

    friend std::ostream& operator<<(std::ostream& out, const Enumeration& row) { return out << row.Name; }
};

class EnumerationTest : public TypeLibraryTest, public testing::WithParamInterface<Enumeration>
{
};

TEST_P(EnumerationTest, ListsItsMembersInOrder)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(GetParam().Id));
    EXPECT_EQ(DocumentationOf(info.Get(), MEMBERID_NIL).Name, Widen(GetParam().Name));
    const TypeAttributes attributes(info.Get());
    ASSERT_EQ(attributes->cVars, GetParam().Members.size());
    for (UINT i = 0; i < attributes->cVars; ++i)
    {
        VARDESC* variable = nullptr;
        ASSERT_HRESULT_SUCCEEDED(info->GetVarDesc(i, &variable));
        const Documentation documentation = DocumentationOf(info.Get(), variable->memid);
        const Member& expected = GetParam().Members[i];
        EXPECT_EQ(documentation.Name, expected.Name);
        EXPECT_EQ(documentation.Help, expected.Name);
        EXPECT_EQ(variable->varkind, VAR_CONST);
        EXPECT_EQ(variable->wVarFlags, 0);
        EXPECT_EQ(Show(Variant(*variable->lpvarValue)), Show(Variant(expected.Value)))
            << Narrow(expected.Name);
        info->ReleaseVarDesc(variable);
    }
}

TEST_P(EnumerationTest, FindsItsMembersByName)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(GetParam().Id));
    ComPtr<ITypeComp> compiler;
    ASSERT_HRESULT_SUCCEEDED(info->GetTypeComp(&compiler));
    for (const Member& expected : GetParam().Members)
    {
        std::wstring name = expected.Name;
        LPOLESTR names[] = {name.data()};
        MEMBERID member = MEMBERID_NIL;
        EXPECT_HRESULT_SUCCEEDED(info->GetIDsOfNames(names, 1, &member)) << Narrow(name);
        EXPECT_EQ(DocumentationOf(info.Get(), member).Name, expected.Name);

        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, name.data());
        ComPtr<ITypeInfo> owner;
        DESCKIND kind = DESCKIND_NONE;
        BINDPTR binding = {};
        EXPECT_HRESULT_SUCCEEDED(
            compiler->Bind(name.data(), hash, INVOKE_PROPERTYGET, &owner, &kind, &binding));
        ASSERT_EQ(kind, DESCKIND_VARDESC) << Narrow(name);
        EXPECT_EQ(V_I4(binding.lpvardesc->lpvarValue), expected.Value) << Narrow(name);
        owner->ReleaseVarDesc(binding.lpvardesc);
    }
}

TEST_P(EnumerationTest, IsFoundThroughTheWholeLibrary)
{
    for (const Member& expected : GetParam().Members)
    {
        std::wstring name = expected.Name;
        const ULONG hash = LHashValOfNameSys(SYS_WIN32, LOCALE_NEUTRAL, name.data());
        BOOL known = FALSE;
        EXPECT_HRESULT_SUCCEEDED(library_->IsName(name.data(), hash, &known));
        EXPECT_TRUE(known) << Narrow(name);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EnumerationTest,
    testing::Values(
        // In this order, which is not that of the values.
        Enumeration{"AnswerEnums", 0x3E649238, {{L"Yes", 1}, {L"No", 2}, {L"Neither", 0}}},
        Enumeration{"NumberFormatEnums",
                    0x3E64924E,
                    {{L"SSN", 0}, {L"Federal ID", 1}, {L"Routing #", 2}, {L"Custom", 3}}},
        Enumeration{"DisplayStyleEnums", 0x3E649234, {{L"Code", 0}, {L"Description", 1}}},
        Enumeration{"DetailStatusEnums", 0x3E649240, {{L"Blank", 0}, {L"Partial", 1}, {L"Complete", 2}}},
        Enumeration{
            "ButtonPictureTypeEnums",
            0x3E649241,
            {{L"Check Mark", 0}, {L"Plus", 1}, {L"Minus", 2}, {L"Note", 3}, {L"Graph", 4}, {L"WebLink", 5}}},
        Enumeration{"DateFormatEnums",
                    0x3E64923C,
                    {{L"mm/yy", 0},
                     {L"mm/dd/yy", 1},
                     {L"mm/dd/yyyy", 2},
                     {L"mm/dd", 3},
                     {L"yy", 4},
                     {L"yyyy", 5},
                     {L"mm/yyyy", 6},
                     {L"mm/dd/yy Only Year Required", 7}}}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST_F(TypeLibraryTest, DescribesItsClassesAsControls)
{
    for (const PublishedClass& each : ClassesIn(library_.Get()))
    {
        SCOPED_TRACE(Narrow(each.Name));
        const ComPtr<ITypeInfo> info = InfoOf(Id(each.Class));
        const TypeAttributes attributes(info.Get());
        EXPECT_EQ(attributes->wTypeFlags, TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL);

        struct Implemented
        {
            std::wstring Name;
            INT Flags;
        };
        std::vector<Implemented> expected = {{std::wstring(L"_") + each.Name, IMPLTYPEFLAG_FDEFAULT}};
        if (each.HandlesMessages)
            expected.push_back({L"ISubClass", 0});
        expected.push_back({std::wstring(L"__") + each.Name, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE});
        ASSERT_EQ(attributes->cImplTypes, expected.size());
        for (UINT i = 0; i < expected.size(); ++i)
        {
            HREFTYPE reference = 0;
            INT flags = 0;
            ComPtr<ITypeInfo> implemented;
            ASSERT_HRESULT_SUCCEEDED(info->GetRefTypeOfImplType(i, &reference));
            ASSERT_HRESULT_SUCCEEDED(info->GetImplTypeFlags(i, &flags));
            ASSERT_HRESULT_SUCCEEDED(info->GetRefTypeInfo(reference, &implemented));
            EXPECT_EQ(DocumentationOf(implemented.Get(), MEMBERID_NIL).Name, expected[i].Name);
            EXPECT_EQ(flags, expected[i].Flags) << Narrow(expected[i].Name);
        }
    }
}

TEST_F(TypeLibraryTest, DescribesTheMembersOfYesNo)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(0x3E649236));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FHIDDEN, TYPEFLAG_FHIDDEN);
    EXPECT_EQ(OwnMembers(info.Get()),
              (std::vector<std::wstring>{
                  L"get -501 BackColor() OLE_COLOR",
                  L"put -501 BackColor(in OLE_COLOR) void",
                  L"get -513 ForeColor() OLE_COLOR",
                  L"put -513 ForeColor(in OLE_COLOR) void",
                  L"get -514 Enabled() VARIANT_BOOL",
                  L"put -514 Enabled(in VARIANT_BOOL) void",
                  L"get -512 Font() IFontDisp*",
                  L"putref -512 Font(in IFontDisp*) void",
                  L"get -515 hwnd() long",
                  L"get 1 YesText() BSTR",
                  L"put 1 YesText(in BSTR) void",
                  L"get 2 NoText() BSTR",
                  L"put 2 NoText(in BSTR) void",
                  L"get 3 Text() VARIANT bindable displaybind defaultbind",
                  L"put 3 Text(in VARIANT) void bindable displaybind defaultbind",
                  L"get 0 Value() AnswerEnums",
                  L"put 0 Value(in AnswerEnums) void",
                  L"method 4 DrawFocusState(in out optional =0 AnswerEnums* TargetFocus) void",
                  L"method -552 ShowAboutBox() void",
              }));
}

TEST_F(TypeLibraryTest, DescribesTheEventsOfYesNo)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(0x3E649239));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FHIDDEN, TYPEFLAG_FHIDDEN);
    EXPECT_EQ(OwnMembers(info.Get()), (std::vector<std::wstring>{
                                          L"method 1 Click(in out VARIANT_BOOL* Cancel) void",
                                          L"method 2 Change() void",
                                      }));
}

TEST_F(TypeLibraryTest, OffersTheWindowProcedureInTheFirstSlotBehindIDispatch)
{
    const ComPtr<ITypeInfo> info = InfoOf(Id(0x3E649230));
    const TypeAttributes attributes(info.Get());
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    const ComPtr<ITypeInfo> vtable = VtableSide(info.Get());
    const TypeAttributes vtableAttributes(vtable.Get());
    EXPECT_EQ(vtableAttributes->typekind, TKIND_INTERFACE);
    EXPECT_EQ(GuidText(vtableAttributes->guid), L"{3E649230-873E-11D3-BB17-00105A16D8EF}");
    ASSERT_EQ(vtableAttributes->cFuncs, 1);
    const FunctionDescription function(vtable.Get(), 0);
    EXPECT_EQ(function->oVft, static_cast<SHORT>(7 * sizeof(void*)));
    EXPECT_EQ(function->callconv, CC_STDCALL);
    const std::wstring word = sizeof(void*) == 8 ? L"hyper" : L"long";
    EXPECT_EQ(MemberText(vtable.Get(), 0), L"method 1610809344 WndProc(in long hwnd, in long msg, in " +
                                               word + L" wParam, in " + word + L" lParam, out retval " +
                                               word + L"* result) HRESULT");
}

TEST_F(TypeLibraryTest, LaysTheVtableOfYesNoOutInTheOrderOfItsMembers)
{
    const ComPtr<ITypeInfo> vtable = VtableSide(InfoOf(Id(0x3E649236)).Get());
    const TypeAttributes attributes(vtable.Get());
    ASSERT_EQ(attributes->cFuncs, 19);
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        EXPECT_EQ(FunctionDescription(vtable.Get(), i)->oVft, static_cast<SHORT>((7 + i) * sizeof(void*)))
            << i;
}

} // namespace

} // namespace kiv::test
