#include "ui/document/TXOutlineView.h"

TXOutlineView::TXOutlineView(QWidget* parent) : QTreeView(parent) { setHeaderHidden(true); }
