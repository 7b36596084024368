#include "ui/document/TXVariableOutlineViewController.h"

#include <QLineEdit>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <memory>

#include "engine/records/TXVariableArray.h"
#include "format/TXNumberFormatter.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/engineText.h"

namespace {

constexpr std::size_t numberOfGroups = 3;
constexpr std::chrono::milliseconds optionClickLasts(100);
constexpr std::int32_t genericDragOperation = 4;

constexpr auto rowType = "MyCustomOutlineViewPboardType";
constexpr auto plainStringType = "text/plain";
constexpr auto filePromiseType = "application/x-file-promise";
constexpr auto generalType = "NSGeneralPboard";

/// A property list, in XML, that is one string.
QByteArray propertyListOf(const QString& string) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n"
           R"(<plist version="1.0">)"
           "\n<string>" +
           string.toHtmlEscaped().toUtf8() + "</string>\n</plist>\n";
}

/// Constants, automatic answers, and the user's own.
std::size_t groupOf(const TXVariable& variable) {
    if (variable.isLocked()) return 0;
    return variable.isAutoCached() ? 1 : 2;
}

QString descriptionOf(const TXVariableOutlineViewController::Item& item) {
    if (const auto* const* variable = std::get_if<const TXVariable*>(&item))
        return stringOf((*variable)->description());
    if (const auto* const* title = std::get_if<const QString*>(&item)) return **title;
    if (const auto* text = std::get_if<QString>(&item)) return *text;
    return {};
}

}  // namespace

TXVariableOutlineViewController::TXVariableOutlineViewController(QObject* parent) : QAbstractItemModel(parent) {}

void TXVariableOutlineViewController::awakeFromNib() {
    beginResetModel();
    variableArray_ = &parentDocument_->variableArray();
    documentNumberFormatter_ = &parentDocument_->documentNumberFormatter();
    lastOptionClick_.reset();
    refreshInternalVariableArray();  // There are no groups yet to fill.
    variableSearchField_ = nullptr;
    currentlySearchingVariableTable_ = false;
    variableSearchResults_.clear();
    rootStringArray_ = {"Constants", "Auto-Defined Variables", "Defined Variables"};
    rootStringArrayCount_ = static_cast<std::int32_t>(rootStringArray_.size());
    temporaryVariableArrays_.assign(numberOfGroups, {});
    timesCleared_ = variableArray_->timesCleared();
    endResetModel();
}

// A variable never loses its value again nor changes its group, and never moves: so only those are looked at that are
// new, or had no value before.
void TXVariableOutlineViewController::refreshInternalVariableArray() {
    if (temporaryVariableArrays_.empty()) return;
    if (variableArray_->timesCleared() != timesCleared_) forgetVariables();
    insertNewlyDefinedVariables();
    appendNewVariables();
}

void TXVariableOutlineViewController::forgetVariables() {
    timesCleared_ = variableArray_->timesCleared();
    numberOfVariablesSeen_ = 0;
    undefinedVariables_.clear();
    for (std::size_t group = 0; group < numberOfGroups; ++group) {
        std::vector<std::int32_t>& members = temporaryVariableArrays_[group];
        if (members.empty()) continue;
        beginRemoveRows(index(static_cast<int>(group), 0), 0, static_cast<int>(members.size()) - 1);
        members.clear();
        endRemoveRows();
    }
}

void TXVariableOutlineViewController::insertNewlyDefinedVariables() {
    std::vector<std::int32_t> defined;
    std::erase_if(undefinedVariables_, [&](std::int32_t position) {
        const bool isDefined = (*variableArray_)[position].definedState();
        if (isDefined) defined.push_back(position);
        return isDefined;
    });
    for (const std::int32_t position : defined) {
        const std::size_t group = groupOf((*variableArray_)[position]);
        const std::vector<std::int32_t>& members = temporaryVariableArrays_[group];
        const auto place = std::lower_bound(members.begin(), members.end(), position);
        insertVariables(group, static_cast<std::size_t>(place - members.begin()), {position});
    }
}

