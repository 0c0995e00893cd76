#pragma once

#include <utility>

namespace kiv
{

// Sets a variable for the time of a scope.
template<class T>
class Scoped
{
public:
    Scoped(T& target, T value) : target_(target), former_(std::exchange(target, std::move(value))) {}
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;
    ~Scoped() { target_ = std::move(former_); }

private:
    T& target_;
    T former_;
};

} // namespace kiv
