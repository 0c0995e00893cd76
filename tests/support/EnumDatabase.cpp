#include "tests/support/EnumDatabase.h"

#include "runtime/com/Errors.h"

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

// The quoted values of a query in order; throws where a quote is left open.
std::vector<std::wstring> ValuesIn(std::wstring_view conditions)
{
    std::vector<std::wstring> values;
    for (std::size_t open = conditions.find(L'\''); open != conditions.npos; open = conditions.find(L'\''))
    {
        conditions.remove_prefix(open + 1);
        const std::size_t close = conditions.find(L'\'');
        if (close == conditions.npos)
            throw ComError(E_INVALIDARG);
        values.emplace_back(conditions.substr(0, close));
        conditions.remove_prefix(close + 1);
    }
    return values;
}

std::wstring TextIn(const Variant& value)
{
    return value.As(VT_BSTR).value_or(Variant(L"")).Text();
}

std::wstring PaddedCode(const EnumRow& row)
{
    const std::wstring padded = L"0000000000" + TextIn(row.Code);
    return padded.substr(padded.size() - 10);
}

} // namespace

struct EnumDatabase::Cursor
{
    std::vector<EnumRow> Rows;
    std::size_t At = 0;
    bool Open = true;
    std::shared_ptr<State> Owner;

    ~Cursor() { Close(); }
    void Close()
    {
        if (std::exchange(Open, false))
            --Owner->StillOpen;
    }
    Variant Field(const std::wstring& name)
    {
        Owner->Arrived(L"Fields " + name);
        if (!Open || At >= Rows.size())
            throw ComError(E_UNEXPECTED);
        if (name != L"Enum Code" && name != L"Enum Text")
            throw ComError(DISP_E_UNKNOWNNAME);
        const auto field = MakeCom<ScriptedObject>();
        const EnumRow& row = Rows[At];
        field->AddDefault(L"Value", KindOf(Owner->Form), 0,
                          [owner = Owner, value = name == L"Enum Code" ? row.Code : row.Text](const auto&) {
                              owner->Arrived(L"Value");
                              return value;
                          });
        return Variant(static_cast<IDispatch*>(field.Get()));
    }
};

EnumDatabase::EnumDatabase(std::vector<EnumRow> rows, Shape shape) : object_(MakeCom<ScriptedObject>())
{
    state_->Rows = std::move(rows);
    state_->Form = shape;
    object_->Add(L"OpenRecordset", DISPATCH_METHOD, 2, [state = state_](const std::vector<Variant>& given) {
        state->Arrived(L"OpenRecordset");
        if (state->Answer)
            return *state->Answer;
        state->Queries.push_back(given[0].Text());
        state->Types.push_back(given[1].Long());
        return Variant(MakeRecordset(state, state->Find(given[0].Text())).Get());
    });
}

void EnumDatabase::Fail(const std::wstring& call, int number, HRESULT error)
{
    state_->Failing[call] = number;
    state_->Error = error;
}

WORD EnumDatabase::KindOf(Shape shape)
{
    return shape == Shape::Methods ? DISPATCH_METHOD : DISPATCH_PROPERTYGET;
}

void EnumDatabase::State::Arrived(const std::wstring& call)
{
    Calls.push_back(call);
    if (const auto handler = Handler)
        handler(call);
    if (const auto failing = Failing.find(call); failing != Failing.end() && failing->second-- == 0)
        throw ComError(Error);
}

std::vector<EnumRow> EnumDatabase::State::Find(const std::wstring& query) const
{
    const std::size_t order = std::min(query.find(L" ORDER BY "), query.size());
    const std::vector<std::wstring> values = ValuesIn(std::wstring_view(query).substr(0, order));
    if (values.size() < 2 || values.size() > 3)
        throw ComError(E_INVALIDARG);
    std::vector<EnumRow> found;
    std::ranges::copy_if(Rows, std::back_inserter(found), [&](const EnumRow& row) {
        return row.StateCode == values[0] && row.TableName == values[1] &&
               (values.size() == 2 || TextIn(row.Code) == values[2]);
    });
    if (query.ends_with(L"[Enum Text]"))
        std::ranges::stable_sort(found, {}, [](const EnumRow& row) { return TextIn(row.Text); });
    else if (order != query.size())
        std::ranges::stable_sort(found, {}, PaddedCode);
    return found;
}

ComPtr<IDispatch> EnumDatabase::MakeRecordset(std::shared_ptr<State> state, std::vector<EnumRow> rows)
{
    const WORD kind = KindOf(state->Form);
    const auto cursor = std::make_shared<Cursor>();
    cursor->Rows = std::move(rows);
    cursor->Owner = state;
    ++state->StillOpen;
    const auto set = MakeCom<ScriptedObject>();
    set->Add(L"EOF", kind, 0, [cursor, state](const auto&) {
        state->Arrived(L"EOF");
        return Variant(cursor->At >= cursor->Rows.size());
    });
    set->Add(L"MoveNext", DISPATCH_METHOD, 0, [cursor, state](const auto&) {
        state->Arrived(L"MoveNext");
        ++cursor->At;
        return Variant();
    });
    set->Add(L"Close", DISPATCH_METHOD, 0, [cursor, state](const auto&) {
        state->Arrived(L"Close");
        cursor->Close();
        return Variant();
    });
    const auto field = [cursor](const std::vector<Variant>& given) { return cursor->Field(given[0].Text()); };
    if (state->Form != Shape::Collections)
    {
        set->Add(L"Fields", kind, 1, field);
        return set;
    }
    set->Add(L"Fields", kind, 0, [kind, field](const auto&) {
        const auto fields = MakeCom<ScriptedObject>();
        fields->AddDefault(L"Item", kind, 1, field);
        return Variant(static_cast<IDispatch*>(fields.Get()));
    });
    return set;
}

std::vector<EnumRow> SampleEnumRows()
{
    const auto row = [](const wchar_t* table, const wchar_t* code, const wchar_t* text) {
        return EnumRow{L"MA", table, Variant(code), Variant(text)};
    };
    return {
        row(L"Single", L"100", L"Apples"),
        row(L"Single", L"7", L"Pears"),
        row(L"Single", L"10", L"Melons"),
        row(L"Single", L"990000000001", L"Zucchini"),
        row(L"Lines", L"A", L"First line\r\nsecond line\r\nthird line"),
        row(L"Lines", L"B", L"Alone"),
        row(L"Lines", L"C", L"Ends with a break\r\n"),
        {L"CT", L"Single", Variant(L"1"), Variant(L"Elsewhere")},
    };
}

} // namespace kiv::test
