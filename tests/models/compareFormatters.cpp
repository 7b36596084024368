#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

#include "format/TXNumberFormatter.h"
#include "format/TXNumberFormatterSettings.h"
#include "tests/models/DoubleSource.h"
#include "tests/models/PlainFormatter.h"
#include "tests/models/Random.h"
#include "tests/models/models.h"
#include "tests/support/text.h"

namespace {

constexpr int typeCount = 7;
constexpr int percentType = 4;
constexpr int firstRadixType = 5;
constexpr unsigned digitChoices = 22;

/// Kinds of text, counted so that a run can show that it met every one.
enum class Form : unsigned char { plain, separated, exponent, percent, radix, floored, negative, notFinite };

constexpr std::array<std::string_view, 8> formNames{
    "plain text", "text with separators", "text with an exponent", "text with a percent sign",
    "radix text", "floored radix text",   "text with a sign",      "text of what is not finite"};

class ComparedFormatters {
public:
    explicit ComparedFormatters(std::uint64_t seed) : random_(seed), source_(random_) {}

    /// Whether all texts of the next double are the same; else the difference was printed.
    bool compareNext() {
        const std::size_t kind = random_.below(DoubleSource::kinds.size());
        const double number = source_.next(kind);
        const PlainFormatter model(number);
        ++kinds_.at(kind);
        if (model.hadNoise()) ++noisy_;
        for (int type = 1; type <= typeCount; ++type) {
            std::u16string expected;
            for (unsigned choice = 0; choice < digitChoices; ++choice) {
                chooseStyle(type, choice);
                // The whole number in another base has one text, whatever else is chosen.
                if (type < firstRadixType || choice == 0) expected = model.text(style_);
                if (!compare(number, expected)) return false;
            }
        }
        return true;
    }

    /// The counts. Whether each kind of double and each form of text occurred.
    bool printCounts(std::ostream& out) const {
        bool areAllThere = noisy_ != 0;
        const auto print = [&](std::uint64_t count, std::string_view name) {
            out << std::setw(10) << count << "  " << name << "\n";
            areAllThere = areAllThere && count != 0;
        };
        for (std::size_t at = 0; at < kinds_.size(); ++at) print(kinds_.at(at), DoubleSource::kinds.at(at));
        print(noisy_, "of them cleaned of noise");
        print(texts_, "texts");
        for (std::size_t at = 0; at < forms_.size(); ++at) print(forms_.at(at), formNames.at(at));
        return areAllThere;
    }

private:
    // Digits and types are gone through; zeros, separators and the two characters without effect are drawn.
    void chooseStyle(int type, unsigned choice) {
        constexpr std::array<std::u16string_view, 8> separators{u",", u" ", u"'", u".", u"\u2009", u"", u"e", u", "};
        constexpr std::array<std::u16string_view, 3> characters{u".", u",", u"E"};
        const bool separates = random_.oneIn(2);
        const std::u16string_view separator = random_.oneOf(separators);
        style_.type = type;
        style_.figures = choice >= 1 && choice <= 10 ? static_cast<int>(choice) : -1;
        style_.places = choice >= 11 ? static_cast<int>(choice) - 11 : -1;
        style_.addsZeros = random_.oneIn(2);
        style_.separator = separates ? separator : std::u16string_view();

        settings_.setFormattingType(static_cast<std::int8_t>(type));
        settings_.setDigitsWithSettingsControllerIndex(choice);
        settings_.setAddZerosInDecimalMode(style_.addsZeros);
        settings_.setThousandsSeparators(separates);
        settings_.setThousandsCharacter(separator);
        settings_.setDecimalCharacter(random_.oneOf(characters));
        settings_.setExponentCharacter(random_.oneOf(characters));
    }

    bool compare(double number, const std::u16string& expected) {
        const std::u16string text = formatter_.formattedNumberForNumber(number);
        ++texts_;
        countForms(expected);
        if (text == expected) return true;
        std::cout << "DIFFERENT: the double of bits " << std::hex << std::bit_cast<std::uint64_t>(number) << std::dec
                  << ", about " << std::setprecision(17) << number << ", as\n  " << utf8(settings_.description())
                  << ", addZerosInDecimalMode=" << style_.addsZeros << "\n  formatter: " << utf8(text)
                  << "\n  model:     " << utf8(expected) << "\n";
        return false;
    }

    void countForms(std::u16string_view text) {
        const auto has = [text](std::u16string_view part) { return text.find(part) != std::u16string_view::npos; };
        const auto count = [this](Form form) { ++forms_.at(static_cast<std::size_t>(form)); };
        if (has(u"n")) return count(Form::notFinite);
        if (text.front() == u'-') count(Form::negative);
        if (style_.type >= firstRadixType) return count(has(u"(") ? Form::floored : Form::radix);
        if (style_.type == percentType) count(Form::percent);
        const bool hasExponent = text.find_last_of(u'e') != std::u16string_view::npos;
        if (hasExponent && style_.separator != u"e") return count(Form::exponent);
        count(!style_.separator.empty() && has(style_.separator) ? Form::separated : Form::plain);
    }

    Random random_;
    DoubleSource source_;
    TXNumberFormatterSettings settings_;
    TXNumberFormatter formatter_{&settings_};
    PlainStyle style_;
    std::array<std::uint64_t, DoubleSource::kinds.size()> kinds_{};
    std::array<std::uint64_t, formNames.size()> forms_{};
    std::uint64_t noisy_ = 0;
    std::uint64_t texts_ = 0;
};

}  // namespace

bool compareFormatters(std::uint64_t count, std::uint64_t seed) {
    ComparedFormatters formatters(seed);
    for (std::uint64_t done = 0; done < count; ++done) {
        if (formatters.compareNext()) continue;
        std::cout << "It is double " << done + 1 << " of seed " << seed << ".\n";
        return false;
    }
    std::cout << "formatter: " << count << " doubles, seed " << seed << ", no difference\n";
    const bool areAllThere = formatters.printCounts(std::cout);
    if (!areAllThere) std::cout << "Some kind never occurred.\n";
    return areAllThere;
}
