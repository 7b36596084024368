// What the sidebar does when it is clicked, when keys are pressed in it, and when something of it is copied.

#include "ui/document/TXOutlineView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

#include "engine/records/TXVariable.h"
#include "ui/document/MyDocument.h"
#include "ui/document/OutlineAccessible.h"
#include "ui/document/OutlineRowDelegate.h"
#include "ui/document/TXVariableOutlineViewController.h"
#include "ui/document/engineText.h"

namespace {

constexpr int indentationOfLevel = 12;
constexpr QMargins viewportMargin(6, 6, 0, 6);  // At the end is the place of the scroll bar.

enum CopyTag { copyName = 0, copyValue = 1, copyNameAndValue = 2 };

QString nameOf(const TXVariable& variable) {
    const std::u16string_view name = variable.variableName();
    return stringOf(name);
}

bool isReturn(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

}  // namespace

TXOutlineView::TXOutlineView(QWidget* parent) : QTreeView(parent) {
    QAccessible::installFactory(&OutlineAccessible::make);
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    setUniformRowHeights(true);
    setIndentation(indentationOfLevel);
    setItemDelegate(new OutlineRowDelegate(this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setViewportMargins(viewportMargin);
    viewport()->setBackgroundRole(QPalette::Window);
    setDragEnabled(true);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::CopyAction);
    setDropIndicatorShown(false);
    connect(this, &QTreeView::expanded, this, &TXOutlineView::showFolding);
    connect(this, &QTreeView::collapsed, this, &TXOutlineView::leaveFolded);
    // After the toolkit has told that the tree as a whole has the focus.
    connect(this, &TXOutlineView::focusTaken, this, &TXOutlineView::tellFocusedRow, Qt::QueuedConnection);
}

TXOutlineView::~TXOutlineView() = default;

void TXOutlineView::awakeFromNib() {
    wrappingMenu_ = new QMenu("Variable Cache Menu", this);
    const std::pair<const char*, CopyTag> entries[] = {
        {"Copy Variable Name", copyName},
        {"Copy Formatted Variable Value", copyValue},
        {"Copy Variable Name And Formatted Value", copyNameAndValue},
    };
    for (const auto& [title, tag] : entries) {
        QAction* entry = wrappingMenu_->addAction(title);
        entry->setData(tag);
        connect(entry, &QAction::triggered, this, [this, entry] { copyVariableInfo(entry); });
    }
}

void TXOutlineView::setController(TXVariableOutlineViewController* controller) {
    controller_ = controller;
    setModel(controller);
}

void TXOutlineView::reloadData() {
    const int groups = controller_->rowCount();
    for (int row = 0; row < groups; ++row) {
        controller_->numberOfChildrenOfItem(controller_->itemAt(controller_->index(row, 0)));
    }
    updateChangedRows();
}

void TXOutlineView::expandItem(const QModelIndex& item, bool expandChildren) {
    if (item.isValid()) expand(item);
    if (!expandChildren) return;
    for (int row = 0; row < model()->rowCount(item); ++row) expand(model()->index(row, 0, item));
}

QModelIndex TXOutlineView::selectedIndex() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QModelIndex() : selected.first();
}

const TXVariable* TXOutlineView::selectedVariable() const { return controller_->variableAt(selectedIndex()); }

QMenu* TXOutlineView::menuForEvent(const QContextMenuEvent& event) {
    // A key means the selected row, wherever the pointer is.
    const bool isClick = event.reason() != QContextMenuEvent::Keyboard;
    const QModelIndex clicked = isClick ? indexAt(event.pos()) : QModelIndex();
    if (clicked.isValid()) selectionModel()->setCurrentIndex(clicked, QItemSelectionModel::ClearAndSelect);
    return selectedVariable() != nullptr ? wrappingMenu_ : nullptr;
}

void TXOutlineView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = menuForEvent(*event);
    if (menu == nullptr) return;
    if (event->reason() == QContextMenuEvent::Keyboard) {
        scrollTo(selectedIndex());
        menu->popup(viewport()->mapToGlobal(visualRect(selectedIndex()).bottomLeft()));
    } else {
        menu->popup(event->globalPos());
    }
}

void TXOutlineView::copyVariableInfo(const QAction* sender) {
    const TXVariable* variable = selectedVariable();
    if (variable == nullptr) return;
    QClipboard* pasteboard = QGuiApplication::clipboard();
    switch (sender->data().toInt()) {
        case copyName: pasteboard->setText(nameOf(*variable)); break;
        case copyValue: pasteboard->setText(controller_->formattedValueOf(*variable)); break;
        case copyNameAndValue:
            pasteboard->setText(nameOf(*variable) + u'=' + controller_->formattedValueOf(*variable));
            break;
        default: break;
    }
}

