// What a ChkCombo holds: items, statuses, data, and the indexes that follow them.

#include "runtime/com/Errors.h"
#include "tests/gui/lists/ChkComboTest.h"
#include "tests/support/Text.h"

#include <optional>
#include <random>

namespace kiv::test
{

namespace
{

using ChkComboList = ChkComboTest;

long StatusOf(HostedCombo& combo, short index)
{
    DetailStatusEnums status = Blank;
    EXPECT_HRESULT_SUCCEEDED(combo->get_ListCompletionStatus(index, &status));
    return status;
}

long DataOf(HostedCombo& combo, short index)
{
    LONG data = 0;
    EXPECT_HRESULT_SUCCEEDED(combo->get_ItemData(index, &data));
    return data;
}

// What the control says against what it should hold. Each item knows itself what it is, and so do the
// indexes that point to it.
class PlainList
{
public:
    explicit PlainList(HostedCombo& combo) : combo_(combo) {}

    short Count() const { return static_cast<short>(items_.size()); }

    void Add(std::mt19937& random)
    {
        const bool atEnd = items_.empty() || random() % 3 == 0;
        const auto at = static_cast<short>(atEnd ? items_.size() : random() % (items_.size() + 1));
        const std::wstring text = L"item " + std::to_wstring(random() % 100);
        EXPECT_EQ(combo_->AddItem(Bstr(text).Get(), atEnd ? short{-1} : at), S_OK);
        items_.insert(items_.begin() + at, {identities_, text, 0, 0});
        newest_ = identities_++;
    }

    void Remove(short at)
    {
        EXPECT_EQ(combo_->RemoveItem(at), S_OK);
        const int gone = At(at).Identity;
        items_.erase(items_.begin() + at);
        for (std::optional<int>* pointer : {&newest_, &previous_, &selected_})
        {
            if (*pointer == gone)
                pointer->reset();
        }
    }

    void Clear()
    {
        EXPECT_EQ(combo_->Clear(), S_OK);
        items_.clear();
        newest_.reset();
        previous_.reset();
        selected_.reset();
    }

    void Select(short at)
    {
        EXPECT_EQ(combo_->put_ListIndex(at), S_OK);
        previous_ = selected_;
        const std::optional<int> chosen = at < 0 ? std::optional<int>() : At(at).Identity;
        if (chosen == selected_)
            return;
        selected_ = chosen;
        clicks_.push_back(L"Click " + std::to_wstring(IndexOf(selected_)) + L" " +
                          std::to_wstring(IndexOf(previous_)));
    }

    void SetStatus(short at, long status)
    {
        EXPECT_EQ(combo_->put_ListCompletionStatus(at, static_cast<DetailStatusEnums>(status)), S_OK);
        At(at).Status = status;
    }

    void SetData(short at, long data)
    {
        EXPECT_EQ(combo_->put_ItemData(at, data), S_OK);
        At(at).Data = data;
    }

    void SetText(short at, const std::wstring& text)
    {
        EXPECT_EQ(combo_->put_List(at, Bstr(text).Get()), S_OK);
        At(at).Text = text;
    }

    // The indexes, the events, and one item.
    void ExpectSame(short looked)
    {
        ASSERT_EQ(combo_.ListCount(), Count());
        ASSERT_EQ(combo_.ListIndex(), IndexOf(selected_));
        ASSERT_EQ(combo_.NewIndex(), IndexOf(newest_));
        ASSERT_EQ(combo_.PreviousIndex(), IndexOf(previous_));
        ASSERT_TRUE(combo_.SelectionAgrees());
        ASSERT_EQ(combo_.TakeEvents(), std::exchange(clicks_, {}));
        if (looked >= 0)
            ExpectSameItem(looked);
    }

    void ExpectSameItem(short at)
    {
        ASSERT_EQ(combo_.Item(at), At(at).Text);
        ASSERT_EQ(StatusOf(combo_, at), At(at).Status);
        ASSERT_EQ(DataOf(combo_, at), At(at).Data);
        ASSERT_EQ(combo_.Text(), selected_ ? At(IndexOf(selected_)).Text : L"");
    }

private:
    struct Item
    {
        int Identity;
        std::wstring Text;
        long Status;
        long Data;
    };

