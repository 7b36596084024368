#include "ui/document/TXVariableOutlineViewController.h"

#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <chrono>
#include <random>

#include "tests/support/Sidebar.h"

namespace {

using namespace std::chrono_literals;
using Controller = TXVariableOutlineViewController;
using Item = Controller::Item;
using Groups = std::vector<std::vector<std::int32_t>>;

/// What a walk through the whole list gives.
Groups groupsByFullWalk(const TXVariableArray& variables) {
    Groups groups(3);
    for (std::int32_t i = 0; i < variables.size(); ++i) {
        const TXVariable& variable = variables[i];
        if (!variable.definedState()) continue;
        groups[variable.isLocked() ? 0 : variable.isAutoCached() ? 1 : 2].push_back(i);
    }
    return groups;
}

Item variableItem(const Sidebar& sidebar, std::int32_t position) {
    return &(*sidebar.controller().variableArray())[position];
}

Item title(const Sidebar& sidebar, std::size_t group) { return &sidebar.controller().rootStringArray()[group]; }

TEST(SidebarGroups, areThreeAndUnfoldedAtOpening) {
    const Sidebar sidebar;
    EXPECT_EQ(sidebar.rows(),
              QStringList({"Constants", " pi=3.14159265358979", "Auto-Defined Variables", "Defined Variables"}));
    for (int row : {0, 2, 3}) EXPECT_TRUE(sidebar.view()->isExpanded(sidebar.view()->indexAtRow(row))) << row;
}

TEST(SidebarGroups, areShownThoughNothingIsDefined) {
    Sidebar sidebar;
    TXVariableArray& variables = sidebar.document.documentEquationController().variableArray();
    variables.clear();
    variables.append(TXVariable::initWithName(u"x", false, 0.0));
    sidebar.document.reloadSidebar();
    EXPECT_EQ(sidebar.rows(), QStringList({"Constants", "Auto-Defined Variables", "Defined Variables"}));
    EXPECT_TRUE(sidebar.view()->isExpanded(sidebar.view()->indexAtRow(0)));
}

TEST(SidebarGroups, holdConstantsAnswersAndDefinitionsInTheOrderInWhichTheyCame) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎2+3⏎y=x+1⏎x*100⏎x=7⏎");
    EXPECT_EQ(sidebar.rows(), QStringList({"Constants", " pi=3.14159265358979", "Auto-Defined Variables", " ans=7",
                                           " ans1=5", " ans2=400", "Defined Variables", " x=7", " y=5"}));
}

TEST(SidebarGroups, leaveOutWhatIsNotDefinedUntilItIs) {
    const Sidebar sidebar;
    sidebar.press(u"late+1⏎x=4⏎");
    EXPECT_EQ(sidebar.rows().mid(4), QStringList({"Defined Variables", " x=4"}));
    sidebar.press(u"late=1⏎");
    // It was named first.
    EXPECT_EQ(sidebar.rows().mid(4), QStringList({"Defined Variables", " late=1", " x=4"}));
}

TEST(SidebarGroups, showALockedAnswerAmongTheConstantsOnly) {
    Sidebar sidebar;
    TXVariable both = TXVariable::initWithName(u"both", true, 8.0);
    both.setIsLocked(true);
    both.setIsAutoCached(true);
    sidebar.document.documentEquationController().variableArray().append(std::move(both));
    sidebar.document.reloadSidebar();
    EXPECT_EQ(sidebar.rows(), QStringList({"Constants", " pi=3.14159265358979", " both=8", "Auto-Defined Variables",
                                           "Defined Variables"}));
}

TEST(SidebarGroups, beginAnewWhenTheSessionDoes) {
    Sidebar sidebar;
    sidebar.press(u"x=4⏎2+3⏎");
    sidebar.view()->collapse(sidebar.row("Auto"));
    sidebar.document.documentEquationController().clearAll();
    // As many variables as before, but others.
    sidebar.document.documentEquationController().addOneStringBlindly(u"z=1");
    sidebar.press(u"5+5⏎");
    EXPECT_EQ(sidebar.rows(), QStringList({"Constants", " pi=3.14159265358979", "Auto-Defined Variables",
                                           "Defined Variables", " z=1"}));
    sidebar.view()->expand(sidebar.row("Auto"));
    EXPECT_EQ(sidebar.rows().mid(2, 3), QStringList({"Auto-Defined Variables", " ans=10", " ans1=10"}));
}

