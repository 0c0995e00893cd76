#pragma once

// What kiv-mutate writes into a source in the place of what may be wrong there. Each does what stood there,
// until its mutant is the active one. Compiled into every mutated source before all else.
#include <array>
#include <functional>
#include <type_traits>
#include <utility>

namespace mutants
{

inline constexpr std::size_t Most = 20000;
inline int Active = 0;
inline std::array<bool, Most> Reached = {};

// Not while compiling: what is computed there is mutated in the source itself.
constexpr bool On(int number)
{
    if (std::is_constant_evaluated())
        return false;
    Reached[static_cast<std::size_t>(number)] = true;
    return Active == number;
}

template<class T>
constexpr T Value(int number, T value)
{
    return On(number) ? static_cast<T>(value + 1) : value;
}

constexpr bool Flag(int number, bool value)
{
    return On(number) != value;
}

constexpr bool Kept(int number)
{
    return !On(number);
}

struct ShiftLeft
{
    template<class A, class B>
    constexpr auto operator()(const A& a, const B& b) const -> decltype(a << b)
    {
        return a << b;
    }
};

struct ShiftRight
{
    template<class A, class B>
    constexpr auto operator()(const A& a, const B& b) const -> decltype(a >> b)
    {
        return a >> b;
    }
};

// a < b is written a < Binary<...>(n) < b: so the compiler finds the operands. What an operator becomes takes
// part only where it has a meaning for them.
template<class Original, class... Others>
struct Binary
{
    int Number;

    constexpr explicit Binary(int number) : Number(number) {}

    template<class A, class B>
    constexpr auto operator()(const A& a, const B& b) const
    {
        using Result = decltype(Original()(a, b));
        int next = Number;
        Result result = Original()(a, b);
        (Try<Result, Others>(next++, a, b, result), ...);
        return result;
    }

private:
    template<class Result, class Other, class A, class B>
    static constexpr void Try(int number, const A& a, const B& b, Result& result)
    {
        if constexpr (std::is_invocable_r_v<Result, Other, const A&, const B&>)
            if (On(number))
                result = static_cast<Result>(Other()(a, b));
    }
};

template<class A, class Operation>
struct Begun
{
    const A& Left;
    Operation Do;
};

// One operator for each precedence; the operation is in the type.
// clang-format off
template<class A, class... O> constexpr auto operator*(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator+(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator<<(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator<(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator==(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator&(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator^(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }
template<class A, class... O> constexpr auto operator|(const A& a, Binary<O...> o) { return Begun<A, Binary<O...>>{a, o}; }

template<class A, class O, class B> constexpr auto operator*(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator+(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator<<(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator<(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator==(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator&(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator^(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }
template<class A, class O, class B> constexpr auto operator|(Begun<A, O> o, const B& b) { return o.Do(o.Left, b); }

// Assignments group from the right: a += b is a += (Binary<...>(n) += b).
template<class... O, class B> constexpr auto operator+=(Binary<O...> o, const B& b) { return Begun<B, Binary<O...>>{b, o}; }
// clang-format on

template<class A, class B, class O>
requires(!std::is_class_v<A>) constexpr A& operator+=(A& a, Begun<B, O> o)
{
    return a = static_cast<A>(o.Do(a, o.Left));
}

// A text grows by what cannot be taken from it.
template<class A, class B, class... Others>
requires std::is_class_v<A>
constexpr A& operator+=(A& a, Begun<B, Binary<std::plus<>, Others...>> o)
{
    return a += o.Left;
}

// The operators before an operand: ++a is written Up(n) ->* a.
struct Prefix
{
    int Number;

    constexpr explicit Prefix(int number) : Number(number) {}
};

struct Up : Prefix
{
    using Prefix::Prefix;
};

struct Down : Prefix
{
    using Prefix::Prefix;
};

struct Minus : Prefix
{
    using Prefix::Prefix;
};

struct Not : Prefix
{
    using Prefix::Prefix;
};

struct Bits : Prefix
{
    using Prefix::Prefix;
};

template<class A>
constexpr A& operator->*(Up up, A& a)
{
    return On(up.Number) ? --a : ++a;
}

template<class A>
constexpr A& operator->*(Down down, A& a)
{
    return On(down.Number) ? ++a : --a;
}

template<class A>
constexpr auto operator->*(Minus minus, const A& a) -> decltype(-a)
{
    return On(minus.Number) ? static_cast<decltype(-a)>(a) : -a;
}

template<class A>
constexpr bool operator->*(Not negation, const A& a)
{
    return static_cast<bool>(a) == On(negation.Number);
}

template<class A>
constexpr auto operator->*(Bits bits, const A& a) -> decltype(~a)
{
    return On(bits.Number) ? static_cast<decltype(~a)>(a) : ~a;
}

// c ? is written c || Negate(n) ?, and the same at the end of other conditions.
struct Negate : Prefix
{
    using Prefix::Prefix;
};

template<class A>
constexpr bool operator||(const A& a, Negate negation)
{
    return static_cast<bool>(a) != On(negation.Number);
}

// a && b is written a && AndLeft(n) && b && AndRight(n): where it is to be an "or", the left part is
// remembered and lets b come in any case.
inline std::array<bool, Most> Remembered = {};

constexpr bool Remember(int number, bool a, bool pass)
{
    if (!On(number))
        return a;
    Remembered[static_cast<std::size_t>(number)] = a;
    return pass;
}

struct AndLeft : Prefix
{
    using Prefix::Prefix;
};

struct AndRight : Prefix
{
    using Prefix::Prefix;
};

struct OrLeft : Prefix
{
    using Prefix::Prefix;
};

struct OrRight : Prefix
{
    using Prefix::Prefix;
};

template<class A>
constexpr bool operator&&(const A& a, AndLeft left)
{
    return Remember(left.Number, static_cast<bool>(a), true);
}

constexpr bool operator&&(bool both, AndRight right)
{
    return On(right.Number) ? Remembered[static_cast<std::size_t>(right.Number)] || both : both;
}

template<class A>
constexpr bool operator||(const A& a, OrLeft left)
{
    return Remember(left.Number, static_cast<bool>(a), false);
}

constexpr bool operator||(bool either, OrRight right)
{
    return On(right.Number) ? Remembered[static_cast<std::size_t>(right.Number)] && either : either;
}

} // namespace mutants
