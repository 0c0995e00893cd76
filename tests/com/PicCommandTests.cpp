// PicCommand as COM sees it: its properties, what it tells its host, how it is kept, and its access key.

#include "tests/com/HeldControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/Pixels.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/TestFont.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>
#include <olectl.h>

#include <memory>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr DISPID DetailStatusId = 1;
constexpr DISPID BoundDetailStatusId = 2;
constexpr DISPID PictureTypeId = 3;
constexpr DISPID ValueId = 4;
constexpr DISPID Click = 1;
using Ids = std::vector<DISPID>;
using Names = std::vector<std::wstring>;

class PicCommandTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        control_ = std::make_unique<HeldControl>(CLSID_PicCommand);
        Control().Site().Log().AllowAll();
    }
    void TearDown() override
    {
        eventConnection_.reset();
        propertyConnection_.reset();
        control_.reset();
        LibraryTest::TearDown();
    }
    const HeldControl& Control() const { return *control_; }
    void ConnectSinks()
    {
        eventConnection_ = std::make_unique<Connection>(Control().Get(), DIID___PicCommand, events_.Get());
        propertyConnection_ =
            std::make_unique<Connection>(Control().Get(), IID_IPropertyNotifySink, properties_.Get());
    }
    // A new control that is listened to.
    void Begin()
    {
        Control().InitNew();
        ConnectSinks();
    }
    void MakeUnusual() const
    {
        Control().Put(L"DetailStatus", Variant(2L));
        Control().Put(L"PictureType", Variant(9L));
        Control().Put(L"Enabled", Variant(false));
        Control().Put(L"Caption", Variant(L"&Caf\u00E9"));
        FontFacts font;
        font.Italic = true;
        Control().Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont(font).Get())));
    }
    HWND Window() const { return static_cast<HWND>(LongToHandle(Control().Property(L"hwnd").Long())); }

    ComPtr<EventRecorder> events_ = MakeCom<EventRecorder>(DIID___PicCommand);
    ComPtr<PropertyNotifyRecorder> properties_ = MakeCom<PropertyNotifyRecorder>();

private:
    std::unique_ptr<HeldControl> control_;
    std::unique_ptr<Connection> eventConnection_;
    std::unique_ptr<Connection> propertyConnection_;
};

TEST_F(PicCommandTest, BeginsBlankForADataField)
{
    Control().InitNew();
    EXPECT_EQ(Control().Shown(L"BoundDetailStatus"), "VT 3 0");
}

TEST_F(PicCommandTest, HoldsARealOwnerDrawnButton)
{
    Control().InitNew();
    const HWND button = GetWindow(Window(), GW_CHILD);
    EXPECT_EQ(ClassNameOf(button), "Button");
    EXPECT_EQ(GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
    EXPECT_EQ(GetWindow(button, GW_HWNDNEXT), nullptr);
    Control().Put(L"Caption", Variant(L"&Go"));
    wchar_t text[16] = {};
    GetWindowTextW(button, text, ARRAYSIZE(text));
    EXPECT_STREQ(text, L"&Go");
}

TEST_F(PicCommandTest, TellsWhichPropertyHasChanged)
{
    Begin();
    // Told of each assignment, also of one that changes nothing.
    for (int turn = 0; turn < 2; ++turn)
    {
        Control().Put(L"DetailStatus", Variant(1L));
        EXPECT_EQ(properties_->TakeChanges(), (Ids{DetailStatusId, BoundDetailStatusId}));
        Control().Put(L"BoundDetailStatus", Variant(1L));
        EXPECT_EQ(properties_->TakeChanges(), (Ids{DetailStatusId, BoundDetailStatusId}));
        Control().Put(L"PictureType", Variant(4L));
        EXPECT_EQ(properties_->TakeChanges(), Ids{PictureTypeId});
        Control().Put(L"Caption", Variant(L"Go"));
        EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_CAPTION});
        Control().Put(L"Enabled", Variant(false));
        EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_ENABLED});
        Control().Put(L"Font", Variant(static_cast<IDispatch*>(MakeFont().Get())));
        EXPECT_EQ(properties_->TakeChanges(), Ids{DISPID_FONT});
        Control().Put(L"Value", Variant(false));
        EXPECT_EQ(properties_->TakeChanges(), Ids{ValueId});
    }
    EXPECT_EQ(events_->TakeEvents(), Ids());
}

