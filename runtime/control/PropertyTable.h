#pragma once

#include "runtime/com/Errors.h"
#include "runtime/com/PropertyBag.h"
#include "runtime/control/PropertyCategory.h"
#include "runtime/drawing/FontReference.h"

#include <windows.h>

#include <olectl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
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

// The name of a property, as an argument of templates.
template<std::size_t Size>
struct PropertyName
{
    consteval PropertyName(const wchar_t (&name)[Size]) { std::copy_n(name, Size, Text); }

    template<std::size_t Other>
    constexpr bool operator==(const PropertyName<Other>& other) const
    {
        return std::wstring_view(Text) == other.Text;
    }

    wchar_t Text[Size] = {};
};

// Stands for what a property does not have.
struct None
{
};

// The category of a property of which nothing else is said.
template<class T>
constexpr PropertyCategory UsualCategory(std::wstring_view name)
{
    if (std::is_same_v<T, FontObject>)
        return PropertyCategory::Font;
    if (std::is_same_v<T, OLE_COLOR>)
        return PropertyCategory::Appearance;
    if (name == L"Enabled")
        return PropertyCategory::Behavior;
    return name == L"Value" || name == L"Text" ? PropertyCategory::Data : PropertyCategory::Misc;
}

// A property that is not persisted: how the control has it, and takes it from a host unless it is read-only.
//
// get: of the control, the value
// let: of the control and a value
template<PropertyName Name, class Get, class Let = None>
class UnstoredProperty
{
public:
    static constexpr auto Key = Name;
    static constexpr bool IsStored = false;

    constexpr explicit UnstoredProperty(Get get, Let let = {},
                                        std::optional<PropertyCategory> category = {}) :
        get_(get), let_(let), category_(category)
    {
    }

    // A designer shows it there.
    constexpr UnstoredProperty In(PropertyCategory category) const
    {
        return UnstoredProperty(get_, let_, category);
    }

    template<class Control>
    auto ValueOf(const Control& control) const
    {
        return get_(control);
    }
    template<class Control, class Value>
    void LetValue(Control& control, const Value& value) const
    {
        let_(control, value);
    }
    template<class Control>
    constexpr PropertyCategory Category() const
    {
        using T = std::remove_cvref_t<std::invoke_result_t<const Get&, const Control&>>;
        return category_.value_or(UsualCategory<T>(Name.Text));
    }

private:
    Get get_;
    Let let_;
    std::optional<PropertyCategory> category_;
};

template<PropertyName Name, class Get>
constexpr auto Unstored(Get get)
{
    return UnstoredProperty<Name, Get>(get);
}
template<PropertyName Name, class Get, class Let>
constexpr auto Unstored(Get get, Let let)
{
    return UnstoredProperty<Name, Get, Let>(get, let);
}

// A persisted property of a control, declared once: its key, how the control has it and takes it, and what it
// is unless it was stored. What is unusual about it is said behind it.
//
// get:          of the control, the value
// take:         of the control and a value, which was stored or is the default; nothing is notified meanwhile
// defaultValue: a value, or of the control, one
// let:          of the control and a value that a host sets; tells who listens. For none take does so.
template<PropertyName Name, class Get, class Take, class Default, class Let = None, class Exists = Ever,
         class Usable = Ever, class Write = UnlessDefault>
class PersistedProperty
{
public:
    static constexpr auto Key = Name;
    static constexpr bool IsStored = true;
    static constexpr int InTurn = -1;

    constexpr PersistedProperty(Get get, Take take, Default defaultValue, int readPlace = InTurn,
                                std::optional<PropertyCategory> category = {}, Let let = {},
                                Exists exists = {}, Usable usable = {}, Write write = {}) :
        get_(get),
        take_(take),
        default_(defaultValue),
        readPlace_(readPlace),
        category_(category),
        let_(let),
        exists_(exists),
        usable_(usable),
        write_(write)
    {
    }

