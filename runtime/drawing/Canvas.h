#pragma once

#include "runtime/drawing/Graphics.h"

namespace kiv
{

// What labels are drawn on.
class Canvas
{
public:
    // The device context to draw on: the painter's while the whole is being painted, else the window's. In a
    // font of its own if need be.
    virtual Graphics AcquireGraphics(HFONT font = nullptr) const = 0;
    // The font that is drawn in unless another one is wanted.
    virtual HFONT FontHandle() const = 0;

protected:
    ~Canvas() = default;
};

} // namespace kiv
