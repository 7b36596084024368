#include "ui/document/MyDocument.h"

#include <QCborArray>
#include <QCborMap>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QProxyStyle>
#include <QPushButton>
#include <QSignalSpy>

#include "tests/support/DocumentTest.h"
#include "ui/UserDefaults.h"
#include "ui/document/MiniModeAnswerField.h"

namespace {

TEST(MyDocument, startsWithItsValues) {
    const OpenDocument open;
    const MyDocument& document = open.document;
    EXPECT_EQ(document.currentWidth(), 200.0F);
    EXPECT_EQ(document.secondaryCurrentWidth(), 50.0F);
    EXPECT_EQ(document.documentFont().family(), "Helvetica");
    EXPECT_EQ(document.documentFont().pointSizeF(), 12.0);
    EXPECT_EQ(document.documentFont().styleHint(), QFont::SansSerif);
    EXPECT_EQ(document.answerFormatting(), 0);
    EXPECT_FALSE(document.isSmallWindowShown());
    EXPECT_EQ(MyDocument::windowNibName(), "MyDocument");
    EXPECT_EQ(MyDocument::variableSearchField(), nullptr);
    EXPECT_TRUE(document.stringForFile().isEmpty());
}

TEST(MyDocument, connectsItsParts) {
    OpenDocument open;
    MyDocument& document = open.document;
    EXPECT_EQ(document.documentNumberFormatter().numberFormatterSettings(),
              &document.documentNumberFormatterSettings());
    EXPECT_EQ(&document.variableArray(), &document.documentEquationController().variableArray());
    EXPECT_EQ(document.documentWindow()->documentController(), &document);
    EXPECT_EQ(document.formulaTextView()->parentDocument(), &document);
    EXPECT_EQ(document.miniModeformulaTextView()->parentDocument(), &document);
    EXPECT_EQ(document.activeFormulaTextView(), document.formulaTextView());
    document.setIsSmallWindowShown(true);
    EXPECT_EQ(document.activeFormulaTextView(), document.miniModeformulaTextView());
}

struct DefaultsCase {
    const char* name;
    const char* key;
    QVariant stored;
    bool usesRadians;
    std::u16string exponent;
    std::u16string thousands;
};
void PrintTo(const DefaultsCase& row, std::ostream* out) { *out << row.name; }

class NewDocument : public testing::TestWithParam<DefaultsCase> {};

TEST_P(NewDocument, takesTheUserDefaults) {
    const FreshDefaults fresh;
    if (GetParam().key != nullptr) QSettings().setValue(GetParam().key, GetParam().stored);
    MyDocument document;
    EXPECT_EQ(document.documentEquationController().useRadians(), GetParam().usesRadians);
    EXPECT_EQ(document.documentNumberFormatterSettings().exponentCharacter(), GetParam().exponent);
    EXPECT_EQ(document.documentNumberFormatterSettings().thousandsCharacter(), GetParam().thousands);
}

constexpr auto radians = TXUserDefaultsKey::usesRadiansForNewDocuments;
constexpr auto exponent = TXUserDefaultsKey::exponentsCharacter;
constexpr auto thousands = TXUserDefaultsKey::thousandsSeparatorCharacter;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Defaults, NewDocument, testing::Values(
    DefaultsCase{"Nothing",           nullptr,   {},      true,  u"e", u","},
    DefaultsCase{"Radians",           radians,   true,    true,  u"e", u","},
    DefaultsCase{"Degrees",           radians,   false,   false, u"e", u","},
    DefaultsCase{"BigExponent",       exponent,  "E",     true,  u"E", u","},
    DefaultsCase{"SmallExponent",     exponent,  "e",     true,  u"e", u","},
    DefaultsCase{"OtherExponent",     exponent,  "x",     true,  u"e", u","},
    DefaultsCase{"LongExponent",      exponent,  "EE",    true,  u"e", u","},
    DefaultsCase{"BlankThousands",    thousands, " ",     true,  u"e", u" "},
    DefaultsCase{"Apostrophe",        thousands, "'",     true,  u"e", u"'"},
    DefaultsCase{"Comma",             thousands, ",",     true,  u"e", u","},
    DefaultsCase{"OtherThousands",    thousands, ".",     true,  u"e", u","},
    DefaultsCase{"EmptyThousands",    thousands, "",      true,  u"e", u","}
), RowName());
// clang-format on

TEST(MyDocumentCharacters, areChangedByChoice) {
    OpenDocument open;
    const TXNumberFormatterSettings& settings = open.document.documentNumberFormatterSettings();
    const std::pair<int, std::u16string> thousandsChoices[] = {{1, u" "}, {2, u"'"}, {3, u"'"}, {-1, u"'"}, {0, u","}};
    for (const auto& [choice, character] : thousandsChoices) {
        open.document.changeThousandsSeparatorCharacter(choice);
        EXPECT_EQ(settings.thousandsCharacter(), character) << choice;
    }
    const std::pair<int, std::u16string> exponentChoices[] = {{1, u"E"}, {2, u"E"}, {-1, u"E"}, {0, u"e"}};
    for (const auto& [choice, character] : exponentChoices) {
        open.document.changeExponentCharacter(choice);
        EXPECT_EQ(settings.exponentCharacter(), character) << choice;
    }
}

