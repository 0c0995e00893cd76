#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <functional>
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

    FontReference() = default;
    FontReference(const FontReference&) = delete;
    FontReference& operator=(const FontReference&) = delete;
    ~FontReference();

    // Takes another object; the listener hears its changes from now on, the former object's no more.
    void Set(FontObject font, Listener listener);
    const FontObject& Get() const { return font_; }

    // The font's handle, owned by the font object; null when there is none.
    HFONT Handle() const;

private:
    void Unsubscribe();

    FontObject font_;
    Microsoft::WRL::ComPtr<IConnectionPoint> changes_;
    Microsoft::WRL::ComPtr<IUnknown> sink_;
    DWORD cookie_ = 0;
};

} // namespace kiv
