#pragma once

#include "host/container/FormItem.h"

#include <string>

namespace kiv::host
{

// Bounds are pixels of the form's client area; "&" in a caption marks its mnemonic.
struct FrameOptions
{
    std::wstring name;
    std::wstring caption;
    RECT bounds = {};
    short tabIndex = -1;
};

// An etched group frame with its caption in the top line.
class Frame final : public FormItem
{
public:
    Frame(ItemOwner& owner, const FrameOptions& options);

    const std::wstring& Caption() const { return options_.caption; }
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;
    void Paint(HDC context) override;

private:
    FrameOptions options_;
};

} // namespace kiv::host
