#include "host/formfile/FormText.h"

#include <algorithm>
#include <limits>

namespace kiv::host
{

namespace
{

enum class KeyType
{
    Text,
    Truth,
    Number,
    Fraction, // a number, whole or not
};

// A key that the form itself reads.
struct OwnKey
{
    const char* Name;
    KeyType Type = KeyType::Text;
    std::int64_t Least = 0;
    std::int64_t Most = 0;
};

// Twips: as much as windows and their arithmetic take on any screen.
constexpr std::int64_t Farthest = 1000000;
constexpr std::int64_t LeastGrid = 15;
constexpr std::int64_t MostGrid = 1440;

constexpr OwnKey FormKeys[] = {
    {"Caption"},
    {"ClientWidth", KeyType::Number, 0, Farthest},
    {"ClientHeight", KeyType::Number, 0, Farthest},
    {"GridX", KeyType::Number, LeastGrid, MostGrid},
    {"GridY", KeyType::Number, LeastGrid, MostGrid},
    {"RightToLeft", KeyType::Truth},
};
constexpr OwnKey ItemKeys[] = {
    {"Left", KeyType::Number, -100000, Farthest},
    {"Top", KeyType::Number, -100000, Farthest},
    {"Width", KeyType::Number, 0, Farthest},
    {"Height", KeyType::Number, 0, Farthest},
    {"TabIndex", KeyType::Number, -1, std::numeric_limits<std::int16_t>::max()},
    {"Visible", KeyType::Truth},
};
constexpr OwnKey LabelKeys[] = {
    {"Caption"}, {"AlignRight", KeyType::Truth}, {"FontBold", KeyType::Truth}, {"Enabled", KeyType::Truth}};
constexpr OwnKey FrameKeys[] = {{"Caption"}, {"Enabled", KeyType::Truth}};
constexpr OwnKey ButtonKeys[] = {
    {"Caption"}, {"Default", KeyType::Truth}, {"Cancel", KeyType::Truth}, {"Enabled", KeyType::Truth}};
constexpr OwnKey ControlKeys[] = {{"TabStop", KeyType::Truth}};

constexpr std::int64_t LargestFont = 2160;
constexpr OwnKey FontKeys[] = {
    {"Name"},
    {"Size", KeyType::Fraction, 1, LargestFont},
    {"Weight", KeyType::Number, 0, 1000},
    {"Charset", KeyType::Number, 0, 255},
    {"Italic", KeyType::Truth},
    {"Underline", KeyType::Truth},
    {"Strikethrough", KeyType::Truth},
};

class Checker
{
public:
    explicit Checker(std::string_view file) : file_(file) {}

    void CheckForm(const FormBlock& form)
    {
        CheckKeys(form, FormKeys);
        CheckItems(form);
    }

private:
    void CheckItems(const FormBlock& container)
    {
        for (const FormEntry& entry : container.Entries)
            if (!entry.Block.empty() && !entry.Block.front().IsProperty)
                CheckItem(entry.Block.front());
    }

    void CheckItem(const FormBlock& item)
    {
        CheckKeys(item, ItemKeys);
        if (SameFormName(item.Class, "Label"))
            CheckKeys(item, LabelKeys);
        else if (SameFormName(item.Class, "Frame"))
        {
            CheckKeys(item, FrameKeys);
            CheckItems(item);
        }
        else if (SameFormName(item.Class, "Button"))
        {
            CheckKeys(item, ButtonKeys);
            CheckOnlyOne(item, "Default", "the default button", default_);
            CheckOnlyOne(item, "Cancel", "the cancel button", cancel_);
        }
        else
        {
            CheckKeys(item, ControlKeys);
            CheckProperties(item);
        }
    }

    // Those that have parts.
    void CheckProperties(const FormBlock& control)
    {
        for (const FormEntry& entry : control.Entries)
        {
            if (entry.Block.empty())
                continue;
            const FormBlock& property = entry.Block.front();
            if (SameFormName(property.Class, "Font"))
                CheckKeys(property, FontKeys);
            else if (SameFormName(property.Class, "Picture"))
                CheckPicture(property);
            else
                throw FormError(file_, property.Line,
                                property.Class + " is no class of nested properties: Font and Picture are");
        }
    }

    void CheckPicture(const FormBlock& picture)
    {
        const FormValue* const data = picture.Find("Data");
        if (!data)
            throw FormError(file_, picture.Line, "a picture needs Data = \"hexadecimal digits\"");
        const std::string* const digits = std::get_if<std::string>(data);
        if (!digits || digits->empty() || digits->size() % 2 != 0 ||
            digits->find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            Refuse(picture, "Data", "hexadecimal digits in quotes, two for each byte, are expected");
    }

    template<std::size_t Count>
    void CheckKeys(const FormBlock& block, const OwnKey (&keys)[Count])
    {
        for (const OwnKey& key : keys)
            if (const FormValue* value = block.Find(key.Name))
                CheckValue(block, key, *value);
    }

    void CheckValue(const FormBlock& block, const OwnKey& key, const FormValue& value)
    {
        switch (key.Type)
        {
        case KeyType::Text:
            if (!std::get_if<std::string>(&value))
                Refuse(block, key.Name, "a text in quotes is expected");
            break;
        case KeyType::Truth:
            if (!std::get_if<bool>(&value))
                Refuse(block, key.Name, "True or False is expected");
            break;
        case KeyType::Number: {
            const std::int64_t* const number = std::get_if<std::int64_t>(&value);
            if (!number || *number < key.Least || *number > key.Most)
                Refuse(block, key.Name,
                       "a whole number from " + std::to_string(key.Least) + " to " +
                           std::to_string(key.Most) + " is expected");
            break;
        }
        case KeyType::Fraction: {
            const std::int64_t* const whole = std::get_if<std::int64_t>(&value);
            const double* const fraction = std::get_if<double>(&value);
            const double number = whole ? static_cast<double>(*whole) : fraction ? *fraction : -1;
            if ((!whole && !fraction) || number < static_cast<double>(key.Least) ||
                number > static_cast<double>(key.Most))
                Refuse(block, key.Name,
                       "a number from " + std::to_string(key.Least) + " to " + std::to_string(key.Most) +
                           " is expected");
            break;
        }
        }
    }

    void CheckOnlyOne(const FormBlock& button, const char* key, const char* what, const FormBlock*& first)
    {
        const FormValue* const value = button.Find(key);
        if (!value || !std::get<bool>(*value))
            return;
        if (first)
            Refuse(button, key, first->Name + " is " + what + " already");
        first = &button;
    }

    [[noreturn]] void Refuse(const FormBlock& block, const char* key, const std::string& what) const
    {
        throw FormError(file_, block.LineOf(key), std::string(key) + ": " + what);
    }

    std::string_view file_;
    const FormBlock* default_ = nullptr;
    const FormBlock* cancel_ = nullptr;
};

} // namespace

void CheckForm(const FormDocument& document, std::string_view file)
{
    Checker(file).CheckForm(document.Form);
}

} // namespace kiv::host
