// What the monkey does with the keyboard.

#include "tests/monkey/Monkey.h"

#include <QApplication>
#include <utility>

#include <QtTest/QTest>

namespace {

constexpr Qt::Key specialKeys[] = {
    Qt::Key_Return,     Qt::Key_Return,    Qt::Key_Enter,   Qt::Key_Backspace, Qt::Key_Delete,   Qt::Key_Left,
    Qt::Key_Right,      Qt::Key_Up,        Qt::Key_Down,    Qt::Key_Home,      Qt::Key_End,      Qt::Key_PageUp,
    Qt::Key_PageDown,   Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Escape,    Qt::Key_Insert,   Qt::Key_F1,
    Qt::Key_F3,         Qt::Key_F6,        Qt::Key_F8,      Qt::Key_F10,       Qt::Key_F11,      Qt::Key_Space,
    Qt::Key_Menu,       Qt::Key_Shift,     Qt::Key_Control, Qt::Key_Alt,       Qt::Key_CapsLock, Qt::Key_Help,
    Qt::Key_Dead_Acute, Qt::Key_Multi_key, Qt::Key_unknown, Qt::Key_F16,       Qt::Key_VolumeUp, Qt::Key_Back,
    Qt::Key_Clear,      Qt::Key_Undo,      Qt::Key_Paste,   Qt::Key_Select,
};

constexpr Qt::KeyboardModifiers::Int modifierSets[] = {
    Qt::NoModifier,
    Qt::NoModifier,
    Qt::NoModifier,
    Qt::ShiftModifier,
    Qt::ControlModifier,
    Qt::AltModifier,
    Qt::KeypadModifier,
    Qt::ShiftModifier | Qt::ControlModifier,
    Qt::ControlModifier | Qt::AltModifier,
};

constexpr int longRest = 200;  // milliseconds

constexpr Qt::Key keysForWindow[] = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Up,    Qt::Key_Down, Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Tab,    Qt::Key_Space, Qt::Key_Home, Qt::Key_End,
};

QString textOf(Qt::Key key) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return QStringLiteral("\r");
        case Qt::Key_Tab: return QStringLiteral("\t");
        case Qt::Key_Backspace: return QStringLiteral("\b");
        case Qt::Key_Escape: return QStringLiteral("\x1B");
        case Qt::Key_Delete: return QStringLiteral("\x7F");
        case Qt::Key_Space: return QStringLiteral(" ");
        default: return {};
    }
}

int keyOf(const QString& character) {
    return character.size() == 1 && character.front().unicode() >= 0x20 ? character.front().toUpper().unicode()
                                                                        : static_cast<int>(Qt::Key_unknown);
}

}  // namespace

void Monkey::typeFast(const QString& text) {
    later("types " + text, [this, text] {
        for (const QChar character : text) hands_.pressKey(keyOf(QString(character)), QString(character));
    });
}

void Monkey::typeLine() {
    const QString line = texts_.line();
    journal_.begin("plans the line " + line);
    if (!random_.oneIn(3))
        later("Ctrl+A", [this] { hands_.pressKey(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier); });
    const int atOnce = random_.between(1, 12);
    for (qsizetype start = 0; start < line.size(); start += atOnce) typeFast(line.mid(start, atOnce));
    if (!random_.oneIn(8)) later("Return", [this] { hands_.pressKey(Qt::Key_Return, QStringLiteral("\r")); });
}

void Monkey::typeFragment() {
    const QString text = random_.oneIn(4) ? texts_.character() : texts_.fragment();
    journal_.begin("types " + text);
    if (random_.oneIn(2)) {
        for (const QChar character : text) hands_.pressKey(keyOf(QString(character)), QString(character));
    } else {
        hands_.pressKey(Qt::Key_unknown, text);
    }
}

void Monkey::typeSpecialKey() {
    const Qt::Key key = random_.oneOf(specialKeys);
    const auto modifiers = Qt::KeyboardModifiers::fromInt(random_.oneOf(modifierSets));
    journal_.begin("presses " + QKeySequence(QKeyCombination(modifiers, key)).toString());
    hands_.pressKey(key, textOf(key), modifiers);
}

// Ctrl+Q is among the menu's entries, where it is rare.
void Monkey::pressShortcut() {
    static constexpr char keys[] = "ZZYXCVVAFGKLNOPSTWMIBDE1230+-=,/.UHJR";
    const int key = random_.oneOf(std::string_view(keys));
    auto modifiers = Qt::KeyboardModifiers(random_.oneIn(5) ? Qt::AltModifier : Qt::ControlModifier);
    if (random_.oneIn(4)) modifiers |= Qt::ShiftModifier;
    journal_.begin("presses " + QKeySequence(QKeyCombination(modifiers, Qt::Key(key))).toString());
    hands_.pressKey(key, QString(), modifiers);
}

void Monkey::composeText() {
    const QString preedit = random_.oneIn(2) ? texts_.character() : QString();
    const QString commit = random_.oneIn(2) ? texts_.fragment() : QString();
    journal_.begin(QStringLiteral("composes \"%1\" and commits \"%2\"").arg(preedit, commit));
    Hands::compose(preedit, commit);
}

// Long enough for what only shows itself when nobody types.
void Monkey::rest() {
    journal_.begin(QStringLiteral("rests"));
    QTest::qWait(longRest);
}

void Monkey::pressKeyForWindow() {
    const Qt::Key key = random_.oneOf(keysForWindow);
    journal_.begin("answers with " + QKeySequence(key).toString());
    hands_.pressKey(key, textOf(key));
}
