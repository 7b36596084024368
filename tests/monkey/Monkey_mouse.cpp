// What the monkey does with the mouse.

#include "tests/monkey/Monkey.h"

#include <QDrag>
#include <QMimeData>
#include <QScrollBar>
#include <QSplitter>
#include <memory>

#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/MyDocument.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXOutlineView.h"

namespace {

constexpr Qt::KeyboardModifiers::Int clickModifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                                         Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};

QString nameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    return QString::fromLatin1(widget.metaObject()->className()) + (name.isEmpty() ? QString() : ' ' + name);
}

QString placeOf(const QWidget& widget, const QPoint& spot) {
    return QStringLiteral("%1 in %2 at %3,%4")
        .arg(nameOf(widget), nameOf(*widget.window()))
        .arg(spot.x())
        .arg(spot.y());
}

}  // namespace

QWidget* Monkey::popularPlace() {
    const MyDocument* const used = document();
    if (used == nullptr) return nullptr;
    if (used->isSmallWindowShown()) {
        return random_.oneIn(3) ? static_cast<QWidget*>(used->miniModeAnswerField())
                                : used->miniModeformulaTextView()->viewport();
    }
    switch (random_.below(8)) {
        case 0:
        case 1: return used->formulaTextView()->viewport();
        case 2: return used->mainField()->viewport();
        case 3:
        case 4: return used->variableOutlineView()->viewport();
        case 5: return used->degreesRadiansSegmentedControl();
        case 6: return used->mySplitView()->handle(1);
        default: return used->secondarySplitView()->handle(1);
    }
}

QWidget* Monkey::anyPlace() {
    const QList<QWidget*> shown = windows();
    if (shown.isEmpty()) return nullptr;
    QWidget* const window = shown[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(shown.size())))];
    QList<QWidget*> places{window};
    for (QWidget* child : window->findChildren<QWidget*>()) {
        const bool isThere = child->isVisible() && child->window() == window;
        if (isThere && !child->testAttribute(Qt::WA_TransparentForMouseEvents)) places.append(child);
    }
    return places[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(places.size())))];
}

QWidget* Monkey::somewhere() {
    QWidget* const place = random_.oneIn(2) ? popularPlace() : anyPlace();
    return place != nullptr && place->isVisible() && place->window()->windowHandle() != nullptr ? place : nullptr;
}

QPoint Monkey::spotIn(const QWidget& widget) {
    const int left = random_.between(0, std::max(0, widget.width() - 1));
    return {left, random_.between(0, std::max(0, widget.height() - 1))};
}

void Monkey::moveOn(const QString& what, QWidget& widget) {
    const QPoint spot = spotIn(widget);
    journal_.begin(what + ' ' + placeOf(widget, spot));
    hands_.moveTo(widget, spot);
}

void Monkey::click() {
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    hands_.pause();
    moveOn("clicks on", *place);
    hands_.press(random_.oneIn(12) ? Qt::MiddleButton : Qt::LeftButton,
                 Qt::KeyboardModifiers::fromInt(random_.oneOf(clickModifiers)));
    hands_.release();
}

void Monkey::clickTwice() {
    click();
    for (int more = random_.between(1, 2); more > 0; --more) {
        later("clicks again", [this] {
            hands_.press(Qt::LeftButton);
            hands_.release();
        });
    }
}

// What opens then is used with the keyboard.
void Monkey::clickRight() {
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    hands_.pause();
    moveOn("clicks right on", *place);
    hands_.press(Qt::RightButton);
    hands_.release();
    if (random_.oneIn(3)) return;
    for (int steps = random_.between(1, 6); steps > 0; --steps) {
        later("Down", [this] { hands_.pressKey(Qt::Key_Down, QString()); });
    }
    later("Return", [this] { hands_.pressKey(Qt::Key_Return, QStringLiteral("\r")); });
}

void Monkey::drag() {
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    hands_.pause();
    moveOn("presses on", *place);
    hands_.press(Qt::LeftButton, Qt::KeyboardModifiers::fromInt(random_.oneOf(clickModifiers)));
    const QPointer<QWidget> source = place;
    for (int moves = random_.between(1, 4); moves > 0; --moves) {
        later("moves on", [this, source] {
            QWidget* const next = random_.oneIn(3) ? somewhere() : source.data();
            if (next == nullptr || !next->isVisible()) return;
            const QPoint spot = spotIn(*next);
            journal_.add("to " + placeOf(*next, spot));
            hands_.moveTo(*next, spot);
            if (source != nullptr) dropWhatIsDragged(*source);
        });
    }
    later("releases", [this] { hands_.release(); });
}

// The offscreen platform gives up every drag at once. What it carried falls somewhere all the same.
void Monkey::dropWhatIsDragged(QWidget& source) {
    const QDrag* const begun = source.window()->findChild<QDrag*>();
    if (begun == nullptr || begun->mimeData() == nullptr) return;
    QMimeData carried;
    for (const QString& format : begun->mimeData()->formats()) carried.setData(format, begun->mimeData()->data(format));
    hands_.release();
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    const QPoint spot = spotIn(*place);
    journal_.add("drops \"" + carried.text() + "\" on " + placeOf(*place, spot));
    hands_.moveTo(*place, spot);
    hands_.dragHere(carried, Qt::CopyAction, true);
}

void Monkey::turnWheel() {
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    moveOn("turns the wheel on", *place);
    const int angle = random_.between(-480, 480);
    const bool isSideways = random_.oneIn(6);
    hands_.turnWheel(isSideways ? QPoint(angle, 0) : QPoint(0, angle),
                     Qt::KeyboardModifiers::fromInt(random_.oneOf(clickModifiers)));
}

void Monkey::dropForeign() {
    QWidget* const place = somewhere();
    if (place == nullptr) return;
    const std::unique_ptr<QMimeData> data = texts_.mimeData();
    moveOn("drops \"" + data->text() + "\" on", *place);
    hands_.dragHere(*data, random_.oneIn(2) ? Qt::CopyAction : Qt::MoveAction, !random_.oneIn(5));
}
