#include "tests/monkey/Journal.h"

#include <QtGlobal>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

constexpr std::size_t eventsKept = 60;
constexpr unsigned int longestEvent = 60;  // seconds

Journal* present = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void print(std::FILE* out, const QString& line) {
    static_cast<void>(std::fputs((line + u'\n').toUtf8().constData(), out));
    static_cast<void>(std::fflush(out));
}

/// What the platform without a screen says of itself, and what is said of the fonts that are installed, whatever
/// program shows them.
bool isAboutMachine(const QString& message) {
    return message.startsWith(QLatin1String("This plugin does not support ")) ||
           message.contains(QLatin1String("OpenType support missing for "));
}

void takeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg || isAboutMachine(message)) return;
    if (present != nullptr) present->fail("the toolkit warns: " + message);
    print(stderr, message);
}

void printBeforeDeath() {
    if (present != nullptr) present->printLastEvents();
}

void dieLate(int /*signal*/) {
    if (present != nullptr) present->fail(QStringLiteral("an event takes more than a minute"));
}

}  // namespace

Journal::Journal(std::uint64_t seed, bool isTraced) : seed_(seed), isTraced_(isTraced) {
    present = this;
    qInstallMessageHandler(takeMessage);
    static_cast<void>(std::signal(SIGALRM, dieLate));
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(printBeforeDeath);
#else
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL}) {
        static_cast<void>(std::signal(signal, [](int fatal) {
            static_cast<void>(std::signal(fatal, SIG_DFL));
            printBeforeDeath();
            static_cast<void>(std::raise(fatal));
        }));
    }
#endif
}

Journal::~Journal() {
    alarm(0);
    qInstallMessageHandler(nullptr);
    present = nullptr;
}

void Journal::begin(const QString& event) {
    alarm(longestEvent);
    ++eventsBegun_;
    lastEvents_.push_back(QStringLiteral("%1 %2").arg(eventsBegun_).arg(event));
    if (lastEvents_.size() > eventsKept) lastEvents_.pop_front();
    if (isTraced_) print(stdout, lastEvents_.back());
}

void Journal::add(const QString& detail) {
    if (lastEvents_.empty()) return;
    lastEvents_.back() += ' ' + detail;
    if (isTraced_) print(stdout, "  " + detail);
}

void Journal::printLastEvents() const {
    print(stderr, QStringLiteral("The last events:"));
    for (const QString& event : lastEvents_) print(stderr, "  " + event);
    print(stderr, QStringLiteral("Again: tallix-monkey --seed %1 --events %2").arg(seed_).arg(eventsBegun_ + 1));
}

void Journal::fail(const QString& complaint) const {
    print(stderr, "tallix-monkey: " + complaint);
    printLastEvents();
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_print_stack_trace();
#endif
    std::_Exit(EXIT_FAILURE);
}
