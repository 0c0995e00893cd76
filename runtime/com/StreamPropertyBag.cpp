#include "runtime/com/StreamPropertyBag.h"

#include "runtime/core/BitmapFile.h"

#include <olectl.h>

#include <algorithm>
#include <cstring>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

ComPtr<IStream> MemoryStream()
{
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    return stream;
}

void Write(IStream* stream, const void* bytes, std::size_t size)
{
    ULONG written = 0;
    Check(stream->Write(bytes, static_cast<ULONG>(size), &written));
    if (written != size)
        throw ComError(STG_E_MEDIUMFULL);
}

void Rewind(IStream* stream)
{
    LARGE_INTEGER start = {};
    Check(stream->Seek(start, STREAM_SEEK_SET, nullptr));
}

std::vector<std::uint8_t> Bytes(IStream* stream)
{
    LARGE_INTEGER none = {};
    ULARGE_INTEGER size = {};
    Check(stream->Seek(none, STREAM_SEEK_CUR, &size));
    Rewind(stream);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size.QuadPart));
    ULONG read = 0;
    Check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read));
    return bytes;
}

// Only these classes are ever made from a stream: it must not decide which code a host loads.
bool IsStorable(REFCLSID clsid)
{
    return clsid == CLSID_StdFont || clsid == CLSID_StdPicture;
}

std::vector<std::uint8_t> EncodeObject(IUnknown* object)
{
    if (!object)
        return {};
    ComPtr<IPersistStream> persist;
    CLSID clsid = {};
    Check(object->QueryInterface(IID_PPV_ARGS(&persist)));
    Check(persist->GetClassID(&clsid));
    if (!IsStorable(clsid))
        throw ComError(E_NOTIMPL);
    const ComPtr<IStream> stream = MemoryStream();
    Write(stream.Get(), &clsid, sizeof clsid);
    Check(persist->Save(stream.Get(), TRUE));
    return Bytes(stream.Get());
}

// The system's own picture object takes a bitmap's word for how large it is, and reads on behind its end.
bool HoldsItsPicture(std::span<const std::uint8_t> picture)
{
    constexpr std::size_t PrefixSize = 8; // a signature, and the size of the file that follows
    return picture.size() < PrefixSize || HoldsItsBitmap(picture.subspan(PrefixSize));
}

Variant DecodeObject(const std::vector<std::uint8_t>& bytes)
{
    if (bytes.empty())
        return Variant(static_cast<IUnknown*>(nullptr));
    CLSID clsid = {};
    if (bytes.size() < sizeof clsid)
        throw DamagedStream("an object without a class");
    std::memcpy(&clsid, bytes.data(), sizeof clsid);
    if (!IsStorable(clsid))
        throw DamagedStream("an object of a foreign class");
    if (clsid == CLSID_StdPicture && !HoldsItsPicture(std::span(bytes).subspan(sizeof clsid)))
        throw DamagedStream("a damaged picture");
    const ComPtr<IStream> stream = MemoryStream();
    Write(stream.Get(), bytes.data() + sizeof clsid, bytes.size() - sizeof clsid);
    Rewind(stream.Get());
    ComPtr<IPersistStream> persist;
    if (clsid == CLSID_StdFont)
        Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&persist)));
    else
        Check(OleCreatePictureIndirect(nullptr, IID_IPersistStream, TRUE,
                                       reinterpret_cast<void**>(persist.GetAddressOf())));
    if (FAILED(persist->Load(stream.Get())))
        throw DamagedStream("a damaged object");
    return Variant(static_cast<IUnknown*>(persist.Get()));
}

