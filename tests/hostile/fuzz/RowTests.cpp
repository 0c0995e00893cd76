// Inputs that are tried each time, on every class: those that a fuzzer found, made as small as they go, and
// the plainest of each kind.

#include "runtime/core/PropertyStream.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/Exercise.h"
#include "tests/hostile/fuzz/OddStorage.h"
#include "tests/hostile/fuzz/OddValues.h"
#include "tests/support/NamedRow.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

// An input that a control is to refuse, as a new control does, or to take. Good is what it saved before.
struct InputRow : NamedRow
{
    bool Refused;
    HRESULT (*Try)(Host& host, const Bytes& good);
};

HRESULT LoadFrom(Host& host, const Bytes& contents, const OddStorageManners& manners)
{
    return host.Control<IPersistStorage>()->Load(MakeOddStorage(contents, manners).Get());
}

HRESULT LoadWith(Host& host, const Bytes& good, void (*change)(PropertyStream& stream))
{
    PropertyStream stream = DecodePropertyStream(good);
    change(stream);
    return LoadBytes(host, EncodePropertyStream(stream));
}

// A picture as it is stored: its class, a prefix, and a bitmap of four pixels by three that says that it is
// wider.
Bytes BitmapThatClaimsMuch()
{
    return {0x04, 0x52, 0xE3, 0x0B, 0x91, 0x8F, 0xCE, 0x11, 0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B,
            0xB8, 0x51, 'l',  't',  0,    0,    74,   0,    0,    0,    'B',  'M',  74,   0,
            0,    0,    0,    0,    0,    0,    62,   0,    0,    0,    40,   0,    0,    8,
            4,    0,    0,    0,    3,    0,    0,    0,    1,    0,    1,    0,    0,    0,
            0,    0,    12,   0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
            0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    255,  255,
            255,  0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0};
}

// From a bag that has the same value under each name.
HRESULT LoadAll(Host& host, const Variant& value)
{
    const auto names = MakeCom<TestPropertyBag>();
    host.Control<IPersistPropertyBag>()->Save(names.Get(), FALSE, TRUE);
    const auto bag = MakeCom<TestPropertyBag>();
    for (const std::wstring& name : names->NamesWritten())
        bag->Put(name, value);
    return host.Control<IPersistPropertyBag>()->Load(bag.Get(), nullptr);
}

// Calls without what automation lets a caller leave out.
HRESULT InvokeBare(Host& host, WORD flags)
{
    const auto control = host.Control<IDispatch>();
    DISPPARAMS none = {};
    for (const Member& member : MembersOfClass(host))
    {
        if (member.Kind == flags)
            control->Invoke(member.Id, IID_NULL, 0, flags, &none, nullptr, nullptr, nullptr);
    }
    return S_OK;
}

