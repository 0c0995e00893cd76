#include "host/folio/BagBlocks.h"

#include "host/container/Automation.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "runtime/com/Errors.h"

#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

constexpr const char* FontKeys[] = {"Name",   "Size",      "Weight",       "Charset",
                                    "Italic", "Underline", "Strikethrough"};

Variant ReadFont(const FormBlock& block, IFontDisp* base)
{
    ComPtr<IFont> original;
    ComPtr<IFont> copy;
    ComPtr<IDispatch> font;
    Check(base->QueryInterface(IID_PPV_ARGS(&original)));
    Check(original->Clone(&copy));
    Check(copy.As(&font));
    for (const char* key : FontKeys)
        if (const FormValue* value = block.Find(key))
            PutProperty(font.Get(), Wide(key), ToVariant(*value));
    return Variant(font.Get());
}

std::optional<FormBlock> WriteFont(IUnknown* object, const std::string& name)
{
    ComPtr<IFontDisp> font;
    if (FAILED(object->QueryInterface(IID_PPV_ARGS(&font))))
        return std::nullopt;
    FormBlock block;
    block.IsProperty = true;
    block.Name = name;
    block.Class = "Font";
    for (const char* key : FontKeys)
        if (const auto value = ToFormValue(GetProperty(font.Get(), Wide(key))))
            block.Set(key, *value);
    return block;
}

// The file's digits are pairs, and nothing else.
std::string ReadBytes(std::string_view digits)
{
    std::string bytes;
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2)
    {
        unsigned byte = 0;
        std::from_chars(digits.data() + at, digits.data() + at + 2, byte, 16);
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

ComPtr<IStream> MemoryStream()
{
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    return stream;
}

Variant ReadPicture(const FormBlock& block)
{
    const std::string bytes = ReadBytes(std::get<std::string>(*block.Find("Data")));
    const ComPtr<IStream> stream = MemoryStream();
    Check(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));
    Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));

    ComPtr<IPersistStream> picture;
    ComPtr<IDispatch> dispatch;
    Check(OleCreatePictureIndirect(nullptr, __uuidof(IPersistStream), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    if (FAILED(picture->Load(stream.Get())))
        throw std::invalid_argument("the bytes are no picture that can be read");
    Check(picture.As(&dispatch));
    return Variant(dispatch.Get());
}

std::optional<FormBlock> WritePicture(IUnknown* object, const std::string& name)
{
    ComPtr<IPictureDisp> picture;
    ComPtr<IPersistStream> persist;
    if (FAILED(object->QueryInterface(IID_PPV_ARGS(&picture))) ||
        FAILED(object->QueryInterface(IID_PPV_ARGS(&persist))))
        return std::nullopt;
    const ComPtr<IStream> stream = MemoryStream();
    Check(persist->Save(stream.Get(), FALSE));
    ULARGE_INTEGER end = {};
    Check(stream->Seek({}, STREAM_SEEK_CUR, &end));
    Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    std::string bytes(static_cast<std::size_t>(end.QuadPart), '\0');
    Check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));

    std::string digits;
    for (const char byte : bytes)
        for (const int shift : {4, 0})
            digits += "0123456789abcdef"[(static_cast<unsigned char>(byte) >> shift) & 15];
    FormBlock block;
    block.IsProperty = true;
    block.Name = name;
    block.Class = "Picture";
    block.Set("Data", digits);
    return block;
}

FormBlock WriteObject(IUnknown* object, const std::string& name)
{
    if (std::optional<FormBlock> font = WriteFont(object, name))
        return std::move(*font);
    if (std::optional<FormBlock> picture = WritePicture(object, name))
        return std::move(*picture);
    throw std::invalid_argument(name + " is an object that a form file cannot hold");
}

bool SameContent(const FormBlock& one, const FormBlock& other)
{
    return SameFormName(one.Class, other.Class) &&
           std::equal(one.Entries.begin(), one.Entries.end(), other.Entries.begin(), other.Entries.end(),
                      [](const FormEntry& left, const FormEntry& right) {
                          return left.Key == right.Key && left.Value == right.Value;
                      });
}

// A font or picture keeps the lines of what did not change in it.
void ApplyProperty(const FormBlock* before, const FormBlock& now, FormBlock& block)
{
    FormBlock* const present = block.FindProperty(now.Name);
    if (before && present && SameFormName(present->Class, now.Class))
    {
        ApplyChanges(*before, now, *present);
        return;
    }
    block.Remove(now.Name);
    block.SetProperty(now);
}

} // namespace

void ReadBlock(const FormBlock& block, std::string_view file,
               const std::function<bool(const std::string&)>& skip, IFontDisp* base, PropertyBag& bag)
{
    for (const FormEntry& entry : block.Entries)
    {
        if (!entry.Key.empty() && !skip(entry.Key))
            bag.Set(Wide(entry.Key), ToVariant(entry.Value));
        if (entry.Block.empty() || !entry.Block.front().IsProperty)
            continue;
        const FormBlock& nested = entry.Block.front();
        try
        {
            bag.Set(Wide(nested.Name),
                    SameFormName(nested.Class, "Font") ? ReadFont(nested, base) : ReadPicture(nested));
        }
        catch (const std::invalid_argument& mistake)
        {
            throw FormError(file, nested.LineOf("Data"), std::string("Data: ") + mistake.what());
        }
    }
}

FormBlock WriteBlock(const PropertyBag& bag)
{
    FormBlock block;
    for (const auto& [wideName, value] : bag.Entries())
    {
        const std::string name = Utf8(wideName);
        if (const std::optional<FormValue> plain = ToFormValue(value))
            block.Set(name, *plain);
        else if (IUnknown* const object = value.Object())
            block.SetProperty(WriteObject(object, name));
        // Null, Empty and no object are what a missing key stands for.
    }
    return block;
}

void ApplyChanges(const FormBlock& before, const FormBlock& now, FormBlock& block)
{
    for (const FormEntry& entry : before.Entries)
    {
        const std::string& name = entry.Block.empty() ? entry.Key : entry.Block.front().Name;
        if (!now.Find(name) && !now.FindProperty(name))
            block.Remove(name);
    }
    for (const FormEntry& entry : now.Entries)
    {
        if (!entry.Block.empty())
        {
            const FormBlock* const earlier = before.FindProperty(entry.Block.front().Name);
            if (!earlier || !SameContent(*earlier, entry.Block.front()))
                ApplyProperty(earlier, entry.Block.front(), block);
            continue;
        }
        const FormValue* const earlier = before.Find(entry.Key);
        if (earlier && *earlier == entry.Value)
            continue;
        if (block.FindProperty(entry.Key))
            block.Remove(entry.Key);
        block.Set(entry.Key, entry.Value);
    }
}

} // namespace kiv::host
