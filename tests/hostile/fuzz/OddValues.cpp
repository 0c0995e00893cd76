#include "tests/hostile/fuzz/OddValues.h"

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/TestFont.h"
#include "tests/support/Text.h"

#include <bit>
#include <cstring>
#include <limits>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

constexpr VARTYPE Numbers[] = {VT_I1, VT_I2, VT_I4,   VT_I8,   VT_UI1,   VT_UI2, VT_UI4,  VT_UI8,    VT_R4,
                               VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_ERROR, VT_INT, VT_UINT, VT_DECIMAL};

// Types that a value may name without being one.
constexpr VARTYPE NoValues[] = {VT_VOID,     VT_HRESULT, VT_PTR, VT_CARRAY, VT_LPSTR,
                                VT_FILETIME, VT_CLSID,   15,     0x0FFF};

constexpr const wchar_t* Texts[] = {
    L"",
    L"0",
    L"1",
    L"12",
    L"-1",
    L"12.34",
    L"$1,234.56",
    L"(5)",
    L"50%",
    L"1/2",
    L"1e300",
    L"123456789",
    L"Y",
    L"N",
    L"01/02/2003",
    L"13/45/9999",
    L"99/99/99",
    L"02/29/1900",
    L"0/0/0",
    L"True",
    L"Tahoma",
    L"&&&",
    L"\t\r\n",
    L"'",
    L"%s%n",
    L"MA",
    L"Single",
    L"007",
    L"\xD800",
    L"\xFFFE\x202E",
    L"99999999999999999999",
    L"-922337203685477.5808",
};

constexpr double Reals[] = {0.0,
                            0.5,
                            1.0,
                            -1.0,
                            0.00005,
                            36526.0,
                            2958465.99,
                            2958466.0,
                            -657434.0,
                            -657435.0,
                            1e15,
                            1e300,
                            -1e300,
                            std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::denorm_min()};

class OddObject final : public ComObject<IDispatch>
{
public:
    explicit OddObject(std::uint64_t seed) : random_(seed, 0) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = static_cast<UINT>(random_.Below(2)); // and yet it has none
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override
    {
        *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID,
                                            DISPID* ids) noexcept override
    {
        for (UINT each = 0; each < count; ++each)
            ids[each] = static_cast<DISPID>(random_.OddNumber());
        return random_.OneIn(4) ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) noexcept override
    {
        // Nobody waits for an end that never comes: an object that always answers objects is asked for ever.
        if (random_.OneIn(4) || ++calls_ > 50)
            return Failure(exception);
        if (!result)
            return S_OK;
        OddValues values;
        VARIANT answer = values.Any(random_);
        VARIANT copy = {};
        if (SUCCEEDED(VariantCopyInd(&copy, &answer)))
            *result = copy;
        return S_OK;
    }

private:
    HRESULT Failure(EXCEPINFO* exception)
    {
        if (random_.OneIn(2) || !exception)
            return random_.OneIn(2) ? E_OUTOFMEMORY : DISP_E_MEMBERNOTFOUND;
        *exception = {};
        exception->scode = random_.OneIn(3) ? S_OK : static_cast<SCODE>(random_.Next());
        exception->bstrDescription = random_.OneIn(2) ? SysAllocString(L"Odd") : nullptr;
        return DISP_E_EXCEPTION;
    }

    Random random_;
    int calls_ = 0;
};

SAFEARRAY* MakeArray(Random& random)
{
    const VARTYPE types[] = {VT_I4, VT_UI1, VT_BSTR, VT_VARIANT, VT_R8, VT_DISPATCH, VT_BOOL};
    SAFEARRAYBOUND bounds[3] = {};
    for (SAFEARRAYBOUND& bound : bounds)
        bound = {static_cast<ULONG>(random.Below(4)), static_cast<LONG>(random.Below(3)) - 1};
    return SafeArrayCreate(random.Pick(types), static_cast<UINT>(1 + random.Below(3)), bounds);
}

} // namespace

std::wstring OddValues::Text(Random& random)
{
    if (random.OneIn(40))
        return std::wstring(random.Below(70000), static_cast<wchar_t>(random.Next()));
    std::wstring text = random.Pick(Texts);
    for (std::size_t more = random.OneIn(3) ? random.Below(12) : 0; more > 0; --more)
        text.insert(text.begin() + static_cast<std::ptrdiff_t>(random.Below(text.size() + 1)),
                    random.OneIn(4) ? static_cast<wchar_t>(random.Next())
                                    : static_cast<wchar_t>(32 + random.Below(95)));
    return text;
}

