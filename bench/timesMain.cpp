// How long lines and texts take, beside what they are measured against. Usage:
//     tallix-bench-times [--lines=100000] [options of Google Benchmark]
// Each benchmark goes through all lines, or through all numbers, once an iteration, and tells in the counter "items"
// how many those are.
#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/MuParserSession.h"
#include "bench/TallixSession.h"
#include "bench/benchDoubles.h"
#include "bench/benchFloor.h"
#include "bench/benchLines.h"
#include "bench/textChoices.h"

namespace {

// A line each, as the yardsticks read them and as the engine does.
struct Lines {
    std::vector<std::string> narrow;
    std::vector<std::u16string> wide;
};

Lines linesOf(LineFamily family, std::size_t count) {
    Lines lines{benchLines(family, count), {}};
    for (const std::string& line : lines.narrow) {
        lines.wide.push_back(utf16Line(line));
    }
    return lines;
}

void tellItems(benchmark::State& state, std::size_t items) { state.counters["items"] = static_cast<double>(items); }

// A session begins anew with each iteration. Its end is not measured: nobody waits for it.
void wholeLines(benchmark::State& state, const Lines& lines) {
    for (std::unique_ptr<TallixSession> session; state.KeepRunning();) {
        state.PauseTiming();
        session = std::make_unique<TallixSession>();
        state.ResumeTiming();
        for (const std::u16string& line : lines.wide) {
            benchmark::DoNotOptimize(session->answerForLine(line).data());
        }
    }
    tellItems(state, lines.wide.size());
}

void floorOfLines(benchmark::State& state, const Lines& lines) {
    std::array<char, 32> buffer{};
    while (state.KeepRunning()) {
        for (const std::string& line : lines.narrow) {
            benchmark::DoNotOptimize(floorForLine(line, buffer).data());
            benchmark::ClobberMemory();
        }
    }
    tellItems(state, lines.narrow.size());
}

void muParserLines(benchmark::State& state, const Lines& lines) {
    MuParserSession session;
    while (state.KeepRunning()) {
        for (const std::string& line : lines.narrow) {
            benchmark::DoNotOptimize(session.valueOfLine(line));
        }
    }
    tellItems(state, lines.narrow.size());
}

void texts(benchmark::State& state, const std::vector<double>& numbers, std::string_view choice) {
    TXNumberFormatterSettings settings;
    choose(choice, settings);
    TXNumberFormatter formatter(&settings);
    while (state.KeepRunning()) {
        for (const double number : numbers) {
            benchmark::DoNotOptimize(formatter.formattedNumberForNumber(number).data());
        }
    }
    tellItems(state, numbers.size());
}

// Automatic digits without a string of its own for each, which std::to_chars does not make either.
void textViews(benchmark::State& state, const std::vector<double>& numbers) {
    const TXNumberFormatterSettings settings;
    TXNumberFormatter formatter(&settings);
    while (state.KeepRunning()) {
        for (const double number : numbers) {
            benchmark::DoNotOptimize(formatter.formattedViewForNumber(number).data());
        }
    }
    tellItems(state, numbers.size());
}

void shortestTexts(benchmark::State& state, const std::vector<double>& numbers) {
    std::array<char, 32> buffer{};
    while (state.KeepRunning()) {
        for (const double number : numbers) {
            benchmark::DoNotOptimize(std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr);
            benchmark::ClobberMemory();
        }
    }
    tellItems(state, numbers.size());
}

// What is benchmarked is kept for as long as the program runs.
void registerLines(std::size_t count) {
    for (const LineFamily family : {LineFamily::arithmetic, LineFamily::functions, LineFamily::trivial}) {
        const auto lines = std::make_shared<const Lines>(linesOf(family, count));
        const auto add = [&](const char* what, void (*run)(benchmark::State&, const Lines&)) {
            const std::string name = "line/" + std::string(lineFamilyNames[static_cast<std::size_t>(family)]) + "/";
            benchmark::RegisterBenchmark((name + what).c_str(),
                                         [lines, run](benchmark::State& state) { run(state, *lines); });
        };
        add("whole", wholeLines);
        add("floor", floorOfLines);
        add("muparser", muParserLines);
    }
}

void registerTexts(std::size_t count) {
    for (std::size_t set = 0; set < doubleSetNames.size(); ++set) {
        const auto numbers =
            std::make_shared<const std::vector<double>>(benchDoubles(static_cast<DoubleSet>(set), count));
        const std::string name = "text/" + std::string(doubleSetNames[set]) + "/";
        benchmark::RegisterBenchmark((name + "to_chars").c_str(),
                                     [numbers](benchmark::State& state) { shortestTexts(state, *numbers); });
        benchmark::RegisterBenchmark((name + "view").c_str(),
                                     [numbers](benchmark::State& state) { textViews(state, *numbers); });
        for (const std::string_view choice : textChoiceNames) {
            benchmark::RegisterBenchmark(
                (name + std::string(choice)).c_str(),
                [numbers, choice](benchmark::State& state) { texts(state, *numbers, choice); });
        }
    }
}

/// The number after "--lines=", 100,000 where it is left out.
std::optional<std::size_t> lineCount(int argc, char** argv) {
    constexpr std::string_view option = "--lines=";
    std::size_t count = 100000;
    for (int at = 1; at < argc; ++at) {
        const std::string_view argument = argv[at];
        if (!argument.starts_with(option)) {
            return std::nullopt;
        }
        const std::string_view number = argument.substr(option.size());
        const auto read = std::from_chars(number.data(), number.data() + number.size(), count);
        if (read.ec != std::errc() || read.ptr != number.data() + number.size()) {
            return std::nullopt;
        }
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);  // takes its own options out of the arguments
    const auto count = lineCount(argc, argv);
    if (!count) {
        std::fputs("Usage: tallix-bench-times [--lines=COUNT] [options of Google Benchmark]\n", stderr);
        return 2;
    }
    constexpr std::size_t mostNumbers = 10000;
    registerLines(*count);
    registerTexts(std::min(*count, mostNumbers));
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