TEST(SidebarGroups, beginAnewWhileOneOfTheirVariablesIsSelected) {
    Sidebar sidebar;
    sidebar.press(u"x=4⏎y=5⏎");
    for (const char* selected : {"y=", "x=", "pi="}) {
        sidebar.click(selected);
        ASSERT_TRUE(sidebar.selectedRow().startsWith(selected));
        sidebar.document.documentEquationController().clearAll();
        sidebar.document.reloadSidebar();
        EXPECT_EQ(sidebar.rows(),
                  QStringList({"Constants", " pi=3.14159265358979", "Auto-Defined Variables", "Defined Variables"}));
        EXPECT_EQ(sidebar.view()->selectedVariable(), nullptr);
        sidebar.press(u"x=4⏎y=5⏎");
    }
}

TEST(SidebarGroups, equalAFullWalkAfterEveryLine) {
    std::mt19937 random(20240611);  // NOLINT(cert-msc51-cpp): the same session every time
    TXVariableOutlineViewController controller;
    MyDocument document;
    controller.setParentDocument(&document);
    controller.awakeFromNib();
    TXEquationController& session = document.documentEquationController();
    const auto name = [&random] { return "v" + std::to_string(random() % 60); };
    for (int line = 0; line < 3000; ++line) {
        QString text;
        switch (random() % 5) {
            case 0: text = QString::fromStdString(name() + "=" + std::to_string(random() % 100)); break;
            case 1: text = QString::fromStdString(name() + "+1"); break;                 // perhaps not defined
            case 2: text = QString::fromStdString(name() + "=" + name() + "+1"); break;  // perhaps neither is
            case 3: text = "ans" + QString::number(random() % 40) + "+2"; break;         // perhaps not yet there
            default: text = "7*8"; break;
        }
        if (random() % 500 == 0) session.clearAll();
        const std::u16string typed = text.toStdU16String();
        session.addOneStringBlindly(typed);
        if (random() % 3 == 0) continue;  // several lines between two refreshes
        controller.refreshInternalVariableArray();
        ASSERT_EQ(controller.temporaryVariableArrays(), groupsByFullWalk(session.variableArray())) << line;
    }
    EXPECT_GT(controller.temporaryVariableArrays()[2].size(), 5U);
}

TEST(SidebarGroups, tellViewsOnlyWhatIsNew) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    QSignalSpy inserted(&sidebar.controller(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&sidebar.controller(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy reset(&sidebar.controller(), &QAbstractItemModel::modelReset);
    sidebar.press(u"x=5⏎");
    EXPECT_EQ(inserted.count(), 0);
    sidebar.press(u"y=6⏎");
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted.first().at(0).toModelIndex(), sidebar.row("Defined"));
    EXPECT_EQ(inserted.first().at(1).toInt(), 1);
    EXPECT_EQ(inserted.first().at(2).toInt(), 1);
    EXPECT_EQ(removed.count() + reset.count(), 0);
}

TEST(SidebarGroups, doNotExistBeforeTheControllerIsAwake) {
    MyDocument document;
    TXVariableOutlineViewController controller;
    controller.refreshInternalVariableArray();
    EXPECT_EQ(controller.numberOfChildrenOfItem({}), 0);
    controller.setParentDocument(&document);
    controller.awakeFromNib();
    EXPECT_EQ(controller.variableArray(), &document.documentEquationController().variableArray());
    EXPECT_EQ(controller.documentNumberFormatter(), &document.documentNumberFormatter());
    EXPECT_EQ(controller.rootStringArrayCount(), 3);
    EXPECT_EQ(controller.temporaryVariableArrays(), Groups(3));
    EXPECT_FALSE(controller.lastOptionClick());
    EXPECT_FALSE(controller.addSomeIshClicked());
    EXPECT_EQ(controller.currentVariable(), 0);
    EXPECT_TRUE(controller.variableSearchResults().empty());
}

TEST(SidebarItems, countTheirChildrenAsTheyAreNow) {
    Sidebar sidebar;
    Controller& controller = sidebar.controller();
    EXPECT_EQ(controller.numberOfChildrenOfItem({}), 3);
    EXPECT_EQ(controller.numberOfChildrenOfItem(title(sidebar, 2)), 0);
    sidebar.document.documentEquationController().addOneStringBlindly(u"x=4");
    EXPECT_EQ(controller.rowCount(sidebar.row("Defined")), 0);
    EXPECT_EQ(controller.numberOfChildrenOfItem(title(sidebar, 2)), 1);
    EXPECT_EQ(controller.rowCount(sidebar.row("Defined")), 1);
    EXPECT_EQ(controller.numberOfChildrenOfItem(variableItem(sidebar, 0)), 0);
    EXPECT_EQ(controller.numberOfChildrenOfItem(QString("Constants")), 0);
}

TEST(SidebarItems, knowTheirChildrenAndTexts) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    const Controller& controller = sidebar.controller();
    EXPECT_EQ(controller.childOfItem(1, {}), title(sidebar, 1));
    EXPECT_EQ(controller.childOfItem(0, title(sidebar, 2)), variableItem(sidebar, 2));
    EXPECT_EQ(controller.childOfItem(7, variableItem(sidebar, 2)), Item("Child #7 of item=x\t4.000000 (defined)"));
    EXPECT_EQ(controller.childOfItem(0, QString("other")), Item("Child #0 of item=other"));
    EXPECT_EQ(controller.objectValueForTableColumn(0, title(sidebar, 1)), "Auto-Defined Variables");
    EXPECT_EQ(controller.objectValueForTableColumn(0, variableItem(sidebar, 2)), "x=4");
    EXPECT_EQ(controller.objectValueForTableColumn(0, QString("other")), "other");
    EXPECT_EQ(controller.objectValueForTableColumn(0, {}), "");
}