    Item& At(short index) { return items_[static_cast<std::size_t>(index)]; }

    short IndexOf(std::optional<int> identity) const
    {
        for (std::size_t index = 0; index < items_.size(); ++index)
        {
            if (items_[index].Identity == identity)
                return static_cast<short>(index);
        }
        return -1;
    }

    HostedCombo& combo_;
    std::vector<Item> items_;
    int identities_ = 0;
    std::optional<int> newest_;
    std::optional<int> previous_;
    std::optional<int> selected_;
    Events clicks_;
};

void PlayRandomCalls(HostedCombo& combo, int steps, unsigned seed)
{
    std::mt19937 random(seed);
    PlainList list(combo);
    for (int step = 0; step < steps; ++step)
    {
        SCOPED_TRACE("step " + std::to_string(step) + " of seed " + std::to_string(seed));
        const auto choice = random() % 1000;
        const auto anItem = [&] {
            return static_cast<short>(random() % static_cast<unsigned>(list.Count()));
        };
        if (list.Count() == 0 || choice < 350)
            list.Add(random);
        else if (choice < 600)
            list.Remove(anItem());
        else if (choice < 750)
            list.Select(static_cast<short>(anItem() - (random() % 8 == 0 ? list.Count() : 0)) < 0 ? short{-1}
                                                                                                  : anItem());
        else if (choice < 850)
            list.SetStatus(anItem(), static_cast<long>(random() % 4));
        else if (choice < 920)
            list.SetData(anItem(), static_cast<long>(random()));
        else if (choice < 995)
            list.SetText(anItem(), L"text " + std::to_wstring(random() % 100));
        else
            list.Clear();
        list.ExpectSame(list.Count() == 0 ? short{-1} : anItem());
        if (testing::Test::HasFatalFailure() || testing::Test::HasNonfatalFailure())
            return;
    }
    for (short index = 0; index < list.Count(); ++index)
        list.ExpectSameItem(index);
}

TEST_F(ChkComboList, IsAsAPlainListAfterRandomCalls)
{
    HostedCombo combo = AddCombo();
    PlayRandomCalls(combo, 100000, 1);
}

TEST_F(ChkComboList, IsAsAPlainListAfterRandomCallsOnAForm)
{
    HostedCombo combo = ShownCombo();
    PlayRandomCalls(combo, 2000, 2);
}

TEST_F(ChkComboList, IsAsAPlainListAfterRandomCallsWhileItIsOpen)
{
    HostedCombo combo = ShownCombo();
    combo.Open(true);
    combo.TakeEvents();
    PlayRandomCalls(combo, 1000, 3);
    EXPECT_TRUE(combo.IsOpen());
    combo.Open(false);
}

TEST_F(ChkComboList, InsertsWhereItIsTold)
{
    HostedCombo combo = AddCombo();
    combo.Add(L"b");
    EXPECT_EQ(combo.NewIndex(), 0);
    combo.Add(L"c", 1);
    EXPECT_EQ(combo.NewIndex(), 1) << "an index of ListCount appends";
    combo.Add(L"a", 0);
    EXPECT_EQ(combo.NewIndex(), 0);
    combo.Add(L"d", -1);
    EXPECT_EQ(combo.NewIndex(), 3);
    EXPECT_EQ(combo.Item(0) + combo.Item(1) + combo.Item(2) + combo.Item(3), L"abcd");
}

TEST_F(ChkComboList, RefusesIndexesBeyondItsBounds)
{
    HostedCombo combo = AddCombo(OneOfEach());
    const Bstr text(L"text");
    for (const short index : std::initializer_list<short>{-32768, -2, 4, 32767})
        EXPECT_EQ(combo->AddItem(text.Get(), index), InvalidPropertyIndex) << index;
    for (const short index : std::initializer_list<short>{-32768, -1, 3, 32767})
    {
        Bstr got;
        LONG data = 0;
        DetailStatusEnums status = Blank;
        EXPECT_EQ(combo->RemoveItem(index), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->get_List(index, got.Receive()), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->put_List(index, text.Get()), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->get_ItemData(index, &data), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->put_ItemData(index, 1), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->get_ListCompletionStatus(index, &status), InvalidPropertyIndex) << index;
        EXPECT_EQ(combo->put_ListCompletionStatus(index, Partial), InvalidPropertyIndex) << index;
    }
    for (const short index : std::initializer_list<short>{-32768, -2, 3, 32767})
        EXPECT_EQ(combo->put_ListIndex(index), InvalidPropertyValue) << index;
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.PreviousIndex(), -1);
    EXPECT_EQ(combo.TakeEvents(), Events());
}

TEST_F(ChkComboList, KeepsAnyStatus)
{
    HostedCombo combo = AddCombo({BlankStatus});
    for (const long status : {PartialStatus, CompleteStatus, 7L, -1L, BlankStatus})
    {
        ASSERT_HRESULT_SUCCEEDED(combo->put_ListCompletionStatus(0, static_cast<DetailStatusEnums>(status)));
        EXPECT_EQ(StatusOf(combo, 0), status);
    }
}

TEST_F(ChkComboList, KeepsEverythingElseWhenATextIsReplaced)
{
    HostedCombo combo = AddCombo(OneOfEach());
    ASSERT_HRESULT_SUCCEEDED(combo->put_ItemData(1, 77));
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    combo.TakeEvents();
    const short newIndex = combo.NewIndex();
    ASSERT_HRESULT_SUCCEEDED(combo->put_List(1, Bstr(L"another").Get()));
    EXPECT_EQ(combo.Item(0), L"item 0");
    EXPECT_EQ(combo.Item(1), L"another");
    EXPECT_EQ(combo.Item(2), L"item 2");
    EXPECT_EQ(combo.Text(), L"another");
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.NewIndex(), newIndex);
    EXPECT_EQ(StatusOf(combo, 1), PartialStatus);
    EXPECT_EQ(DataOf(combo, 1), 77);
    EXPECT_TRUE(combo.SelectionAgrees());
    EXPECT_EQ(combo.TakeEvents(), Events());
}