const InputRow Rows[] = {
    {{"StorageThatGivesNoStreamToRead"},
     true,
     [](Host& host, const Bytes& good) { return LoadFrom(host, good, {.NoStream = true}); }},
    {{"StorageThatGivesNoStreamToWrite"},
     true,
     [](Host& host, const Bytes&) {
         return host.Control<IPersistStorage>()->Save(MakeOddStorage({}, {.NoStream = true}).Get(), TRUE);
     }},
    {{"StorageWithoutContents"},
     true,
     [](Host& host, const Bytes& good) { return LoadFrom(host, good, {.Opening = STG_E_FILENOTFOUND}); }},
    {{"StorageThatFailsAfterTheHeader"},
     true,
     [](Host& host, const Bytes& good) { return LoadFrom(host, good, {.Readable = 16}); }},
    {{"StreamOfNothing"}, true, [](Host& host, const Bytes&) { return LoadBytes(host, {}); }},
    {{"StreamOfAHeader"},
     true,
     [](Host& host, const Bytes& good) { return LoadBytes(host, Bytes(good.begin(), good.begin() + 16)); }},
    {{"StreamWithoutItsEnd"},
     true,
     [](Host& host, const Bytes& good) { return LoadBytes(host, Bytes(good.begin(), good.end() - 1)); }},
    {{"StreamThatClaimsMuch"},
     true,
     [](Host& host, const Bytes& good) {
         Bytes much = good;
         std::fill_n(much.begin() + 8, 4, std::uint8_t{0xFF});
         return LoadBytes(host, much);
     }},
    {{"StreamOfANegativeSize"},
     true,
     [](Host& host, const Bytes& good) {
         return LoadWith(host, good, [](PropertyStream& stream) { stream.WidthHimetric = -1; });
     }},
    {{"StreamOfNoProperties"},
     false,
     [](Host& host, const Bytes& good) {
         return LoadWith(host, good, [](PropertyStream& stream) { stream.Properties.clear(); });
     }},
    {{"StreamOfAnObjectOfNoClass"},
     true,
     [](Host& host, const Bytes& good) {
         return LoadWith(host, good, [](PropertyStream& stream) {
             stream.Properties = {{"Font", VT_UNKNOWN, {1, 2, 3}}};
         });
     }},
    {{"StreamOfAReference"},
     true,
     [](Host& host, const Bytes& good) {
         return LoadWith(host, good, [](PropertyStream& stream) {
             stream.Properties = {{"Font", VT_BYREF | VT_VARIANT, {0, 0, 0, 0, 0, 0, 0, 0}}};
         });
     }},
    // The system's picture object reads on behind the end of what claims to be larger than it is.
    {{"StreamOfABitmapThatClaimsMuch"},
     true,
     [](Host& host, const Bytes& good) {
         return LoadWith(host, good, [](PropertyStream& stream) {
             stream.Properties = {{"Picture", VT_UNKNOWN, BitmapThatClaimsMuch()}};
         });
     }},
    {{"BagOfErrors"},
     false,
     [](Host& host, const Bytes&) {
         VARIANT error = {};
         V_VT(&error) = VT_ERROR;
         V_ERROR(&error) = DISP_E_PARAMNOTFOUND;
         LoadAll(host, Variant(error));
         return S_OK;
     }},
    {{"BagOfObjectsThatAnswerOddly"},
     false,
     [](Host& host, const Bytes&) {
         LoadAll(host, Variant(MakeOddObject(1).Get()));
         return S_OK;
     }},
    {{"BagOfLongTexts"},
     false,
     [](Host& host, const Bytes&) {
         LoadAll(host, Variant(std::wstring(70000, L'7')));
         return S_OK;
     }},
    {{"MethodsWithoutArguments"},
     false,
     [](Host& host, const Bytes&) { return InvokeBare(host, DISPATCH_METHOD); }},
    {{"PropertiesReadForNobody"},
     false,
     [](Host& host, const Bytes&) { return InvokeBare(host, DISPATCH_PROPERTYGET); }},
    {{"PropertiesPutWithoutAValue"},
     false,
     [](Host& host, const Bytes&) { return InvokeBare(host, DISPATCH_PROPERTYPUT); }},
};

class AttackRows : public AttackTest, public testing::WithParamInterface<InputRow>
{
};

TEST_P(AttackRows, LeaveTheControlWhole)
{
    Host host;
    for (const PublishedClass& each : PublishedClasses())
    {
        for (const bool active : {true, false})
        {
            const std::string whose = Narrow(each.Name) + (active ? "" : " (inactive)");
            Doing(std::string(GetParam().Name) + " on " + whose);
            host.Begin(each, active);
            const Bytes good = SavedBytes(host);
            EXPECT_EQ(FAILED(GetParam().Try(host, good)), GetParam().Refused) << whose;
            ReadEveryProperty(host);
            DrawOnce(host);
            EXPECT_FALSE(SavedBytes(host).empty()) << whose;
            EXPECT_EQ(Hr(LoadBytes(host, good)), Hr(S_OK)) << whose;
            EXPECT_EQ(SavedBytes(host), good) << whose;
            EXPECT_EQ(host.End(), "") << whose;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Inputs, AttackRows, testing::ValuesIn(Rows), RowName());

} // namespace

} // namespace kiv::test
