#pragma once

namespace kiv
{

// Under which heading a designer shows a property. Those below zero have their numbers, and in each designer
// their names, from ICategorizeProperties; the others are the library's own.
enum class PropertyCategory
{
    Nil = -1, // none
    Misc = -2,
    Font = -3,
    Appearance = -5,
    Behavior = -6,
    Data = -7,
    List = -8,
    Limits = 1, // what an entry may be
};

} // namespace kiv
