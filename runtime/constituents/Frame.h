#pragma once

#include "runtime/constituents/Constituent.h"

#include <string_view>

namespace kiv
{

// A constituent frame with a caption: a real group box. Constituents made with its window as parent lie in
// it, move with it and are hidden with it.
class Frame final : public Constituent
{
public:
    Frame(ConstituentOwner& owner, HWND parent, std::wstring_view caption);

    AccessibleInfo Describe(int part) const override;

protected:
    bool Received(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace kiv
