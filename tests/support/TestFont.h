#pragma once

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

#include <string>

namespace kiv::test
{

// The seven attributes by which one font is told from another.
struct FontFacts
{
    std::wstring Name = L"Tahoma"; // on every Windows, and in Wine itself
    CY Size = {
        {97500, 0}}; // points in ten-thousandths; a whole number of pixels, which is what a font in use has
    short Weight = 400;
    short Charset = 0;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;

    bool operator==(const FontFacts& other) const;
};

Microsoft::WRL::ComPtr<IFontDisp> MakeFont(const FontFacts& facts = {});
FontFacts FactsOf(IUnknown* font);

std::ostream& operator<<(std::ostream& out, const FontFacts& facts);

} // namespace kiv::test