void TXOutlineView::copy() { copyVariableInfo(wrappingMenu_->actions().at(copyNameAndValue)); }

void TXOutlineView::mouseDown(QMouseEvent* event) {
    if (event->modifiers().testFlag(Qt::AltModifier)) controller_->prepareForSelectionWithOptionClick();
    const QModelIndex index = indexAt(event->pos());
    isPressTaken_ = true;
    if (foldingMarkRect(index).contains(event->pos())) {
        setExpanded(index, !isExpanded(index));
    } else if (!index.isValid() || controller_->shouldSelectItem(controller_->itemAt(index))) {
        isPressTaken_ = false;
        QTreeView::mousePressEvent(event);
    }
}

// The other buttons select nothing, and begin no drag: a right click selects when its menu opens.
void TXOutlineView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) mouseDown(event);
}

void TXOutlineView::mouseMoveEvent(QMouseEvent* event) {
    if (!isPressTaken_) QTreeView::mouseMoveEvent(event);
}

void TXOutlineView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (!isPressTaken_) QTreeView::mouseReleaseEvent(event);
    isPressTaken_ = false;
}

void TXOutlineView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QModelIndex index = indexAt(event->pos());
    if (event->modifiers().testFlag(Qt::AltModifier) || foldingMarkRect(index).contains(event->pos())) {
        mouseDown(event);
    } else {
        isPressTaken_ = true;
        enterNameOrFold(index);
    }
}

void TXOutlineView::enterNameOrFold(const QModelIndex& index) {
    if (const TXVariable* variable = controller_->variableAt(index)) {
        parentDocument_->insertTextIntoEnteringBox(nameOf(*variable));
    } else if (index.isValid()) {
        setExpanded(index, !isExpanded(index));
    }
}

// With a picture of the row; the tree's own drag would look for it among the rows that only it lays out.
void TXOutlineView::startDrag(Qt::DropActions supportedActions) {
    const QModelIndex index = selectedIndex();
    if (!index.isValid()) return;
    const QRect row = visualRect(index);
    auto* drag = new QDrag(this);
    drag->setMimeData(controller_->mimeData({index}));
    drag->setPixmap(viewport()->grab(row));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
    drag->exec(supportedActions, Qt::CopyAction);
}

// What types something is meant for the entry line: the tree would take + - and * for folding, and look for the rest.
void TXOutlineView::keyPressEvent(QKeyEvent* event) {
    if (parentDocument_->typeIntoEntry(event)) return;
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (isReturn(*event)) {
        enterNameOrFold(selectedIndex());
    } else {
        QAbstractItemView::keyPressEvent(event);  // NOLINT(bugprone-parent-virtual-call)
    }
}

// So a dead key that is pressed here can begin a character, too.
void TXOutlineView::inputMethodEvent(QInputMethodEvent* event) {
    if (parentDocument_ != nullptr) parentDocument_->composeIntoEntry(event);
}

QVariant TXOutlineView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return parentDocument_ != nullptr ? parentDocument_->inputMethodQueryOfEntry(query, *this)
                                      : QTreeView::inputMethodQuery(query);
}

QItemSelectionModel::SelectionFlags TXOutlineView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* event) const {
    // The mouse has asked already.
    const bool isKey = event != nullptr && event->type() == QEvent::KeyPress;
    if (isKey && index.isValid() && !controller_->shouldSelectItem(controller_->itemAt(index))) {
        return QItemSelectionModel::NoUpdate;
    }
    return QTreeView::selectionCommand(index, event);
}

void TXOutlineView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);  // NOLINT(bugprone-parent-virtual-call)
    emit copyAvailable(selectedVariable() != nullptr);
}

// The tree's own would speak of rows that only it lays out.
void TXOutlineView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
    tellFocusedRow();
}

void TXOutlineView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    emit focusTaken();
}

void TXOutlineView::tellFocusedRow() {
    if (!QAccessible::isActive() || !hasFocus()) return;
    const auto* outline = dynamic_cast<OutlineAccessible*>(QAccessible::queryAccessibleInterface(this));
    QAccessibleInterface* row = outline != nullptr ? outline->rowOf(currentIndex()) : nullptr;
    if (row == nullptr) return;
    QAccessibleEvent focused(row, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

bool TXOutlineView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) return showToolTip(*static_cast<QHelpEvent*>(event));
    return QTreeView::viewportEvent(event);
}

bool TXOutlineView::showToolTip(const QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    const QString text = index.data().toString();
    if (isElided(index, text)) {
        QToolTip::showText(event.globalPos(), OutlineRowDelegate::toolTipOf(text), viewport(), visualRect(index));
    } else {
        QToolTip::hideText();
    }
    return true;
}
