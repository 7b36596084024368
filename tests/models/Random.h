#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

/// Numbers drawn from a seed, the same ones on every machine, which the standard distributions do not promise.
class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    std::uint64_t bits() { return engine_(); }
    /// 0 to `bound` - 1.
    std::size_t below(std::size_t bound) { return engine_() % bound; }
    /// `first` to `last`, both included.
    int between(int first, int last) {
        return first + static_cast<int>(below(static_cast<std::size_t>(last - first) + 1));
    }
    /// True once in so many times.
    bool oneIn(std::size_t times) { return below(times) == 0; }

    /// An element of a row, or a character of a text.
    template <class Row>
    const auto& oneOf(const Row& row) {
        return row[below(std::size(row))];
    }

private:
    std::mt19937_64 engine_;
};
