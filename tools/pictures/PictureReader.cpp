#include "tools/pictures/PictureReader.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <map>
#include <sstream>

namespace kiv::pictures
{

namespace
{

constexpr std::size_t IconSize = 32;
constexpr std::size_t ToolboxWidth = 16;
constexpr std::size_t ToolboxHeight = 15;
constexpr std::size_t LargestSide = 256;

struct PaletteEntry
{
    Pixel pixel;
    std::size_t line = 0;
    bool used = false;
};

class Reader
{
public:
    Reader(const std::string& fileName, std::istream& text) : fileName_(fileName), text_(text) {}

    Picture Read()
    {
        while (NextLine())
        {
            if (line_.empty() || line_.front() == '#')
                continue;
            if (rowsRead_)
                Fail("the picture has more rows than its size says");
            ReadStatement();
        }
        if (!rowsRead_)
            Fail("the file ends without the picture's rows");
        for (const auto& [letter, entry] : palette_)
        {
            if (!entry.used)
                FailAt(entry.line, "colour '" + std::string(1, letter) + "' is not used in the picture");
        }
        return picture_;
    }

private:
    bool NextLine()
    {
        ++lineNumber_;
        if (!std::getline(text_, line_))
            return false;
        if (!line_.empty() && line_.back() == '\r')
            line_.pop_back();
        return true;
    }

    [[noreturn]] void FailAt(std::size_t line, const std::string& what) const
    {
        throw PictureError(fileName_ + ":" + std::to_string(line) + ": " + what);
    }

    [[noreturn]] void Fail(const std::string& what) const { FailAt(lineNumber_, what); }

    void ReadStatement()
    {
        std::istringstream words(line_);
        std::string keyword;
        words >> keyword;
        if (keyword == "kind")
            ReadKind(words);
        else if (keyword == "size")
            ReadSize(words);
        else if (keyword == "on")
            ReadBackground(words);
        else if (keyword == "colour")
            ReadPaletteEntry(words);
        else if (keyword == "rows")
            ReadRows(words);
        else
            Fail("'" + keyword + "' is unknown; expected kind, size, on, colour or rows");
    }

    std::string Word(std::istringstream& words, const std::string& meaning) const
    {
        std::string word;
        if (!(words >> word))
            Fail(meaning + " is missing");
        return word;
    }

    void ExpectEnd(std::istringstream& words) const
    {
        std::string extra;
        if (words >> extra)
            Fail("'" + extra + "' is too much on this line");
    }

    void FirstTime(bool& seen, const std::string& keyword) const
    {
        if (seen)
            Fail(keyword + " is given twice");
        seen = true;
    }

    void ReadKind(std::istringstream& words)
    {
        FirstTime(kindRead_, "kind");
        const std::string kind = Word(words, "the kind (icon, bitmap or toolbox)");
        if (kind == "icon")
            picture_.kind = PictureKind::Icon;
        else if (kind == "bitmap")
            picture_.kind = PictureKind::Bitmap;
        else if (kind == "toolbox")
            picture_.kind = PictureKind::Toolbox;
        else
            Fail("'" + kind + "' is no kind of picture; expected icon, bitmap or toolbox");
        ExpectEnd(words);
    }

    void ReadSize(std::istringstream& words)
    {
        Require(kindRead_, "kind", "size");
        FirstTime(sizeRead_, "size");
        const std::string size = Word(words, "the size (such as 15x10)");
        const std::size_t cross = std::min(size.find('x'), size.size());
        const std::string_view text = size;
        picture_.width = ParseSide(text.substr(0, cross));
        picture_.height = ParseSide(text.substr(std::min(cross + 1, size.size())));
        if (picture_.width == 0 || picture_.height == 0)
            Fail("'" + size + "' is no size; expected two numbers from 1 to 256 such as 15x10");
        const std::size_t longerSide = std::max(picture_.width, picture_.height);
        if (picture_.kind == PictureKind::Icon && longerSide > IconSize)
            Fail("an icon's picture is at most 32x32, not " + size);
        if (picture_.kind == PictureKind::Toolbox &&
            (picture_.width != ToolboxWidth || picture_.height != ToolboxHeight))
            Fail("a toolbox image is 16x15, not " + size);
        ExpectEnd(words);
    }

    // 0 when the text is no side of a picture.
    static std::size_t ParseSide(std::string_view text)
    {
        std::size_t side = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, side);
        return error == std::errc{} && stop == end && side <= LargestSide ? side : 0;
    }

    void ReadBackground(std::istringstream& words)
    {
        FirstTime(backgroundRead_, "on");
        picture_.background = ReadColour(Word(words, "the colour that the picture is drawn on"));
        ExpectEnd(words);
    }

    void ReadPaletteEntry(std::istringstream& words)
    {
        Require(kindRead_, "kind", "colour");
        const std::string letter = Word(words, "the letter that stands for the colour");
        if (letter.size() != 1)
            Fail("'" + letter + "' is no single letter");
        const std::string name = Word(words, "the colour");
        PaletteEntry entry;
        entry.line = lineNumber_;
        if (name != "transparent")
            entry.pixel = ReadColour(name);
        if (!entry.pixel && picture_.kind != PictureKind::Icon)
            Fail("only an icon can be transparent");
        if (entry.pixel && picture_.kind != PictureKind::Toolbox && !StandardIndex(*entry.pixel))
            Fail(name + " is none of the 16 standard colours");
        if (!palette_.emplace(letter.front(), entry).second)
            Fail("letter '" + letter + "' already stands for a colour");
        ExpectEnd(words);
    }

    Colour ReadColour(const std::string& name) const
    {
        const std::optional<Colour> colour = ParseColour(name);
        if (!colour)
            Fail("'" + name + "' is no colour; expected one of the 16 names or #rrggbb");
        return *colour;
    }

    void ReadRows(std::istringstream& words)
    {
        ExpectEnd(words);
        Require(kindRead_, "kind", "rows");
        Require(sizeRead_, "size", "rows");
        Require(backgroundRead_, "on", "rows");
        rowsRead_ = true;
        for (std::size_t row = 0; row < picture_.height; ++row)
        {
            if (!NextLine())
                Fail("the picture ends after " + std::to_string(row) + " of its " +
                     std::to_string(picture_.height) + " rows");
            ReadRow();
        }
    }

    void ReadRow()
    {
        if (line_.size() != picture_.width)
            Fail("the row has " + std::to_string(line_.size()) + " letters instead of " +
                 std::to_string(picture_.width));
        for (const char letter : line_)
        {
            const auto entry = palette_.find(letter);
            if (entry == palette_.end())
                Fail("letter '" + std::string(1, letter) + "' stands for no colour");
            entry->second.used = true;
            picture_.pixels.push_back(entry->second.pixel);
        }
    }

    void Require(bool seen, const std::string& needed, const std::string& keyword) const
    {
        if (!seen)
            Fail(needed + " must come before " + keyword);
    }

    const std::string& fileName_;
    std::istream& text_;
    std::string line_;
    std::size_t lineNumber_ = 0;
    Picture picture_;
    std::map<char, PaletteEntry> palette_;
    bool kindRead_ = false;
    bool sizeRead_ = false;
    bool backgroundRead_ = false;
    bool rowsRead_ = false;
};

} // namespace

Picture ReadPicture(const std::string& fileName, std::istream& text)
{
    return Reader(fileName, text).Read();
}

} // namespace kiv::pictures
