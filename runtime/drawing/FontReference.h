#pragma once

#include "runtime/core/Resolution.h"
#include "runtime/drawing/FontKey.h"
#include "runtime/drawing/SizedFont.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <functional>
#include <memory>
#include <string_view>

namespace kiv
{

using FontObject = Microsoft::WRL::ComPtr<IFontDisp>;

// A font object of the system's dialog font, for containers that offer none of their own.
FontObject CreateDefaultFont();

// A font object of a font by name.
FontObject CreateFontObject(std::wstring_view name, double points, short weight);

// A new object with the same attributes, or the object itself when it cannot be cloned.
FontObject CloneFont(const FontObject& font);

// A font object in use: its handle, and word of every change of one of its attributes.
class FontReference
{
public:
    using Listener = std::function<void()>;

    FontReference();
    FontReference(const FontReference&) = delete;
    FontReference& operator=(const FontReference&) = delete;
    ~FontReference();

    // Takes another object; the listener hears its changes from now on, the former object's no more. It is
    // not called any more either once this is gone, but whatever it needs while it runs it holds itself.
    void Set(FontObject font, Listener listener);
    const FontObject& Get() const { return font_; }

    // The font's handle, null when there is none. At the screen's resolution it is the font object's own, at
    // any other one that of a font like it in as many points, which lives until the font is another one once
    // more.
    HFONT Handle(const Resolution& resolution) const;

private:
    class Subscription;

    HFONT Sized(HFONT own, const Resolution& resolution) const;

    FontObject font_;
    std::unique_ptr<Subscription> subscription_;
    // The font at another resolution than the screen's, and what it was made by.
    mutable SizedFont sized_;
    mutable FontKey sizedLike_;
    mutable int sizedFor_ = 0;
    // Constituents may have it until they are told of the other one.
    mutable SizedFont formerlySized_;
};

} // namespace kiv
