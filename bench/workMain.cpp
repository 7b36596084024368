// One piece of work, for callgrind to count its instructions. Usage:
//     tallix-bench-work whole|enter|floor|muparser FAMILY COUNT      lines
//     tallix-bench-work to_chars|view|CHOICE SET COUNT                    texts of numbers
// The first COUNT items are done by doItems, and the COUNT after them by doCountedItems. So the session has COUNT lines
// when the counting begins; while it doubles, each table that grows by doubling grows once, and growth counts evenly
// at every size.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/MuParserSession.h"
#include "bench/TallixSession.h"
#include "bench/benchDoubles.h"
#include "bench/benchFloor.h"
#include "bench/benchLines.h"
#include "bench/textChoices.h"

namespace {

/// Does the work of the item at a position and gives something of its outcome, so that none of it can be left out.
using Work = std::function<double(std::size_t item)>;

template <typename Text>
double sampleOf(const Text& text) {
    return text.empty() ? 0.0 : static_cast<double>(text.back());
}

Work tallixWork(std::string_view what, const std::vector<std::string>& lines) {
    std::vector<std::u16string> wide;
    std::transform(lines.begin(), lines.end(), std::back_inserter(wide), utf16Line);
    const auto session = std::make_shared<TallixSession>();
    if (what == "enter") {
        return [session, wide](std::size_t item) { return session->enter(wide[item]) ? 1.0 : 0.0; };
    }
    return [session, wide](std::size_t item) { return sampleOf(session->answerForLine(wide[item])); };
}

Work lineWork(std::string_view what, LineFamily family, std::size_t items) {
    const std::vector<std::string> lines = benchLines(family, items);
    if (what == "whole" || what == "enter") {
        return tallixWork(what, lines);
    }
    if (what == "floor") {
        return [lines](std::size_t item) {
            std::array<char, 32> buffer{};
            return sampleOf(floorForLine(lines[item], buffer));
        };
    }
    if (what == "muparser" && family != LineFamily::variables) {
        const auto session = std::make_shared<MuParserSession>();
        return [session, lines](std::size_t item) { return session->valueOfLine(lines[item]); };
    }
    return nullptr;
}

Work textWork(std::string_view what, DoubleSet set, std::size_t items) {
    const std::vector<double> numbers = benchDoubles(set, items);
    if (what == "to_chars") {
        return [numbers](std::size_t item) {
            std::array<char, 32> buffer{};
            const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), numbers[item]);
            return static_cast<double>(written.ptr[-1]);
        };
    }
    const auto settings = std::make_shared<TXNumberFormatterSettings>();
    if (what != "view" && !choose(what, *settings)) {
        return nullptr;
    }
    const auto formatter = std::make_shared<TXNumberFormatter>(settings.get());
    if (what == "view") {
        return [settings, formatter, numbers](std::size_t item) {
            return sampleOf(formatter->formattedViewForNumber(numbers[item]));
        };
    }
    return [settings, formatter, numbers](std::size_t item) {
        return sampleOf(formatter->formattedNumberForNumber(numbers[item]));
    };
}

Work workNamed(std::string_view what, std::string_view items, std::size_t count) {
    if (const auto family = lineFamilyNamed(items)) {
        return lineWork(what, *family, count);
    }
    const auto set = doubleSetNamed(items);
    return set ? textWork(what, *set, count) : nullptr;
}

double doItems(const Work& work, std::size_t from, std::size_t to) {
    double sum = 0.0;
    for (std::size_t item = from; item < to; ++item) {
        sum += work(item);
    }
    return sum;
}

}  // namespace

// callgrind counts what happens while it runs, and so looks for its name.
[[gnu::noinline]] static double doCountedItems(const Work& work, std::size_t from, std::size_t to) {
    return doItems(work, from, to);
}

int main(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv, argv + argc);
    std::size_t count = 0;
    if (arguments.size() == 4) {
        std::from_chars(arguments[3].data(), arguments[3].data() + arguments[3].size(), count);
    }
    const Work work = count > 0 ? workNamed(arguments[1], arguments[2], 2 * count) : nullptr;
    if (!work) {
        std::fputs(
            "Usage: tallix-bench-work whole|enter|floor|muparser FAMILY COUNT\n"
            "       tallix-bench-work to_chars|view|CHOICE SET COUNT\n",
            stderr);
        return 2;
    }
    const double before = doItems(work, 0, count);
    const double counted = doCountedItems(work, count, 2 * count);
    std::printf("%g %g\n", before, counted);
    return 0;
}
