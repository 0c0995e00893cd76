#include "tests/com/DrawnControl.h"

#include "tests/support/Text.h"

#include "runtime/com/Errors.h"
#include "runtime/core/Units.h"

#include <gtest/gtest.h>
#include <oleidl.h>

namespace kiv::test
{

void FitToBounds(const HeldControl& control)
{
    SIZEL size = {PixelsToHimetric(Bounds.right - Bounds.left, 96),
                  PixelsToHimetric(Bounds.bottom - Bounds.top, 96)};
    Check(control.Query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size));
}

void FillPaper(const Canvas& canvas)
{
    const RECT all = {0, 0, CanvasSize.cx, CanvasSize.cy};
    const HBRUSH brush = CreateSolidBrush(Paper);
    FillRect(canvas.Dc(), &all, brush);
    DeleteObject(brush);
}

HRESULT Draw(const HeldControl& control, HDC dc, const RECTL& bounds, const RECTL* windowBounds)
{
    return control.Query<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                              windowBounds, nullptr, 0);
}

HRESULT DrawInBounds(const HeldControl& control, HDC dc, const RECTL* windowBounds)
{
    return Draw(control, dc, {Bounds.left, Bounds.top, Bounds.right, Bounds.bottom}, windowBounds);
}

Pixels Drawn(const HeldControl& control)
{
    const Canvas canvas(CanvasSize);
    FillPaper(canvas);
    EXPECT_EQ(Hr(DrawInBounds(control, canvas.Dc())), Hr(S_OK));
    return canvas.Content();
}

} // namespace kiv::test
