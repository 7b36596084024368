// How large the full window shows its text.

#include "ui/document/MyDocument.h"

#include <QApplication>
#include <QSplitter>
#include <QWheelEvent>
#include <algorithm>
#include <memory>

#include "ui/UserDefaults.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXWindow.h"
#include "ui_MyDocument.h"

namespace {

constexpr auto textSizeKey = "textSize";
constexpr double entryPointSize = 15.0;
constexpr double percent = 0.01;

QFont sized(QFont font, double points) {
    font.setPointSizeF(points);
    return font;
}

int nearestTextSize(int wished) {
    const int size = std::clamp(wished, MyDocument::smallestTextSize, MyDocument::largestTextSize);
    return qRound(static_cast<double>(size) / MyDocument::textSizeStep) * MyDocument::textSizeStep;
}

}  // namespace

void MyDocument::takeTextSize() {
    normalLineHeight_ = formulaTextView()->sizeHint().height();
    const int stored = UserDefaults().interfaceValueForKey(textSizeKey).toInt();
    if (stored != 0) textSize_ = nearestTextSize(stored);
    showTextSize();
}

void MyDocument::rememberTextSize(UserDefaults* defaults) const { defaults->setInterfaceValue(textSize_, textSizeKey); }

// By which the entry's pane is higher than it is with the normal text.
int MyDocument::growthOfEntryLine() const { return formulaTextView()->sizeHint().height() - normalLineHeight_; }

void MyDocument::setTextSize(int wished) {
    const int size = nearestTextSize(wished);
    if (size == textSize_) return;
    const int growthBefore = growthOfEntryLine();
    textSize_ = size;
    UserDefaults defaults;
    rememberTextSize(&defaults);
    showTextSize();
    const int pane = secondaryControlledView()->height() + growthOfEntryLine() - growthBefore;
    const int rest = secondarySplitView()->height() - secondarySplitView()->handleWidth() - pane;
    secondarySplitView()->setSizes({std::max(0, rest), pane});
    emit textSizeChanged(size);
}

void MyDocument::showTextSize() {
    const double factor = textSize_ * percent;
    mainField()->setFont(sized(documentFont_, documentFont_.pointSizeF() * factor));
    formulaTextView()->setFont(sized(documentFont_, entryPointSize * factor));
    // At its normal size the sidebar follows the desktop's font, also when that changes.
    const double sidebarPoints = QFontInfo(QApplication::font(variableOutlineView())).pointSizeF();
    variableOutlineView()->setFont(textSize_ == normalTextSize ? QFont() : sized(QFont(), sidebarPoints * factor));
}

// Wheels and touch pads may tell a step in several parts.
bool MyDocument::changeTextSizeByWheel(const QWheelEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier)) return false;
    wheelMovement_ += event.angleDelta().y();
    const int steps = wheelMovement_ / QWheelEvent::DefaultDeltasPerStep;
    wheelMovement_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    setTextSize(textSize_ + steps * textSizeStep);
    return true;
}