TEST(SidebarItems, areGroupsByIdentity) {
    const Sidebar sidebar;
    const Controller& controller = sidebar.controller();
    const QString equalText = "Constants";
    for (std::size_t group = 0; group < 3; ++group) {
        EXPECT_TRUE(controller.isGroupItem(title(sidebar, group)));
        EXPECT_TRUE(controller.isItemExpandable(title(sidebar, group)));
    }
    for (const Item& item : {Item(), Item(&equalText), Item(equalText), variableItem(sidebar, 0)}) {
        EXPECT_FALSE(controller.isGroupItem(item));
        EXPECT_FALSE(controller.isItemExpandable(item));
    }
}

struct OptionClickCase {
    const char* name;
    std::optional<std::chrono::nanoseconds> age;
    bool isVariable;
    bool isAllowed;
};
void PrintTo(const OptionClickCase& row, std::ostream* out) { *out << row.name; }
class OptionClick : public testing::TestWithParam<OptionClickCase> {};

TEST_P(OptionClick, decidesWhetherARowIsSelected) {
    const Sidebar sidebar;
    const OptionClickCase& row = GetParam();
    const Controller::Clock::time_point now = Controller::Clock::now();
    std::optional<Controller::Clock::time_point> clicked;
    if (row.age) clicked = now - std::chrono::duration_cast<Controller::Clock::duration>(*row.age);
    sidebar.controller().setLastOptionClick(clicked);
    const Item item = row.isVariable ? variableItem(sidebar, 0) : title(sidebar, 0);
    EXPECT_EQ(sidebar.controller().shouldSelectItem(item, now), row.isAllowed);
    EXPECT_EQ(sidebar.line(), row.isAllowed ? "" : "pi");
    EXPECT_EQ(sidebar.controller().lastOptionClick(), row.isAllowed ? clicked : std::nullopt);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Ages, OptionClick, testing::Values(
    //              name                age           variable  allowed
    OptionClickCase{"None",             std::nullopt, true,     true},
    OptionClickCase{"JustNow",          1us,          true,     false},
    OptionClickCase{"AtTheSameMoment",  0ns,          true,     true},
    OptionClickCase{"InTheFuture",      -1ms,         true,     true},
    OptionClickCase{"NearlyATenth",     99999us,      true,     false},
    OptionClickCase{"ATenth",           100ms,        true,     true},
    OptionClickCase{"LongAgo",          1h,           true,     true},
    OptionClickCase{"OnATitle",         1us,          false,    true}
), RowName());
// clang-format on

const QByteArray txtPropertyList =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<string>txt</string>\n</plist>\n";
const QByteArray helloPropertyList =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<string>hello world</string>\n</plist>\n";

struct DragCase {
    const char* name;
    const char* row;
    QByteArray text;
};
void PrintTo(const DragCase& row, std::ostream* out) { *out << row.name; }
class DraggedRow : public testing::TestWithParam<DragCase> {};

TEST_P(DraggedRow, carriesItsThreeTypes) {
    const Sidebar sidebar;
    sidebar.press(u"α=4⏎");
    const std::unique_ptr<QMimeData> dragged(sidebar.controller().mimeData({sidebar.row(GetParam().row)}));
    EXPECT_EQ(dragged->formats(),
              QStringList({"MyCustomOutlineViewPboardType", "text/plain", "application/x-file-promise"}));
    EXPECT_TRUE(dragged->data("MyCustomOutlineViewPboardType").isEmpty());
    EXPECT_EQ(dragged->data("text/plain"), GetParam().text);
    EXPECT_EQ(dragged->data("application/x-file-promise"), txtPropertyList);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, DraggedRow, testing::Values(
    DragCase{"Variable", "α=",        "\xCE\xB1"},
    DragCase{"Constant", "pi=",       "pi"},
    DragCase{"Title",    "Constants", "Constants"}
), RowName());
// clang-format on