    // Read at this place among the others, counted from 0, and not in the order of the table.
    constexpr PersistedProperty ReadAt(int place) const
    {
        return {get_, take_, default_, place, category_, let_, exists_, usable_, write_};
    }
    // A designer shows it there.
    constexpr PersistedProperty In(PropertyCategory category) const
    {
        return {get_, take_, default_, readPlace_, category, let_, exists_, usable_, write_};
    }
    // A host sets it in another way than it is read.
    template<class Way>
    constexpr auto LetBy(Way let) const
    {
        return PersistedProperty<Name, Get, Take, Default, Way, Exists, Usable, Write>(
            get_, take_, default_, readPlace_, category_, let, exists_, usable_, write_);
    }
    // Nobody is told when a host sets it.
    constexpr auto Silently() const { return LetBy(None()); }
    // Not every control has it, as it is by then.
    template<class Condition>
    constexpr auto OnlyIf(Condition exists) const
    {
        return PersistedProperty<Name, Get, Take, Default, Let, Condition, Usable, Write>(
            get_, take_, default_, readPlace_, category_, let_, exists, usable_, write_);
    }
    // Of the control and a stored value: one that the control cannot have is reported, and not taken.
    template<class Condition>
    constexpr auto IfUsable(Condition usable) const
    {
        return PersistedProperty<Name, Get, Take, Default, Let, Exists, Condition, Write>(
            get_, take_, default_, readPlace_, category_, let_, exists_, usable, write_);
    }
    template<class Way>
    constexpr auto Written(Way write) const
    {
        return PersistedProperty<Name, Get, Take, Default, Let, Exists, Usable, Way>(
            get_, take_, default_, readPlace_, category_, let_, exists_, usable_, write);
    }

    template<class Control>
    auto ValueOf(const Control& control) const
    {
        return get_(control);
    }
    template<class Control, class Value>
    void LetValue(Control& control, const Value& value) const
    {
        if constexpr (std::is_same_v<Let, None>)
            take_(control, value);
        else
            let_(control, value);
    }

    template<class Control>
    void ReadFrom(PropertyBag& bag, Control& control) const
    {
        if (!exists_(control))
            return;
        const auto value = ReadStored(bag, Name.Text, DefaultOf(control));
        if (usable_(control, value))
            take_(control, value);
        else
            bag.ReportUnusable(Name.Text);
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
            write_(bag, Name.Text, get_(control), DefaultOf(control));
    }
    constexpr int ReadPlace() const { return readPlace_; }
    template<class Control>
    constexpr PropertyCategory Category() const
    {
        using T = std::remove_cvref_t<std::invoke_result_t<const Get&, const Control&>>;
        return category_.value_or(UsualCategory<T>(Name.Text));
    }

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

    Get get_;
    Take take_;
    Default default_;
    int readPlace_;
    std::optional<PropertyCategory> category_;
    Let let_;
    Exists exists_;
    Usable usable_;
    Write write_;
};

template<PropertyName Name, class Get, class Take, class Default>
constexpr auto Property(Get get, Take take, Default defaultValue)
{
    return PersistedProperty<Name, Get, Take, Default>(get, take, defaultValue);
}

// One that is a data member. A host may set it to anything.
template<PropertyName Name, class Control, class T, class Default>
constexpr auto Field(T Control::*member, Default defaultValue)
{
    const auto take = [member](Control& control, const auto& value) { control.*member = T(value); };
    return Property<Name>([member](const Control& control) { return control.*member; }, take, defaultValue)
        .LetBy([take](Control& control, const auto& value) {
            take(control, value);
            control.PropertyChanged(Name.Text);
        });
}
// One that is part of a data member, with the default that a new one of those has.
template<PropertyName Name, class Control, class Whole, class T>
constexpr auto Part(Whole Control::*member, T Whole::*part)
{
    const auto take = [=](Control& control, const T& value) { control.*member.*part = value; };
    return Property<Name>([=](const Control& control) { return control.*member.*part; }, take, Whole().*part)
        .LetBy([=](Control& control, const T& value) {
            take(control, value);
            control.PropertyChanged(Name.Text);
        });
}
// The same where not every value is good. rule: of the whole and the value that a host sets, the whole with
// it, or none.
template<PropertyName Name, class Control, class Whole, class T>
constexpr auto Part(Whole Control::*member, T Whole::*part, std::optional<Whole> (*rule)(Whole, T))
{
    return Part<Name>(member, part).LetBy([=](Control& control, const T& value) {
        const std::optional<Whole> changed = rule(control.*member, value);
        if (!changed)
            throw ComError(InvalidPropertyValue);
        control.*member = *changed;
        control.PropertyChanged(Name.Text);
    });
}