TEST_F(PicCommandTest, SettingValueClicks)
{
    Begin();
    std::string inside;
    std::vector<DISPID> toldBefore;
    events_->OnEvent([&](DISPID, DISPPARAMS& arguments) {
        EXPECT_EQ(arguments.cArgs, 0U);
        inside = Control().Shown(L"Value");
        toldBefore = properties_->TakeChanges();
    });
    Control().Put(L"Value", Variant(true));
    EXPECT_EQ(events_->TakeEvents(), Ids{Click});
    EXPECT_EQ(inside, "VT 11 True");
    EXPECT_EQ(toldBefore, Ids());
    EXPECT_EQ(properties_->TakeChanges(), Ids{ValueId});
    EXPECT_EQ(Control().Shown(L"Value"), "VT 11 False");
}

TEST_F(PicCommandTest, TakesAnyStatusAndType)
{
    Begin();
    for (const long number : {2L, 3L, -1L, 2147483647L})
    {
        Control().Put(L"DetailStatus", Variant(number));
        EXPECT_EQ(Control().Shown(L"DetailStatus"), "VT 3 " + std::to_string(number));
        EXPECT_EQ(Control().Shown(L"BoundDetailStatus"), "VT 3 " + std::to_string(number));
        Control().Put(L"PictureType", Variant(number));
        EXPECT_EQ(Control().Shown(L"PictureType"), "VT 3 " + std::to_string(number));
    }
}

TEST_F(PicCommandTest, TakesWhatADataFieldHolds)
{
    Begin();
    const struct
    {
        Variant Field;
        long Status;
    } rows[] = {
        {Variant(2L), 2},  {Variant::Null(), 0}, {Variant(short{1}), 1}, {Variant(L"2"), 2},   {Variant(), 0},
        {Variant(1.5), 2}, {Variant(2.5), 2},    {Variant(true), -1},    {Variant(L" 1 "), 1},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(Show(row.Field));
        Control().Put(L"BoundDetailStatus", row.Field);
        EXPECT_EQ(Control().Shown(L"DetailStatus"), "VT 3 " + std::to_string(row.Status));
        EXPECT_EQ(Control().Shown(L"BoundDetailStatus"), "VT 3 " + std::to_string(row.Status));
    }
    Control().Put(L"DetailStatus", Variant(2L));
    properties_->TakeChanges();
    const Variant noField(static_cast<IDispatch*>(Control().Get())); // a button stands for no value
    for (const Variant& field : {Variant(L"complete"), Variant(1e300), noField})
    {
        SCOPED_TRACE(field.Type());
        const CallOutcome outcome = PutByName(Control().Get(), L"BoundDetailStatus", field);
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(field.Object() ? ObjectLacksMember : InvalidPropertyValue));
        EXPECT_EQ(Narrow(outcome.ErrorSource), "PicCommand");
        EXPECT_EQ(Control().Shown(L"DetailStatus"), "VT 3 2");
        EXPECT_EQ(properties_->TakeChanges(), Ids());
    }
}

TEST_F(PicCommandTest, DisablesItsWindowAndItsButton)
{
    Begin();
    const HWND button = GetWindow(Window(), GW_CHILD);
    for (const bool enabled : {false, true})
    {
        Control().Put(L"Enabled", Variant(enabled));
        EXPECT_EQ(IsWindowEnabled(Window()) != FALSE, enabled);
        EXPECT_EQ(IsWindowEnabled(button) != FALSE, enabled);
        EXPECT_EQ(Control().Property(L"Enabled").Bool(), enabled);
    }
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Enabled", Variant(false));
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_TRUE(IsWindowEnabled(Window())) << "a stored False is for the button alone";
    EXPECT_FALSE(IsWindowEnabled(button));
    EXPECT_FALSE(Control().Property(L"Enabled").Bool());
}

