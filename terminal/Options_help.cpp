#include "terminal/Options.h"

std::string_view Options::helpText() {
    return R"(Usage: tallix-cli [OPTION]... [EQUATION]...

A calculator for the terminal. It answers the equations given as arguments or,
without any, the lines of standard input; on a terminal it asks for them. All
of them share one session with its variables and its latest answer, `ans`.

Numbers:
  --format FORMAT           how answers are written: decimal, scientific,
                            engineering, percent, binary, octal, hexadecimal
                            (decimal)
  --significant-figures N   round answers to N figures, 1 to 10
  --decimal-places N        round answers to N digits after the point, 0 to 10
  --no-zeros                do not fill up decimal places with zeros
  --thousands CHARACTER     separate groups of three digits by a comma, a blank
                            or an apostrophe
  --degrees                 angles are in degrees, not in radians

Output:
  --history                 show each equation with its answer below
  --help                    show this help and stop
  --version                 show the version and stop

An argument that begins with "--" is an option; every other one is an equation,
and so is everything after "--". The options for numbers change how answers are
shown, never what is calculated, except --degrees.

Examples:
  tallix-cli '2+3*4'                           14
  tallix-cli x=3 'x^2' ans+1                   x = 3, then 9, then 10
  tallix-cli --degrees 'sin(30)'               0.5
  tallix-cli --decimal-places 2 10/4           2.50
  tallix-cli --format hexadecimal 0b11111111   0xFF
  tallix-cli --thousands , 2^20                1,048,576
  tallix-cli < equations.txt                   an answer for each line

On a terminal, Tab completes names, the arrow keys bring back earlier lines, an
operator typed first goes on from `ans`, and Ctrl+D ends the session. NO_COLOR
in the environment turns the colours off.

Exit status: 0 when every line was answered, 1 when one gave an error or when
reading or writing failed, 2 for wrong usage.
)";
}

std::string_view Options::versionText() { return "tallix-cli " TALLIX_VERSION "\n"; }
