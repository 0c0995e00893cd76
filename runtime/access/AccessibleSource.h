#pragma once

#include <windows.h>

#include <oleacc.h>
#include <unknwn.h>

#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// What assistive tools are told of something on the screen: a control, or a part of one.
struct AccessibleInfo
{
    long Role = ROLE_SYSTEM_CLIENT;
    std::wstring Name;
    std::optional<std::wstring> Value; // none: it has nothing of the kind
    std::wstring Description;
    std::wstring KeyboardShortcut;
    std::wstring DefaultAction; // empty: it does nothing
    long State = 0;             // STATE_SYSTEM_...
    RECT Place = {};            // pixels of the screen
};

// What something says of itself when an assistive tool asks. Part 0 is the thing as a whole; its parts count
// from 1.
class AccessibleSource
{
public:
    virtual AccessibleInfo Describe(int part) const = 0;
    // Apart from the rest: to find it may take a question to the container.
    virtual std::wstring NameOf(int part) const { return Describe(part).Name; }
    virtual int PartCount() const { return 0; }
    // The part that has the focus, and the one that is selected; 0 for none.
    virtual int FocusedPart() const { return 0; }
    virtual int SelectedPart() const { return 0; }
    // The part at a place of the screen; 0 for none.
    virtual int PartAt(POINT place);
    // A part that has parts in its turn, as a combo box has a list; null for all others. It lives as long as
    // this.
    virtual AccessibleSource* SourceOf(int) { return nullptr; }
    // A part that is a window, which says by itself what it is; null for all others.
    virtual HWND WindowOf(int) const { return nullptr; }
    // What a tool may ask it to do. False: there is nothing of the kind.
    virtual bool DoDefaultAction(int) { return false; }
    virtual bool TakeAccessibleFocus(int) { return false; }
    virtual bool TakeAccessibleSelection(int) { return false; }
    virtual bool TakeAccessibleValue(std::wstring_view) { return false; }
    // What is told of a part, whichever kind it is: one that describes itself is asked, of a window there is
    // its place.
    AccessibleInfo InfoOf(int part);
    // Holds what is described while it is asked: doing something may let the host drop it.
    virtual IUnknown* AccessibleHolder() noexcept { return nullptr; }

protected:
    ~AccessibleSource() = default;
};

} // namespace kiv
