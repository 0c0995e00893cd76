#pragma once

#include "host/container/FormItem.h"

#include <string>

namespace kiv::host
{

// Bounds are pixels of the form; "&" in a caption marks its mnemonic.
struct FrameOptions
{
    std::wstring name;
    std::wstring caption;
    RECT bounds = {};
    FormItem* container = nullptr; // what it stands in; null: the form itself
    bool enabled = true;
    short tabIndex = -1;
};

// An etched group frame with its caption in the top line. Others can stand in it.
class Frame final : public FormItem
{
public:
    Frame(ItemOwner& owner, const FrameOptions& options);

    const std::wstring& Caption() const { return options_.caption; }
    AccessibleInfo Accessible() const override;
    bool HasMnemonic(const MSG& message) const override;
    void OnMnemonic(MSG& message) override;
    void Paint(HDC context) override;

private:
    FrameOptions options_;
};

} // namespace kiv::host