// The one time when Value is what a form keeps.
TEST_F(PicCommandTest, WritesThatItIsPressed)
{
    Control().InitNew();
    const auto persist = Control().Query<IPersistPropertyBag>();
    MakeUnusual();
    ConnectSinks();
    const auto whole = MakeCom<TestPropertyBag>();
    events_->OnEvent(
        [&](DISPID, DISPPARAMS&) { EXPECT_EQ(Hr(persist->Save(whole.Get(), TRUE, FALSE)), Hr(S_OK)); });
    Control().Put(L"Value", Variant(true));
    EXPECT_EQ(whole->NamesWritten(),
              (Names{L"DetailStatus", L"PictureType", L"Enabled", L"Caption", L"Value", L"Font"}));
    EXPECT_EQ(Show(whole->Find(L"DetailStatus")), "VT 3 2");
    EXPECT_EQ(Show(whole->Find(L"PictureType")), "VT 3 9");
    EXPECT_EQ(Show(whole->Find(L"Enabled")), "VT 11 False");
    EXPECT_EQ(Show(whole->Find(L"Caption")), "VT 8 \"&Caf\u00E9\"");
    EXPECT_EQ(Show(whole->Find(L"Value")), "VT 11 True");
}

TEST_F(PicCommandTest, AStoredTrueClicksOnceWhileItLoads)
{
    ConnectSinks();
    std::string inside;
    events_->OnEvent([&](DISPID, DISPPARAMS&) { inside = Control().Shown(L"Caption"); });
    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Caption", Variant(L"Go"));
    bag->Put(L"Value", Variant(true));
    const auto persist = Control().Query<IPersistPropertyBag>();
    EXPECT_EQ(Hr(persist->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids{Click});
    EXPECT_EQ(inside, "VT 8 \"Go\"");
    EXPECT_EQ(properties_->TakeChanges(), Ids()) << "told while loading";
    EXPECT_FALSE(Control().Property(L"Value").Bool());

    // A host that freezes events while it loads hears of it afterwards.
    const auto control = Control().Query<IOleControl>();
    control->FreezeEvents(TRUE);
    EXPECT_EQ(Hr(persist->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids());
    control->FreezeEvents(FALSE);
    EXPECT_EQ(events_->TakeEvents(), Ids{Click});
}

TEST_F(PicCommandTest, IsEnabledAgainAfterALoadThatFails)
{
    Control().InitNew();
    MakeUnusual();
    EXPECT_FALSE(IsWindowEnabled(Window()));
    const auto nonsense = MakeCom<TestStream>(std::vector<std::uint8_t>(100, 7));
    EXPECT_FALSE(SUCCEEDED(Control().Query<IPersistStreamInit>()->Load(nonsense.Get())));
    EXPECT_TRUE(IsWindowEnabled(Window()));
}

// --- The access key ---

class AccessKeyTest : public PicCommandTest
{
protected:
    CONTROLINFO Information() const
    {
        CONTROLINFO info = {};
        EXPECT_EQ(Hr(Control().Query<IOleControl>()->GetControlInfo(&info)), Hr(S_OK));
        return info;
    }
    // Whether a container finds the message to be the control's.
    bool Leads(UINT message, WPARAM key) const
    {
        const CONTROLINFO info = Information();
        MSG typed = {};
        typed.message = message;
        typed.wParam = key;
        typed.lParam = 0x20000001; // with Alt
        return info.hAccel && IsAccelerator(info.hAccel, info.cAccel, &typed, nullptr);
    }
};

TEST_F(AccessKeyTest, IsTheLetterThatTheCaptionMarks)
{
    Begin();
    EXPECT_EQ(Information().hAccel, nullptr);
    EXPECT_EQ(Information().cAccel, 0);
    Control().Put(L"Caption", Variant(L"Salt && &Pepper"));
    EXPECT_TRUE(Leads(WM_SYSCHAR, 'p'));
    EXPECT_TRUE(Leads(WM_SYSCHAR, 'P'));
    EXPECT_FALSE(Leads(WM_SYSCHAR, 's'));
    EXPECT_FALSE(Leads(WM_CHAR, 'p')) << "without Alt";
    Control().Put(L"Caption", Variant(L"Salt && Pepper"));
    EXPECT_EQ(Information().hAccel, nullptr);
}

TEST_F(AccessKeyTest, KeepsEnterForTheButtonAndLeavesEsc)
{
    Begin();
    EXPECT_EQ(Information().dwFlags, DWORD{CTRLINFO_EATS_RETURN});
}

TEST_F(AccessKeyTest, TellsTheContainerOfEachChange)
{
    Control().InitNew();
    CallLog& log = Control().Site().Log();
    log.TakeCalls();
    Control().Put(L"Caption", Variant(L"&Go"));
    EXPECT_EQ(log.TakeCalls(), (std::vector<std::string>{"OnControlInfoChanged"}));
    Control().Put(L"Caption", Variant(L"&Go on"));
    Control().Put(L"PictureType", Variant(1L));
    EXPECT_EQ(log.TakeCalls(), (std::vector<std::string>{}));
    Control().Put(L"Caption", Variant(L"Go &on"));
    EXPECT_EQ(log.TakeCalls(), (std::vector<std::string>{"OnControlInfoChanged"}));
    Control().Put(L"Caption", Variant(L"Go on"));
    EXPECT_EQ(log.TakeCalls(), (std::vector<std::string>{"OnControlInfoChanged"}));

    const auto bag = MakeCom<TestPropertyBag>();
    bag->Put(L"Caption", Variant(L"&Load"));
    EXPECT_EQ(Hr(Control().Query<IPersistPropertyBag>()->Load(bag.Get(), nullptr)), Hr(S_OK));
    EXPECT_EQ(log.TakeCalls(), (std::vector<std::string>{"OnControlInfoChanged"})) << "after the load";
}

TEST_F(AccessKeyTest, DoesNothingWhileTheControlIsNotActive)
{
    Begin();
    Control().Put(L"Caption", Variant(L"&Go"));
    MSG typed = {};
    typed.message = WM_SYSCHAR;
    typed.wParam = 'g';
    EXPECT_EQ(Hr(Control().Query<IOleControl>()->OnMnemonic(&typed)), Hr(S_OK));
    EXPECT_EQ(Hr(Control().Query<IOleControl>()->OnMnemonic(nullptr)), Hr(S_OK));
    EXPECT_EQ(events_->TakeEvents(), Ids());
}

// --- As a picture ---

TEST_F(PicCommandTest, IsDrawnWithoutAWindowToSee)
{
    Begin();
    const SIZE size = {100, 25};
    SIZEL extent = {MulDiv(size.cx, 2540, 96), MulDiv(size.cy, 2540, 96)};
    Check(Control().Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent));
    const auto drawn = [&] {
        const Canvas canvas(size);
        const RECTL bounds = {0, 0, size.cx, size.cy};
        EXPECT_EQ(Hr(Control().Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                          canvas.Dc(), &bounds, nullptr, nullptr, 0)),
                  Hr(S_OK));
        return canvas.Content();
    };
    const Pixels plain = drawn();
    EXPECT_EQ(plain.At(0, 0), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(plain.At(99, 24), RGB(0, 0, 0));
    EXPECT_EQ(plain.At(98, 23), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(plain.At(10, 10), GetSysColor(COLOR_BTNFACE));
    Control().Put(L"PictureType", Variant(1L));
    const Pixels plus = drawn();
    EXPECT_NE(Difference(plain, plus), "");
    Control().Put(L"Caption", Variant(L"Go"));
    const Pixels captioned = drawn();
    EXPECT_NE(Difference(plus, captioned), "");
    Control().Put(L"Enabled", Variant(false));
    EXPECT_NE(Difference(captioned, drawn()), "");
}

} // namespace

} // namespace kiv::test
