#include "ui/document/OutlineAccessible.h"

#include "ui/document/TXOutlineView.h"

namespace {

class RowAccessible : public QAccessibleInterface {
public:
    RowAccessible(TXOutlineView& view, const QModelIndex& index) : view_(view), index_(index) {}

    const QPersistentModelIndex& index() const { return index_; }

    bool isValid() const override { return index_.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_.window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&view_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? index_.data().toString() : QString();
    }

    QRect rect() const override {
        const QRect rect = view_.visualRect(index_);
        return {view_.viewport()->mapToGlobal(rect.topLeft()), rect.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.selectable = true;
        state.focused = view_.hasFocus() && view_.currentIndex() == index_;
        state.selected = view_.selectionModel()->isSelected(index_);
        state.expandable = !index_.parent().isValid();
        state.expanded = state.expandable && view_.isExpanded(index_);
        state.collapsed = state.expandable && !view_.isExpanded(index_);
        state.invisible = !view_.viewport()->rect().intersects(view_.visualRect(index_));
        return state;
    }

private:
    TXOutlineView& view_;
    QPersistentModelIndex index_;
};

}  // namespace

OutlineAccessible::OutlineAccessible(TXOutlineView& view) : QAccessibleWidget(&view, QAccessible::Tree), view_(view) {}

OutlineAccessible::~OutlineAccessible() {
    for (const QAccessible::Id id : rows_) QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* OutlineAccessible::make(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<TXOutlineView*>(object);
    return view != nullptr ? new OutlineAccessible(*view) : nullptr;
}

QAccessibleInterface* OutlineAccessible::rowOf(const QModelIndex& index) const {
    if (!index.isValid()) return nullptr;
    const auto known = rows_.constFind(index);
    if (known != rows_.constEnd()) return QAccessible::accessibleInterface(*known);
    auto* row = new RowAccessible(view_, index);
    rows_.insert(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

int OutlineAccessible::childCount() const { return view_.numberOfRows(); }

QAccessibleInterface* OutlineAccessible::child(int index) const { return rowOf(view_.indexAtRow(index)); }

int OutlineAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const RowAccessible*>(child);
    return row != nullptr ? view_.rowOf(row->index()) : -1;
}

QAccessibleInterface* OutlineAccessible::childAt(int x, int y) const {
    return rowOf(view_.indexAt(view_.viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* OutlineAccessible::focusChild() const {
    return view_.hasFocus() ? rowOf(view_.currentIndex()) : nullptr;
}
