#pragma once

#include "runtime/com/PropertyBag.h"

#include <windows.h>

#include <olectl.h>

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace kiv
{

// How a bag holds a value. Colours and enumerations are Longs, a double is an automation date, and a Variant
// keeps whatever type was stored, as long as it can be read as text.
template<class T>
T ReadStored(PropertyBag& bag, const wchar_t* key, const T& defaultValue)
{
    if constexpr (std::is_same_v<T, OLE_COLOR> || std::is_enum_v<T>)
        return static_cast<T>(bag.ReadProperty(key, static_cast<long>(defaultValue)));
    else if constexpr (std::is_same_v<T, double>)
        return bag.ReadDate(key, defaultValue);
    else if constexpr (std::is_same_v<T, Variant>)
        return bag.ReadTextVariant(key, defaultValue);
    else if constexpr (std::is_same_v<T, std::wstring>)
        return bag.ReadProperty(key, defaultValue.c_str());
    else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, Currency>)
        return bag.ReadProperty(key, defaultValue);
    else
        return bag.ReadObject(key, defaultValue);
}

template<class T>
Variant ToStored(const T& value)
{
    if constexpr (std::is_same_v<T, OLE_COLOR> || std::is_enum_v<T>)
        return Variant(static_cast<long>(value));
    else if constexpr (std::is_same_v<T, double>)
        return Variant::Date(value);
    else if constexpr (std::is_same_v<T, Variant>)
        return value;
    else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, Currency> ||
                       std::is_same_v<T, std::wstring>)
        return Variant(value);
    else
        return Variant(static_cast<IUnknown*>(value.Get()));
}

// Ways to write a property.
struct UnlessDefault
{
    template<class T>
    void operator()(PropertyBag& bag, const wchar_t* key, const T& value, const T& defaultValue) const
    {
        bag.WriteProperty(key, ToStored(value), ToStored(defaultValue));
    }
};
struct WithoutDefault
{
    template<class T>
    void operator()(PropertyBag& bag, const wchar_t* key, const T& value, const T&) const
    {
        bag.WriteProperty(key, ToStored(value));
    }
};

// What holds for every control, or for every value of a property.
struct Ever
{
    template<class... T>
    constexpr bool operator()(const T&...) const
    {
        return true;
    }
};

// A persisted property of a control, declared once: its key, how the control has it and takes it, and what it
// is unless it was stored. What is unusual about it is said behind it.
//
// get:          of the control, the value
// take:         of the control and a value, which was stored or is the default; nothing is notified meanwhile
// defaultValue: a value, or of the control, one
template<class Get, class Take, class Default, class Exists = Ever, class Usable = Ever,
         class Write = UnlessDefault>
class Property
{
public:
    constexpr Property(const wchar_t* key, Get get, Take take, Default defaultValue, int readPlace = InTurn,
                       Exists exists = {}, Usable usable = {}, Write write = {}) :
        key_(key),
        get_(get),
        take_(take),
        default_(defaultValue),
        readPlace_(readPlace),
        exists_(exists),
        usable_(usable),
        write_(write)
    {
    }

    // Read at this place among the others, counted from 0, and not in the order of the table.
    constexpr Property ReadAt(int place) const
    {
        return {key_, get_, take_, default_, place, exists_, usable_, write_};
    }
    // Not every control has it, as it is by then.
    template<class Condition>
    constexpr auto OnlyIf(Condition exists) const
    {
        return Property<Get, Take, Default, Condition, Usable, Write>(key_, get_, take_, default_, readPlace_,
                                                                      exists, usable_, write_);
    }
    // Of the control and a stored value: one that the control cannot have is reported, and not taken.
    template<class Condition>
    constexpr auto IfUsable(Condition usable) const
    {
        return Property<Get, Take, Default, Exists, Condition, Write>(key_, get_, take_, default_, readPlace_,
                                                                      exists_, usable, write_);
    }
    template<class Way>
    constexpr auto Written(Way write) const
    {
        return Property<Get, Take, Default, Exists, Usable, Way>(key_, get_, take_, default_, readPlace_,
                                                                 exists_, usable_, write);
    }

