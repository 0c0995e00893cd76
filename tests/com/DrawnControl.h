#pragma once

#include "tests/com/HeldControl.h"
#include "tests/support/Pixels.h"

namespace kiv::test
{

// Where the tests have their controls drawn: on paper, within bounds, behind which nothing may be touched.
constexpr COLORREF Paper = RGB(255, 0, 255);
constexpr SIZE CanvasSize = {200, 100};
constexpr RECT Bounds = {20, 10, 140, 50};
// For controls, as one that occurs nowhere else.
constexpr COLORREF Back = RGB(0, 200, 0);

// As large as the bounds, so that nothing is scaled.
void FitToBounds(const HeldControl& control);
void FillPaper(const Canvas& canvas);
HRESULT Draw(const HeldControl& control, HDC dc, const RECTL& bounds, const RECTL* windowBounds = nullptr);
HRESULT DrawInBounds(const HeldControl& control, HDC dc, const RECTL* windowBounds = nullptr);
// The paper with the control on it.
Pixels Drawn(const HeldControl& control);

} // namespace kiv::test
