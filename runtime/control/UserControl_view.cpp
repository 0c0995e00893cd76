#include "runtime/control/UserControl.h"

#include "runtime/core/Scoped.h"
#include "runtime/core/Units.h"
#include "runtime/drawing/MirroredDc.h"
#include "runtime/drawing/SavedDc.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// Lets a surface of size pixels at (0, 0) fill the bounds of a container's device context. In a mirrored one
// it is mirrored if it follows, as it would be in a window there.
void MapTo(HDC dc, const RECTL& bounds, SIZE size, const RECTL* windowBounds, bool follows)
{
    const LONG width = bounds.right - bounds.left;
    const LONG height = bounds.bottom - bounds.top;
    if (GetObjectType(dc) == OBJ_METADC && windowBounds)
    {
        // The player of an old metafile decides about device units: only the logical window can be changed,
        // so the whole window that the container gave is expressed in the surface's pixels.
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowOrgEx(dc, MulDiv(windowBounds->left - bounds.left, size.cx, width),
                       MulDiv(windowBounds->top - bounds.top, size.cy, height), nullptr);
        SetWindowExtEx(dc, MulDiv(windowBounds->right, size.cx, width),
                       MulDiv(windowBounds->bottom, size.cy, height), nullptr);
        return;
    }
    const bool mirrored = DrawsMirrored(dc);
    POINT corners[] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    if (mirrored && follows)
        SetLayout(dc, 0);
    LPtoDP(dc, corners, ARRAYSIZE(corners));
    if (mirrored && !follows)
    {
        SetLayout(dc, 0);
        // The first pixel is the one before the bound at which counting from the right ends.
        std::swap(corners[0].x, corners[1].x);
        ++corners[0].x;
        ++corners[1].x;
    }
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, size.cx, size.cy, nullptr);
    SetViewportOrgEx(dc, corners[0].x, corners[0].y, nullptr);
    SetViewportExtEx(dc, corners[1].x - corners[0].x, corners[1].y - corners[0].y, nullptr);
    if (mirrored && follows)
        SetLayout(dc, LAYOUT_RTL);
}

} // namespace

SIZEL UserControl::ExtentOf(SIZE pixels) const
{
    const Resolution& resolution = surface_.TheResolution();
    return {PixelsToHimetric(pixels.cx, resolution.X), PixelsToHimetric(pixels.cy, resolution.Y)};
}

SIZE UserControl::PixelsOf(SIZEL extent, const Resolution& resolution)
{
    return {HimetricToPixels(extent.cx, resolution.X), HimetricToPixels(extent.cy, resolution.Y)};
}

void UserControl::SetSize(SIZEL extent)
{
    extent_ = extent;
    surface_.Resize(PixelsOf(extent));
}

// Whoever has given the window its size: the extent is what it was, in fractions of a pixel too, unless the
// window has become another size.
void UserControl::FollowWindow()
{
    if (!surface_.hWnd())
        return;
    const SIZE size = surface_.OuterSize();
    const SIZE known = PixelsOf(extent_);
    if (size.cx != known.cx || size.cy != known.cy)
        extent_ = ExtentOf(size);
}

// What the window's size says at another resolution is the container's to decide: it is about to give a place
// there, or it has left the control as it is, in pixels.
void UserControl::FollowResolution()
{
    if (!surface_.RenewResolution() || !initializeRan_)
        return;
    const ComPtr<IUnknown> held(Outer());
    UserControl_ResolutionChanged();
    Refresh();
}

// What turns needs no other size than before.
void UserControl::FollowDirection()
{
    if (!FollowsDirection() || !surface_.FollowDirection() || !hasProperties_ || loading_)
        return;
    const Scoped<bool> requesting(requestingSize_, true);
    UserControl_Resize();
}

void UserControl::RequestSize(SIZE pixels)
{
    // A container that insists on its own size answers by setting that again; once is enough.
    if (requestingSize_ || loading_)
        return;
    const ComPtr<IUnknown> held(Outer());
    const Scoped<bool> requesting(requestingSize_, true);
    SetSize(ExtentOf(pixels));
    if (activity_ == Activity::Inactive)
        return;
    const RECT place = surface_.Bounds();
    ComPtr<IOleInPlaceSite>(inPlaceSite_)->OnPosRectChange(&place);
}

void UserControl::RequestFit(const std::function<std::optional<SIZE>()>& needed)
{
    // A window of almost no size has no border either: with the one that it gets as it grows, it has to grow
    // once more, in either direction.
    constexpr int MostRequests = 4;
    const ComPtr<IUnknown> held(Outer());
    SIZE former = {-1, -1};
    for (int request = 0; request < MostRequests; ++request)
    {
        const std::optional<SIZE> size = needed();
        const SIZE outer = surface_.OuterSize();
        if (!size || (outer.cx == former.cx && outer.cy == former.cy))
            return;
        former = outer;
        RequestSize(*size);
    }
}

void UserControl::Refresh()
{
    if (loading_)
        return;
    if (activity_ != Activity::Inactive)
        surface_.Redraw();
    UpdateToolTip();
    if (viewSink_ && (viewAspects_ & DVASPECT_CONTENT) != 0)
    {
        const ComPtr<IAdviseSink> sink = viewSink_;
        if ((viewFlags_ & ADVF_ONLYONCE) != 0)
            viewSink_.Reset();
        sink->OnViewChange(DVASPECT_CONTENT, -1);
    }
}

HRESULT UserControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds,
                          LPCRECTL windowBounds, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept
{
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!dc || !bounds)
        return E_INVALIDARG;
    return Entry([&] {
        EnsureInitialized();
        const SIZE size = surface_.OuterSize();
        if (size.cx == 0 || size.cy == 0 || bounds->left == bounds->right || bounds->top == bounds->bottom)
            return;
        const SavedDc saved(dc);
        MapTo(dc, *bounds, size, windowBounds, FollowsDirection());
        IntersectClipRect(dc, 0, 0, size.cx, size.cy);
        surface_.PaintWithBorder(dc);
    });
}

HRESULT UserControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) noexcept
{
    if (!palette)
        return E_POINTER;
    *palette = nullptr;
    return S_FALSE;
}

HRESULT UserControl::Freeze(DWORD, LONG, void*, DWORD*) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::Unfreeze(DWORD) noexcept
{
    return E_NOTIMPL;
}

HRESULT UserControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept
{
    return Entry([&] {
        viewAspects_ = aspects;
        viewFlags_ = flags;
        ComPtr<IAdviseSink> former(sink);
        viewSink_.Swap(former); // gone last: it may set yet another one as it goes
        if (sink && (flags & ADVF_PRIMEFIRST) != 0)
            ComPtr<IAdviseSink>(sink)->OnViewChange(DVASPECT_CONTENT, -1);
    });
}

HRESULT UserControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept
{
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    return sink ? viewSink_.CopyTo(sink) : S_OK;
}

HRESULT UserControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) noexcept
{
    return GetExtent(aspect, size);
}

} // namespace kiv
