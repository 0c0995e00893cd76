#pragma once

#include "controls/lists/CodePicker.h"
#include "controls/lists/EnumRecordset.h"
#include "controls/lists/EnumRules.h"
#include "runtime/constituents/CommandButton.h"
#include "runtime/constituents/Frame.h"
#include "runtime/constituents/Label.h"
#include "runtime/constituents/ListBox.h"
#include "runtime/constituents/OptionButton.h"
#include "runtime/form/Form.h"

#include <memory>
#include <string>

namespace kiv
{

// The picker: a dialog in which the user chooses one code of a table. What it finds out of its list's lines
// stays from one opening to the next.
class frmEnums final : public Form
{
public:
    frmEnums();

    // Loads the form, shows it, and returns with what the user has left it with. One request at a time.
    PickAnswer PickCode(const PickRequest& request);

private:
    // The controls, made anew for every opening.
    struct Controls
    {
        FontReference Bold; // of all but the list
        ListBox lstEnums;
        Frame fraSort;
        OptionButton optSortBy[2];
        CommandButton cmdOK;
        CommandButton cmdCancel;
        Label lbl[2];

        Controls(ConstituentOwner& owner, const Surface& surface);
    };

    void Form_Load() override;
    void Form_Resize() override;
    void Form_ResolutionChanged() override;
    void Form_Paint() override;
    void Form_QueryUnload() override;
    void Form_Unload() override;
    void optSortBy_Click(long Index);
    void lstEnums_Click();
    void lstEnums_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();

    // By description or by code; setting it selects the option button, and so fills the list.
    void SortListBy(long order);
    // The chosen code, empty for none; setting it selects its entry and scrolls that to the top.
    void EnumCode(std::wstring_view code);
    // Widens the form for its longest line and shows it.
    void Display();
    void Fill(EnumRecordset& rows, int filling);
    std::wstring ListItemCode(int index) const;
    std::wstring SelectedCode() const;
    bool Superseded(int filling) const { return IsUnloaded() || filling != fillings_; }

    const PickRequest* request_ = nullptr; // while the form is loaded
    long sortListBy_ = ByCode;
    std::wstring enumCode_;
    bool cancel_ = true;    // nothing is chosen
    short MaxTextWidth = 0; // twips
    int fillings_ = 0;
    std::unique_ptr<Controls> controls_;
};

} // namespace kiv
