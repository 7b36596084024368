#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects what the toolkit warns of as long as it lives. One at a time.
class Warnings {
public:
    Warnings() : before_(qInstallMessageHandler(&Warnings::take)) { messages().clear(); }
    ~Warnings() { qInstallMessageHandler(before_); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    static QStringList& messages() {
        static QStringList collected;
        return collected;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
        if (type != QtDebugMsg && type != QtInfoMsg) messages().append(message);
    }

    QtMessageHandler before_;
};
