#include "tests/support/keys.h"

#include <map>

#include <QtTest/QTest>

namespace {

struct Key {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

const Key* keyFor(QChar symbol) {
    static const std::map<char16_t, Key> keys = {
        {u'⏎', {Qt::Key_Return}},
        {u'⌤', {Qt::Key_Enter, Qt::KeypadModifier}},
        {u'⌫', {Qt::Key_Backspace}},
        {u'⇥', {Qt::Key_Tab}},
        {u'⎋', {Qt::Key_Escape}},
        {u'⇑', {Qt::Key_Up, Qt::AltModifier}},
        {u'⇓', {Qt::Key_Down, Qt::AltModifier}},
        {u'↑', {Qt::Key_Up}},
        {u'↓', {Qt::Key_Down}},
        {u'←', {Qt::Key_Left}},
        {u'→', {Qt::Key_Right}},
        {u'↖', {Qt::Key_Home}},
        {u'⇞', {Qt::Key_PageUp}},
        {u'⇟', {Qt::Key_PageDown}},
        {u'⇧', {Qt::Key_Shift}},
        {u'⌥', {Qt::Key_Alt}},
        {u'⌃', {Qt::Key_Control}},
        {u'⇪', {Qt::Key_CapsLock}},
        {u'⇭', {Qt::Key_NumLock}},
        {u'⌘', {Qt::Key_A, Qt::ControlModifier}},
    };
    const auto found = keys.find(symbol.unicode());
    return found == keys.end() ? nullptr : &found->second;
}

}  // namespace

void pressKeys(QWidget* widget, QStringView keys) {
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (keys.mid(i).startsWith(u"⇧⏎")) {
            QTest::keyClick(widget, Qt::Key_Return, Qt::ShiftModifier);
            ++i;
        } else if (const Key* key = keyFor(keys[i])) {
            QTest::keyClick(widget, key->key, key->modifiers);
        } else if (keys[i].unicode() < 0x80) {
            QTest::keyClick(widget, keys[i].toLatin1());
        } else {
            QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(keys[i]), Qt::NoModifier);
        }
    }
}
