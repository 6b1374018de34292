// A list of 200,000 rows, and one of 30,001, against the least that any program needs for the same: a vector of texts
// and a flag for each. Both sides run in turns in one iteration; the counters are the medians in milliseconds and their
// ratio. "growth" is the time for 200,000 rows over that for 50,000: 4 is linear.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "backends/headless/HeadlessToolkit.h"
#include "common/Measure.h"
#include "platform/forms/Application.h"
#include "platform/forms/ListBox.h"

namespace tavrix::bench {
namespace {

using namespace forms;

constexpr int Most = 200'000;
constexpr int Longest = 30'001;  ///< the rows of the longest show

class ListForm : public Form {
  public:
    explicit ListForm(Application& application) : Form(application, {.name = "ListForm"}) {
        list.MultiSelect = MultiSelect::Extended;
    }
    ListBox list{*this, "list"};
};

struct Plain {
    std::vector<std::string> texts;
    std::vector<char> selected;
};

std::vector<std::string> Paths(int count) {
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        paths.push_back("C:\\Pictures\\Holidays\\IMG_" + std::to_string(100'000 + row) + ".JPG");
    return paths;
}

/// One thing done to a list and to its plain twin, each filled before.
struct Work {
    std::function<void(ListForm&)> list;
    std::function<void(Plain&)> plain;
    bool filled = true;
};

void Against(benchmark::State& state, int rows, const Work& work) {
    headless::HeadlessToolkit toolkit;
    Application app(toolkit);
    auto& form = app.Load<ListForm>();
    form.Show();
    const auto timeList = [&](int count) {
        form.list.SetItems(work.filled ? Paths(count) : std::vector<std::string>());
        return Milliseconds([&] { work.list(form); });
    };
    std::vector<double> ours, quarter, plain;
    for (auto _ : state) {
        Plain twin;
        if (work.filled) {
            twin.texts = Paths(rows);
            twin.selected.resize(twin.texts.size());
        }
        plain.push_back(Milliseconds([&] { work.plain(twin); }));
        benchmark::DoNotOptimize(twin.texts.data());
        quarter.push_back(timeList(rows / 4));
        ours.push_back(timeList(rows));
        state.SetIterationTime(ours.back() / 1000);
    }
    state.counters["plain_ms"] = Median(plain);
    state.counters["ours_ms"] = Median(ours);
    state.counters["ratio"] = Median(ours) / Median(plain);
    state.counters["growth"] = Median(ours) / Median(quarter);
}

void RemoveOdd(Plain& twin) {
    Plain kept;
    for (std::size_t row = 0; row < twin.texts.size(); row += 2) {
        kept.texts.push_back(std::move(twin.texts[row]));
        kept.selected.push_back(twin.selected[row]);
    }
    twin = std::move(kept);
}

RowRanges Odd(int rows) {
    RowRanges odd;
    for (int row = 1; row < rows; row += 2)
        odd.Add(row);
    return odd;
}

void AddOneByOne(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    // The quarter run adds as many rows as the whole: it is told by what the paths are.
    static std::vector<std::string> paths = Paths(Most);
    Against(state, rows,
            {[rows](ListForm& form) {
                 for (int row = 0; row < rows; ++row)
                     form.list.AddItem(paths[static_cast<std::size_t>(row)]);
             },
             [rows](Plain& twin) {
                 for (int row = 0; row < rows; ++row) {
                     twin.texts.push_back(paths[static_cast<std::size_t>(row)]);
                     twin.selected.push_back(0);
                 }
             },
             false});
    state.counters.erase("growth");
}

void AddBehindTheFirst(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) { form.list.AddItems(Paths(form.list.ListCount()), 1); },
             [](Plain& twin) {
                 std::vector<std::string> more = Paths(static_cast<int>(twin.texts.size()));
                 twin.selected.resize(2 * twin.texts.size());
                 twin.texts.insert(twin.texts.begin() + 1, std::make_move_iterator(more.begin()),
                                   std::make_move_iterator(more.end()));
             }});
}

void SelectAllAndCount(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) {
                 form.list.SelectAll();
                 benchmark::DoNotOptimize(form.list.SelectedCount());
             },
             [](Plain& twin) {
                 std::ranges::fill(twin.selected, 1);
                 benchmark::DoNotOptimize(std::ranges::count(twin.selected, 1));
             }});
}

