// The resident memory that a session takes. Usage:
//     tallix-bench-memory FAMILY COUNT
// Enters COUNT lines, each made when it is its turn, and prints how many bytes the process grew by.
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "bench/TallixSession.h"
#include "bench/benchLines.h"

namespace {

std::int64_t residentBytes() {
    std::int64_t allPages = 0;
    std::int64_t residentPages = 0;
    std::ifstream("/proc/self/statm") >> allPages >> residentPages;
    return residentPages * sysconf(_SC_PAGESIZE);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv, argv + argc);
    std::size_t count = 0;
    if (arguments.size() == 3) {
        std::from_chars(arguments[2].data(), arguments[2].data() + arguments[2].size(), count);
    }
    const auto family = count > 0 ? lineFamilyNamed(arguments[1]) : std::nullopt;
    if (!family) {
        std::fputs("Usage: tallix-bench-memory FAMILY COUNT\n", stderr);
        return 2;
    }
    BenchLines lines(*family);
    TallixSession session;
    const std::int64_t before = residentBytes();
    for (std::size_t line = 0; line < count; ++line) {
        session.answerForLine(utf16Line(lines.next()));
    }
    std::printf("%lld\n", static_cast<long long>(residentBytes() - before));
    return 0;
}