// All properties of a control; those that are persisted in the order in which they are written.
template<class... Properties>
class PropertyTable
{
public:
    constexpr explicit PropertyTable(const Properties&... properties) :
        properties_(properties...), readOrder_(OrderOf({PlaceOf(properties)...}))
    {
    }

    // The one of a name.
    template<PropertyName Name>
    constexpr const auto& Of() const
    {
        constexpr std::size_t place = PlaceOfName<Name>();
        static_assert(place < Count, "the contract has a property that the control's table has not");
        return std::get<place>(properties_);
    }

    // Where a designer shows the one of a name.
    template<class Control>
    PropertyCategory CategoryOf(std::wstring_view name) const
    {
        PropertyCategory category = PropertyCategory::Misc;
        const auto matches = [&](const auto& each) {
            if (each.Key.Text != name)
                return false;
            category = each.template Category<Control>();
            return true;
        };
        std::apply([&](const auto&... each) { return (matches(each) || ...); }, properties_);
        return category;
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
        ForEachStored([&](const auto& each) { each.WriteTo(bag, control); });
    }

private:
    static constexpr std::size_t Count = sizeof...(Properties);
    static constexpr std::size_t StoredCount = (std::size_t{Properties::IsStored} + ... + 0);
    static constexpr int Nowhere = -2;
    using Order = std::array<std::size_t, StoredCount>;

    template<PropertyName Name>
    static constexpr std::size_t PlaceOfName()
    {
        std::size_t place = 0;
        const bool found = ((Properties::Key == Name || (++place, false)) || ...);
        return found ? place : Count;
    }

    template<class Property>
    static constexpr int PlaceOf(const Property& property)
    {
        if constexpr (Property::IsStored)
            return property.ReadPlace();
        else
            return Nowhere;
    }

    // Those with a place of their own, and around them the others in turn. Counted among those that are
    // persisted.
    static constexpr Order OrderOf(const std::array<int, Count>& places)
    {
        Order order{};
        std::array<bool, StoredCount> taken{};
        std::size_t stored = 0;
        for (const int each : places)
        {
            if (each >= 0)
            {
                order[static_cast<std::size_t>(each)] = stored;
                taken[static_cast<std::size_t>(each)] = true;
            }
            stored += each == Nowhere ? 0U : 1U;
        }
        stored = 0;
        std::size_t place = 0;
        for (const int each : places)
        {
            if (each == Nowhere)
                continue;
            if (each < 0)
            {
                while (taken[place])
                    ++place;
                order[place++] = stored;
            }
            ++stored;
        }
        return order;
    }

    template<class Visitor>
    void ForEachStored(const Visitor& visit) const
    {
        const auto ifStored = [&]<class Property>(const Property& property) {
            if constexpr (Property::IsStored)
                visit(property);
        };
        std::apply([&](const auto&... each) { (ifStored(each), ...); }, properties_);
    }

    template<class Visitor>
    void ForEachInReadingOrder(const Visitor& visit) const
    {
        for (const std::size_t wanted : readOrder_)
        {
            std::size_t at = 0;
            ForEachStored([&](const auto& each) {
                if (at++ == wanted)
                    visit(each);
            });
        }
    }

    std::tuple<Properties...> properties_;
    Order readOrder_;
};

} // namespace kiv
