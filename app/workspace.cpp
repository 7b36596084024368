#include "app/workspace.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <utility>

#include "ui/SilencedMessages.h"

namespace {

std::function<bool(const QUrl&)>& replacement() {
    static std::function<bool(const QUrl&)> function;
    return function;
}

}  // namespace

bool openInWorkspace(const QUrl& address) {
    if (replacement()) return replacement()(address);
    // The desktop would take a file that is not there, and fail later on.
    if (address.isLocalFile() && !QFileInfo::exists(address.toLocalFile())) return false;
    const SilencedMessages silenced;
    return QDesktopServices::openUrl(address);
}

void setWorkspace(std::function<bool(const QUrl&)> opener) { replacement() = std::move(opener); }

QString bundlePath() {
#ifdef Q_OS_MACOS
    const QString fromExecutable = QStringLiteral("../..");
#else
    const QString fromExecutable = QStringLiteral("../lib/tallix");
#endif
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + fromExecutable);
}
