#pragma once

#include "controls/lists/EnumRecordset.h"
#include "controls/lists/EnumRules.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/Form.h"
#include "runtime/forms/Frame.h"
#include "runtime/forms/Label.h"
#include "runtime/forms/ListBox.h"
#include "runtime/forms/OptionButton.h"

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>
#include <string>

namespace kiv
{

// The picker: a dialog in which the user chooses one code of a table. Its caller sets the plain fields, keeps
// it loaded while it sets SortListBy and EnumCode and calls Display, and reads the outcome; the fields stay
// from one opening to the next.
class frmEnums final : public Form
{
public:
    // The picker that all lists share. Each thread of the host has one of its own: windows, and the host's
    // database objects, belong to the thread that made them, and two threads may well pick at the same time.
    static frmEnums& TheForm();

    frmEnums();

    // Set before the form is loaded. The database is the caller's to take away again: kept here until the
    // next opening, it could outlive its host's connection.
    std::wstring StateCode;
    std::wstring TableName;
    Microsoft::WRL::ComPtr<IDispatch> Database;
    bool ShowCodes = false;
    // A list of this thread is already picking: its form is not to be touched.
    bool InUse = false;

    // By description or by code; setting it selects the option button, and so fills the list.
    long SortListBy() const { return sortListBy_; }
    void SortListBy(long order);
    // The chosen code, empty for none; setting it selects its entry and scrolls that to the top.
    const std::wstring& EnumCode() const { return enumCode_; }
    void EnumCode(std::wstring_view code);
    // Whether the user has left without choosing: by Cancel or Esc, or because the form went for any other
    // reason than OK.
    bool Cancel() const { return cancel_; }

    // Widens the form for its longest line and shows it.
    void Display(const std::function<void(bool enabled)>& tellOwner);

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
    void Form_Paint() override;
    void Form_QueryUnload() override;
    void Form_Unload() override;
    void optSortBy_Click(long Index);
    void lstEnums_Click();
    void lstEnums_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();

    void Fill(EnumRecordset& rows, int filling);
    std::wstring ListItemCode(int index) const;
    std::wstring SelectedCode() const;
    bool Superseded(int filling) const { return IsUnloaded() || filling != fillings_; }

    long sortListBy_ = ByCode;
    std::wstring enumCode_;
    bool cancel_ = true;
    short MaxTextWidth = 0; // twips
    int fillings_ = 0;
    std::unique_ptr<Controls> controls_;
};

} // namespace kiv
