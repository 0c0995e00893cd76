#pragma once

#include "runtime/constituents/Constituent.h"

#include <functional>

namespace kiv
{

// A constituent horizontal scroll bar: a real SCROLLBAR, which turns arrows, Home, End, PageUp and PageDown
// into a value. It lies beside the surface: it is there to have the focus and is never seen.
class ScrollBar final : public Constituent
{
public:
    ScrollBar(ConstituentOwner& owner, HWND parent);

    // Events.
    std::function<void()> OnChange;

    // Raises OnChange when the value is another one. A value outside the range stays until the next step.
    short Value() const { return value_; }
    void Value(short newValue);

    short Min() const { return min_; }
    short Max() const { return max_; }
    void Range(short min, short max);
    void LargeChange(short newChange) { largeChange_ = newChange; }

    // code: what the bar was made to do (SB_LINELEFT and so on).
    void Notified(WORD code) override;
    // Its arrow keys go through the values as ever.
    void FollowDirection(bool) override {}
    void Draw(HDC dc, const RECT& place) const override;

protected:
    bool Received(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Tell();

    short value_ = 0;
    short min_ = 0;
    short max_ = 0;
    short largeChange_ = 1;
    bool told_ = true; // the system's bar has the value and the range
};

} // namespace kiv