TEST_F(ChkComboList, HoldsLongTexts)
{
    HostedCombo combo = ShownCombo();
    const std::wstring text = std::wstring(65536, L'x') + L"\u0142";
    combo.Add(text.c_str());
    combo.Add(L"");
    EXPECT_EQ(combo.Item(0), text);
    EXPECT_EQ(combo.Item(1), L"");
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    EXPECT_EQ(combo.Text(), text);
    combo.Open(true);
    Settle();
    combo.Open(false);
    ASSERT_HRESULT_SUCCEEDED(combo->put_List(1, Bstr(text).Get()));
    EXPECT_EQ(combo.Item(1), text);
}

// Also what the system's code page lacks; a text ends at its first null.
TEST_F(ChkComboList, HoldsTextsAsTheyAreGiven)
{
    HostedCombo combo = ShownCombo();
    const wchar_t* const texts[] = {
        L"caf\u00E9 \u65E5 & Co", L"\u0141\u00F3d\u017A", L"\U0001D54B\u0301 \U0001F600", L"",
        L"\xD83D halved",
    };
    for (const wchar_t* const text : texts)
        combo.Add(text);
    for (short index = 0; index < 5; ++index)
    {
        SCOPED_TRACE(index);
        EXPECT_EQ(combo.Item(index), texts[index]);
        ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(index));
        EXPECT_EQ(combo.Text(), texts[index]);
        ASSERT_HRESULT_SUCCEEDED(combo->put_List(index, Bstr(texts[4 - index]).Get()));
        EXPECT_EQ(combo.Item(index), texts[4 - index]);
        EXPECT_EQ(combo.Text(), texts[4 - index]);
        ASSERT_HRESULT_SUCCEEDED(combo->put_List(index, Bstr(texts[index]).Get()));
    }
    combo.Open(true);
    ClickAt(combo.ItemOnScreen(1));
    EXPECT_EQ(combo.Text(), texts[1]) << "chosen by mouse";
    char read[16] = {};
    SendMessageA(combo.Combo(), CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(read));
    EXPECT_STREQ(read, "L\xF3"
                       "dz")
        << "what another program reads is in the code page";
    ASSERT_HRESULT_SUCCEEDED(combo->Clear());
    EXPECT_HRESULT_SUCCEEDED(combo->AddItem(Bstr(std::wstring_view(L"a\0b", 3)).Get(), -1));
    EXPECT_EQ(combo.Item(0), L"a");
    EXPECT_HRESULT_SUCCEEDED(combo->AddItem(nullptr, -1));
    EXPECT_EQ(combo.Item(1), L"");
}