TEST(GlobalVariableArray, isThatOfTheNewestDocument) {
    auto first = std::make_unique<MyDocument>();
    EXPECT_EQ(globalVariableArray, &first->documentEquationController().variableArray());
    auto second = std::make_unique<MyDocument>();
    EXPECT_EQ(globalVariableArray, &second->documentEquationController().variableArray());
    first.reset();
    EXPECT_EQ(globalVariableArray, &second->documentEquationController().variableArray());
    second.reset();
    EXPECT_EQ(globalVariableArray, nullptr);
}

TEST(GlobalVariableArray, isClearedThoughAnOlderDocumentIsOpen) {
    const MyDocument first;
    auto second = std::make_unique<MyDocument>();
    second.reset();
    EXPECT_EQ(globalVariableArray, nullptr);
}

TEST(MyDocumentWindow, hasTheCaretInTheEntry) {
    const OpenDocument open;
    EXPECT_TRUE(open.entry()->hasFocus());
    EXPECT_EQ(open.document.documentWindow()->size(), QSize(760, 500));
    EXPECT_EQ(open.document.documentWindow()->minimumSize(), QSize(420, 260));
    EXPECT_EQ(open.document.documentWindow()->findChild<QWidget*>("secondaryControlledView")->height(), 50);
}

TEST(MyDocumentWindow, keepsTheEntrysHeightWhenItGrows) {
    const OpenDocument open;
    open.document.documentWindow()->resize(900, 700);
    QTest::qWait(0);
    EXPECT_EQ(open.document.documentWindow()->findChild<QWidget*>("secondaryControlledView")->height(), 50);
}

TEST(MyDocumentWindow, namesItsParts) {
    const OpenDocument open;
    EXPECT_EQ(open.document.formulaTextView()->accessibleName(), "Equation");
    EXPECT_EQ(open.document.miniModeformulaTextView()->accessibleName(), "Equation");
    EXPECT_EQ(open.document.mainField()->accessibleName(), "History");
    EXPECT_EQ(open.document.miniModeAnswerField()->accessibleName(), "Answer");
}

TEST(MyDocumentWindow, tellsWhenItIsClosed) {
    OpenDocument open;
    const QSignalSpy closed(&open.document, &MyDocument::closed);
    open.document.close();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(open.document.documentWindow()->isVisible());
}

TEST(MyDocumentWindow, tellsWhenTheMiniWindowIsClosed) {
    OpenDocument open;
    const QSignalSpy closed(&open.document, &MyDocument::closed);
    open.document.setIsSmallWindowShown(true);
    open.document.showWindow();
    open.document.close();
    EXPECT_EQ(closed.count(), 1);
}

TEST(MyDocumentWindow, tellsWhenItGetsActive) {
    OpenDocument first;
    const QSignalSpy activated(&first.document, &MyDocument::activated);
    const OpenDocument second;
    first.document.showWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(first.document.documentWindow()));
    EXPECT_EQ(activated.count(), 1);
}

struct SorryCase {
    const char* name;
    void (MyDocument::*command)();
    const char* message;
};
void PrintTo(const SorryCase& row, std::ostream* out) { *out << row.name; }

class Sorry : public testing::TestWithParam<SorryCase> {};

