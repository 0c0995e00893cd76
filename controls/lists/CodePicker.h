#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <functional>
#include <optional>
#include <string>

namespace kiv
{

using OwnerTeller = std::function<void(bool enabled)>;

// What a list asks the user.
struct PickRequest
{
    HWND Owner = nullptr; // the window that the picker stands over; may be null
    std::wstring Title;
    // Where the codes come from.
    Microsoft::WRL::ComPtr<IDispatch> Database;
    std::wstring StateCode;
    std::wstring TableName;
    bool ShowCodes = false;
    long SortListBy = 0; // by code or by description; any other number counts as that by code
    // Asked for when the rows have come, for the host may do anything while it hands them out: the code that
    // is selected at first, empty for none, and who hears whether the owner's other windows are to answer
    // (false before the picker appears, true before it goes).
    std::function<std::wstring()> Present;
    std::function<OwnerTeller()> Teller;
};

struct PickAnswer
{
    long SortListBy = 0; // as the user left it, with a choice or without
    // The chosen code, empty for "(none)". Nothing when the user has left by Cancel or Esc, or because the
    // picker went for any other reason than OK.
    std::optional<std::wstring> Code;
};

// The picker of a thread, taken by one list until that has dealt with the answer. The lists of a thread share
// it. Each thread of the host has one of its own: windows, and the host's database objects, belong to the
// thread that made them, and two threads may well pick at the same time.
class PickerTurn
{
public:
    PickerTurn();
    PickerTurn(const PickerTurn&) = delete;
    PickerTurn& operator=(const PickerTurn&) = delete;
    ~PickerTurn();

    // False: a list further down this thread's stack has it.
    explicit operator bool() const { return taken_; }
    // Returns when the user has answered, or the picker is gone.
    PickAnswer PickCode(const PickRequest& request) const;
    // Has the picker of the thread leave without a choice, whoever has taken it.
    static void Leave();

private:
    bool taken_;
};

} // namespace kiv
