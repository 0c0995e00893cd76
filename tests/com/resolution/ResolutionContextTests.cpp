// Windows that see the screen's resolution in ways of their own, as the system has them: one process may have
// several. Where the system is set to 96 pixels to the inch they all see the same.

#include "tests/com/resolution/ScreenedControl.h"

#include "tests/com/PublishedClasses.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/core/Units.h"

#include <cmath>
#include <memory>

namespace kiv::test
{

namespace
{

template<class Function>
Function* SystemFunction(const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

using SetContext = HANDLE WINAPI(HANDLE);
using ContextOf = HANDLE WINAPI(HWND);
using AreEqual = BOOL WINAPI(HANDLE, HANDLE);
using ResolutionOf = UINT WINAPI(HWND);

HANDLE Context(int number)
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(number));
}

constexpr int Unaware = -1;
constexpr int SystemAware = -2;
constexpr int PerMonitorAware = -3;

class InContext
{
public:
    explicit InContext(int number) : former_(Set(Context(number))) {}
    InContext(const InContext&) = delete;
    InContext& operator=(const InContext&) = delete;
    ~InContext() { Set(former_); }

private:
    static HANDLE Set(HANDLE context)
    {
        return SystemFunction<SetContext>("SetThreadDpiAwarenessContext")(context);
    }

    HANDLE former_;
};

bool IsOf(HWND window, int context)
{
    return SystemFunction<AreEqual>("AreDpiAwarenessContextsEqual")(
               SystemFunction<ContextOf>("GetWindowDpiAwarenessContext")(window), Context(context)) != FALSE;
}

int PerInch(HWND window)
{
    return static_cast<int>(SystemFunction<ResolutionOf>("GetDpiForWindow")(window));
}

// A control in a host's window, both made in a context, with a font of 8.25 points.
class ContextControl : public HeldControl
{
public:
    ContextControl(REFCLSID classId) : HeldControl(classId)
    {
        Site().Log().AllowAll();
        FontFacts font;
        font.Size.int64 = 82500;
        Site().SetAmbient(DISPID_AMBIENT_FONT, Variant(static_cast<IDispatch*>(MakeFont(font).Get())));
        InitNew();
    }

    void Activate()
    {
        SIZEL extent = {};
        Check(Query<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        const int perInch = PerInch(Site().Window().Handle());
        const RECT place = {0, 0, HimetricToPixels(extent.cx, perInch), HimetricToPixels(extent.cy, perInch)};
        Site().PlaceAt(place);
        Check(Query<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0,
                                          Site().Window().Handle(), &place));
        Check(Query<IOleInPlaceObject>()->GetWindow(&window_));
    }
    HWND Window() const { return window_; }

private:
    HWND window_ = nullptr;
};

using ResolutionContextTest = LibraryTest;

TEST_F(ResolutionContextTest, EachFormIsAtItsOwnResolutionAtOnce)
{
    constexpr int contexts[] = {SystemAware, Unaware, PerMonitorAware, Unaware, SystemAware};
    for (const wchar_t* name : {L"YesNo", L"NumberBox", L"CurrencyBox"})
    {
        SCOPED_TRACE(Narrow(name));
        std::vector<std::unique_ptr<ContextControl>> controls;
        for (const int context : contexts)
        {
            const InContext entered(context);
            controls.push_back(std::make_unique<ContextControl>(Id(ClassNamed(name).Class)));
            controls.back()->Activate();
        }
        for (std::size_t at = 0; at < controls.size(); ++at)
        {
            const InContext entered(contexts[at]);
            const int perInch = contexts[at] == Unaware ? 96 : ScreenResolution();
            const HWND window = controls[at]->Window();
            EXPECT_EQ(PerInch(window), perInch);
            EXPECT_EQ(FontHeight(window), -std::lround(8.25 * perInch / 72));
            if (const HWND box = GetWindow(window, GW_CHILD))
            {
                EXPECT_EQ(FontHeight(box), -std::lround(8.25 * perInch / 72));
            }
        }
    }
}

// A window comes under none that sees resolutions in another way: before it is shown, nor after it was.
TEST_F(ResolutionContextTest, AControlThatIsPutAwayStaysInItsContext)
{
    for (const int context : {Unaware, SystemAware, PerMonitorAware})
    {
        SCOPED_TRACE(context);
        const InContext entered(context);
        ContextControl control(Id(ClassNamed(L"YesNo").Class));
        const auto waitsAt = [&] {
            Microsoft::WRL::ComPtr<_YesNo> yesNo;
            Check(control.Get()->QueryInterface(IID_PPV_ARGS(&yesNo)));
            LONG window = 0;
            Check(yesNo->get_hwnd(&window));
            return GetAncestor(static_cast<HWND>(LongToHandle(window)), GA_PARENT);
        };
        const HWND parking = waitsAt();
        EXPECT_TRUE(IsOf(parking, context));
        control.Activate();
        EXPECT_EQ(waitsAt(), control.Site().Window().Handle());
        {
            // Whoever puts it away.
            const InContext other(context == Unaware ? SystemAware : Unaware);
            Check(control.Query<IOleInPlaceObject>()->InPlaceDeactivate());
        }
        EXPECT_EQ(waitsAt(), parking);
    }
}

} // namespace

} // namespace kiv::test
