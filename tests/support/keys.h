#pragma once

#include <QStringView>
#include <QWidget>

/// Presses one key after the other in `widget`. Characters are typed as they are; these stand for other keys:
///
///     ⏎ Return          ⇧⏎ Shift+Return       ⌤ the keypad's Enter     ⌫ Backspace      ⇥ Tab
///     ⇑ Alt+Up          ⇓ Alt+Down             ↑ ↓ ← → the arrows      ↖ Home           ⎋ Esc
///     ⇧ Shift alone     ⌥ Alt alone            ⌃ Control alone         ⇪ Caps Lock      ⇭ Num Lock
///     ⌘ Ctrl+A              ⇞ ⇟ Page Up, Page Down
void pressKeys(QWidget* widget, QStringView keys);
