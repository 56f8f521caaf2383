#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/index_translator.h>

#include "model_journal.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using Sel = CSelectionTmpl<int>;
using Runs = std::map<int, Sel::SelType>;

// Operations on the run map written as "+3" (select), "-4" (unselect), "2..7" and "2..7-" (a range).
Sel Apply(std::vector<std::string> const& ops) {
    Sel sel;
    for (auto const& op : ops) {
        auto const dots = op.find("..");
        if (dots != std::string::npos)
            sel.SetItemsSelection(std::stoi(op), std::stoi(op.substr(dots + 2)), op.back() != '-');
        else
            sel.SetItemsSelection(std::stoi(op.substr(1)), std::stoi(op.substr(1)), op[0] == '+');
    }
    return sel;
}

TEST(SelectionTmpl, KeepsMaximalRunsAsTheirEnds) {
    struct Case {
        std::vector<std::string> ops;
        Runs runs;
    } const cases[] = {
        {{"+3", "+5", "+4"}, {{3, Sel::SelBegin}, {5, Sel::SelEnd}}},
        {{"3..5", "-4"}, {{3, Sel::SelSingle}, {5, Sel::SelSingle}}},
        {{"3..6", "-3"}, {{4, Sel::SelBegin}, {6, Sel::SelEnd}}},
        {{"3..4", "-3"}, {{4, Sel::SelSingle}}},
        {{"3..6", "-6", "-5"}, {{3, Sel::SelBegin}, {4, Sel::SelEnd}}},
        {{"2..7-"}, {}},
        {{"+1", "2..7-"}, {{1, Sel::SelSingle}}},
        {{"7..2"}, {{2, Sel::SelBegin}, {7, Sel::SelEnd}}},
        {{"+1", "+9", "3..7"},
         {{1, Sel::SelSingle}, {3, Sel::SelBegin}, {7, Sel::SelEnd}, {9, Sel::SelSingle}}},
        {{"+1", "+5", "12..14", "2..11"}, {{1, Sel::SelBegin}, {14, Sel::SelEnd}}},
        {{"+-1", "+0"}, {{-1, Sel::SelBegin}, {0, Sel::SelEnd}}},
        {{"+4", "-4", "-4"}, {}},
    };
    for (auto const& c : cases) {
        Sel const sel = Apply(c.ops);
        EXPECT_EQ(sel.GetMap(), c.runs) << ::testing::PrintToString(c.ops);
    }
}

TEST(SelectionTmpl, NextSelectedWalksEveryIndexAndStopsAtTheLast) {
    Sel const sel = Apply({"3..5", "+9"});
    std::vector<int> seen;
    int index = -1;
    while (sel.GetNext(index))
        seen.push_back(index);
    EXPECT_EQ(seen, (std::vector<int>{3, 4, 5, 9}));
    EXPECT_EQ(index, 9);
    EXPECT_FALSE(Sel().GetNext(index));
    EXPECT_EQ(index, 9);
}

TEST(IndexTranslators, MapIndicesAndRunsAlike) {
    struct Case {
        IIndexTranslator const* t;
        int index, result;
        bool removed;
    };
    CMoveTranslator const down(2, 5), up(5, 2), still(3, 3);
    CAddRemoveTranslator const add(3, 2), remove(3, -2);
    Case const cases[] = {
        {&down, 1, 1, false},   {&down, 2, 5, false},   {&down, 4, 3, false},  {&down, 6, 6, false},
        {&up, 5, 2, false},     {&up, 2, 3, false},     {&still, 3, 3, false}, {&add, 3, 3, false},
        {&add, 4, 6, false},    {&remove, 3, 3, false}, {&remove, 4, 3, true}, {&remove, 5, 3, true},
        {&remove, 6, 4, false},
    };
    for (auto const& c : cases) {
        bool removed = !c.removed;
        EXPECT_EQ(c.t->TranslateIndex(c.index, &removed), c.result) << c.index;
        EXPECT_EQ(removed, c.removed) << c.index;
    }
    // A run's images are exactly the images of its indices, however the translator shapes them.
    for (auto const* t :
         {static_cast<IIndexTranslator const*>(&down), static_cast<IIndexTranslator const*>(&up),
          static_cast<IIndexTranslator const*>(&add), static_cast<IIndexTranslator const*>(&remove)})
        for (int from = 0; from < 8; ++from)
            for (int to = from; to < 8; ++to) {
                std::vector<std::pair<int, int>> fast, slow;
                bool const moved = t->TranslateRun(from, to, fast);
                EXPECT_EQ(t->IIndexTranslator::TranslateRun(from, to, slow), moved);
                Sel a, b;
                for (auto [x, y] : fast)
                    a.AddRange(x, y);
                for (auto [x, y] : slow)
                    b.AddRange(x, y);
                EXPECT_EQ(a.GetMap(), b.GetMap()) << from << ".." << to;
            }
}