std::vector<std::uint8_t> EncodeText(const std::wstring& text)
{
    std::vector<std::uint8_t> bytes(text.size() * sizeof(wchar_t));
    std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

StoredProperty Encode(const wchar_t* name, const Variant& value)
{
    StoredProperty stored;
    const std::wstring_view wideName(name);
    // Property names are ASCII.
    std::ranges::transform(wideName, std::back_inserter(stored.Name),
                           [](wchar_t c) { return static_cast<char>(c); });
    stored.Type = value.Type();
    if (const std::size_t size = ScalarSize(value.Type()); size != 0)
    {
        stored.Value.resize(size);
        std::memcpy(stored.Value.data(), &V_NONE(value.Borrow()), size);
    }
    else if (value.Type() == VT_UNKNOWN || value.Type() == VT_DISPATCH)
    {
        stored.Type = VT_UNKNOWN;
        stored.Value = EncodeObject(value.Object());
    }
    else if (value.Type() != VT_NULL)
    {
        // Text, and what has no form of its own here but reads as text: a decimal, for instance.
        stored.Type = VT_BSTR;
        stored.Value = EncodeText(value.Text());
    }
    return stored;
}

Variant Decode(const StoredProperty& stored)
{
    if (const std::size_t size = ScalarSize(stored.Type); size != 0)
    {
        if (stored.Value.size() != size)
            throw DamagedStream("a value of the wrong size");
        VARIANT value = {};
        V_VT(&value) = stored.Type;
        std::memcpy(&V_NONE(&value), stored.Value.data(), size);
        return Variant(value);
    }
    switch (stored.Type)
    {
    case VT_BSTR: {
        if (stored.Value.size() % sizeof(wchar_t) != 0)
            throw DamagedStream("a text of half a character");
        std::wstring text(stored.Value.size() / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), stored.Value.data(), stored.Value.size());
        return Variant(std::wstring_view(text));
    }
    case VT_UNKNOWN:
        return DecodeObject(stored.Value);
    case VT_NULL:
        return Variant::Null();
    default:
        throw DamagedStream("a value of an unknown type");
    }
}

} // namespace

StreamPropertyBag::StreamPropertyBag(const PropertyStream& stream)
{
    for (const StoredProperty& stored : stream.Properties)
        values_[std::wstring(stored.Name.begin(), stored.Name.end())] = Decode(stored);
}

std::optional<Variant> StreamPropertyBag::ReadValue(const wchar_t* name, VARTYPE)
{
    const auto found = values_.find(name);
    return found == values_.end() ? std::nullopt : std::optional<Variant>(found->second);
}

void StreamPropertyBag::WriteValue(const wchar_t* name, const Variant& value)
{
    written_.push_back(Encode(name, value));
}

void StreamPropertyBag::ReportUnusable(const wchar_t*)
{
    throw DamagedStream("a property that cannot be used");
}

PropertyStream ReadPropertyStream(IStream* source)
{
    // Not every storage that says that it opened a stream gives one.
    if (!source)
        throw ComError(E_POINTER);
    std::vector<std::uint8_t> bytes(PropertyStreamHeaderSize);
    ULONG read = 0;
    Check(source->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read));
    if (read != bytes.size())
        throw DamagedStream("the stream ends early");
    const std::uint32_t bodySize =
        PropertyStreamBodySize(std::span<const std::uint8_t, PropertyStreamHeaderSize>(bytes));

    // Read piece by piece: the size that a damaged header claims is not taken on trust.
    constexpr std::size_t piece = 64 * 1024;
    for (std::size_t left = bodySize; left != 0;)
    {
        const std::size_t wanted = std::min(left, piece);
        const std::size_t end = bytes.size();
        bytes.resize(end + wanted);
        Check(source->Read(bytes.data() + end, static_cast<ULONG>(wanted), &read));
        if (read != wanted)
            throw DamagedStream("the stream ends early");
        left -= wanted;
    }
    return DecodePropertyStream(bytes);
}

void WritePropertyStream(IStream* target, const PropertyStream& stream)
{
    const std::vector<std::uint8_t> bytes = EncodePropertyStream(stream);
    Write(target, bytes.data(), bytes.size());
}

} // namespace kiv
