#include "tests/support/TestFont.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"
#include "tests/support/Text.h"

#include <olectl.h>

#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

bool FontFacts::operator==(const FontFacts& other) const
{
    return Name == other.Name && Size.int64 == other.Size.int64 && Weight == other.Weight &&
           Charset == other.Charset && Italic == other.Italic && Underline == other.Underline &&
           Strikethrough == other.Strikethrough;
}

ComPtr<IFontDisp> MakeFont(const FontFacts& facts)
{
    std::wstring name = facts.Name;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize = facts.Size;
    description.sWeight = facts.Weight;
    description.sCharset = facts.Charset;
    description.fItalic = facts.Italic;
    description.fUnderline = facts.Underline;
    description.fStrikethrough = facts.Strikethrough;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

FontFacts FactsOf(IUnknown* object)
{
    ComPtr<IFont> font;
    Check(object->QueryInterface(IID_PPV_ARGS(&font)));
    Bstr name;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    FontFacts facts;
    Check(font->get_Name(name.Receive()));
    Check(font->get_Size(&facts.Size));
    Check(font->get_Weight(&facts.Weight));
    Check(font->get_Charset(&facts.Charset));
    Check(font->get_Italic(&italic));
    Check(font->get_Underline(&underline));
    Check(font->get_Strikethrough(&strikethrough));
    facts.Name = name.View();
    facts.Italic = italic != FALSE;
    facts.Underline = underline != FALSE;
    facts.Strikethrough = strikethrough != FALSE;
    return facts;
}

std::ostream& operator<<(std::ostream& out, const FontFacts& facts)
{
    return out << Narrow(facts.Name) << ", size " << facts.Size.int64 << ", weight " << facts.Weight
               << ", charset " << facts.Charset << (facts.Italic ? ", italic" : "")
               << (facts.Underline ? ", underlined" : "") << (facts.Strikethrough ? ", struck through" : "");
}

} // namespace kiv::test