// Writes down the signals of a selection model.
struct CSelectionJournal : tarnkit2::subscriber_base_t {
    explicit CSelectionJournal(ISelectionModel& model) {
        model.sigModelChanged.connect(this, &CSelectionJournal::OnChanged);
        model.sigSelectionChanged.connect(this, &CSelectionJournal::OnSelection);
        model.sigCurrentChanged.connect(this, &CSelectionJournal::OnCurrent);
    }
    void OnChanged() { entries += "changed;"; }
    void OnSelection() { entries += "selection;"; }
    void OnCurrent(int from, int to) {
        entries += "current " + std::to_string(from) + " " + std::to_string(to) + ";";
    }
    std::string Take() { return std::exchange(entries, {}); }
    std::string entries;
};

using Ranges = std::vector<std::pair<int, int>>;

TEST(DefaultSelectionModel, SignalsAndDirtyRangesPerOperation) {
    CDefaultSelectionModel model;
    CSelectionJournal journal(model);
    auto dirty = [&] {
        Ranges r = model.GetUpdates().GetRanges();
        model.OnEndDraw();
        return r;
    };
    EXPECT_EQ(dirty(), (Ranges{{0, IDirtyItemSet::ToEnd}})) << "born all dirty";

    model.SetCurrent(4);
    EXPECT_EQ(journal.Take(), "changed;current -1 4;");
    EXPECT_EQ(dirty(), (Ranges{{-1, -1}, {4, 4}}));
    model.SetCurrent(4);
    model.SelectItem(-2, true);
    model.SelectItem(3, false);
    EXPECT_EQ(journal.Take(), "") << "no change, no signal";

    model.SelectItem(3, true);
    EXPECT_EQ(journal.Take(), "changed;selection;");
    EXPECT_EQ(dirty(), (Ranges{{3, 3}}));

    model.SetSelectionRange(6, 3);
    EXPECT_EQ(journal.Take(), "changed;selection;");
    EXPECT_EQ(dirty(), (Ranges{{3, 3}, {3, 6}})) << "the old run, then the new one";
    model.SetSelectionRange(3, 4);
    EXPECT_EQ(dirty(), (Ranges{{3, 6}, {3, 4}})) << "the items given up are dirty too";
    model.SetSelectionRange(3, 4);
    EXPECT_EQ(dirty(), (Ranges{{3, 4}}));
    model.SelectItem(8, true);
    model.SetSelectionRange(0, 1);
    EXPECT_EQ(dirty(), (Ranges{{8, 8}, {0, IDirtyItemSet::ToEnd}, {0, 1}})) << "two runs: everything";
    EXPECT_EQ(model.GetSelectedCount(), 2);
    journal.Take();

    model.ClearSelection();
    EXPECT_EQ(journal.Take(), "changed;") << "clearing says so only through the model signal";
    EXPECT_EQ(dirty(), (Ranges{{0, IDirtyItemSet::ToEnd}}));
    model.ClearSelection();
    EXPECT_EQ(journal.Take(), "");
    EXPECT_EQ(dirty(), Ranges{});
}

