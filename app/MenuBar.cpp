#include "app/MenuBar.h"

#include <QKeyEvent>

void MenuBar::open() {
    if (!actions().isEmpty()) setActiveAction(actions().first());
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
    // With this event the bar would begin to wait for the release.
    const bool isKey = event->type() == QEvent::ShortcutOverride;
    if (isKey && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) return false;
    return QMenuBar::eventFilter(watched, event);
}
