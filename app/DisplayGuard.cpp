#include "app/DisplayGuard.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

struct HeldMessage {
    QtMsgType type;
    QByteArray category;
    QString text;
};

QList<HeldMessage>& heldMessages() {
    static QList<HeldMessage> messages;
    return messages;
}

}  // namespace

DisplayGuard::DisplayGuard() : previous_(qInstallMessageHandler(take)) {}

DisplayGuard::~DisplayGuard() {
    qInstallMessageHandler(previous_);
    const QList<HeldMessage> messages = std::exchange(heldMessages(), {});
    for (const HeldMessage& message : messages) {
        const QMessageLogContext context(nullptr, 0, nullptr, message.category.constData());
        qt_message_output(message.type, context, message.text);
    }
}

QString DisplayGuard::complaint(const QStringList& reasons) {
    QString text = QStringLiteral("tallix: No display could be opened, so there is no place for its window.\n");
    for (const QString& reason : reasons) text += QStringLiteral("    %1\n").arg(reason.simplified());
    return text + QStringLiteral("In a terminal, 'tallix-cli' calculates without a display.\n");
}

// Nothing is cleaned up: the QApplication is only half there.
void DisplayGuard::take(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) {
        heldMessages().append({type, context.category, text});
        return;
    }
    QStringList reasons;
    for (const HeldMessage& message : std::as_const(heldMessages())) reasons.append(message.text);
    const QByteArray complaintText = complaint(reasons).toLocal8Bit();
    static_cast<void>(std::fputs(complaintText.constData(), stderr));
    std::_Exit(EXIT_FAILURE);
}