TEST(DefaultSelectionModel, TranslationCarriesSelectionAndCurrent) {
    CDefaultSelectionModel model;
    model.SelectItem(2, true);
    model.SelectItem(4, true);
    model.SetCurrent(2);
    model.OnEndDraw();
    CSelectionJournal journal(model);
    CMoveTranslator move(2, 5);
    model.UpdateModelState(&move);
    EXPECT_EQ(model.GetSelection().GetMap(), (Runs{{3, Sel::SelSingle}, {5, Sel::SelSingle}}));
    EXPECT_EQ(journal.Take(), "changed;current 2 5;");
    EXPECT_EQ(model.GetUpdates().GetRanges(), Ranges{}) << "no items are listed";

    mirel_test::CFunctionTranslator ignored([](int i, bool*) { return i + 1; }, false);
    model.UpdateModelState(&ignored);
    CAddRemoveTranslator after(9, 3);
    model.UpdateModelState(&after);
    EXPECT_EQ(journal.Take(), "") << "nothing moved";
    CAddRemoveTranslator remove(2, -3);
    model.UpdateModelState(&remove);
    EXPECT_EQ(model.GetSelection().GetMap(), (Runs{{2, Sel::SelSingle}}))
        << "removed items land on the position";
    EXPECT_EQ(model.GetCurrent(), 2);
}

TEST(DefaultSelectionModel, EverythingOfAHundredMillionIsTwoEntriesAndFollowsInsertions) {
    CDefaultSelectionModel model;
    model.SetSelectionRange(0, 99'999'999);
    EXPECT_EQ(model.GetSelection().GetMap().size(), 2u);
    EXPECT_EQ(model.GetSelectedCount(), 100'000'000);
    CAddRemoveTranslator insert(500, 1'000'000);
    model.UpdateModelState(&insert);
    EXPECT_EQ(model.GetSelectedCount(), 100'000'000);
    EXPECT_FALSE(model.IsItemSelected(501));
    EXPECT_TRUE(model.IsItemSelected(1'000'501));
    CAddRemoveTranslator remove(400, -1'000'100);
    model.UpdateModelState(&remove);
    EXPECT_EQ(model.GetSelection().GetMap().size(), 2u) << "the gap is gone and the runs are one again";
    EXPECT_EQ(model.GetSelectedCount(), 99'999'900);
}

// Random operations and translations against a plain vector of flags, following the contract index by index.
TEST(DefaultSelectionModel, AgreesWithAFlagPerItemOverRandomOperations) {
    constexpr int N = 200;
    std::mt19937 rng(7);
    auto pick = [&] { return int(rng() % N); };
    CDefaultSelectionModel model;
    std::vector<bool> flags(N + 64);
    auto translate = [&](IIndexTranslator& t) {
        std::vector<bool> next(flags.size());
        for (int i = 0; i < N; ++i)
            if (flags[i]) next[t.TranslateIndex(i, nullptr)] = true;
        flags = next;
        model.UpdateModelState(&t);
    };
    for (int step = 0; step < 100'000; ++step) {
        int const a = pick(), b = pick();
        switch (rng() % 8) {
        case 0:
        case 1:
            model.SelectItem(a, true);
            flags[a] = true;
            break;
        case 2:
        case 3:
            model.SelectItem(a, false);
            flags[a] = false;
            break;
        case 4:
            model.SetSelectionRange(a, b);
            flags.assign(flags.size(), false);
            for (int i = std::min(a, b); i <= std::max(a, b); ++i)
                flags[i] = true;
            break;
        case 5: {
            CMoveTranslator t(a, b);
            translate(t);
            break;
        }
        case 6: {
            CAddRemoveTranslator t(a, int(rng() % 9) - 6);
            translate(t);
            for (int i = N; i < int(flags.size()); ++i)
                flags[i] = false;
            break;
        }
        default:
            if (rng() % 50 == 0) {
                model.ClearSelection();
                flags.assign(flags.size(), false);
            }
        }
        // Items pushed beyond the range by insertions are dropped from both, to keep the range small.
        for (int i = N; i < int(flags.size()); ++i)
            if (model.IsItemSelected(i)) model.SelectItem(i, false);
        if (step % 97 != 0) continue;
        int count = 0;
        for (int i = -1; i < N; ++i) {
            ASSERT_EQ(model.IsItemSelected(i), i >= 0 && flags[i]) << "step " << step << " item " << i;
            count += i >= 0 && flags[i];
        }
        ASSERT_EQ(model.GetSelectedCount(), count);
        auto const& map = model.GetSelection().GetMap();
        for (auto it = map.begin(); it != map.end() && std::next(it) != map.end(); ++it)
            ASSERT_TRUE(std::next(it)->first > it->first + 1 || it->second == Sel::SelBegin)
                << "runs are maximal";
    }
}

} // namespace
