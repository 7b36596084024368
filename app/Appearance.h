#pragma once

#include <QObject>
#include <QPalette>
#include <QTimer>

class ColorScheme;

/// The colours of the whole program: the desktop's, or light or dark ones as the user chose.
///
/// A desktop that gives its programs a palette keeps it, unless the user chose the other brightness. Many give none,
/// and only say whether they are dark.
class Appearance : public QObject {
    Q_OBJECT

public:
    enum class Choice { followSystem, light, dark };

    /// Shows the stored choice. The scheme is that of the desktop, and not owned; it must outlive the appearance.
    explicit Appearance(const ColorScheme& scheme);
    /// Gives the program its colours of before back.
    ~Appearance() override;

    /// What is stored; anything else means that the system is followed.
    static Choice storedChoice();
    /// Stores the choice and shows it in all windows.
    void setChoice(Choice choice);

    static QPalette lightPalette();
    static QPalette darkPalette();

protected:
    /// Follows the desktop's palette.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void readDesktopsPalette();
    void show();

    const ColorScheme& scheme_;
    QPalette desktopsPalette_;
    QTimer reading_;  ///< Runs out once all windows know of another palette.
};
