#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

class TXOutlineView;

/// The sidebar for screen readers and the like: a tree whose children are the rows that are not folded away.
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

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    TXOutlineView& view_;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> rows_;  ///< Of those that were asked for.
};
