#pragma once

#include "tests/hostile/Host.h"

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// Something that a host or a user does with a control, during which the control may call its host.
struct Operation
{
    std::string Name;
    bool Active = true;       // of a control that is active, or of one that is not
    bool Accompanied = false; // by another control with the same font
    std::function<void(Host&)> Run;
};

// All that can be done with a control of a class.
std::vector<Operation> OperationsOn(const PublishedClass& what);

} // namespace kiv::test
