#pragma once

#include "controls/lists/EnumLayout.h"
#include "controls/standard/StandardControl.h"
#include "runtime/constituents/CommandButton.h"
#include "runtime/constituents/Label.h"

#include <KivMembers.h>

namespace kiv
{

// One code of a table in the host's database, shown as it is or by its description. The user chooses another
// in the picker, which the button opens.
class EnumList final : public EnumListMembers<EnumList, StandardControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit EnumList(IUnknown* outer);

protected:
    const Window& FocusWindow() const override { return cmd; }
    const Label* TippedLabel() const override { return &lbl; }
    AccessibleInfo Accessible() const override;
    bool DoDefaultAction(int part) override;

private:
    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_Paint() override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Hide() override;
    void cmd_Click();

    // Properties.
    OLE_COLOR BackColor() const override { return lbl.BackColor(); }
    void BackColor(OLE_COLOR newColor) override;
    OLE_COLOR ForeColor() const override { return lbl.ForeColor(); }
    void ForeColor(OLE_COLOR newColor) override;
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    void FontAssigned() override;
    void DisplayStyle(long newStyle);
    void SortListBy(long newOrder);
    std::wstring EnumText() const;
    void EnumCode(std::wstring_view newCode);
    void BoundEnumCode(const Variant& newCode);

    void Clear();
    bool ShowsCodes() const;
    void ShowCaption(std::wstring_view caption);
    void RefreshEnumLabel();
    double LabelHeight() const;
    EnumListLayout Layout() const;
    std::optional<SIZE> NeededSize() const;

    std::wstring StateCode;
    std::wstring TableName;
    std::wstring EnumListTitle;
    Microsoft::WRL::ComPtr<IDispatch> Database;
    long displayStyle_ = Code;
    long sortListBy_ = Code;
    long PickerSortOrder = Code;
    std::wstring enumCode_;
    Label lbl{TheSurface(), Label::Alignment::Left};
    CommandButton cmd{*this, TheSurface().hWnd(), L"..."};
    int refreshes_ = 0;
    bool picking_ = false;
};

} // namespace kiv
