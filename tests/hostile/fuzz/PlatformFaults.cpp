#include "tests/hostile/fuzz/PlatformFaults.h"

#include "tests/support/WindowClass.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

bool PointsNowhere(const OddMessage& message, HWND)
{
    return message.Second == 0;
}

// To some of the system's own windows, or turned into the other kind for a window that is not of Unicode,
// before that sees it.
bool IsWideAndPointsNowhere(const OddMessage& message, HWND target)
{
    return message.Wide && PointsNowhere(message, target);
}

// An item to look on from that is not there.
bool StartsAtNoItem(const OddMessage& message, HWND target)
{
    const bool isCombo = ClassNameOf(target) == "ComboBox";
    const LRESULT items = SendMessageA(target, isCombo ? UINT{CB_GETCOUNT} : UINT{LB_GETCOUNT}, 0, 0);
    const int start = static_cast<int>(message.First);
    return message.Second != 0 && (start < -1 || start >= items);
}

constexpr WPARAM FarOff = 0xFFF00000;

const PlatformFault Known[] = {
    {"LineNowhere", "Edit", PointsNowhere, {EM_GETLINE}},
    {"PlaceNowhere", "ListBox", PointsNowhere, {LB_GETITEMRECT}},
    {"PlaceNowhereInCombo", "ComboLBox", PointsNowhere, {LB_GETITEMRECT}},
    {"FindFromNowhere", "ListBox", StartsAtNoItem, {LB_FINDSTRING, FarOff, 1}},
    {"FindWholeFromNowhere", "ListBox", StartsAtNoItem, {LB_FINDSTRINGEXACT, FarOff, 1}},
    {"SelectFromNowhere", "ListBox", StartsAtNoItem, {LB_SELECTSTRING, FarOff, 1}},
    {"FindFromNowhereInList", "ComboLBox", StartsAtNoItem, {LB_FINDSTRING, FarOff, 1}},
    {"FindWholeFromNowhereInList", "ComboLBox", StartsAtNoItem, {LB_FINDSTRINGEXACT, FarOff, 1}},
    {"SelectFromNowhereInList", "ComboLBox", StartsAtNoItem, {LB_SELECTSTRING, FarOff, 1}},
    {"FindFromNowhereInCombo", "ComboBox", StartsAtNoItem, {CB_FINDSTRING, FarOff, 1}},
    {"FindWholeFromNowhereInCombo", "ComboBox", StartsAtNoItem, {CB_FINDSTRINGEXACT, FarOff, 1}},
    {"SelectFromNowhereInCombo", "ComboBox", StartsAtNoItem, {CB_SELECTSTRING, FarOff, 1}},
    {"WideFileNowhere", "ListBox", IsWideAndPointsNowhere, {LB_ADDFILE, 0, 0, true}},
    {"WideFileNowhereInList", "ComboLBox", IsWideAndPointsNowhere, {LB_ADDFILE, 0, 0, true}},
    {"WideLineNowhere", nullptr, IsWideAndPointsNowhere, {EM_GETLINE, 0, 0, true}},
    {"WideChildNowhere", nullptr, IsWideAndPointsNowhere, {WM_MDICREATE, 0, 0, true}},
    {"WideCreationNowhere", nullptr, IsWideAndPointsNowhere, {WM_CREATE, 0, 0, true}},
    {"WideFirstCreationNowhere", nullptr, IsWideAndPointsNowhere, {WM_NCCREATE, 0, 0, true}},
};

} // namespace

std::span<const PlatformFault> PlatformFaults()
{
    return Known;
}

bool IsPlatformFault(const OddMessage& message, HWND target)
{
    return std::ranges::any_of(Known, [&, name = ClassNameOf(target)](const PlatformFault& each) {
        return each.Example.Number == message.Number && (!each.Class || name == each.Class) &&
               each.Kills(message, target);
    });
}

} // namespace kiv::test
