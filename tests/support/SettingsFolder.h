#pragma once

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

/// A folder of its own for the user defaults, as long as it lives.
class SettingsFolder {
public:
    SettingsFolder() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
        QDir(folder_.path()).mkpath("Tallix");
    }

    /// The file in which the user defaults are stored.
    QString filePath() const { return folder_.filePath("Tallix/tallix.conf"); }

    /// Puts a file there as somebody else could have written it.
    void write(const QByteArray& bytes) const {
        QFile file(filePath());
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
    }

    /// What is in the file; empty when there is none.
    QByteArray text() const {
        QFile file(filePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir folder_;
};
