#pragma once

#include <QMimeData>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <QWindow>

/// Keyboard and mouse, on the level of windows: what a window system would tell the toolkit, which then finds
/// shortcuts, popups, modal windows, grabs and the widget that is meant. Time is counted and not measured.
class Hands {
public:
    /// Presses and releases a key with its modifiers in the window that has the keyboard; nothing where none has.
    void pressKey(int key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Moves the pointer there, and what is held with it.
    void moveTo(QWidget& widget, const QPoint& place);
    /// Presses a button where the pointer is. The window has the mouse until the button is released.
    void press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void release();
    bool holdsButton() const { return held_ != Qt::NoButton; }
    /// Waits until another press would be no double click any more.
    void pause() { time_ += longPause; }
    /// Turns the wheel by so many eighths of a degree.
    void turnWheel(const QPoint& angle, Qt::KeyboardModifiers modifiers);

    /// Brings what another program offers to where the pointer is, and lets it fall there if `drops`.
    void dragHere(const QMimeData& data, Qt::DropAction action, bool drops);

    /// Text of an input method, composed and perhaps committed, for what has the focus.
    static void compose(const QString& preedit, const QString& commit);

private:
    static constexpr int longPause = 1000;
    static constexpr int shortPause = 20;

    void tellMouse(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    QPointer<QWindow> window_;  ///< Under the pointer, or the one that has the mouse.
    QPointF global_;
    Qt::MouseButton held_ = Qt::NoButton;
    int time_ = 0;  ///< Milliseconds.
};
