#include "ui/document/TXMenuItem.h"

TXMenuItem::TXMenuItem(const QString& text, QObject* parent) : QAction(text, parent) { setEnabledOverride(false); }

void TXMenuItem::setEnabledOverride(bool isEnabled) {
    enabledOverride_ = isEnabled;
    setEnabled(validateMenuItem(this));
}

bool TXMenuItem::validateMenuItem(const QAction* /*item*/) const { return enabledOverride_; }
