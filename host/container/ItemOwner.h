#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <string>

namespace kiv::host
{

class ControlSite;
class FormItem;

// All that a form is to what stands on it.
class ItemOwner
{
public:
    virtual HWND Window() const = 0; // null once the form is gone
    // The window that items stand on, in whose pixels they are placed; null once the form is gone.
    virtual HWND Page() const = 0;
    // The form's font, also as an object for controls.
    virtual HFONT Font() const = 0;
    virtual IFontDisp* FontObject() const = 0;
    virtual bool DesignMode() const = 0;

    virtual short NextTabIndex() const = 0; // after all that the form holds already
    virtual FormItem* FocusedItem() const = 0;
    // The text of the label right before the item in tab order; empty when something else is there.
    virtual std::wstring LabelBefore(const FormItem& item) const = 0;
    virtual void FocusNext(bool backward) = 0;
    virtual void FocusAfter(const FormItem& item) = 0;  // the next one in tab order that can have it
    virtual bool Navigate(MSG& message) = 0;            // the form's own keys; true when it was one
    virtual IOleInPlaceFrame* InPlaceFrame() const = 0; // of in-place activation

    virtual void CloseBy(const FormItem& button) = 0; // as a form is closed that has been answered, or not

    virtual void SiteActivated(ControlSite& site) = 0; // the control has the focus, or keys go to it
    virtual void SiteDeactivated(ControlSite& site) = 0;

protected:
    ItemOwner() = default;
    ItemOwner(const ItemOwner&) = default;
    ItemOwner& operator=(const ItemOwner&) = default;
    ~ItemOwner() = default;
};

} // namespace kiv::host
