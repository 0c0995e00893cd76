#pragma once

#include "runtime/drawing/SavedDc.h"

#include <optional>

namespace kiv
{

// Whether x counts from the right in a device context, as in those of a mirrored window.
bool DrawsMirrored(HDC dc);

// While this lives, pictures that are drawn on a mirrored device context stand where they belong there and
// are not mirrored themselves. For pictures alone: nothing else is to be drawn meanwhile.
class UprightPictures
{
public:
    explicit UprightPictures(HDC dc);

    // Where something wide begins of which only a narrower part at its left is to be seen: a mirrored device
    // context shows that part where it belongs, too.
    int LeftOf(int left, int seen, int wide) const { return saved_ ? left - (wide - seen) : left; }

private:
    std::optional<SavedDc> saved_;
};

} // namespace kiv
