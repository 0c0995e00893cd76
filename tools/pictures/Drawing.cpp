#include "tools/pictures/Drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kiv::pictures
{

namespace
{

// Less than this is none: on every processor the same pixels are on the same side of an edge.
constexpr double Hair = 1e-6;

double Distance(Point one, Point other)
{
    return std::hypot(one.x - other.x, one.y - other.y);
}

double DistanceToSegment(Point point, Point from, Point to)
{
    const double length = Distance(from, to);
    if (length == 0)
        return Distance(point, from);
    const double along =
        ((point.x - from.x) * (to.x - from.x) + (point.y - from.y) * (to.y - from.y)) / (length * length);
    const double at = std::clamp(along, 0.0, 1.0);
    return Distance(point, {from.x + at * (to.x - from.x), from.y + at * (to.y - from.y)});
}

bool Covers(const Disc& disc, Point point)
{
    // One that only touches the edge would stand out of it alone.
    return Distance(point, disc.centre) < disc.radius - Hair;
}

bool Covers(const Arc& arc, Point point)
{
    const double distance = Distance(point, arc.centre);
    if (distance >= arc.radius - Hair || distance < arc.radius - arc.width - Hair)
        return false;
    // Rows count downwards, angles upwards.
    const double angle = std::atan2(arc.centre.y - point.y, point.x - arc.centre.x) * 180 / std::numbers::pi;
    const double turned = std::fmod(angle - arc.from + 720 + Hair, 360);
    return turned < arc.to - arc.from + 2 * Hair;
}

// By how often the way to the right crosses the edges. What is on an edge lies right of it and below.
bool Covers(const Polygon& polygon, Point middle)
{
    const Point point = {middle.x + Hair, middle.y + 2 * Hair};
    bool inside = false;
    Point from = polygon.corners.back();
    for (const Point to : polygon.corners)
    {
        if ((from.y > point.y) != (to.y > point.y) &&
            point.x < from.x + (point.y - from.y) * (to.x - from.x) / (to.y - from.y))
            inside = !inside;
        from = to;
    }
    return inside;
}

bool Covers(const Line& line, Point point)
{
    for (std::size_t i = 1; i < line.points.size(); ++i)
    {
        if (DistanceToSegment(point, line.points[i - 1], line.points[i]) <= line.width / 2 + Hair)
            return true;
    }
    return false;
}

// One side of a rectangle, as pixels of the grown picture: the first one and the one behind the last.
struct Side
{
    double from = 0;
    double to = 0;

    bool Has(double middle) const { return middle > from && middle < to; }
};

Side SideOf(double from, double to, double growth)
{
    // As wide as this, a side is one of those that are to be equally wide everywhere.
    constexpr double hairline = 1.5;
    const auto nearest = [](double length) { return std::floor(length + 0.5 + Hair); };
    const double first = nearest(from * growth);
    const double width = std::max(1.0, nearest((to - from) * growth));
    const double last = nearest(to * growth);
    return {first, to - from <= hairline ? first + width : std::max(last, first + 1)};
}

class Painter
{
public:
    Painter(const Drawing& drawing, const Picture& first, std::size_t percent) : drawing_(drawing)
    {
        picture_.kind = first.kind;
        picture_.background = first.background;
        picture_.width = Grown(first.width, percent);
        picture_.height = Grown(first.height, percent);
        growthX_ = static_cast<double>(picture_.width) / static_cast<double>(first.width);
        growthY_ = static_cast<double>(picture_.height) / static_cast<double>(first.height);
    }

    Picture Paint()
    {
        for (std::size_t y = 0; y < picture_.height; ++y)
        {
            for (std::size_t x = 0; x < picture_.width; ++x)
                picture_.pixels.push_back(
                    ColourAt({static_cast<double>(x) + 0.5, static_cast<double>(y) + 0.5}));
        }
        return std::move(picture_);
    }

private:
    // middle: of a pixel.
    Pixel ColourAt(Point middle) const
    {
        const auto shown = std::find_if(drawing_.rbegin(), drawing_.rend(),
                                        [&](const Shape& shape) { return IsAt(shape, middle); });
        if (shown != drawing_.rend())
            return shown->colour;
        return picture_.kind == PictureKind::Icon ? Pixel{} : Pixel{Colour{}};
    }

    bool IsAt(const Shape& shape, Point middle) const
    {
        if (const auto* const rectangle = std::get_if<Rectangle>(&shape.form))
            return SideOf(rectangle->topLeft.x, rectangle->bottomRight.x, growthX_).Has(middle.x) &&
                   SideOf(rectangle->topLeft.y, rectangle->bottomRight.y, growthY_).Has(middle.y);
        const Point point = {middle.x / growthX_, middle.y / growthY_};
        return std::visit(
            [&](const auto& form) {
                if constexpr (requires { Covers(form, point); })
                    return Covers(form, point);
                else
                    return false;
            },
            shape.form);
    }

    const Drawing& drawing_;
    Picture picture_;
    double growthX_ = 1;
    double growthY_ = 1;
};

} // namespace

Picture Drawn(const Drawing& drawing, const Picture& first, std::size_t percent)
{
    return Painter(drawing, first, percent).Paint();
}

} // namespace kiv::pictures