void SelectEverySecond(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) {
                 for (int row = 1; row < form.list.ListCount(); row += 2)
                     form.list.Select(row);
                 form.list.InvertSelection();
             },
             [](Plain& twin) {
                 for (std::size_t row = 1; row < twin.selected.size(); row += 2)
                     twin.selected[row] = 1;
                 for (char& selected : twin.selected)
                     selected = selected == 0 ? 1 : 0;
             }});
}

void RemoveEverySecond(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) {
                 form.list.SelectAll();
                 form.list.RemoveItems(Odd(form.list.ListCount()));
             },
             RemoveOdd});
}

void Reverse(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) {
                 std::vector<int> order(static_cast<std::size_t>(form.list.ListCount()));
                 std::iota(order.rbegin(), order.rend(), 0);
                 form.list.Reorder(order);
             },
             [](Plain& twin) {
                 std::ranges::reverse(twin.texts);
                 std::ranges::reverse(twin.selected);
             }});
}

void RenewByName(benchmark::State& state) {
    Against(state, static_cast<int>(state.range(0)),
            {[](ListForm& form) {
                 form.list.SelectAll();
                 std::vector<std::string> again = form.list.Texts();
                 form.list.RenewItems(std::move(again));
             },
             [](Plain& twin) {
                 const std::vector<std::string> again = twin.texts;
                 std::vector<std::string> sorted = again;
                 std::ranges::sort(sorted);
                 benchmark::DoNotOptimize(sorted.data());
             }});
}

/// A page of rows at 1,000 places, as a backend reads them.
void Scroll(benchmark::State& state) {
    constexpr int Places = 1'000;
    const auto page = [](auto&& text, auto&& selected, int rows) {
        std::size_t length = 0;
        for (int place = 0; place < Places; ++place) {
            const int top = static_cast<int>(static_cast<long>(rows - 50) * place / Places);
            for (int row = top; row < top + 50; ++row)
                length += text(row).size() + (selected(row) ? 1U : 0U);
        }
        benchmark::DoNotOptimize(length);
    };
    Against(state, static_cast<int>(state.range(0)),
            {[&](ListForm& form) {
                 form.list.SetSelection(Odd(form.list.ListCount()));
                 const auto& rows = dynamic_cast<headless::HeadlessListPeer&>(*form.list.Peer()).content;
                 page([&](int row) { return rows.Row(row).text; },
                      [&](int row) { return rows.RowSelected(row); }, form.list.ListCount());
             },
             [&](Plain& twin) {
                 for (std::size_t row = 1; row < twin.selected.size(); row += 2)
                     twin.selected[row] = 1;
                 page([&](int row) { return std::string(twin.texts[static_cast<std::size_t>(row)]); },
                      [&](int row) { return twin.selected[static_cast<std::size_t>(row)] != 0; },
                      static_cast<int>(twin.texts.size()));
             }});
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(Longest)->Arg(Most)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
}

BENCHMARK(AddOneByOne)->Apply(Sizes);
BENCHMARK(AddBehindTheFirst)->Apply(Sizes);
BENCHMARK(SelectAllAndCount)->Apply(Sizes);
BENCHMARK(SelectEverySecond)->Apply(Sizes);
BENCHMARK(RemoveEverySecond)->Apply(Sizes);
BENCHMARK(Reverse)->Apply(Sizes);
BENCHMARK(RenewByName)->Apply(Sizes);
BENCHMARK(Scroll)->Apply(Sizes);

}  // namespace
}  // namespace tavrix::bench
