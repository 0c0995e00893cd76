#include "host/folio/BagBlocks.h"

#include "host/container/Automation.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "runtime/com/Errors.h"

#include <olectl.h>
#include <wrl/client.h>

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

std::string ReadBytes(std::string_view digits)
{
    const auto digit = [](char character) -> int {
        const std::size_t value = std::string_view("0123456789abcdef").find(character);
        if (value == std::string_view::npos)
            throw std::invalid_argument("Data holds something else than hexadecimal digits");
        return static_cast<int>(value);
    };
    if (digits.size() % 2 != 0)
        throw std::invalid_argument("Data ends within a byte");
    std::string bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2)
        bytes += static_cast<char>(digit(digits[at]) * 16 + digit(digits[at + 1]));
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
    const FormValue* data = block.Find("Data");
    const std::string* digits = data ? std::get_if<std::string>(data) : nullptr;
    if (!digits)
        throw std::invalid_argument("a picture needs Data = \"…\"");
    const std::string bytes = ReadBytes(*digits);
    const ComPtr<IStream> stream = MemoryStream();
    Check(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));
    Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));

    ComPtr<IPersistStream> picture;
    ComPtr<IDispatch> dispatch;
    Check(OleCreatePictureIndirect(nullptr, __uuidof(IPersistStream), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    Check(picture->Load(stream.Get()));
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

// The same font or picture keeps the lines that it was read from.
void ReplaceProperty(FormBlock& block, FormBlock fresh)
{
    FormBlock* const present = block.FindProperty(fresh.Name);
    if (!present || !SameFormName(present->Class, fresh.Class))
    {
        block.Remove(fresh.Name);
        block.SetProperty(std::move(fresh));
        return;
    }
    for (const FormEntry& entry : fresh.Entries)
        present->Set(entry.Key, entry.Value);
}

} // namespace

void ReadBlock(const FormBlock& block, const std::function<bool(const std::string&)>& skip, IFontDisp* base,
               PropertyBag& bag)
{
    for (const FormEntry& entry : block.Entries)
    {
        if (!entry.Key.empty() && !skip(entry.Key))
            bag.Set(Wide(entry.Key), ToVariant(entry.Value));
        if (entry.Block.empty() || !entry.Block.front().IsProperty)
            continue;
        const FormBlock& nested = entry.Block.front();
        if (SameFormName(nested.Class, "Font"))
            bag.Set(Wide(nested.Name), ReadFont(nested, base));
        else if (SameFormName(nested.Class, "Picture"))
            bag.Set(Wide(nested.Name), ReadPicture(nested));
        else
            throw std::invalid_argument(nested.Class +
                                        " is no class of nested properties: Font and Picture are");
    }
}

void WriteBlock(const PropertyBag& bag, const std::vector<std::wstring>& asked, FormBlock& block)
{
    for (const std::wstring& name : asked)
        if (!bag.Find(name))
            block.Remove(Utf8(name));
    for (const auto& [wideName, value] : bag.Entries())
    {
        const std::string name = Utf8(wideName);
        if (const std::optional<FormValue> plain = ToFormValue(value))
        {
            if (block.FindProperty(name))
                block.Remove(name);
            block.Set(name, *plain);
        }
        else if (IUnknown* const object = value.Object())
            ReplaceProperty(block, WriteObject(object, name));
        else // Null, Empty or no object: what a missing key stands for
            block.Remove(name);
    }
}

} // namespace kiv::host
