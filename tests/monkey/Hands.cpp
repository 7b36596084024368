#include "tests/monkey/Hands.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QWheelEvent>

#include <QtTest/QTest>

namespace {

void tellKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
    QWindow* const window = QGuiApplication::focusWindow();
    if (window != nullptr) qt_handleKeyEvent(window, type, key, modifiers, text);
}

/// Whether a click gives the window the keyboard.
bool takesKeyboard(const QWindow& window) {
    const bool isShort = window.type() == Qt::Popup || window.type() == Qt::ToolTip;
    return !isShort && !window.isActive() && !window.flags().testFlag(Qt::WindowDoesNotAcceptFocus);
}

constexpr std::pair<Qt::KeyboardModifier, Qt::Key> modifierKeys[] = {
    {Qt::ShiftModifier, Qt::Key_Shift}, {Qt::ControlModifier, Qt::Key_Control}, {Qt::AltModifier, Qt::Key_Alt}};

}  // namespace

void Hands::pressKey(int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    Qt::KeyboardModifiers pressed;
    for (const auto& [modifier, modifierKey] : modifierKeys) {
        if (!modifiers.testFlag(modifier)) continue;
        tellKey(QEvent::KeyPress, modifierKey, pressed);
        pressed |= modifier;
    }
    tellKey(QEvent::KeyPress, key, modifiers, text);
    tellKey(QEvent::KeyRelease, key, modifiers, text);
    for (const auto& [modifier, modifierKey] : modifierKeys) {
        if (!modifiers.testFlag(modifier)) continue;
        tellKey(QEvent::KeyRelease, modifierKey, pressed);
        pressed &= ~Qt::KeyboardModifiers(modifier);
    }
}

void Hands::tellMouse(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    time_ += shortPause;
    if (window_ == nullptr) return;
    qt_handleMouseEvent(window_, window_->mapFromGlobal(global_), global_, held_, button, type, modifiers, time_);
}

void Hands::moveTo(QWidget& widget, const QPoint& place) {
    if (!holdsButton() || window_ == nullptr) window_ = widget.window()->windowHandle();
    global_ = widget.mapToGlobal(QPointF(place));
    tellMouse(QEvent::MouseMove, Qt::NoButton, Qt::NoModifier);
}

void Hands::press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    if (holdsButton()) return;
    held_ = button;
    if (window_ != nullptr && takesKeyboard(*window_)) window_->requestActivate();
    tellMouse(QEvent::MouseButtonPress, button, modifiers);
}

void Hands::release() {
    const Qt::MouseButton button = held_;
    held_ = Qt::NoButton;
    if (button != Qt::NoButton) tellMouse(QEvent::MouseButtonRelease, button, Qt::NoModifier);
}

void Hands::turnWheel(const QPoint& angle, Qt::KeyboardModifiers modifiers) {
    if (window_ == nullptr) return;
    QWheelEvent event(window_->mapFromGlobal(global_), global_, QPoint(), angle, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window_, &event);
}

void Hands::dragHere(const QMimeData& data, Qt::DropAction action, bool drops) {
    if (window_ == nullptr) return;
    const QPointF place = window_->mapFromGlobal(global_);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(place.toPoint(), actions, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(action);
    QCoreApplication::sendEvent(window_, &enter);
    if (window_ == nullptr) return;
    QDragMoveEvent move(place.toPoint(), actions, &data, Qt::LeftButton, Qt::NoModifier);
    move.setDropAction(action);
    QCoreApplication::sendEvent(window_, &move);
    if (window_ == nullptr) return;
    if (drops && move.isAccepted()) {
        QDropEvent drop(place, actions, &data, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(action);
        QCoreApplication::sendEvent(window_, &drop);
    } else {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(window_, &leave);
    }
}

void Hands::compose(const QString& preedit, const QString& commit) {
    QObject* const focused = QGuiApplication::focusObject();
    if (focused == nullptr) return;
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(focused, &event);
}
