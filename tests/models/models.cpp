// Compares the engine and the formatter with their models: tallix-models evaluator|formatter COUNT [SEED].
#include "tests/models/models.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr int wrongUsage = 2;

std::optional<std::uint64_t> wholeNumber(std::string_view text) {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

int usage() {
    std::cerr
        << "Usage: tallix-models evaluator|formatter COUNT [SEED]\n"
           "Compares COUNT (1 or more) made-up lines or doubles with the model; the seed is 1 if none is given.\n";
    return wrongUsage;
}

int run(const std::vector<std::string_view>& arguments) {
    if (arguments.size() < 2 || arguments.size() > 3) return usage();
    const auto count = wholeNumber(arguments[1]);
    const auto seed = arguments.size() == 3 ? wholeNumber(arguments[2]) : 1;
    const bool isEvaluator = arguments[0] == "evaluator";
    if (count.value_or(0) == 0 || !seed || (!isEvaluator && arguments[0] != "formatter")) return usage();

    const auto began = std::chrono::steady_clock::now();
    const bool isSame = (isEvaluator ? compareEvaluators : compareFormatters)(*count, *seed);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - began;
    std::cout << time.count() << " s\n";
    return isSame ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return run({arguments + 1, arguments + count});
    } catch (const std::exception& error) {
        std::cerr << "tallix-models: " << error.what() << "\n";
        return 1;
    }
}
