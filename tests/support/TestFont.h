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
    std::wstring Name = L"Arial";
    CY Size = {{100000, 0}}; // 10 points, in ten-thousandths
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
