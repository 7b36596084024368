#include "app/Appearance.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

#include "app/ColorScheme.h"
#include "ui/UserDefaults.h"
#include "ui/document/contrast.h"

namespace {

constexpr auto choiceKey = "colors";
constexpr auto lightValue = "light";
constexpr auto darkValue = "dark";
constexpr auto systemValue = "system";

struct RoleColors {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

// The light ones are Fusion's, but for highlight, links and placeholders, which it makes too pale to be read easily.
// clang-format off
constexpr RoleColors roles[] = {
    {QPalette::Window,          0xEFEFEF, 0x36363A},
    {QPalette::WindowText,      0x000000, 0xF0F0F2},
    {QPalette::Base,            0xFFFFFF, 0x222226},
    {QPalette::AlternateBase,   0xF7F7F7, 0x2A2A2E},
    {QPalette::Text,            0x000000, 0xF0F0F2},
    {QPalette::Button,          0xEFEFEF, 0x46464B},
    {QPalette::ButtonText,      0x000000, 0xF0F0F2},
    {QPalette::BrightText,      0xFFFFFF, 0xFFFFFF},
    {QPalette::ToolTipBase,     0xFFFFDC, 0x46464B},
    {QPalette::ToolTipText,     0x000000, 0xF0F0F2},
    {QPalette::Link,            0x1F5FBF, 0x8AB4F8},
    {QPalette::LinkVisited,     0x7A3FA8, 0xC9A6F5},
    {QPalette::Highlight,       0x2173B4, 0x2F6FC4},
    {QPalette::HighlightedText, 0xFFFFFF, 0xFFFFFF},
    {QPalette::PlaceholderText, 0x6B6B70, 0xA0A0A6},
    {QPalette::Light,           0xFFFFFF, 0x5A5A60},
    {QPalette::Midlight,        0xCACACA, 0x4A4A4F},
    {QPalette::Mid,             0xB8B8B8, 0x5C5C62},
    {QPalette::Dark,            0x9F9F9F, 0x202023},
    {QPalette::Shadow,          0x767676, 0x000000},
};

constexpr RoleColors disabledRoles[] = {
    {QPalette::WindowText,      0xBEBEBE, 0x7E7E84},
    {QPalette::Text,            0xBEBEBE, 0x7E7E84},
    {QPalette::ButtonText,      0xBEBEBE, 0x7E7E84},
    {QPalette::Base,            0xEFEFEF, 0x36363A},
    {QPalette::Highlight,       0x919191, 0x55555A},
    {QPalette::HighlightedText, 0xFFFFFF, 0xC0C0C4},
};
// clang-format on

QPalette paletteOf(QRgb RoleColors::*brightness) {
    QPalette palette;
    for (const RoleColors& colors : roles) palette.setColor(colors.role, QColor(colors.*brightness));
    for (const RoleColors& colors : disabledRoles) {
        palette.setColor(QPalette::Disabled, colors.role, QColor(colors.*brightness));
    }
    return palette;
}

bool isDarkPalette(const QPalette& palette) { return isDark(palette.color(QPalette::Window)); }

/// The palette for a choice. An empty one leaves the desktop its own.
QPalette paletteFor(Appearance::Choice choice, const QPalette& desktops, bool isSchemeDark) {
    // What is the style's own was given by no desktop.
    const bool isGiven = desktops != QApplication::style()->standardPalette();
    const bool isDesktopDark = isGiven ? isDarkPalette(desktops) : isSchemeDark;
    const bool wantsDark =
        choice == Appearance::Choice::followSystem ? isDesktopDark : choice == Appearance::Choice::dark;
    if (isGiven && wantsDark == isDesktopDark) return {};
    return wantsDark ? Appearance::darkPalette() : Appearance::lightPalette();
}

}  // namespace

Appearance::Appearance(const ColorScheme& scheme) : scheme_(scheme) {
    connect(&scheme, &ColorScheme::changed, this, &Appearance::show);
    QCoreApplication::instance()->installEventFilter(this);
    reading_.setSingleShot(true);
    connect(&reading_, &QTimer::timeout, this, &Appearance::readDesktopsPalette);
    readDesktopsPalette();
}

Appearance::~Appearance() { QApplication::setPalette(QPalette()); }

Appearance::Choice Appearance::storedChoice() {
    const QString value = UserDefaults().interfaceValueForKey(choiceKey).toString();
    if (value == lightValue) return Choice::light;
    return value == darkValue ? Choice::dark : Choice::followSystem;
}

void Appearance::setChoice(Choice choice) {
    const auto valueOf = [](Choice one) {
        if (one == Choice::followSystem) return systemValue;
        return one == Choice::light ? lightValue : darkValue;
    };
    UserDefaults().setInterfaceValue(QString(valueOf(choice)), choiceKey);
    show();
}

QPalette Appearance::lightPalette() { return paletteOf(&RoleColors::light); }

QPalette Appearance::darkPalette() { return paletteOf(&RoleColors::dark); }

// Every window tells of a change, which is to be taken over once, when all have.
bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ThemeChange) reading_.start();
    return QObject::eventFilter(watched, event);
}

// It is seen as long as no other one is shown.
void Appearance::readDesktopsPalette() {
    QApplication::setPalette(QPalette());
    desktopsPalette_ = QApplication::palette();
    show();
}

void Appearance::show() { QApplication::setPalette(paletteFor(storedChoice(), desktopsPalette_, scheme_.isDark())); }