void TXVariableOutlineViewController::appendNewVariables() {
    std::array<std::vector<std::int32_t>, numberOfGroups> added;
    for (; numberOfVariablesSeen_ < variableArray_->size(); ++numberOfVariablesSeen_) {
        const TXVariable& variable = (*variableArray_)[numberOfVariablesSeen_];
        if (variable.definedState()) {
            added[groupOf(variable)].push_back(numberOfVariablesSeen_);
        } else {
            undefinedVariables_.push_back(numberOfVariablesSeen_);
        }
    }
    for (std::size_t group = 0; group < numberOfGroups; ++group) {
        if (!added[group].empty()) insertVariables(group, temporaryVariableArrays_[group].size(), added[group]);
    }
}

void TXVariableOutlineViewController::insertVariables(std::size_t group, std::size_t row,
                                                      const std::vector<std::int32_t>& positions) {
    std::vector<std::int32_t>& members = temporaryVariableArrays_[group];
    beginInsertRows(index(static_cast<int>(group), 0), static_cast<int>(row),
                    static_cast<int>(row + positions.size()) - 1);
    members.insert(members.begin() + static_cast<std::ptrdiff_t>(row), positions.begin(), positions.end());
    endInsertRows();
}

std::optional<std::size_t> TXVariableOutlineViewController::groupOfTitle(const Item& item) const {
    const auto* const* title = std::get_if<const QString*>(&item);
    if (title == nullptr) return std::nullopt;
    for (std::size_t group = 0; group < rootStringArray_.size(); ++group) {
        if (&rootStringArray_[group] == *title) return group;
    }
    return std::nullopt;
}

std::int32_t TXVariableOutlineViewController::numberOfChildrenOfItem(const Item& item) {
    if (std::holds_alternative<std::monostate>(item)) return rootStringArrayCount_;
    const std::optional<std::size_t> group = groupOfTitle(item);
    if (!group) return 0;
    refreshInternalVariableArray();
    return static_cast<std::int32_t>(temporaryVariableArrays_[*group].size());
}

TXVariableOutlineViewController::Item TXVariableOutlineViewController::childOfItem(std::int32_t index,
                                                                                   const Item& item) const {
    const auto row = static_cast<std::size_t>(index);
    if (std::holds_alternative<std::monostate>(item)) return &rootStringArray_[row];
    if (const auto group = groupOfTitle(item)) {
        const std::int32_t position = temporaryVariableArrays_[*group][row];
        // While the rows of a cleared session go, views still ask about them.
        return variableArray_->holds(position) ? Item(&(*variableArray_)[position]) : Item(QString());
    }
    return QStringLiteral("Child #%1 of item=").arg(index) + descriptionOf(item);
}

bool TXVariableOutlineViewController::isGroupItem(const Item& item) const { return groupOfTitle(item).has_value(); }

QString TXVariableOutlineViewController::objectValueForTableColumn(int /*column*/, const Item& byItem) const {
    const auto* const* variable = std::get_if<const TXVariable*>(&byItem);
    if (variable == nullptr) return descriptionOf(byItem);
    return stringOf((*variable)->variableName()) + u'=' + formattedValueOf(**variable);
}

QString TXVariableOutlineViewController::formattedValueOf(const TXVariable& variable) const {
    return stringOf(documentNumberFormatter_->formattedViewForNumber(variable.number()));
}

void TXVariableOutlineViewController::prepareForSelectionWithOptionClick() { lastOptionClick_ = Clock::now(); }

bool TXVariableOutlineViewController::shouldSelectItem(const Item& item, Clock::time_point now) {
    if (!lastOptionClick_) return true;
    const Clock::duration sinceNow = *lastOptionClick_ - now;
    if (sinceNow >= Clock::duration::zero() || sinceNow <= -optionClickLasts) return true;
    const auto* const* variable = std::get_if<const TXVariable*>(&item);
    if (variable == nullptr) return true;
    parentDocument_->insertTextIntoEnteringBox(stringOf((*variable)->variableName()));
    lastOptionClick_.reset();
    return false;
}

