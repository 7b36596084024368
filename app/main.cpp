#include <QApplication>
#include <QLocale>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "app/Application.h"
#include "app/DisplayGuard.h"
#include "app/FontReading.h"
#include "app/LaunchOptions.h"
#include "app/StartChannel.h"

namespace {

namespace exitStatus {
constexpr int success = 0;
constexpr int failed = 1;
constexpr int wrongUsage = 2;
}  // namespace exitStatus

int show(std::string_view text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!isWritten) std::perror("tallix");
    return isWritten ? exitStatus::success : exitStatus::failed;
}

int complain(const std::string& complaint) {
    const std::string text = "tallix: " + complaint + "\nTry 'tallix --help'.\n";
    static_cast<void>(std::fputs(text.c_str(), stderr));
    return exitStatus::wrongUsage;
}

/// The arguments for Qt: the program's name alone, so that it finds no options of its own.
struct ToolkitArguments {
    explicit ToolkitArguments(char* programName) : values{programName, nullptr} {}

    int count = 1;
    char* values[2];
};

int runApplication(const LaunchOptions& options, char* programName) {
    Application::introduce();
    StartChannel channel(options.isNewProcess ? QString() : StartChannel::placeInEnvironment());
    if (channel.handOver(qgetenv("XDG_ACTIVATION_TOKEN"))) return exitStatus::success;
    auto fonts = std::make_optional<FontReading>();
    ToolkitArguments arguments(programName);
    std::optional<DisplayGuard> guard(std::in_place);
    const QApplication toolkit(arguments.count, static_cast<char**>(arguments.values));
    guard.reset();
    QGuiApplication::setLayoutDirection(QLocale::system().textDirection());
    Application application;
    application.listen(channel);
    fonts.reset();
    application.start();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const LaunchOptions options = LaunchOptions::parse({argv + (argc > 0 ? 1 : 0), argv + argc});
    switch (options.action) {
        case LaunchOptions::Action::showHelp: return show(LaunchOptions::helpText());
        case LaunchOptions::Action::showVersion: return show(LaunchOptions::versionText());
        case LaunchOptions::Action::complain: return complain(options.complaint);
        case LaunchOptions::Action::run: break;
    }
    std::string programName = "tallix";
    return runApplication(options, argc > 0 ? argv[0] : programName.data());
}
