#pragma once

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

    // The font's handle, owned by the font object; null when there is none.
    HFONT Handle() const;

private:
    class Subscription;

    FontObject font_;
    std::unique_ptr<Subscription> subscription_;
};

} // namespace kiv
