#include "tests/hostile/fuzz/SavedStates.h"

#include "runtime/com/Variant.h"
#include "runtime/core/PropertyStream.h"
#include "tests/hostile/HostObjects.h"
#include "tests/hostile/fuzz/Exercise.h"
#include "tests/hostile/fuzz/OddValues.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/TestFont.h"

#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <cstring>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

// An empty bitmap of a few pixels.
ComPtr<IPictureDisp> MakePicture()
{
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(4, 3, 1, 1, nullptr);
    ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

Bytes AnyBytes(Random& random, std::size_t most)
{
    Bytes bytes(random.Below(most + 1));
    std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random.Next()); });
    return bytes;
}

std::size_t Place(Random& random, const Bytes& bytes)
{
    return random.Below(bytes.size() + 1);
}

// Bytes changed, added, left out or doubled.
void DamageBytes(Random& random, Bytes& bytes)
{
    if (bytes.empty())
        return;
    const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(random.Below(bytes.size()));
    const auto left = static_cast<std::size_t>(bytes.end() - at);
    switch (random.Below(6))
    {
    case 0:
        *at ^= static_cast<std::uint8_t>(1U << random.Below(8));
        return;
    case 1:
        *at = static_cast<std::uint8_t>(random.OddNumber());
        return;
    case 2:
        bytes.erase(at, at + static_cast<std::ptrdiff_t>(std::min(left, 1 + random.Below(16))));
        return;
    case 3: {
        const Bytes more = AnyBytes(random, 16);
        bytes.insert(at, more.begin(), more.end());
        return;
    }
    case 4: {
        const std::int64_t number = random.OddNumber();
        std::memcpy(&*at, &number, std::min(left, std::size_t{1} << random.Below(4)));
        return;
    }
    default:
        bytes.resize(Place(random, bytes));
        return;
    }
}

Bytes AnyValue(Random& random, std::uint16_t type)
{
    if (type == VT_BSTR)
    {
        const std::wstring text = OddValues::Text(random);
        Bytes bytes(text.size() * sizeof(wchar_t));
        std::memcpy(bytes.data(), text.data(), bytes.size());
        return bytes;
    }
    const std::int64_t number = random.OddNumber();
    Bytes bytes(ScalarSize(type));
    std::memcpy(bytes.data(), &number, std::min(bytes.size(), sizeof number));
    return bytes;
}

// A whole stream of other properties.
void DamageProperties(Random& random, PropertyStream& stream)
{
    if (stream.Properties.empty() || random.OneIn(16))
    {
        stream.WidthHimetric = static_cast<std::int32_t>(random.OddNumber());
        stream.HeightHimetric = static_cast<std::int32_t>(random.OddNumber());
        return;
    }
    static constexpr std::uint16_t Types[] = {VT_EMPTY, VT_NULL,  VT_I2,      VT_I4,       VT_R4,
                                              VT_R8,    VT_CY,    VT_DATE,    VT_BSTR,     VT_BOOL,
                                              VT_UI1,   VT_ERROR, VT_UNKNOWN, VT_DISPATCH, VT_VARIANT};
    StoredProperty& changed = stream.Properties[random.Below(stream.Properties.size())];
    switch (random.Below(8))
    {
    case 0:
        stream.Properties.erase(stream.Properties.begin() + (&changed - stream.Properties.data()));
        return;
    case 1:
        stream.Properties.push_back(StoredProperty(changed));
        return;
    case 2:
        changed.Name = random.Pick(stream.Properties).Name;
        return;
    case 3:
        std::swap(changed.Value, stream.Properties[random.Below(stream.Properties.size())].Value);
        return;
    case 4:
        DamageBytes(random, changed.Value);
        return;
    default:
        if (random.OneIn(2))
            changed.Type = random.Pick(Types);
        changed.Value = AnyValue(random, changed.Type);
        return;
    }
}

// The same each time, so that an input of one round is the same in another process.
void SetEveryProperty(Host& host, std::size_t number)
{
    const auto control = host.Control<IDispatch>();
    for (const Member& member : MembersOfClass(host))
    {
        const bool assigns = (member.Kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
        if (!assigns || member.Takes.size() != 1)
            continue;
        const auto font = MakeFont();
        Invoke(control.Get(), member.Id, static_cast<WORD>(member.Kind),
               {ArgumentOf(member.Takes[0], number, font.Get(), host.Objects().Database.Get())});
        if (member.Takes[0] == VT_PTR)
            Invoke(control.Get(), member.Id, static_cast<WORD>(member.Kind),
                   {Variant(static_cast<IDispatch*>(MakePicture().Get()))});
    }
}

} // namespace

SavedStates::SavedStates(Host& host)
{
    states_.push_back(SavedBytes(host));
    for (const std::size_t each : {0U, 1U})
    {
        SetEveryProperty(host, each);
        states_.push_back(SavedBytes(host));
    }
    std::erase_if(states_, [](const Bytes& state) { return state.empty(); });
    LoadBytes(host, Good());
}

SavedStates::Damaged SavedStates::Damage(Random& random) const
{
    if (random.OneIn(20))
    {
        Bytes made = AnyBytes(random, 200);
        if (random.OneIn(2) && made.size() > PropertyStreamHeaderSize)
        {
            std::copy_n(Good().begin(), 8, made.begin());
            ResealPropertyStream(made);
        }
        return {made, "made up"};
    }
    Bytes bytes = random.Pick(states_);
    if (random.OneIn(3))
    {
        for (std::size_t times = 1 + random.Below(3); times > 0; --times)
            DamageBytes(random, bytes);
        const bool sealed = bytes.size() > PropertyStreamHeaderSize && !random.OneIn(4);
        if (sealed)
        {
            const auto size = static_cast<std::uint32_t>(bytes.size() - PropertyStreamHeaderSize);
            if (!random.OneIn(4))
                std::memcpy(bytes.data() + 8, &size, sizeof size);
            ResealPropertyStream(bytes);
        }
        return {bytes, sealed ? "damaged and sealed" : "damaged"};
    }
    PropertyStream stream = DecodePropertyStream(bytes);
    for (std::size_t times = 1 + random.Below(4); times > 0; --times)
        DamageProperties(random, stream);
    return {EncodePropertyStream(stream), "other properties"};
}

std::string Hex(const std::vector<std::uint8_t>& bytes)
{
    static constexpr char Digits[] = "0123456789abcdef";
    constexpr std::size_t Most = 4000;
    std::string text = std::to_string(bytes.size()) + " bytes ";
    for (std::size_t each = 0; each < std::min(bytes.size(), Most); ++each)
        text.append({Digits[bytes[each] >> 4], Digits[bytes[each] & 15]});
    return text + (bytes.size() > Most ? "..." : "");
}

} // namespace kiv::test
