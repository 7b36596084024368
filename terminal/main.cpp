#include <csignal>
#include <cstdio>
#include <exception>

#include "terminal/Options.h"
#include "terminal/Program.h"

int main(int argc, char** argv) {
    // A reader that goes away, or a file that reaches its limit, is seen where it is written to.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return runProgram(Options::parse({argv + (argc > 0 ? 1 : 0), argv + argc}));
    } catch (const std::exception& error) {
        // Memory that ran out, most likely.
        std::fprintf(stderr, "tallix-cli: %s\n", error.what());
        return exitStatus::failed;
    }
}
