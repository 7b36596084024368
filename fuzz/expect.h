#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program where something that always holds does not, so that the fuzzer keeps the input. `what` says what
/// should hold; the stack that the sanitizer prints says where.
inline void expect(bool holds, const char* what) {
    if (holds) return;
    static_cast<void>(std::fprintf(stderr, "Does not hold: %s\n", what));
    std::abort();
}