    template<class Control>
    void ReadFrom(PropertyBag& bag, Control& control) const
    {
        if (!exists_(control))
            return;
        const auto value = ReadStored(bag, key_, DefaultOf(control));
        if (usable_(control, value))
            take_(control, value);
        else
            bag.ReportUnusable(key_);
    }
    template<class Control>
    void Reset(Control& control) const
    {
        if (exists_(control))
            take_(control, DefaultOf(control));
    }
    template<class Control>
    void WriteTo(PropertyBag& bag, const Control& control) const
    {
        if (exists_(control))
            write_(bag, key_, get_(control), DefaultOf(control));
    }
    constexpr int ReadPlace() const { return readPlace_; }

    static constexpr int InTurn = -1;

private:
    template<class Control>
    auto DefaultOf(const Control& control) const
    {
        using T = std::remove_cvref_t<decltype(get_(control))>;
        if constexpr (std::is_invocable_v<const Default&, const Control&>)
            return T(default_(control));
        else
            return T(default_);
    }

    const wchar_t* key_;
    Get get_;
    Take take_;
    Default default_;
    int readPlace_;
    Exists exists_;
    Usable usable_;
    Write write_;
};

// One that is a data member.
template<class Control, class T, class Default>
constexpr auto Field(const wchar_t* key, T Control::*member, Default defaultValue)
{
    return Property(
        key, [member](const Control& control) { return control.*member; },
        [member](Control& control, const T& value) { control.*member = value; }, defaultValue);
}
// One that is part of a data member, with the default that a new one of those has.
template<class Control, class Whole, class T>
constexpr auto Field(const wchar_t* key, Whole Control::*member, T Whole::*part)
{
    return Property(
        key, [=](const Control& control) { return control.*member.*part; },
        [=](Control& control, const T& value) { control.*member.*part = value; }, Whole().*part);
}

// All persisted properties of a control, in the order in which they are written.
template<class... Properties>
class PropertyTable
{
public:
    constexpr explicit PropertyTable(const Properties&... properties) :
        properties_(properties...), readOrder_(OrderOf({properties.ReadPlace()...}))
    {
    }

    template<class Control>
    void Read(Control& control, PropertyBag& bag) const
    {
        ForEachInReadingOrder([&](const auto& each) { each.ReadFrom(bag, control); });
    }
    // As if nothing were stored.
    template<class Control>
    void Reset(Control& control) const
    {
        ForEachInReadingOrder([&](const auto& each) { each.Reset(control); });
    }
    template<class Control>
    void Write(const Control& control, PropertyBag& bag) const
    {
        std::apply([&](const auto&... each) { (each.WriteTo(bag, control), ...); }, properties_);
    }

private:
    static constexpr std::size_t Count = sizeof...(Properties);
    using Order = std::array<std::size_t, Count>;

    // Those with a place of their own, and around them the others in turn.
    static constexpr Order OrderOf(const std::array<int, Count>& places)
    {
        Order order{};
        std::array<bool, Count> taken{};
        for (std::size_t each = 0; each < Count; ++each)
        {
            if (places[each] < 0)
                continue;
            const auto place = static_cast<std::size_t>(places[each]);
            order[place] = each;
            taken[place] = true;
        }
        std::size_t place = 0;
        for (std::size_t each = 0; each < Count; ++each)
        {
            if (places[each] >= 0)
                continue;
            while (taken[place])
                ++place;
            order[place++] = each;
        }
        return order;
    }

    template<class Visitor>
    void ForEachInReadingOrder(const Visitor& visit) const
    {
        for (const std::size_t wanted : readOrder_)
        {
            std::size_t at = 0;
            std::apply([&](const auto&... each) { ((at++ == wanted ? visit(each) : void()), ...); },
                       properties_);
        }
    }

    std::tuple<Properties...> properties_;
    Order readOrder_;
};

} // namespace kiv
