#pragma once

#include <QTreeView>
#include <optional>
#include <vector>

class MyDocument;
class QMenu;
class TXVariable;
class TXVariableOutlineViewController;

/// The sidebar with the document's variables, in three groups that fold.
///
/// All rows are equally high and only groups have members, so that the place of a row is worked out and never looked
/// up: the toolkit's own tree lays out all its rows again with every new one. What is not in sight is never asked for,
/// and what looks as it did is not painted again.
class TXOutlineView : public QTreeView {
    Q_OBJECT

public:
    explicit TXOutlineView(QWidget* parent = nullptr);
    ~TXOutlineView() override;

    /// Makes the context menu.
    void awakeFromNib();

    /// The document is not owned and must outlive what is chosen here.
    MyDocument* parentDocument() const { return parentDocument_; }
    void setParentDocument(MyDocument* parentDocument) { parentDocument_ = parentDocument; }
    /// What is shown, and who decides about it; not owned, and must outlive the view.
    void setController(TXVariableOutlineViewController* controller);

    /// Shows the variables and their values as they are now. Folding, selection and scroll position stay.
    void reloadData();
    /// Unfolds an item, and if asked to, what is in it; an invalid item is the root.
    void expandItem(const QModelIndex& item, bool expandChildren);

    QMenu* wrappingMenu() const { return wrappingMenu_; }
    /// The menu for a click or a key: the row at a click is selected first. nullptr unless a variable is then selected.
    QMenu* menuForEvent(const QContextMenuEvent& event);
    /// Copies what the entry of the menu says by its tag, 0 to 2, of the selected variable, as plain text.
    void copyVariableInfo(const QAction* sender);
    /// Copies "name=value" of the selected variable.
    void copy();
    /// The variable that is selected, nullptr when there is none.
    const TXVariable* selectedVariable() const;

    /// What Return and a double click do: the name of a variable is typed into the entry, a group folds or unfolds.
    void enterNameOrFold(const QModelIndex& index);
    /// What a press of the main button does: with Alt a variable's name is typed into the entry, otherwise it selects.
    void mouseDown(QMouseEvent* event);

    // Rows are counted from the top, without those that are folded away.
    int numberOfRows() const;
    QModelIndex indexAtRow(int row) const;
    /// -1 for what is folded away.
    int rowOf(const QModelIndex& index) const;

    // TXOutlineView_layout.cpp
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

signals:
    /// A variable was selected, or none is any more.
    void copyAvailable(bool isAvailable);
    void focusTaken();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    void scrollContentsBy(int dx, int dy) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// All that makes one row look different from another; as it begins, where there is none.
    struct SeenRow {
        QString text;
        bool isGroup = false;
        bool isOpen = false;
        bool isSelected = false;
        bool hasFocus = false;
        bool operator==(const SeenRow&) const = default;
    };

    int rowHeight() const;
    int rowAtHeight(int y) const;
    int shownMembers(const QModelIndex& group) const;
    QRect rowRect(int row) const;
    QRect foldingMarkRect(const QModelIndex& index) const;
    QModelIndex parentOrFold(const QModelIndex& index);
    QModelIndex memberOrUnfold(const QModelIndex& index);
    void showFolding();
    std::size_t numberOfRowsInSight() const;
    SeenRow seenRow(int row) const;
    /// Has the rows in sight painted again that differ from what was painted of them last.
    void updateChangedRows();
    /// Notes what the rows look like that were painted; one of which only a part was, and which changed, is unknown
    /// then.
    void noteSeen(const QRegion& painted);
    void leaveFolded(const QModelIndex& group);
    QModelIndex selectedIndex() const;
    void tellFocusedRow();
    bool showToolTip(const QHelpEvent& event);
    bool isElided(const QModelIndex& index, const QString& text) const;

    QMenu* wrappingMenu_ = nullptr;
    MyDocument* parentDocument_ = nullptr;
    TXVariableOutlineViewController* controller_ = nullptr;
    bool isPressTaken_ = false;                     ///< Until the button is released, the pointer does nothing more.
    std::vector<std::optional<SeenRow>> seenRows_;  ///< What is painted, by row, from the first in sight; or unknown.
    int seenOffset_ = -1;                           ///< The vertical offset of that.
};
