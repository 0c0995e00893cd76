#pragma once

#include "tests/support/ScriptedObject.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// One row of [Enum Tables].
struct EnumRow
{
    std::wstring StateCode;
    std::wstring TableName;
    Variant Code;
    Variant Text;
};

// A host's database object that holds the rows of code tables and keeps account of what it is asked. It knows
// the queries of EnumList and its picker, and of SQL no more than that.
class EnumDatabase
{
public:
    // How the objects are made. Both work for a caller that is as liberal as late binding asks for.
    enum class Shape
    {
        Methods,     // everything is a method, and Fields takes the name
        Properties,  // what can be is a property, and Fields takes the name
        Collections, // Fields is a property whose value's default member takes the name
    };

    explicit EnumDatabase(std::vector<EnumRow> rows, Shape shape = Shape::Properties);
    EnumDatabase(const EnumDatabase&) = delete;
    EnumDatabase& operator=(const EnumDatabase&) = delete;

    IDispatch* Get() const { return object_.Get(); }

    void Rows(std::vector<EnumRow> rows) { state_->Rows = std::move(rows); }
    // The queries so far, and every call since the last time: "OpenRecordset", "EOF", "Fields Enum Text" ….
    const std::vector<std::wstring>& Queries() const { return state_->Queries; }
    const std::vector<long>& Types() const { return state_->Types; }
    std::vector<std::wstring> TakeCalls() { return std::exchange(state_->Calls, {}); }
    // Record sets that were opened and not closed.
    int StillOpen() const { return state_->StillOpen; }

    // The call of that name and number (0 the first from now on) fails.
    void Fail(const std::wstring& call, int number, HRESULT error = E_FAIL);
    // What OpenRecordset answers instead of a record set.
    void Answer(std::optional<Variant> answer) { state_->Answer = std::move(answer); }
    // Runs inside every call, before it is answered.
    void OnCall(std::function<void(const std::wstring& call)> handler)
    {
        state_->Handler = std::move(handler);
    }

private:
    struct State
    {
        std::vector<EnumRow> Rows;
        Shape Form;
        std::vector<std::wstring> Queries;
        std::vector<long> Types;
        std::vector<std::wstring> Calls;
        std::map<std::wstring, int> Failing;
        HRESULT Error = E_FAIL;
        std::optional<Variant> Answer;
        std::function<void(const std::wstring&)> Handler;
        int StillOpen = 0;

        void Arrived(const std::wstring& call);
        std::vector<EnumRow> Find(const std::wstring& query) const;
    };
    struct Cursor;

    static WORD KindOf(Shape shape);
    static Microsoft::WRL::ComPtr<IDispatch> MakeRecordset(std::shared_ptr<State> state,
                                                           std::vector<EnumRow> rows);

    std::shared_ptr<State> state_ = std::make_shared<State>();
    Microsoft::WRL::ComPtr<ScriptedObject> object_;
};

// Tables to try a list on: "Single" of the state "MA" with the codes 7, 10, 100 and one of twelve characters;
// "Lines" with descriptions of several lines.
std::vector<EnumRow> SampleEnumRows();

} // namespace kiv::test
