#pragma once

#include <QString>

class QWidget;

/// Says, in front of `window`, that something could not be opened. The address can be selected and copied.
void showCannotOpen(QWidget* window, const QString& message, const QString& address);

/// Shows the About box in front of `window`.
void showAbout(QWidget* window);
