#include "terminal/Options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <system_error>

#include <boost/program_options.hpp>

#include "terminal/utf8.h"

namespace {

namespace po = boost::program_options;

/// Wrong usage; its text is for the user.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct NamedFormat {
    std::string_view name;
    std::int8_t type;
};

constexpr std::array<NamedFormat, 7> formats = {{
    {"decimal", TXFormattingType::decimal},
    {"scientific", TXFormattingType::scientific},
    {"engineering", TXFormattingType::engineering},
    {"percent", TXFormattingType::percent},
    {"binary", TXFormattingType::binary},
    {"octal", TXFormattingType::octal},
    {"hexadecimal", TXFormattingType::hexadecimal},
}};

std::int8_t formatNamed(std::string_view name) {
    std::string names;
    for (const NamedFormat& format : formats) {
        if (format.name == name) return format.type;
        if (!names.empty()) names += ", ";
        names += format.name;
    }
    throw UsageError("the argument for option '--format' must be one of " + names);
}

std::int8_t numberWithin(const std::string& option, std::string_view text, int lowest, int highest) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && rest == end && number >= lowest && number <= highest) {
        return static_cast<std::int8_t>(number);
    }
    throw UsageError("the argument for option '" + option + "' must be a number from " + std::to_string(lowest) +
                     " to " + std::to_string(highest));
}

std::u16string separatorNamed(std::string_view text) {
    if (text == "," || text == " " || text == "'") return toUtf16(text);
    throw UsageError("the argument for option '--thousands' must be a comma, a blank or an apostrophe");
}

// Choosing one of the two clears the other in the settings, so one that is still there was asked for as well.
void refuseBothDigitChoices(std::int8_t other) {
    if (other != TXNumberFormatterSettings::automatic) {
        throw UsageError("the options '--significant-figures' and '--decimal-places' exclude each other");
    }
}

struct KnownOption {
    const char* name;
    bool takesValue;
    void (*apply)(Options& options, const std::string& value);
};

constexpr std::array<KnownOption, 9> knownOptions = {{
    {"degrees", false, [](Options& options, const std::string&) { options.session.useRadians = false; }},
    {"format", true,
     [](Options& options, const std::string& value) { options.session.numbers.setFormattingType(formatNamed(value)); }},
    {"significant-figures", true,
     [](Options& options, const std::string& value) {
         const std::int8_t figures = numberWithin("--significant-figures", value, 1, 10);
         refuseBothDigitChoices(options.session.numbers.decimalPlaces());
         options.session.numbers.setSignificantFigures(figures);
     }},
    {"decimal-places", true,
     [](Options& options, const std::string& value) {
         const std::int8_t places = numberWithin("--decimal-places", value, 0, 10);
         refuseBothDigitChoices(options.session.numbers.significantFigures());
         options.session.numbers.setDecimalPlaces(places);
     }},
    {"thousands", true,
     [](Options& options, const std::string& value) {
         options.session.numbers.setThousandsCharacter(separatorNamed(value));
         options.session.numbers.setThousandsSeparators(true);
     }},
    {"no-zeros", false,
     [](Options& options, const std::string&) { options.session.numbers.setAddZerosInDecimalMode(false); }},
    {"history", false, [](Options& options, const std::string&) { options.session.showsHistory = true; }},
    {"help", false, [](Options& options, const std::string&) { options.action = Options::Action::showHelp; }},
    {"version", false, [](Options& options, const std::string&) { options.action = Options::Action::showVersion; }},
}};

// Without short options "-x+3" is no option but an argument, and without guessing "--h" is none.
std::vector<po::option> divided(const std::vector<std::string>& arguments) {
    po::options_description descriptions;
    for (const KnownOption& option : knownOptions) {
        if (option.takesValue) {
            descriptions.add_options()(option.name, po::value<std::string>(), "");
        } else {
            descriptions.add_options()(option.name, "");
        }
    }
    namespace style = po::command_line_style;
    return po::command_line_parser(arguments)
        .options(descriptions)
        .style(style::allow_long | style::long_allow_adjacent | style::long_allow_next)
        .run()
        .options;
}

void apply(const po::option& argument, Options& options) {
    const std::string value = argument.value.empty() ? std::string() : argument.value.front();
    if (argument.string_key.empty()) {
        options.equations.push_back(value);
        return;
    }
    const auto* const option =
        std::find_if(knownOptions.begin(), knownOptions.end(),
                     [&argument](const KnownOption& known) { return known.name == argument.string_key; });
    option->apply(options, value);
}

// The library's own texts have places for a name, which it looks for again after each one that it has filled in. A name
// that is itself such a place would keep it busy for ever, so where the name may be any, the text is ours.
std::string complaintOf(const po::error& error) {
    if (const auto* const unknown = dynamic_cast<const po::unknown_option*>(&error)) {
        return "unrecognised option '" + unknown->get_option_name() + "'";
    }
    const auto* const wrong = dynamic_cast<const po::invalid_command_line_syntax*>(&error);
    if (wrong != nullptr && wrong->kind() == po::invalid_command_line_syntax::empty_adjacent_parameter) {
        return "the argument for option '" + wrong->get_option_name() +
               "' should follow immediately after the equal sign";
    }
    return error.what();
}

Options complaining(std::string complaint) {
    Options options;
    options.action = Options::Action::complain;
    options.complaint = std::move(complaint);
    return options;
}

}  // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    try {
        Options options;
        for (const po::option& argument : divided(arguments)) {
            apply(argument, options);
            // Who asks for help gets it, whatever comes after.
            if (options.action != Action::calculate) break;
        }
        return options;
    } catch (const po::error& error) {
        return complaining(complaintOf(error));
    } catch (const UsageError& error) {
        return complaining(error.what());
    }
}
