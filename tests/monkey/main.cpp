// Somebody who knows nothing uses the whole program, and whatever happens is checked:
// tallix-monkey [--events N] [--seed S] [--trace].

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QTemporaryDir>
#include <cstdio>

#include "tests/monkey/Run.h"

namespace {

constexpr int wrongUsage = 2;

struct Wishes {
    std::uint64_t events = 10'000;
    std::uint64_t seed = 1;
    bool isTraced = false;
    bool isUnderstood = true;
};

Wishes wishesOf(const QStringList& arguments) {
    Wishes wishes;
    for (qsizetype i = 1; i < arguments.size() && wishes.isUnderstood; ++i) {
        if (arguments[i] == u"--trace") {
            wishes.isTraced = true;
        } else if ((arguments[i] == u"--events" || arguments[i] == u"--seed") && i + 1 < arguments.size()) {
            auto& number = arguments[i] == u"--events" ? wishes.events : wishes.seed;
            number = arguments[++i].toULongLong(&wishes.isUnderstood);
        } else {
            wishes.isUnderstood = false;
        }
    }
    return wishes;
}

/// Nothing of the user's is read or changed: neither the settings nor the desktop, and no printer is found.
void leaveHome(const QString& folder) {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(name, folder.toLocal8Bit());
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", "none:");
    qputenv("CUPS_SERVER", (folder + "/no-printers").toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_HASH_SEED", "0");  // The same order of everything, every time.
    QDir::setCurrent(folder);
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    leaveHome(folder.path());
    QLocale::setDefault(QLocale::c());
    introduceProgram();
    const QApplication toolkit(argc, argv);
    const Wishes wishes = wishesOf(QCoreApplication::arguments());
    if (!wishes.isUnderstood) {
        static_cast<void>(std::fputs("Usage: tallix-monkey [--events N] [--seed S] [--trace]\n", stderr));
        return wrongUsage;
    }
    Run run(wishes.seed, wishes.events, wishes.isTraced);
    run.start();
    return 0;
}
