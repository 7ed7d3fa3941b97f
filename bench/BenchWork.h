#pragma once

// The work that every grid in the comparison does, in plain C++ so that the wxWidgets program
// shares it without Qt: the rows (names, types, values), the row count from the command line,
// the resident memory of the process, and the registration of the operations in one order.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <malloc.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace bench {

// The nine kinds of row, in the order of the grid's field types (TEXT = 1 ... MEMO = 9).
enum class RowType {
    Text = 1,
    Numeric,
    CheckBox,
    Combo,
    Date,
    Slider,
    FileSelector,
    FolderSelector,
    Memo
};

inline const char *typeName(RowType type)
{
    static const char *names[] = { "", "TEXT", "NUMERIC", "CHECKBOX", "COMBO", "DATE", "SLIDER",
        "FILESELECTOR", "FOLDERSELECTOR", "MEMO" };
    return names[int(type)];
}

// One row: its name, its kind, the value it is built with and the value that "set every value"
// gives it. Values are texts in the form the grid's definition language and settings store use.
struct Row
{
    std::string name;
    RowType type;
    std::string value;
    std::string newValue;
};

inline const std::vector<std::string> &comboKeys()
{
    static const std::vector<std::string> keys { "R", "G", "B" };
    return keys;
}
inline const std::vector<std::string> &comboTexts()
{
    static const std::vector<std::string> texts { "Red", "Green", "Blue" };
    return texts;
}

inline std::string dateText(int dayOfYear)
{
    static const int days[] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    int month = 0;
    while (dayOfYear >= days[month]) {
        dayOfYear -= days[month];
        month = (month + 1) % 12;
    }
    char text[32];
    std::snprintf(text, sizeof text, "2023-%02d-%02d", month + 1, dayOfYear + 1);
    return text;
}

// Rows of mixed types: the nine kinds in turn, so each makes up a ninth of the grid.
inline std::vector<Row> makeRows(int count)
{
    std::vector<Row> rows;
    rows.reserve(count);
    for (int i = 0; i < count; ++i) {
        const std::string n = std::to_string(i + 1);
        Row row { "Field" + n, RowType(i % 9 + 1), {}, {} };
        switch (row.type) {
        case RowType::Text:
            row.value = "Text " + n;
            row.newValue = "Changed " + n;
            break;
        case RowType::Numeric:
            row.value = n;
            row.newValue = n + ".5";
            break;
        case RowType::CheckBox:
            row.value = i % 2 ? "True" : "False";
            row.newValue = i % 2 ? "False" : "True";
            break;
        case RowType::Combo:
            row.value = comboKeys()[i % 3];
            row.newValue = comboKeys()[(i + 1) % 3];
            break;
        case RowType::Date:
            row.value = dateText(i % 365);
            row.newValue = dateText((i + 100) % 365);
            break;
        case RowType::Slider:
            row.value = std::to_string(i % 101);
            row.newValue = std::to_string((i + 7) % 101);
            break;
        case RowType::FileSelector:
            row.value = "/tmp/kwbench/file" + n + ".txt";
            row.newValue = "/tmp/kwbench/other" + n + ".txt";
            break;
        case RowType::FolderSelector:
            row.value = "/tmp/kwbench/dir" + n;
            row.newValue = "/tmp/kwbench/other" + n;
            break;
        case RowType::Memo:
            row.value = "Memo " + n; // a definition line holds no line break
            row.newValue = "Changed memo " + n + "\r\nthird line";
            break;
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

// Resident memory of this process in bytes (second field of /proc/self/statm, in pages).
inline long residentBytes()
{
    long size = 0, resident = 0;
    if (FILE *f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &size, &resident) != 2)
            resident = 0;
        std::fclose(f);
    }
    return resident * sysconf(_SC_PAGESIZE);
}

// Takes "--rows=N" out of the arguments (before Google Benchmark sees them); 1000 without it.
inline int takeRowCount(int &argc, char **argv)
{
    int rows = 1000;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--rows=", 7) == 0)
            rows = std::atoi(argv[i] + 7);
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    return rows;
}

// Repetitions of the whole-grid operations: enough for a steady figure on small grids, and one
// from 10,000 rows on, so that both ends of the growth check are measured alike: a second
// repetition would reuse memory the first one faulted in and look cheaper than a first.
inline int iterationsFor(int rows)
{
    return rows <= 1000 ? 5 : 1;
}

// One grid under test: each operation works on the grid that memory() built, except build(),
// which builds (and afterwards destroys) a grid of its own in each repetition.
struct Subject
{
    std::function<void()> buildShared; // builds the grid later operations use
    std::function<void()> layoutShared; // its first full layout, shown on screen
    std::function<void(benchmark::State &)> build;
    std::function<void()> layout;
    // Round r gives every row its new value when r is even and its first value when r is odd,
    // so that every round changes every row.
    std::function<void(int round)> setByName;
    std::function<void()> readAll;
    std::function<void()> save;
    std::function<void()> restore;
    std::function<void()> scrollStep;
};

// Registers the operations. Building comes first, in a fresh process, as a host builds its grid:
// with the shared grid already resident, a large build would pay for first touches of memory on
// top of another grid's gigabytes, which this machine charges more per megabyte the more is in
// use. Memory follows, after the built grids' memory is handed back, so that its resident growth
// is its own grid's.
inline void registerAll(const Subject &subject, int rows)
{
    const int reps = iterationsFor(rows);
    const std::string n = "/" + std::to_string(rows);
    auto timed = [&](const char *name, std::function<void()> op) {
        benchmark::RegisterBenchmark((name + n).c_str(),
            [op](benchmark::State &state) {
                for (auto _ : state)
                    op();
            })
            ->Iterations(reps)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    benchmark::RegisterBenchmark(("build" + n).c_str(),
        [build = subject.build](benchmark::State &state) {
            build(state);
            malloc_trim(0);
        })
        ->Iterations(reps)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark(("memory" + n).c_str(),
        [subject, rows](benchmark::State &state) {
            for (auto _ : state) {
                const long before = residentBytes();
                subject.buildShared();
                subject.layoutShared();
                state.counters["bytes_per_row"] = double(residentBytes() - before) / rows;
            }
        })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    timed("layout", subject.layout);
    timed("set_by_name", [op = subject.setByName, round = 0]() mutable { op(round++); });
    timed("read_all", subject.readAll);
    timed("save", subject.save);
    // Before each restore the rows are given the values that were not saved (set_by_name's
    // last round was reps - 1), so that restoring changes every row.
    benchmark::RegisterBenchmark(("restore" + n).c_str(),
        [subject, reps](benchmark::State &state) {
            for (auto _ : state) {
                state.PauseTiming();
                subject.setByName(reps);
                state.ResumeTiming();
                subject.restore();
            }
        })
        ->Iterations(reps)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark(("scroll_step" + n).c_str(),
        [op = subject.scrollStep](benchmark::State &state) {
            op(); // the first step also polishes what comes into view
            for (auto _ : state)
                op();
        })
        ->MinTime(0.3)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

} // namespace bench
