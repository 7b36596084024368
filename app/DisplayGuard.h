#pragma once

#include <QStringList>
#include <QtGlobal>

/// Watches over the start of Qt's windows, from before the QApplication is made until it is there.
///
/// Where no display can be opened, Qt would end the program with a core dump. This says what is missing on standard
/// error and ends it with a failure. What Qt tells meanwhile is held back, and told when all goes well.
class DisplayGuard {
public:
    DisplayGuard();
    ~DisplayGuard();
    DisplayGuard(const DisplayGuard&) = delete;
    DisplayGuard& operator=(const DisplayGuard&) = delete;

    /// What is said where `reasons` are all that Qt has told.
    static QString complaint(const QStringList& reasons);

private:
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler previous_;
};
