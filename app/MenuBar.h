#pragma once

#include <QMenuBar>

/// A menu bar that leaves the keyboard where it is when Alt is pressed and released alone, since Alt begins so many
/// keys of the entry line. F10 opens it, and Alt with a letter.
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    using QMenuBar::QMenuBar;

    /// Opens the first menu.
    void open();

    bool eventFilter(QObject* watched, QEvent* event) override;
};