VARIANT OddValues::Number(Random& random, VARTYPE type)
{
    VARIANT value = {};
    V_I8(&value) = random.OddNumber();
    if (type == VT_R4)
        V_R4(&value) = static_cast<float>(random.Pick(Reals));
    else if (type == VT_R8 || type == VT_DATE)
        V_R8(&value) = random.OneIn(4) ? std::bit_cast<double>(random.Next()) : random.Pick(Reals);
    else if (type == VT_DECIMAL)
    {
        DECIMAL& number = V_DECIMAL(&value);
        number.scale = static_cast<BYTE>(random.Below(29));
        number.sign = random.OneIn(2) ? DECIMAL_NEG : BYTE{0};
        number.Hi32 = static_cast<ULONG>(random.OneIn(4) ? random.Next() : 0);
        number.Lo64 = random.Next() >> random.Below(64);
    }
    else if (type == VT_ERROR && random.OneIn(2))
        V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
    else if (type == VT_BOOL && random.OneIn(2))
        V_BOOL(&value) = random.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
    V_VT(&value) = type; // after the decimal, which lies over it
    return value;
}

VARIANT& OddValues::Kept(const VARIANT& value)
{
    return kept_.emplace_back(value);
}

VARIANT OddValues::Plain(Random& random)
{
    VARIANT value = {};
    switch (random.Below(10))
    {
    case 0:
        V_VT(&value) = random.OneIn(2) ? VT_NULL : VT_EMPTY;
        break;
    case 1:
        V_VT(&value) = random.OneIn(2) ? VT_DISPATCH : VT_UNKNOWN;
        V_DISPATCH(&value) = random.OneIn(4) ? nullptr : MakeOddObject(random.Next()).Detach();
        break;
    case 2:
        V_VT(&value) = VT_DISPATCH;
        V_DISPATCH(&value) = MakeFont().Detach();
        break;
    case 3:
    case 4:
    case 5: {
        const std::wstring text = Text(random);
        V_VT(&value) = VT_BSTR;
        // A text that is not there is an empty one; one may have an odd number of bytes.
        V_BSTR(&value) = random.OneIn(20)   ? nullptr
                         : random.OneIn(20) ? SysAllocStringByteLen("abc", static_cast<UINT>(random.Below(4)))
                                            : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        break;
    }
    default:
        return Kept(Number(random, random.Pick(Numbers)));
    }
    return Kept(value);
}

VARIANT OddValues::Array(Random& random)
{
    VARIANT value = {};
    SAFEARRAY* const array = random.OneIn(10) ? nullptr : MakeArray(random);
    VARTYPE type = VT_VARIANT;
    if (array)
        SafeArrayGetVartype(array, &type);
    V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&value) = array;
    return Kept(value);
}

VARIANT OddValues::Reference(Random& random)
{
    VARIANT& target = Kept({});
    VARIANT content = random.OneIn(8) ? Array(random) : Plain(random);
    // A copy of its own: who is given a reference may put something else there.
    VariantCopy(&target, &content);
    VARIANT value = {};
    if (random.OneIn(2) || V_VT(&target) == VT_EMPTY || V_VT(&target) == VT_NULL)
    {
        V_VT(&value) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&value) = &target;
        return value;
    }
    V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | V_VT(&target));
    V_BYREF(&value) =
        V_VT(&target) == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&target)) : &V_NONE(&target);
    return value;
}

VARIANT OddValues::Any(Random& random)
{
    switch (random.Below(8))
    {
    case 0:
    case 1:
        return Reference(random);
    case 2:
        return random.OneIn(2) ? Array(random) : Plain(random);
    case 3:
        if (random.OneIn(8))
        {
            VARIANT value = {};
            V_VT(&value) = random.Pick(NoValues);
            return value;
        }
        return Plain(random);
    default:
        return Plain(random);
    }
}

void OddValues::Clear()
{
    // What is by reference, and what is of no type, has nothing to clear.
    for (VARIANT& value : kept_)
        VariantClear(&value);
    kept_.clear();
}

std::string OddValues::Show(const VARIANT& value)
{
    std::string shown = "VT " + std::to_string(V_VT(&value));
    if (V_VT(&value) == VT_BSTR)
    {
        const std::wstring text(V_BSTR(&value) ? V_BSTR(&value) : L"",
                                std::min<UINT>(SysStringLen(V_BSTR(&value)), 40));
        return shown + " \"" + Narrow(text) + "\"";
    }
    if (V_VT(&value) == VT_R8 || V_VT(&value) == VT_DATE)
        return shown + " " + std::to_string(V_R8(&value));
    if (V_VT(&value) == (VT_BYREF | VT_VARIANT))
        return shown + " to " + Show(*V_VARIANTREF(&value));
    if ((V_VT(&value) & (VT_BYREF | VT_ARRAY)) != 0 || V_VT(&value) == VT_DISPATCH ||
        V_VT(&value) == VT_UNKNOWN)
        return shown;
    return shown + " " + std::to_string(V_I8(&value));
}

ComPtr<IDispatch> MakeOddObject(std::uint64_t seed)
{
    return MakeCom<OddObject>(seed);
}

} // namespace kiv::test
