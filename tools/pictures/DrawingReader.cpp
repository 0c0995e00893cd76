#include "tools/pictures/Drawing.h"
#include "tools/pictures/PictureReader.h"

#include <charconv>
#include <cmath>
#include <istream>
#include <sstream>

namespace kiv::pictures
{

namespace
{

class Reader
{
public:
    Reader(const std::string& fileName, std::istream& text, PictureKind kind) :
        fileName_(fileName), text_(text), kind_(kind)
    {
    }

    Drawing Read()
    {
        Drawing drawing;
        std::string line;
        while (std::getline(text_, line))
        {
            ++lineNumber_;
            if (line.empty() || line.front() == '#')
                continue;
            words_ = std::istringstream(line);
            drawing.push_back(ReadShape());
            if (std::string extra; words_ >> extra)
                Fail("'" + extra + "' is too much on this line");
        }
        if (drawing.empty())
            Fail("the file has no shape");
        return drawing;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const
    {
        throw PictureError(fileName_ + ":" + std::to_string(lineNumber_) + ": " + what);
    }

    Shape ReadShape()
    {
        const std::string keyword = Word("the shape");
        const Pixel colour = ReadColour();
        if (keyword == "disc")
            return {colour, ReadDisc()};
        if (keyword == "arc")
            return {colour, ReadArc()};
        if (keyword == "polygon")
            return {colour, Polygon{Points(3)}};
        if (keyword == "line")
            return {colour, ReadLine()};
        if (keyword == "rectangle")
            return {colour, ReadRectangle()};
        Fail("'" + keyword + "' is no shape; expected disc, arc, polygon, line or rectangle");
    }

    Disc ReadDisc()
    {
        const Point centre = ReadPoint();
        return {centre, Length("the radius")};
    }

    Arc ReadArc()
    {
        Arc arc;
        arc.centre = ReadPoint();
        arc.radius = Length("the radius");
        arc.width = Length("the width");
        arc.from = Number("the first angle");
        arc.to = Number("the second angle");
        if (arc.from < -360 || arc.to < arc.from || arc.to > arc.from + 360)
            Fail("the second angle is less than the first, or more than a turn from it");
        return arc;
    }

    Line ReadLine()
    {
        const double width = Length("the width");
        return {width, Points(2)};
    }

    Rectangle ReadRectangle()
    {
        const Point topLeft = ReadPoint();
        const Point bottomRight = ReadPoint();
        if (bottomRight.x <= topLeft.x || bottomRight.y <= topLeft.y)
            Fail("the second point is not below and right of the first");
        return {topLeft, bottomRight};
    }

    Pixel ReadColour()
    {
        const std::string name = Word("the colour");
        if (name == "transparent" && kind_ == PictureKind::Icon)
            return std::nullopt;
        const std::optional<Colour> colour = ParseColour(name);
        if (!colour || !StandardIndex(*colour))
            Fail("'" + name + "' is none of the 16 standard colours");
        return colour;
    }

    std::string Word(const std::string& meaning)
    {
        std::string word;
        if (!(words_ >> word))
            Fail(meaning + " is missing");
        return word;
    }

    double ToNumber(std::string_view text) const
    {
        double number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
        if (error != std::errc{} || stop != end || !std::isfinite(number))
            Fail("'" + std::string(text) + "' is no number");
        return number;
    }

    double Number(const std::string& meaning) { return ToNumber(Word(meaning)); }

    double Length(const std::string& meaning)
    {
        const double length = Number(meaning);
        if (length <= 0)
            Fail(meaning + " is not more than 0");
        return length;
    }

    Point ToPoint(const std::string& word) const
    {
        const std::size_t comma = word.find(',');
        if (comma == std::string::npos)
            Fail("'" + word + "' is no point; expected two numbers such as 3,4.5");
        const std::string_view text = word;
        return {ToNumber(text.substr(0, comma)), ToNumber(text.substr(comma + 1))};
    }

    Point ReadPoint() { return ToPoint(Word("a point")); }

    std::vector<Point> Points(std::size_t least)
    {
        std::vector<Point> points;
        for (std::string word; words_ >> word;)
            points.push_back(ToPoint(word));
        if (points.size() < least)
            Fail("at least " + std::to_string(least) + " points are needed");
        return points;
    }

    const std::string& fileName_;
    std::istream& text_;
    const PictureKind kind_;
    std::istringstream words_;
    std::size_t lineNumber_ = 0;
};

} // namespace

Drawing ReadDrawing(const std::string& fileName, std::istream& text, PictureKind kind)
{
    return Reader(fileName, text, kind).Read();
}

} // namespace kiv::pictures
