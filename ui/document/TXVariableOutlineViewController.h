#pragma once

#include <QAbstractItemModel>
#include <chrono>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

class MyDocument;
class QLineEdit;
class TXNumberFormatter;
class TXOutlineView;
class TXVariable;
class TXVariableArray;

/// What the sidebar shows: the document's defined variables in three groups, each variable as "name=value".
///
/// The groups follow the session's list, in its order. Each refresh looks only at what is new since the one before, and
/// a value is written out only when somebody asks for the row: neither costs more in a long session.
class TXVariableOutlineViewController : public QAbstractItemModel {
    Q_OBJECT

public:
    /// What a row stands for: nothing for the root, a group title by its address, a variable, or any other text.
    using Item = std::variant<std::monostate, const QString*, const TXVariable*, QString>;
    using Clock = std::chrono::system_clock;

    explicit TXVariableOutlineViewController(QObject* parent = nullptr);

    /// The document is not owned and must outlive the controller.
    MyDocument* parentDocument() const { return parentDocument_; }
    void setParentDocument(MyDocument* parentDocument) { parentDocument_ = parentDocument; }
    /// The outline that is told to reload; not owned.
    TXOutlineView* variableOutlineView() const { return variableOutlineView_; }
    void setVariableOutlineView(TXOutlineView* view) { variableOutlineView_ = view; }

    /// Takes the document's variables and formatter, and makes the three groups, still empty.
    void awakeFromNib();

    /// Brings the groups up to date: afterwards they hold every defined variable, in the order of the session's list.
    /// A variable that got its value late enters in its place.
    void refreshInternalVariableArray();

    // The data source.
    /// The root has the three groups, a group its members as they are now, anything else nothing.
    std::int32_t numberOfChildrenOfItem(const Item& item);
    /// The child at `index`, which must exist in the root or a group; a made-up text for any other item.
    Item childOfItem(std::int32_t index, const Item& item) const;
    bool isItemExpandable(const Item& item) const { return isGroupItem(item); }
    /// Only the three titles themselves are groups; an equal text is none.
    bool isGroupItem(const Item& item) const;
    /// The text of a row: a group's title, "name=value" for a variable.
    QString objectValueForTableColumn(int column, const Item& byItem) const;

    // The delegate.
    /// Remembers that the outline was clicked with Alt just now.
    void prepareForSelectionWithOptionClick();
    /// Whether `item` may be selected. Not when it is a variable and the click with Alt was less than a tenth of a
    /// second before `now`: then its name is typed into the entry line instead, once.
    bool shouldSelectItem(const Item& item, Clock::time_point now = Clock::now());
    const std::optional<Clock::time_point>& lastOptionClick() const { return lastOptionClick_; }
    void setLastOptionClick(std::optional<Clock::time_point> moment) { lastOptionClick_ = moment; }

    // Dragging.
    /// Puts the first item's name, or else its description, on the pasteboard, with its two other types. Always true.
    static bool writeItems(const std::vector<Item>& items, QMimeData& toPasteboard);
    /// Any drop is allowed, as a plain copy would be; none does anything.
    static std::int32_t validateDrop(const Item& item, std::int32_t proposedChildIndex);
    static bool acceptDrop(const Item& item, std::int32_t childIndex);
    /// The older entry, for rows of a table: a fixed text under one type of its own. Always true.
    static bool writeRows(const std::vector<std::int32_t>& rows, QMimeData& toPasteboard);

    // The search field, which `awakeFromNib` lets go. Whatever is searched, the outline shows every defined variable.
    QLineEdit* variableSearchField() const { return variableSearchField_; }
    void setVariableSearchField(QLineEdit* field) { variableSearchField_ = field; }
    /// Notes what is searched, and reloads the outline.
    void searchFieldChanged();
    bool currentlySearchingVariableTable() const { return currentlySearchingVariableTable_; }
    const QString& currentVariableSearchString() const { return currentVariableSearchString_; }
    /// Always empty.
    const std::vector<Item>& variableSearchResults() const { return variableSearchResults_; }
    /// The places where results would be collected, and where a search would follow the variables. Nothing happens.
    static void createSearchArray() {}
    static void variableArrayChanged() {}

    /// Kept for who asks; nothing depends on these two.
    bool addSomeIshClicked() const { return addSomeIshClicked_; }
    std::uint16_t currentVariable() const { return currentVariable_; }

    const TXVariableArray* variableArray() const { return variableArray_; }
    TXNumberFormatter* documentNumberFormatter() const { return documentNumberFormatter_; }
    const std::vector<QString>& rootStringArray() const { return rootStringArray_; }
    std::int32_t rootStringArrayCount() const { return rootStringArrayCount_; }
    /// The members of each group, as positions in `variableArray`.
    const std::vector<std::vector<std::int32_t>>& temporaryVariableArrays() const { return temporaryVariableArrays_; }

    /// What the row at `index` stands for; the root for an invalid index.
    Item itemAt(const QModelIndex& index) const;
    /// The variable of the row at `index`, nullptr where there is none.
    const TXVariable* variableAt(const QModelIndex& index) const;
    /// The value as the sidebar shows it.
    QString formattedValueOf(const TXVariable& variable) const;

    // The same for the toolkit's views. What they are told stays as it was at the last refresh.
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    void forgetVariables();
    void insertNewlyDefinedVariables();
    void appendNewVariables();
    void insertVariables(std::size_t group, std::size_t row, const std::vector<std::int32_t>& positions);
    std::optional<std::size_t> groupOfTitle(const Item& item) const;

    MyDocument* parentDocument_ = nullptr;
    TXOutlineView* variableOutlineView_ = nullptr;
    bool addSomeIshClicked_ = false;
    bool currentlySearchingVariableTable_ = false;
    QString currentVariableSearchString_;
    std::vector<Item> variableSearchResults_;
    std::uint16_t currentVariable_ = 0;
    const TXVariableArray* variableArray_ = nullptr;
    QLineEdit* variableSearchField_ = nullptr;
    TXNumberFormatter* documentNumberFormatter_ = nullptr;
    std::vector<QString> rootStringArray_;
    std::vector<std::vector<std::int32_t>> temporaryVariableArrays_;
    std::int32_t rootStringArrayCount_ = 0;
    std::optional<Clock::time_point> lastOptionClick_;

    // How far the refreshes have come in the session's list.
    std::int32_t numberOfVariablesSeen_ = 0;
    std::vector<std::int32_t> undefinedVariables_;  ///< Positions of those seen that had no value.
    std::uint32_t timesCleared_ = 0;
};
