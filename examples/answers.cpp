// Answers each argument, all in one session: ./answers 'r=2.5' 'pi*r^2' 'ans/0'
#include <cstdio>
#include <string>
#include <string_view>

#include "engine/controller/TXEquationController.h"
#include "format/TXNumberFormatter.h"

int main(int argc, char** argv) {
    TXEquationController controller;
    TXNumberFormatter formatter;
    for (int i = 1; i < argc; ++i) {
        const std::string_view line = argv[i];
        // Equations are UTF-16 inside; these are plain ASCII.
        const TXResult* const result = controller.addOneStringBlindly(std::u16string(line.begin(), line.end()));
        if (result == nullptr) continue;  // The line was blank.
        const std::u16string text =
            result->isErrorMessage() ? result->errorMessage() : formatter.formattedNumberForNumber(result->number());
        std::puts(std::string(text.begin(), text.end()).c_str());
    }
}