TEST_P(Sorry, isSaidInAnAlertOfTheWindow) {
    OpenDocument open;
    (open.document.*GetParam().command)();
    EXPECT_EQ(open.beeps.count(), 1);
    const QPointer<QMessageBox> alert = open.document.documentWindow()->findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(), "Sorry");
    EXPECT_TRUE(alert->findChild<QLabel*>("qt_msgbox_label")->font().bold());
    EXPECT_EQ(alert->informativeText(), GetParam().message);
    EXPECT_EQ(alert->icon(), QMessageBox::Information);
    EXPECT_EQ(alert->standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(alert->defaultButton(), qobject_cast<QPushButton*>(alert->button(QMessageBox::Ok)));
    EXPECT_EQ(alert->windowModality(), Qt::WindowModal);
    QTest::keyClick(alert, Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_EQ(alert, nullptr);
}

/// A desktop that puts icons on the buttons of alerts.
struct StyleWithIcons : QProxyStyle {
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

TEST_P(Sorry, hasNoIconOnItsButton) {
    OpenDocument open;
    const QString style = QApplication::style()->name();
    QApplication::setStyle(new StyleWithIcons);
    (open.document.*GetParam().command)();
    auto* const alert = open.document.documentWindow()->findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->button(QMessageBox::Ok)->icon().isNull());
    EXPECT_FALSE(
        QMessageBox(QMessageBox::Information, {}, {}, QMessageBox::Ok).button(QMessageBox::Ok)->icon().isNull());
    alert->close();
    QApplication::setStyle(style);
}

TEST_P(Sorry, goesWithEscape) {
    OpenDocument open;
    open.document.setIsSmallWindowShown(true);
    (open.document.*GetParam().command)();
    const QPointer<QMessageBox> alert = open.document.miniWindow()->findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    QTest::keyClick(alert, Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_EQ(alert, nullptr);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Commands, Sorry, testing::Values(
    SorryCase{"Save", &MyDocument::saveDocument,
        "Unfortunately, saving documents is not currently enabled.  Once the internals of the program stabilize, "
        "it will be put in the program.\n\nHowever, note that you can copy the equation history into a program like "
        "TextEdit (in the applications folder), and save it as a text file."},
    SorryCase{"Open", &MyDocument::openDocument,
        "Unfortunately, opening/saving documents is not currently enabled.  Once the internals of the program "
        "stabilize, it will be put in the program."}
), RowName());
// clang-format on

TEST(MyDocumentData, isNeverGiven) { EXPECT_EQ(MyDocument::dataRepresentationOfType("txt"), std::nullopt); }

struct ArchivedVariable {
    std::u16string name;
    double number;
    bool isDefined;
    bool isLocked;
    bool isAutoCached;
};

TEST(MyDocumentData, isReadFromAnArchive) {
    OpenDocument open;
    const QCborMap archive = {
        {QString("testKey"), QString("2+3")},
        {QString("variableArray"),
         QCborArray{QCborMap{{QString("variableName"), QString("a")}, {QString("number"), 2.5}},
                    QCborMap{{QString("variableName"), QString("b")}},
                    QCborMap{{QString("variableName"), QString("c")},
                             {QString("number"), 3},
                             {QString("isLocked"), true},
                             {QString("isAutoCached"), true}}}},
    };
    EXPECT_TRUE(open.document.loadDataRepresentation(archive.toCborValue().toCbor(), "txt"));
    EXPECT_EQ(open.document.stringForFile().toPlainText(), "2+3");

    const ArchivedVariable expected[] = {
        {u"a", 2.5, true, false, false}, {u"b", 0.0, false, false, false}, {u"c", 3.0, true, true, true}};
    ASSERT_EQ(open.document.variableArray().size(), 3);
    for (std::int32_t i = 0; i < 3; ++i) {
        const TXVariable& variable = open.document.variableArray()[i];
        EXPECT_EQ(variable.variableName(), expected[i].name);
        EXPECT_EQ(variable.number(), expected[i].number);
        EXPECT_EQ(variable.isDefined(), expected[i].isDefined);
        EXPECT_EQ(variable.isLocked(), expected[i].isLocked);
        EXPECT_EQ(variable.isAutoCached(), expected[i].isAutoCached);
    }
    // Nothing else was told.
    EXPECT_EQ(open.document.documentEquationController().variableArray().size(), 2);
    EXPECT_EQ(open.history(), "");
}

TEST(MyDocumentData, thatIsNoArchiveLeavesNothing) {
    const QByteArray variables = "variableArray";
    const std::pair<const char*, QByteArray> rows[] = {
        {"Empty", {}},
        {"Text", "2+3\n\t= 5\n"},
        {"Cut", QCborMap{{QString("testKey"), QString("2+3")}}.toCborValue().toCbor().chopped(1)},
        {"NoMap", QCborValue(7).toCbor()},
        {"NoList", QCborMap{{QString(variables), 7}}.toCborValue().toCbor()},
        {"NoVariables", QCborMap{{QString(variables), QCborArray{1, 2}}}.toCborValue().toCbor()},
        {"NoName", QCborMap{{QString(variables), QCborArray{QCborMap{{QString("number"), 1}}}}}.toCborValue().toCbor()},
        {"DeeplyNested", QByteArray(100000, '\x81')},
    };
    for (const auto& [name, data] : rows) {
        SCOPED_TRACE(name);
        OpenDocument open;
        EXPECT_TRUE(open.document.loadDataRepresentation(data, "txt"));
        EXPECT_TRUE(open.document.stringForFile().isEmpty());
        EXPECT_EQ(open.document.variableArray().size(), 0);
    }
}

TEST(MyDocumentData, namesAVariableFromTheLoadedList) {
    OpenDocument open;
    const auto named = [](const char* name) { return QCborMap{{QString("variableName"), QString(name)}}; };
    const QCborMap archive = {{QString("variableArray"), QCborArray{named("first"), named("second"), named("third")}}};
    open.document.loadDataRepresentation(archive.toCborValue().toCbor(), "txt");
    open.press(u"x=4⏎y=5⏎");
    // Only the first of the two is within the loaded list.
    EXPECT_EQ(open.history(), "x=4\n\tthird = 4\n\ny=5\n\ty = 5\n");
}

TEST(MyDocumentPrinting, asksInASheetOfTheWindow) {
    OpenDocument open;
    open.document.printDocument();
    const QPointer<QPrintDialog> dialog = open.document.documentWindow()->findChild<QPrintDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_EQ(dialog, nullptr);
}

}  // namespace
