#pragma once

#include <QTreeView>

/// The sidebar with the document's variables, in three groups that fold.
class TXOutlineView : public QTreeView {
    Q_OBJECT

public:
    explicit TXOutlineView(QWidget* parent = nullptr);
};
