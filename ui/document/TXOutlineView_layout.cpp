// Where the rows of the sidebar are, how they are painted, and how one gets from one to the other.

#include "ui/document/TXOutlineView.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/document/OutlineRowDelegate.h"

namespace {

constexpr int roomInRow = 4;
constexpr int roomBesideColumn = 19;  // For the margin before it, and for the scroll bar when it comes.

}  // namespace

int TXOutlineView::shownMembers(const QModelIndex& group) const {
    return isExpanded(group) ? model()->rowCount(group) : 0;
}

int TXOutlineView::numberOfRows() const {
    if (model() == nullptr) return 0;
    int rows = 0;
    for (int i = 0; i < model()->rowCount(); ++i) rows += 1 + shownMembers(model()->index(i, 0));
    return rows;
}

QModelIndex TXOutlineView::indexAtRow(int row) const {
    if (model() == nullptr || row < 0) return {};
    for (int i = 0; i < model()->rowCount(); ++i) {
        const QModelIndex group = model()->index(i, 0);
        const int members = shownMembers(group);
        if (row == 0) return group;
        if (row <= members) return model()->index(row - 1, 0, group);
        row -= 1 + members;
    }
    return {};
}

int TXOutlineView::rowOf(const QModelIndex& index) const {
    if (!index.isValid()) return -1;
    const QModelIndex group = index.parent().isValid() ? index.parent() : index;
    if (group != index && !isExpanded(group)) return -1;
    int row = group == index ? 0 : 1 + index.row();
    for (int i = 0; i < group.row(); ++i) row += 1 + shownMembers(model()->index(i, 0));
    return row;
}

int TXOutlineView::rowHeight() const { return fontMetrics().height() + roomInRow; }

int TXOutlineView::rowAtHeight(int y) const {
    const int height = y + verticalOffset();
    return height < 0 ? -1 : height / rowHeight();
}

QRect TXOutlineView::rowRect(int row) const {
    return {0, row * rowHeight() - verticalOffset(), viewport()->width(), rowHeight()};
}

QRect TXOutlineView::visualRect(const QModelIndex& index) const {
    const int row = rowOf(index);
    if (row < 0) return {};
    const int left = indentation() * (index.parent().isValid() ? 2 : 1);
    QRect rect = rowRect(row);
    rect.setLeft(left);
    rect.setRight(std::max(left, columnWidth(0)) - 1);
    return QStyle::visualRect(layoutDirection(), viewport()->rect(), rect);
}

QRect TXOutlineView::foldingMarkRect(const QModelIndex& index) const {
    if (!index.isValid() || index.parent().isValid()) return {};
    QRect rect = rowRect(rowOf(index));
    rect.setWidth(indentation());
    return QStyle::visualRect(layoutDirection(), viewport()->rect(), rect);
}

QModelIndex TXOutlineView::indexAt(const QPoint& point) const { return indexAtRow(rowAtHeight(point.y())); }

int TXOutlineView::verticalOffset() const { return verticalScrollBar()->value(); }

void TXOutlineView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int row = rowOf(index);
    if (row < 0) return;
    const int top = row * rowHeight();
    const int lowest = top;
    const int highest = top + rowHeight() - viewport()->height();
    QScrollBar* bar = verticalScrollBar();
    switch (hint) {
        case PositionAtTop: bar->setValue(lowest); break;
        case PositionAtBottom: bar->setValue(highest); break;
        case PositionAtCenter: bar->setValue((lowest + highest) / 2); break;
        case EnsureVisible: bar->setValue(std::max(highest, std::min(bar->value(), lowest))); break;
    }
}

void TXOutlineView::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

void TXOutlineView::doItemsLayout() {
    QAbstractItemView::doItemsLayout();  // NOLINT(bugprone-parent-virtual-call)
}

void TXOutlineView::rowsInserted(const QModelIndex& parent, int start, int end) {
    QAbstractItemView::rowsInserted(parent, start, end);  // NOLINT(bugprone-parent-virtual-call)
    showFolding();
}

void TXOutlineView::showFolding() {
    updateGeometries();
    updateChangedRows();
}

std::size_t TXOutlineView::numberOfRowsInSight() const {
    return static_cast<std::size_t>(std::max(0, rowAtHeight(viewport()->height() - 1) - rowAtHeight(0) + 1));
}

TXOutlineView::SeenRow TXOutlineView::seenRow(int row) const {
    const QModelIndex index = indexAtRow(row);
    if (!index.isValid()) return {};
    return {index.data().toString(), !index.parent().isValid(), isExpanded(index), selectionModel()->isSelected(index),
            hasFocus() && index == currentIndex()};
}

void TXOutlineView::updateChangedRows() {
    if (seenOffset_ != verticalOffset() || seenRows_.size() != numberOfRowsInSight()) {
        viewport()->update();
        return;
    }
    int row = rowAtHeight(0);
    for (const std::optional<SeenRow>& seen : seenRows_) {
        if (seen != seenRow(row)) viewport()->update(rowRect(row));
        ++row;
    }
}

