#pragma once

#include <QtGlobal>

/// Keeps Qt's own messages off standard error as long as it lives, for what the program tells in its own way.
class SilencedMessages {
public:
    SilencedMessages()
        : previous_(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    ~SilencedMessages() { qInstallMessageHandler(previous_); }
    SilencedMessages(const SilencedMessages&) = delete;
    SilencedMessages& operator=(const SilencedMessages&) = delete;

private:
    QtMessageHandler previous_;
};
