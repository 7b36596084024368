// The sidebar with the variables, and the panes of the full window when its size changes.

#include "ui/document/MyDocument.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "ui/document/SplitView.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXVariableOutlineViewController.h"
#include "ui/document/TXWindow.h"
#include "ui_MyDocument.h"

namespace {

constexpr float firstColumnWidth = 181.0F;
constexpr float lowestDivider = 3.0F;

/// Puts the divider between the two panes at `position`, or as near to it as they let it.
void setDividerPosition(QSplitter& splitView, float position) {
    const int extent = splitView.orientation() == Qt::Horizontal ? splitView.width() : splitView.height();
    const int first = qRound(position);
    splitView.setSizes({first, std::max(0, extent - first - splitView.handleWidth())});
}

}  // namespace

void MyDocument::prepareSidebar() {
    variableOutlineViewController_ = std::make_unique<TXVariableOutlineViewController>();
    variableOutlineViewController_->setParentDocument(this);
    variableOutlineViewController_->setVariableOutlineView(variableOutlineView());
    variableOutlineViewController_->awakeFromNib();
    variableOutlineView()->setParentDocument(this);
    variableOutlineView()->setController(variableOutlineViewController_.get());
    variableOutlineView()->awakeFromNib();
    mySplitView()->installEventFilter(this);
    mySplitView()->setSizes({qRound(currentWidth_), documentWindow_->width()});
    ui_->mySplitView->divider()->setAccessibleName(tr("Sidebar width"));
    ui_->secondarySplitView->divider()->setAccessibleName(tr("Entry height"));
    for (const SplitView* view : {ui_->mySplitView, ui_->secondarySplitView}) view->divider()->installEventFilter(this);
}

void MyDocument::showSidebarForTheFirstTime() {
    variableOutlineView()->setColumnWidth(0, qRound(firstColumnWidth));
    reloadSidebar();
    variableOutlineView()->expandItem(QModelIndex(), true);
}

void MyDocument::reloadSidebar() { variableOutlineView()->reloadData(); }

bool MyDocument::isSidebarShown() const { return !controlledView()->isHidden(); }

void MyDocument::setSidebarShown(bool isShown) {
    if (isShown == isSidebarShown()) return;
    const bool hadFocus = variableOutlineView()->hasFocus() || ui_->mySplitView->divider()->hasFocus();
    if (!isShown) currentWidth_ = static_cast<float>(controlledView()->width());
    controlledView()->setVisible(isShown);
    if (hadFocus && !isShown) formulaTextView()->setFocus();
}

void MyDocument::moveToNextDivider() {
    if (isSmallWindowShown_) return;
    QWidget* const sidebarDivider = ui_->mySplitView->divider();
    QWidget* const entryDivider = ui_->secondarySplitView->divider();
    if (entryDivider->hasFocus()) {
        formulaTextView()->setFocus();
    } else if (isSidebarShown() && !sidebarDivider->hasFocus()) {
        sidebarDivider->setFocus();
    } else {
        entryDivider->setFocus();
    }
}

// What moves no divider is meant for the entry line, or only leads back there.
bool MyDocument::leaveDividerByKey(QKeyEvent* event) const {
    const int key = event->key();
    const bool isDone = key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (isDone) formulaTextView()->setFocus();
    return isDone || typeIntoEntry(event);
}

QSize MyDocument::windowWillResize(const QWidget& /*window*/, QSize toSize) {
    if (isSmallWindowShown_) return {toSize.width(), miniWindow()->height()};
    // A sidebar that is hidden keeps the width that it will come back with.
    if (isSidebarShown()) currentWidth_ = static_cast<float>(controlledView()->width());
    secondaryCurrentWidth_ = static_cast<float>(secondaryControlledView()->height());
    return toSize;
}

void MyDocument::windowDidResize() {
    if (isSmallWindowShown_) return;
    setDividerPosition(*mySplitView(), currentWidth_);
    const auto height = static_cast<float>(secondarySplitView()->height());
    const auto thickness = static_cast<float>(secondarySplitView()->handleWidth());
    secondaryCurrentWidth_ = std::max(lowestDivider, height - secondaryCurrentWidth_ - thickness);
    setDividerPosition(*secondarySplitView(), secondaryCurrentWidth_);
}

// The split view is told of its new size before it moves its panes, and the window of its own after its layout is done.
// While a window is only being built, its panes have no sizes yet that are worth keeping.
void MyDocument::followResizing(const QObject* watched) {
    if (watched == mySplitView() && secondaryControlledView()->isVisible()) {
        windowWillResize(*documentWindow_, documentWindow_->size());
        isBeingResized_ = true;
    } else if (watched == documentWindow_.get() && std::exchange(isBeingResized_, false)) {
        windowDidResize();
    }
}

TXOutlineView* MyDocument::variableOutlineView() const { return ui_->variableOutlineView; }

QSplitter* MyDocument::mySplitView() const { return ui_->mySplitView; }

QWidget* MyDocument::controlledView() const { return ui_->controlledView; }

QSplitter* MyDocument::secondarySplitView() const { return ui_->secondarySplitView; }

QWidget* MyDocument::secondaryControlledView() const { return ui_->secondaryControlledView; }

bool MyDocument::currentlySearchingVariableTable() const {
    return variableOutlineViewController_->currentlySearchingVariableTable();
}

const QString& MyDocument::currentVariableSearchString() const {
    return variableOutlineViewController_->currentVariableSearchString();
}

std::uint16_t MyDocument::currentVariable() const { return variableOutlineViewController_->currentVariable(); }
