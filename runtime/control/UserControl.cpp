#include "runtime/control/UserControl.h"

#include "runtime/com/InterfaceList.h"
#include "runtime/constituents/ParkingWindow.h"
#include "runtime/core/Scoped.h"
#include "runtime/core/Units.h"
#include "runtime/drawing/WindowResolution.h"

namespace kiv
{

UserControl::UserControl(const ControlClass& controlClass, IUnknown* outer) :
    Aggregatable(outer),
    class_(controlClass),
    events_(Outer(), this, controlClass.Events),
    notifications_(Outer(), this, IID_IPropertyNotifySink),
    extent_{MulDiv(controlClass.DefaultSize.cx, HimetricPerInch, TwipsPerInch),
            MulDiv(controlClass.DefaultSize.cy, HimetricPerInch, TwipsPerInch)},
    surface_(*this, PixelsOf(extent_, ResolutionOf(ParkingWindow())), controlClass.HasBorder)
{
}

UserControl::~UserControl() = default;

void UserControl::Initialize()
{
    const Scoped<bool> loading(loading_, true);
    UserControl_Initialize();
    initializeRan_ = true;
}

// A host may drop its last reference on a thread that is not the control's, whose windows only their own
// thread can destroy. There any message holds the control and lets it go.
bool UserControl::GoesElsewhere() noexcept
{
    const DWORD thread = GetWindowThreadProcessId(surface_.hWnd(), nullptr);
    return thread != 0 && thread != GetCurrentThreadId() && surface_.Post(WM_NULL);
}

void UserControl::FinalRelease() noexcept
{
    away_.reset();
    accessible_.Close();
    if (initializeRan_)
        Boundary([&] { UserControl_Terminate(); });
    Boundary([&] { InPlaceDeactivate(); });
    held_.clear();
    events_.Clear();
    notifications_.Clear();
}

void* UserControl::FindInterface(REFIID iid) noexcept
{
    if (iid == CategorizePropertiesId)
        return static_cast<ICategorizeProperties*>(this);
    return detail::FindInterface<IOleObject, IOleControl, Chain<IOleInPlaceObject, IOleWindow>,
                                 IOleInPlaceActiveObject, Chain<IViewObject2, IViewObject>,
                                 IPersistPropertyBag, Chain<IPersistStreamInit, IPersist>, IPersistStorage,
                                 Chain<IProvideClassInfo2, IProvideClassInfo>, IConnectionPointContainer,
                                 IQuickActivate, ISupportErrorInfo, IPerPropertyBrowsing>(this, iid);
}

void UserControl::UserControl_MouseDown(short, short, double, double) {}

void UserControl::UserControl_MouseUp(short, short, double, double) {}

void UserControl::UserControl_KeyDown(short&, short) {}

void UserControl::UserControl_KeyPress(short&) {}

void UserControl::UserControl_KeyUp(short&, short) {}

} // namespace kiv
