#pragma once

#include "runtime/com/Variant.h"

#include <string>
#include <string_view>

namespace kiv::host
{

// One JSON object, built member by member, on one line.
class JsonObject
{
public:
    JsonObject& Add(std::string_view name, std::wstring_view text);
    JsonObject& Add(std::string_view name, const Variant& value);
    JsonObject& Add(std::string_view name, const JsonObject& object);

    std::string Text() const { return "{" + members_ + "}"; }

private:
    JsonObject& AddRaw(std::string_view name, std::string_view json);

    std::string members_;
};

} // namespace kiv::host
