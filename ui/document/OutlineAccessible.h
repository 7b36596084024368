#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

class TXOutlineView;

/// The sidebar for screen readers and the like: a tree with the groups, which have their members as children as long as
/// they are unfolded. A row's action does what Return does: it types the variable's name, or folds and unfolds.
class OutlineAccessible : public QAccessibleWidget {
public:
    explicit OutlineAccessible(TXOutlineView& view);
    ~OutlineAccessible() override;
    OutlineAccessible(const OutlineAccessible&) = delete;
    OutlineAccessible& operator=(const OutlineAccessible&) = delete;

    /// Makes one for a TXOutlineView, nothing for anything else: to be installed once.
    static QAccessibleInterface* make(const QString& className, QObject* object);

    /// What stands for the row; it stays the same as long as the row is there.
    QAccessibleInterface* rowOf(const QModelIndex& index) const;
    TXOutlineView& view() const { return view_; }

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    TXOutlineView& view_;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> rows_;  ///< Of those that were asked for.
};
