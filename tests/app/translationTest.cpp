// Which texts a translation reaches: all that are ours, and none of those that are the same in every language.

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QTableWidget>
#include <QTranslator>
#include <QTreeWidget>
#include <set>

#include "tests/support/EveryWindow.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXInspectorController.h"
#include "ui/document/TXOutlineView.h"

namespace {

constexpr QChar opening = u'«';
constexpr QChar closing = u'»';

/// A translation that sets every text between marks, behind its mnemonic if it has one, and remembers it.
class Marks : public QTranslator {
public:
    Marks() { QCoreApplication::installTranslator(this); }
    ~Marks() override { QCoreApplication::removeTranslator(this); }
    Marks(const Marks&) = delete;
    Marks& operator=(const Marks&) = delete;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*count*/) const override {
        EXPECT_STRNE(context, "") << text;
        asked_.insert(QString::fromUtf8(text));
        return opening + QString::fromUtf8(text) + closing;
    }
    bool wereAsked(const QString& text) const { return asked_.contains(text); }

private:
    mutable QSet<QString> asked_;
};

struct MarksFirst {
    Marks marks;
};

struct Translation : MarksFirst, EveryWindow {};

constexpr auto nameAndVersion = "<b>Tallix " TALLIX_VERSION "</b>";
constexpr auto savingMessage =
    "Unfortunately, saving documents is not currently enabled.  Once the internals of the program stabilize, it will "
    "be put in the program.\n\nHowever, note that you can copy the equation history into a program like TextEdit (in "
    "the applications folder), and save it as a text file.";
constexpr auto openingMessage =
    "Unfortunately, opening/saving documents is not currently enabled.  Once the internals of the program stabilize, "
    "it will be put in the program.";

using Texts = std::set<QString>;

void add(const QString& text, Texts* texts) {
    const bool hasLetters = std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
    if (hasLetters && !text.contains(opening)) texts->insert(text);
}

void addActions(const QList<QAction*>& actions, Texts* texts) {
    for (const QAction* action : actions) add(action->text(), texts);
}

void addItems(const QWidget& widget, Texts* texts) {
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < box->count(); ++i) add(box->itemText(i), texts);
    }
    if (const auto* tree = qobject_cast<const QTreeWidget*>(&widget)) {
        for (int column = 0; column < tree->columnCount(); ++column) add(tree->headerItem()->text(column), texts);
        for (const QTreeWidgetItem* item : tree->findItems({}, Qt::MatchContains | Qt::MatchRecursive)) {
            add(item->text(0), texts);
        }
    }
    if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) {
        for (int row = 0; row < table->rowCount(); ++row) add(table->item(row, 0)->text(), texts);
    }
    if (const auto* outline = qobject_cast<const TXOutlineView*>(&widget)) {
        for (int row = 0; row < outline->numberOfRows(); ++row) {
            const QModelIndex index = outline->indexAtRow(row);
            if (!index.parent().isValid()) add(index.data().toString(), texts);
        }
    }
}

/// The texts of a widget that no translation reached.
void addUntranslated(const QWidget& widget, Texts* texts) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) add(label->text(), texts);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) add(button->text(), texts);
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) add(field->placeholderText(), texts);
    if (const auto* menu = qobject_cast<const QMenu*>(&widget)) add(menu->title(), texts);
    addActions(widget.actions(), texts);
    addItems(widget, texts);
    add(widget.toolTip(), texts);
    add(widget.accessibleName(), texts);
    if (widget.isWindow()) add(widget.windowTitle(), texts);
}

bool isGreekButton(const QWidget& widget) {
    return qobject_cast<const TXGreekLetterPanel*>(widget.window()) != nullptr &&
           qobject_cast<const QAbstractButton*>(&widget) != nullptr;
}

TEST_F(Translation, reachesEveryTextOfOurOwnAndNoOther) {
    Texts untranslated;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (!isGreekButton(*widget)) addUntranslated(*widget, &untranslated);
    }
    const Texts settled = {// Titles, styles and the groups of variables
                           "Auto Digit Formatting", "&Auto Digit Formatting", "Menu with Variable Stuff",
                           "Variable Cache Menu", "Answer", "Equation", "Heading", "Paragraph", "Constants",
                           "Auto-Defined Variables", "Defined Variables", "Copy Variable Name",
                           "Copy Formatted Variable Value", "Copy Variable Name And Formatted Value",
                           // Alerts
                           "Sorry", savingMessage, openingMessage,
                           // Answers, what a number may have as its exponent, names and addresses
                           "r = 125", "e", "E", nameAndVersion, "https://example.org/a/long/way"};
    EXPECT_EQ(untranslated, settled);
}

TEST_F(Translation, leavesTitlesOfDigitsAndErrorsAlone) {
    for (int tag = 0; tag <= 21; ++tag) {
        trigger(full, qPrintable(QString("digits%1").arg(tag)));
        EXPECT_FALSE(full.numberFormattingButton()->title().contains(opening)) << tag;
    }
    EXPECT_EQ(full.mainField()->toPlainText(),
              "1/4\n\t= 0.25\n\nsin(30\n\tError: There is an open parenthesis in the equation -- you are "
              "missing a ).\n");
    for (const char* text : {"Auto Digit Formatting", "%1 Significant Figures", "%1 Decimal Places", "Sorry",
                             "Error: ", "Menu with Variable Stuff", "Paragraph", "Constants"}) {
        EXPECT_FALSE(marks.wereAsked(text)) << text;
    }
}

TEST_F(Translation, reachesWhatComesAndGoes) {
    full.documentWindow()->findChild<QLineEdit*>("findField")->setText("nothing of this kind");
    full.findNextInHistory();
    EXPECT_EQ(full.documentWindow()->findChild<QLabel*>("findStatus")->text(), "«No matches»");
    EXPECT_EQ(mini.miniWindow()->findChild<QLabel*>("miniModeFormatLabel")->text(), "«rad»");
    EXPECT_EQ(mini.miniWindow()->windowTitle(), "«Untitled 2»");
    full.clearHistory();
    full.documentWindow()->grab();
    EXPECT_TRUE(marks.wereAsked("Type an equation and press Return"));
    trigger(full, "formattingType2");
    EXPECT_EQ(full.formattingTypeButton()->title(), "«Scientific»");
}

TEST_F(Translation, reachesTheGreekLettersNames) {
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (isGreekButton(*widget)) {
            EXPECT_TRUE(widget->accessibleName().startsWith(opening));
        }
    }
}

}  // namespace
