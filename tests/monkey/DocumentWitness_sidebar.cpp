// What the sidebar is to show: three groups, each with its variables in the order of the session.

#include "tests/monkey/DocumentWitness.h"

#include <algorithm>
#include <array>

#include "format/TXNumberFormatter.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXVariableOutlineViewController.h"
#include "ui/document/engineText.h"

namespace {

struct Group {
    QString title;
    QStringList members;
};

std::array<Group, 3> expectedGroups(MyDocument& document) {
    std::array<Group, 3> groups{{{"Constants", {}}, {"Auto-Defined Variables", {}}, {"Defined Variables", {}}}};
    TXNumberFormatter formatter(&document.documentNumberFormatterSettings());
    for (const TXVariable& variable : document.documentEquationController().variableArray()) {
        if (!variable.isDefined()) continue;
        const std::size_t group = variable.isLocked() ? 0 : variable.isAutoCached() ? 1 : 2;
        const QString value = QString::fromStdU16String(formatter.formattedNumberForNumber(variable.number()));
        groups.at(group).members.append(stringOf(variable.variableName()) + u'=' + value);
    }
    return groups;
}

QString textAt(const QModelIndex& index) { return index.data().toString(); }

QString groupComplaint(const QAbstractItemModel& model, int row, const Group& expected) {
    const QModelIndex group = model.index(row, 0);
    if (textAt(group) != expected.title) return "the sidebar has a group " + textAt(group);
    if (model.rowCount(group) != expected.members.size()) {
        return QStringLiteral("the sidebar has %1 and not %2 rows in %3")
            .arg(model.rowCount(group))
            .arg(expected.members.size())
            .arg(expected.title);
    }
    for (int member = 0; member < model.rowCount(group); ++member) {
        const QString text = textAt(model.index(member, 0, group));
        if (text != expected.members[member]) return "the sidebar has " + text + " for " + expected.members[member];
    }
    return {};
}

}  // namespace

QString DocumentWitness::sidebarComplaint() const {
    const QAbstractItemModel& model = *document_.variableOutlineViewController();
    if (model.rowCount() != 3) return QStringLiteral("the sidebar has %1 groups").arg(model.rowCount());
    int row = 0;
    for (const Group& group : expectedGroups(document_)) {
        QString found = groupComplaint(model, row++, group);
        if (!found.isEmpty()) return found;
    }
    return {};
}

// What is seen of it: the groups, and the members of those that are unfolded.
QString DocumentWitness::rowsComplaint() const {
    const TXOutlineView& view = *document_.variableOutlineView();
    QStringList expected;
    int groupNumber = 0;
    for (const Group& group : expectedGroups(document_)) {
        expected.append(group.title);
        if (view.isExpanded(view.model()->index(groupNumber++, 0))) expected.append(group.members);
    }
    if (view.numberOfRows() != expected.size()) {
        return QStringLiteral("the sidebar shows %1 rows and not %2").arg(view.numberOfRows()).arg(expected.size());
    }
    for (int row = 0; row < view.numberOfRows(); ++row) {
        const QModelIndex index = view.indexAtRow(row);
        if (textAt(index) != expected[row]) return "the sidebar shows " + textAt(index) + " for " + expected[row];
        if (view.rowOf(index) != row) return QStringLiteral("row %1 of the sidebar is not in its place").arg(row);
    }
    return {};
}