bool TXVariableOutlineViewController::writeItems(const std::vector<Item>& items, QMimeData& toPasteboard) {
    toPasteboard.setData(rowType, {});
    if (!items.empty()) {
        const auto* const* variable = std::get_if<const TXVariable*>(&items.front());
        toPasteboard.setText(variable != nullptr ? stringOf((*variable)->variableName())
                                                 : descriptionOf(items.front()));
    }
    toPasteboard.setData(filePromiseType, propertyListOf(QStringLiteral("txt")));
    return true;
}

std::int32_t TXVariableOutlineViewController::validateDrop(const Item& /*item*/, std::int32_t /*proposedChildIndex*/) {
    return genericDragOperation;
}

bool TXVariableOutlineViewController::acceptDrop(const Item& /*item*/, std::int32_t /*childIndex*/) { return true; }

bool TXVariableOutlineViewController::writeRows(const std::vector<std::int32_t>& /*rows*/, QMimeData& toPasteboard) {
    toPasteboard.setData(generalType, propertyListOf(QStringLiteral("hello world")));
    return true;
}

void TXVariableOutlineViewController::searchFieldChanged() {
    const QString text = variableSearchField_ != nullptr ? variableSearchField_->text() : QString();
    currentlySearchingVariableTable_ = !text.isEmpty();
    if (currentlySearchingVariableTable_) currentVariableSearchString_ = text;
    if (variableOutlineView_ != nullptr) variableOutlineView_->reloadData();
}

TXVariableOutlineViewController::Item TXVariableOutlineViewController::itemAt(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    const QModelIndex group = index.parent();
    return childOfItem(index.row(), group.isValid() ? childOfItem(group.row(), {}) : Item());
}

const TXVariable* TXVariableOutlineViewController::variableAt(const QModelIndex& index) const {
    const Item item = itemAt(index);
    const auto* const* variable = std::get_if<const TXVariable*>(&item);
    return variable != nullptr ? *variable : nullptr;
}

// A group has the internal id 0, and a variable the number of its group, counted from 1.
QModelIndex TXVariableOutlineViewController::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex TXVariableOutlineViewController::parent(const QModelIndex& child) const {
    if (!child.isValid() || child.internalId() == 0) return {};
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr{0});
}

// Not `numberOfChildrenOfItem`: to a view, rows come only with the notice that they come.
int TXVariableOutlineViewController::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return rootStringArrayCount_;
    if (parent.internalId() != 0) return 0;
    return static_cast<int>(temporaryVariableArrays_[static_cast<std::size_t>(parent.row())].size());
}

int TXVariableOutlineViewController::columnCount(const QModelIndex& /*parent*/) const { return 1; }

QVariant TXVariableOutlineViewController::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    return objectValueForTableColumn(index.column(), itemAt(index));
}

Qt::ItemFlags TXVariableOutlineViewController::flags(const QModelIndex& index) const {
    const Qt::ItemFlags isVariable = variableAt(index) != nullptr ? Qt::ItemNeverHasChildren : Qt::NoItemFlags;
    return QAbstractItemModel::flags(index) | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled | isVariable;
}

QStringList TXVariableOutlineViewController::mimeTypes() const { return {rowType, plainStringType, filePromiseType}; }

QMimeData* TXVariableOutlineViewController::mimeData(const QModelIndexList& indexes) const {
    std::vector<Item> items;
    for (const QModelIndex& index : indexes) items.push_back(itemAt(index));
    auto pasteboard = std::make_unique<QMimeData>();
    writeItems(items, *pasteboard);
    return pasteboard.release();
}

// Only its own rows are drawn onto the outline: for other drags it has registered no type.
bool TXVariableOutlineViewController::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                                                      int /*column*/, const QModelIndex& parent) const {
    return data->hasFormat(rowType) && validateDrop(itemAt(parent), row) != 0;
}

bool TXVariableOutlineViewController::dropMimeData(const QMimeData* /*data*/, Qt::DropAction /*action*/, int row,
                                                   int /*column*/, const QModelIndex& parent) {
    return acceptDrop(itemAt(parent), row);
}
