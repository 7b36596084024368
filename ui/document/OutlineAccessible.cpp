#include "ui/document/OutlineAccessible.h"

#include "ui/document/TXOutlineView.h"

namespace {

class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowAccessible(const OutlineAccessible& outline, const QModelIndex& index)
        : outline_(outline), view_(outline.view()), index_(index) {}

    const QPersistentModelIndex& index() const { return index_; }

    bool isValid() const override { return index_.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_.window()->windowHandle(); }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QAccessibleInterface* parent() const override {
        QAccessibleInterface* group = outline_.rowOf(index_.parent());
        return group != nullptr ? group : QAccessible::queryAccessibleInterface(&view_);
    }

    int childCount() const override { return view_.isExpanded(index_) ? view_.model()->rowCount(index_) : 0; }

    QAccessibleInterface* child(int index) const override {
        return index < childCount() ? outline_.rowOf(view_.model()->index(index, 0, index_)) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = dynamic_cast<const RowAccessible*>(child);
        return row != nullptr && row->index().parent() == index_ ? row->index().row() : -1;
    }

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
        state.expandable = isGroup();
        state.expanded = isGroup() && view_.isExpanded(index_);
        state.collapsed = isGroup() && !view_.isExpanded(index_);
        state.invisible = !view_.viewport()->rect().intersects(view_.visualRect(index_));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {isGroup() ? toggleAction() : pressAction()}; }

    void doAction(const QString& name) override {
        if (index_.isValid() && actionNames().contains(name)) view_.enterNameOrFold(index_);
    }

    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    bool isGroup() const { return !index_.parent().isValid(); }

    const OutlineAccessible& outline_;
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
    auto* row = new RowAccessible(*this, index);
    rows_.insert(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

int OutlineAccessible::childCount() const { return view_.model() != nullptr ? view_.model()->rowCount() : 0; }

QAccessibleInterface* OutlineAccessible::child(int index) const {
    return index < childCount() ? rowOf(view_.model()->index(index, 0)) : nullptr;
}

int OutlineAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const RowAccessible*>(child);
    return row != nullptr && !row->index().parent().isValid() ? row->index().row() : -1;
}

QAccessibleInterface* OutlineAccessible::childAt(int x, int y) const {
    return rowOf(view_.indexAt(view_.viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* OutlineAccessible::focusChild() const {
    return view_.hasFocus() ? rowOf(view_.currentIndex()) : nullptr;
}