TEST_F(ChkComboList, TakesAsManyItemsAsItsIndexesReach)
{
    HostedCombo combo = AddCombo();
    const Bstr text(L"item");
    for (int index = 0; index < 32767; ++index)
        ASSERT_EQ(combo->AddItem(text.Get(), -1), S_OK) << index;
    EXPECT_EQ(combo.ListCount(), 32767);
    EXPECT_EQ(combo.NewIndex(), 32766);
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(32766));
    EXPECT_TRUE(combo.SelectionAgrees());
    combo.TakeEvents();
    for (const short index : std::initializer_list<short>{-1, 0, 32767})
        EXPECT_EQ(combo->AddItem(text.Get(), index), RunTimeError(6)) << index;
    EXPECT_EQ(combo.ListCount(), 32767);
    EXPECT_EQ(combo.ListIndex(), 32766);
    ASSERT_HRESULT_SUCCEEDED(combo->put_List(32766, Bstr(L"last").Get()));
    EXPECT_EQ(combo.Text(), L"last");
    ASSERT_HRESULT_SUCCEEDED(combo->RemoveItem(0));
    EXPECT_EQ(combo.ListIndex(), 32765);
    combo.Add(L"first", 0);
    EXPECT_EQ(combo.ListIndex(), 32766);
    EXPECT_EQ(combo.Text(), L"last");
    EXPECT_TRUE(combo.SelectionAgrees());
    EXPECT_EQ(combo.TakeEvents(), Events());
}

// The form's code may do anything in an event, and finds the list as it is by then.
TEST_F(ChkComboList, MayBeChangedInItsEvents)
{
    HostedCombo combo = ShownCombo(OneOfEach());
    combo.On(L"Click", [&](DISPPARAMS&) {
        short selected = 0;
        combo->get_ListIndex(&selected);
        if (selected >= 0)
        {
            EXPECT_HRESULT_SUCCEEDED(combo->RemoveItem(selected));
        }
    });
    Key(VK_DOWN);
    EXPECT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.ListIndex(), -1);
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(1));
    EXPECT_EQ(combo.ListCount(), 1);
    EXPECT_EQ(combo.Item(0), L"item 1");
    ClickAt(combo.Middle());
    ClickAt(combo.ItemOnScreen(0));
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_TRUE(combo.SelectionAgrees());

    combo.Fill(OneOfEach());
    combo.On(L"Click", [&](DISPPARAMS&) { combo->put_ListIndex(2); });
    ASSERT_HRESULT_SUCCEEDED(combo->put_ListIndex(0));
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_TRUE(combo.SelectionAgrees());
    combo.On(L"Click", [](DISPPARAMS&) {});
    Key(VK_UP);
    EXPECT_EQ(combo.ListIndex(), 1) << "keys are answered again";
    EXPECT_TRUE(combo.SelectionAgrees());

    combo.On(L"DropDown", [&](DISPPARAMS&) {
        combo->Clear();
        combo.Fill({CompleteStatus, CompleteStatus});
    });
    Key(VK_F4);
    Key(VK_DOWN);
    EXPECT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_TRUE(combo.SelectionAgrees());
    combo.Open(false);
}

} // namespace

} // namespace kiv::test
