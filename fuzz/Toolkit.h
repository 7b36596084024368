#pragma once

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>
#include <memory>

/// Qt without a display, for targets that need windows. Its settings live in a folder that goes with the program.
class Toolkit {
public:
    /// There is one, made with the first input. It never goes: at the program's end, what it needs would be gone
    /// before.
    static void prepare() {
        // In memory where there is such a folder, since whatever is stored waits for the disk.
        const QString memory = QStringLiteral("/dev/shm");
        const QString folder = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
        static const QTemporaryDir settings(folder + QStringLiteral("/tallix-fuzz-XXXXXX"));
        static const Toolkit* const toolkit = std::make_unique<Toolkit>(settings.path()).release();
        static_cast<void>(toolkit);
    }

    explicit Toolkit(const QString& settings)
        : isPrepared_(prepareEnvironment()), application_(count_, static_cast<char**>(names_)) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings);
        QCoreApplication::setOrganizationName(QStringLiteral("Tallix"));
        QCoreApplication::setApplicationName(QStringLiteral("tallix"));
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }

private:
    static bool prepareEnvironment() {
        QLocale::setDefault(QLocale::c());
        return qputenv("QT_QPA_PLATFORM", "offscreen") && qputenv("DBUS_SESSION_BUS_ADDRESS", "none:");
    }

    char name_[8] = "tallix";
    char* names_[2] = {name_, nullptr};
    int count_ = 1;
    bool isPrepared_;
    QApplication application_;
};
