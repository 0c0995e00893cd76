#include "host/folio/Json.h"

#include "host/folio/Text.h"
#include "host/folio/Values.h"

#include <cmath>
#include <cstdio>

namespace kiv::host
{

namespace
{

std::string Quote(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text)
    {
        if (character == '"' || character == '\\')
            quoted.append({'\\', character});
        else if (static_cast<unsigned char>(character) < 0x20)
        {
            char escape[8];
            std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(character));
            quoted += escape;
        }
        else
            quoted += character;
    }
    return quoted + '"';
}

std::string ToJson(const Variant& value)
{
    const std::optional<FormValue> plain = ToFormValue(value);
    if (!plain)
        return "null";
    if (const bool* truth = std::get_if<bool>(&*plain))
        return *truth ? "true" : "false";
    if (const std::string* text = std::get_if<std::string>(&*plain))
        return Quote(*text);
    if (const std::int64_t* whole = std::get_if<std::int64_t>(&*plain))
        return std::to_string(*whole);
    return std::isfinite(std::get<double>(*plain)) ? FormatFormValue(*plain) : "null";
}

} // namespace

JsonObject& JsonObject::AddRaw(std::string_view name, std::string_view json)
{
    if (!members_.empty())
        members_ += ",";
    members_.append(Quote(name)).append(":").append(json);
    return *this;
}

JsonObject& JsonObject::Add(std::string_view name, std::wstring_view text)
{
    return AddRaw(name, Quote(Utf8(text)));
}

JsonObject& JsonObject::Add(std::string_view name, const Variant& value)
{
    return AddRaw(name, ToJson(value));
}

JsonObject& JsonObject::Add(std::string_view name, const JsonObject& object)
{
    return AddRaw(name, object.Text());
}

} // namespace kiv::host
