#pragma once

#include "terminal/Options.h"

/// The exit statuses of the program.
namespace exitStatus {
inline constexpr int answered = 0;    ///< Every line was answered.
inline constexpr int failed = 1;      ///< A line gave an error, or reading or writing failed.
inline constexpr int wrongUsage = 2;  ///< The command line was not understood.
}  // namespace exitStatus

/// Does what the options ask, with standard input, standard output and standard error, and gives the exit status.
int runProgram(const Options& options);
