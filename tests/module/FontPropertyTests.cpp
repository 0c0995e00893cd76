// Which fonts are stored: those that differ from the container's in what counts.

#include "framework/subclass/SubClass.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/NamedRow.h"
#include "tests/support/TestFont.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct FakeFontFacts : FontFacts
{
    bool Bold = false;
};

template<class T, class U>
HRESULT Tell(T* target, U value) noexcept
{
    *target = static_cast<T>(value);
    return S_OK;
}

// A font object whose attributes are what it is told, where a real one has those of the nearest font that the
// machine has, and makes Bold follow Weight.
class FakeFont final : public ComObject<IFont, Chain<IFontDisp, IDispatch>>
{
public:
    explicit FakeFont(FakeFontFacts facts) : facts_(std::move(facts)) {}

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) noexcept override
    {
        return Tell(name, Bstr(facts_.Name).Detach());
    }
    HRESULT STDMETHODCALLTYPE get_Size(CY* size) noexcept override { return Tell(size, facts_.Size); }
    HRESULT STDMETHODCALLTYPE get_Bold(BOOL* bold) noexcept override { return Tell(bold, facts_.Bold); }
    HRESULT STDMETHODCALLTYPE get_Italic(BOOL* italic) noexcept override
    {
        return Tell(italic, facts_.Italic);
    }
    HRESULT STDMETHODCALLTYPE get_Underline(BOOL* underline) noexcept override
    {
        return Tell(underline, facts_.Underline);
    }
    HRESULT STDMETHODCALLTYPE get_Strikethrough(BOOL* strikethrough) noexcept override
    {
        return Tell(strikethrough, facts_.Strikethrough);
    }
    HRESULT STDMETHODCALLTYPE get_Weight(SHORT* weight) noexcept override
    {
        return Tell(weight, facts_.Weight);
    }
    HRESULT STDMETHODCALLTYPE get_Charset(SHORT* charset) noexcept override
    {
        return Tell(charset, facts_.Charset);
    }
    HRESULT STDMETHODCALLTYPE put_Name(BSTR) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Size(CY) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Bold(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Italic(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Underline(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Strikethrough(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Weight(SHORT) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Charset(SHORT) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_hFont(HFONT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IFont**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsEqual(IFont*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetRatio(LONG, LONG) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryTextMetrics(TEXTMETRICOLE*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddRefHfont(HFONT) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReleaseHfont(HFONT) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHdc(HDC) noexcept override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override
    {
        return E_NOTIMPL;
    }

private:
    const FakeFontFacts facts_;
};

class RecordingBag final : public PropertyBag
{
public:
    struct Entry
    {
        std::wstring Name;
        Variant Value;
    };
    const std::vector<Entry>& Written() const { return written_; }

private:
    std::optional<Variant> ReadValue(const wchar_t*, VARTYPE) override
    {
        ADD_FAILURE() << "saving reads nothing";
        return std::nullopt;
    }
    void WriteValue(const wchar_t* name, const Variant& value) override { written_.push_back({name, value}); }
    void ReportUnusable(const wchar_t*) override {}

    std::vector<Entry> written_;
};

struct FontRow : NamedRow
{
    void (*Change)(FakeFontFacts& facts);
    bool Stored;
};

const FontRow FontRows[] = {
    {"AllEqual", [](FakeFontFacts&) {}, false},
    {"Larger", [](FakeFontFacts& facts) { facts.Size.int64 += 5000; }, true},
    {"LargerByATenThousandth", [](FakeFontFacts& facts) { facts.Size.int64 += 1; }, true},
    {"Heavier", [](FakeFontFacts& facts) { facts.Weight = 700; }, true},
    {"OtherCharacterSet", [](FakeFontFacts& facts) { facts.Charset = 238; }, true},
    {"Italic", [](FakeFontFacts& facts) { facts.Italic = true; }, true},
    {"OtherName", [](FakeFontFacts& facts) { facts.Name = L"Courier"; }, true},
    {"NameInOtherCase", [](FakeFontFacts& facts) { facts.Name = L"ARIAL"; }, true},
    {"LongerName", [](FakeFontFacts& facts) { facts.Name = L"Arial "; }, true},
    {"StruckThrough", [](FakeFontFacts& facts) { facts.Strikethrough = true; }, true},
    {"Underlined", [](FakeFontFacts& facts) { facts.Underline = true; }, true},
    {"BoldIsNotCompared", [](FakeFontFacts& facts) { facts.Bold = true; }, false},
};

class SaveFont : public testing::TestWithParam<FontRow>
{
};

TEST_P(SaveFont, StoresWhatDiffersFromTheDefault)
{
    const FontObject usual = MakeCom<FakeFont>(FakeFontFacts());
    FakeFontFacts facts;
    GetParam().Change(facts);
    const FontObject font = MakeCom<FakeFont>(facts);
    for (const auto& [saved, other] : {std::pair(font, usual), std::pair(usual, font)})
    {
        RecordingBag bag;
        SaveFontProperty(bag, saved, other);
        ASSERT_EQ(bag.Written().size(), GetParam().Stored ? 1U : 0U);
        if (!GetParam().Stored)
            continue;
        EXPECT_EQ(bag.Written()[0].Name, L"Font");
        ComPtr<IFontDisp> written;
        ASSERT_NE(bag.Written()[0].Value.Object(), nullptr);
        EXPECT_HRESULT_SUCCEEDED(bag.Written()[0].Value.Object()->QueryInterface(IID_PPV_ARGS(&written)));
        EXPECT_EQ(written.Get(), saved.Get());
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, SaveFont, testing::ValuesIn(FontRows), RowName());

TEST(SaveFontTest, TreatsRealFontsAlike)
{
    RecordingBag bag;
    SaveFontProperty(bag, MakeFont(), MakeFont());
    EXPECT_TRUE(bag.Written().empty());
    FontFacts bold;
    bold.Weight = 700;
    SaveFontProperty(bag, MakeFont(bold), MakeFont());
    EXPECT_EQ(bag.Written().size(), 1U);
}

TEST(SaveFontTest, StoresAFontThatThereIsNoDefaultFor)
{
    RecordingBag bag;
    SaveFontProperty(bag, MakeFont(), nullptr);
    EXPECT_EQ(bag.Written().size(), 1U);
}

} // namespace

} // namespace kiv::test