TEST(SidebarPasteboard, hasNoTextWithoutItems) {
    QMimeData pasteboard;
    EXPECT_TRUE(Controller::writeItems({}, pasteboard));
    EXPECT_EQ(pasteboard.formats(), QStringList({"MyCustomOutlineViewPboardType", "application/x-file-promise"}));
}

TEST(SidebarPasteboard, takesTheFirstItemOnly) {
    const Sidebar sidebar;
    QMimeData pasteboard;
    EXPECT_TRUE(Controller::writeItems({QString("first"), title(sidebar, 1)}, pasteboard));
    EXPECT_EQ(pasteboard.text(), "first");
}

TEST(SidebarPasteboard, greetsForTableRows) {
    QMimeData pasteboard;
    EXPECT_TRUE(Controller::writeRows({1, 2}, pasteboard));
    EXPECT_EQ(pasteboard.formats(), QStringList({"NSGeneralPboard"}));
    EXPECT_EQ(pasteboard.data("NSGeneralPboard"), helloPropertyList);
}

TEST(SidebarDrop, isAlwaysAllowedAndDoesNothing) {
    const Sidebar sidebar;
    for (const Item& item : {Item(), title(sidebar, 0), variableItem(sidebar, 0)}) {
        EXPECT_EQ(Controller::validateDrop(item, -1), 4);
        EXPECT_TRUE(Controller::acceptDrop(item, 3));
    }
    const QStringList before = sidebar.rows();
    const std::unique_ptr<QMimeData> dragged(sidebar.controller().mimeData({sidebar.row("pi")}));
    const QPoint place = sidebar.middleOf("Auto");
    QDragEnterEvent enter(place, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(sidebar.view()->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(sidebar.view()->viewport(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(sidebar.rows(), before);
}

TEST(SidebarDrop, takesNothingButItsRows) {
    const Sidebar sidebar;
    QMimeData text;
    text.setText("7");
    QDragEnterEvent enter(sidebar.middleOf("Auto"), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(sidebar.view()->viewport(), &enter);
    QDragMoveEvent move(sidebar.middleOf("pi="), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(sidebar.view()->viewport(), &move);
    EXPECT_FALSE(move.isAccepted());
}

TEST(SidebarSearch, changesNothingThatIsShown) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    const QStringList before = sidebar.rows();
    QLineEdit field;
    sidebar.controller().setVariableSearchField(&field);
    QObject::connect(&field, &QLineEdit::textChanged, &sidebar.controller(), &Controller::searchFieldChanged);
    QTest::keyClicks(&field, "pi");
    EXPECT_TRUE(sidebar.controller().currentlySearchingVariableTable());
    EXPECT_EQ(sidebar.controller().currentVariableSearchString(), "pi");
    EXPECT_TRUE(sidebar.document.currentlySearchingVariableTable());
    EXPECT_EQ(sidebar.document.currentVariableSearchString(), "pi");
    EXPECT_EQ(sidebar.document.currentVariable(), 0);
    EXPECT_EQ(sidebar.rows(), before);
    field.clear();
    EXPECT_FALSE(sidebar.controller().currentlySearchingVariableTable());
    EXPECT_EQ(sidebar.controller().currentVariableSearchString(), "pi");
    EXPECT_EQ(sidebar.rows(), before);
}

TEST(SidebarSearch, endsWhereTheFieldIsLetGo) {
    MyDocument document;
    TXVariableOutlineViewController controller;
    QLineEdit field("pi");
    controller.setParentDocument(&document);
    controller.setVariableOutlineView(document.variableOutlineView());
    controller.setVariableSearchField(&field);
    controller.searchFieldChanged();
    EXPECT_TRUE(controller.currentlySearchingVariableTable());
    controller.awakeFromNib();
    EXPECT_EQ(controller.variableSearchField(), nullptr);
    EXPECT_FALSE(controller.currentlySearchingVariableTable());
    controller.searchFieldChanged();
    EXPECT_FALSE(controller.currentlySearchingVariableTable());
}

TEST(SidebarSearch, reloadsTheSidebar) {
    Sidebar sidebar;
    sidebar.document.documentEquationController().addOneStringBlindly(u"x=4");
    EXPECT_FALSE(sidebar.row("x=").isValid());
    sidebar.controller().searchFieldChanged();
    EXPECT_TRUE(sidebar.row("x=").isValid());
    Controller::createSearchArray();
    Controller::variableArrayChanged();
    EXPECT_TRUE(sidebar.controller().variableSearchResults().empty());
}

}  // namespace
