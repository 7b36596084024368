#pragma once

#include "tests/support/DocumentTest.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXVariableOutlineViewController.h"

/// A new document with its sidebar, whose rows are found by their texts.
struct Sidebar : OpenDocument {
    TXOutlineView* view() const { return document.variableOutlineView(); }
    TXVariableOutlineViewController& controller() const { return *document.variableOutlineViewController(); }

    /// The texts of all rows that are not folded away; members are indented by a blank.
    QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < view()->numberOfRows(); ++row) {
            const QModelIndex index = view()->indexAtRow(row);
            texts.append((index.parent().isValid() ? " " : "") + index.data().toString());
        }
        return texts;
    }

    /// The row whose text begins so; not valid where there is none.
    QModelIndex row(const QString& beginning) const {
        for (int row = 0; row < view()->numberOfRows(); ++row) {
            const QModelIndex index = view()->indexAtRow(row);
            if (index.data().toString().startsWith(beginning)) return index;
        }
        return {};
    }

    QPoint middleOf(const QString& beginning) const { return view()->visualRect(row(beginning)).center(); }
    void click(const QString& beginning, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseClick(view()->viewport(), button, modifiers, middleOf(beginning));
    }
    /// The text of the selected row, empty when none is selected.
    QString selectedRow() const {
        const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
        return selected.isEmpty() ? QString() : selected.first().data().toString();
    }
    /// The text of the row with the focus mark.
    QString currentRow() const { return view()->currentIndex().data().toString(); }
};