void TXOutlineView::noteSeen(const QRegion& painted) {
    const std::size_t rows = numberOfRowsInSight();
    if (seenOffset_ != verticalOffset() || seenRows_.size() != rows) {
        seenOffset_ = verticalOffset();
        seenRows_.assign(rows, std::nullopt);
    }
    int row = rowAtHeight(0);
    for (std::optional<SeenRow>& seen : seenRows_) {
        const QRect rect = rowRect(row) & viewport()->rect();
        if (painted.intersects(rect)) {
            SeenRow now = seenRow(row);
            const bool isWhole = QRegion(rect).subtracted(painted).isEmpty();
            if (seen != now) seen = isWhole ? std::optional(std::move(now)) : std::nullopt;
        }
        ++row;
    }
}

// What is folded away is neither selected nor current.
void TXOutlineView::leaveFolded(const QModelIndex& group) {
    if (selectionModel()->currentIndex().parent() == group) {
        selectionModel()->setCurrentIndex(group, QItemSelectionModel::NoUpdate);
    }
    if (selectedIndex().parent() == group) selectionModel()->clearSelection();
    showFolding();
}

void TXOutlineView::updateGeometries() {
    QScrollBar* bar = verticalScrollBar();
    bar->setSingleStep(rowHeight());
    bar->setPageStep(viewport()->height());
    bar->setRange(0, std::max(0, numberOfRows() * rowHeight() - viewport()->height()));
    QAbstractItemView::updateGeometries();  // NOLINT(bugprone-parent-virtual-call)
}

void TXOutlineView::resizeEvent(QResizeEvent* event) {
    setColumnWidth(0, std::max(0, std::min(width() - roomBesideColumn, viewport()->width())));
    QAbstractItemView::resizeEvent(event);
}

void TXOutlineView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        showFolding();
        viewport()->update();
    }
}

void TXOutlineView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int end = std::min(numberOfRows(), rowAtHeight(event->rect().bottom()) + 1);
    for (int row = std::max(0, rowAtHeight(event->rect().top())); row < end; ++row) {
        if (event->region().intersects(rowRect(row))) drawRow(&painter, option, indexAtRow(row));
    }
    noteSeen(event->region());
}

void TXOutlineView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    row.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    row.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    if (!index.parent().isValid()) {
        QStyleOptionViewItem mark = row;
        mark.rect = foldingMarkRect(index);
        mark.state.setFlag(QStyle::State_Selected, false);
        mark.state |= QStyle::State_Item | QStyle::State_Children;
        mark.state.setFlag(QStyle::State_Open, isExpanded(index));
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &mark, painter, this);
    }
    row.rect = visualRect(index);
    itemDelegate()->paint(painter, row, index);
}

QModelIndex TXOutlineView::parentOrFold(const QModelIndex& index) {
    if (index.parent().isValid()) return index.parent();
    collapse(index);
    return index;
}

QModelIndex TXOutlineView::memberOrUnfold(const QModelIndex& index) {
    if (isExpanded(index) && model()->rowCount(index) > 0) return model()->index(0, 0, index);
    expand(index);
    return index;
}

QModelIndex TXOutlineView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
    const int last = numberOfRows() - 1;
    const int row = rowOf(currentIndex());
    if (row < 0) return indexAtRow(std::min(0, last));
    const int rowsInSight = std::max(1, viewport()->height() / rowHeight() - 1);
    const bool isReversed = isRightToLeft();
    switch (action) {
        case MoveUp:
        case MovePrevious: return indexAtRow(std::max(0, row - 1));
        case MoveDown:
        case MoveNext: return indexAtRow(std::min(last, row + 1));
        case MovePageUp: return indexAtRow(std::max(0, row - rowsInSight));
        case MovePageDown: return indexAtRow(std::min(last, row + rowsInSight));
        case MoveHome: return indexAtRow(0);
        case MoveEnd: return indexAtRow(last);
        case MoveLeft: return isReversed ? memberOrUnfold(currentIndex()) : parentOrFold(currentIndex());
        case MoveRight: return isReversed ? parentOrFold(currentIndex()) : memberOrUnfold(currentIndex());
    }
    return {};
}

// One row at a time can be selected.
void TXOutlineView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const QModelIndex index = indexAt(rect.topLeft());
    selectionModel()->select(index.isValid() ? QItemSelection(index, index) : QItemSelection(), command);
}

QRegion TXOutlineView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QModelIndex& index : selection.indexes()) region += visualRect(index);
    return region;
}

bool TXOutlineView::isElided(const QModelIndex& index, const QString& text) const {
    if (!index.isValid()) return false;
    return OutlineRowDelegate::isElided(text, index.parent().isValid() ? font() : OutlineRowDelegate::titleFont(font()),
                                        visualRect(index).width(), *this);
}
