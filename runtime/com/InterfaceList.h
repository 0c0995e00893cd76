#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv
{

// An interface of a class, together with interfaces it derives from that clients ask for by their own name.
template<class Interface, class... Bases>
struct Chain;

namespace detail
{

template<class Entry>
struct InterfaceEntry
{
    using Interface = Entry;
    static bool Answers(REFIID iid) { return iid == __uuidof(Entry); }
};

template<class Derived, class... Bases>
struct InterfaceEntry<Chain<Derived, Bases...>>
{
    using Interface = Derived;
    static bool Answers(REFIID iid) { return iid == __uuidof(Derived) || ((iid == __uuidof(Bases)) || ...); }
};

template<class Entry>
using InterfaceOf = typename InterfaceEntry<Entry>::Interface;

// The pointer that answers for iid among the listed interfaces of object, not counted; null when none does.
template<class... Entries, class Object>
void* FindInterface(Object* object, REFIID iid)
{
    void* found = nullptr;
    static_cast<void>(((InterfaceEntry<Entries>::Answers(iid) &&
                        (found = static_cast<InterfaceOf<Entries>*>(object)) != nullptr) ||
                       ...));
    return found;
}

} // namespace detail

} // namespace kiv
