// The controls for the answers' format and for the angle unit, used with the mouse and with keys.

#include <QAction>
#include <QMenu>
#include <QRadioButton>
#include <QTimer>

#include "tests/support/DocumentTest.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXOutlineView.h"

namespace {

constexpr int typeCount = 7;
constexpr int tagCount = 22;

/// Opens the menu of the button with a click, and does something there. The click lasts as long as the menu is open.
template <class Operation>
void inMenuOf(PullDownButton* button, const Operation& operation) {
    QTimer::singleShot(0, button, operation);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// A click on an entry of an open menu.
void clickEntry(QMenu* menu, QAction* entry) {
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entry).center());
}

/// The letter of an entry of an open menu.
void pressEntry(QMenu* menu, const QAction* entry) {
    QTest::keyClick(menu, QKeySequence::mnemonic(entry->text())[0].key());
}

struct OpenFormats : OpenDocument {
    PullDownButton* types() const { return document.formattingTypeButton(); }
    PullDownButton* digits() const { return document.numberFormattingButton(); }
    const TXNumberFormatterSettings& settings() { return document.documentNumberFormatterSettings(); }
    QAction* item(const QString& name) const { return document.documentWindow()->findChild<QAction*>(name); }
    QAction* digitItem(int tag) const { return item(QStringLiteral("digits%1").arg(tag)); }
    QAction* zeros() const { return item("addZeros"); }

    // As a person does: with clicks, and in the submenus with keys.
    void chooseType(int type) const {
        inMenuOf(types(), [&] { clickEntry(types()->menu(), types()->itemAtIndex(type)); });
    }
    void chooseSeparators() const {
        inMenuOf(types(), [&] { clickEntry(types()->menu(), item("thousandsSeparators")); });
    }
    void chooseDigits(QAction* entry) const {
        inMenuOf(digits(), [&] { pressDigits(entry); });
    }
    void pressDigits(QAction* entry) const {
        QMenu* const menu = digits()->menu();
        for (QAction* top : menu->actions()) {
            if (top == entry) pressEntry(menu, entry);
            if (top->menu() == nullptr || !top->menu()->actions().contains(entry)) continue;
            pressEntry(menu, top);
            pressEntry(top->menu(), entry);
        }
        menu->close();
    }
    void chooseDigits(int tag) const { chooseDigits(digitItem(tag)); }
    void chooseAngle(int segment) const {
        QTest::mouseClick(document.degreesRadiansSegmentedControl()->findChildren<QRadioButton*>().at(segment),
                          Qt::LeftButton);
    }

    /// What is marked among the digits: tags, and the two submenus' letters.
    QString marks() const {
        QStringList marked;
        for (int tag = 0; tag < tagCount; ++tag) {
            if (digitItem(tag)->isChecked()) marked.append(QString::number(tag));
        }
        if (digits()->itemAtIndex(2)->isChecked()) marked.append("figures");
        if (digits()->itemAtIndex(3)->isChecked()) marked.append("places");
        return marked.join(u' ');
    }
    QString lastAnswer() const { return history().trimmed().section(u'\t', -1); }
};

QStringList textsOf(const QMenu* menu) {
    QStringList texts;
    for (const QAction* entry : menu->actions()) texts.append(entry->isSeparator() ? "-" : entry->text());
    return texts;
}

TEST(FormatControls, startWithDecimalAutomaticAndRadians) {
    const OpenFormats open;
    EXPECT_EQ(open.types()->title(), "Decimal");
    EXPECT_TRUE(open.types()->itemAtIndex(1)->isChecked());
    EXPECT_EQ(open.types()->indexOfSelectedItem(), 0);
    EXPECT_EQ(open.digits()->title(), "Auto Digit Formatting");
    EXPECT_EQ(open.marks(), "0");
    EXPECT_TRUE(open.zeros()->isChecked());
    EXPECT_FALSE(open.zeros()->isEnabled());
    EXPECT_EQ(open.document.degreesRadiansSegmentedControl()->selectedSegment(), 0);
}

TEST(FormatControls, haveTheseMenus) {
    const OpenFormats open;
    EXPECT_EQ(textsOf(open.types()->menu()),
              QStringList({"&Decimal", "&Scientific", "&Engineering", "&Percent", "&Binary", "&Octal", "&Hexadecimal",
                           "-", "&Thousands Separators"}));
    EXPECT_EQ(textsOf(open.digits()->menu()),
              QStringList({"&Auto Digit Formatting", "&Significant Figures", "&Decimal Places"}));
    EXPECT_EQ(textsOf(open.digits()->itemAtIndex(2)->menu()),
              QStringList({"&1 Figure", "&2 Figures", "&3 Figures", "&4 Figures", "&5 Figures", "&6 Figures",
                           "&7 Figures", "&8 Figures", "&9 Figures", "1&0 Figures"}));
    EXPECT_EQ(textsOf(open.digits()->itemAtIndex(3)->menu()),
              QStringList({"&0 Places", "&1 Place", "&2 Places", "&3 Places", "&4 Places", "&5 Places", "&6 Places",
                           "&7 Places", "&8 Places", "&9 Places", "10 &Places", "-", "Add &Zeros After Digits"}));
}

TEST(FormatControls, areNamed) {
    const OpenFormats open;
    EXPECT_EQ(open.types()->accessibleName(), "Number format");
    EXPECT_EQ(open.digits()->accessibleName(), "Digits");
    EXPECT_EQ(open.document.degreesRadiansSegmentedControl()->accessibleName(), "Angle unit");
    EXPECT_EQ(open.document.documentWindow()->findChild<QWidget*>("miniModeButton")->accessibleName(), "Mini mode");
    // What is chosen is heard too.
    EXPECT_EQ(open.types()->accessibleDescription(), "Decimal");
    open.chooseType(2);
    EXPECT_EQ(open.types()->accessibleDescription(), "Scientific");
}

TEST(FormatControls, leaveTheFocusAndTheFlagsOfTheEntry) {
    const OpenFormats open;
    open.press(u"2+3⏎");
    open.chooseType(2);
    open.chooseDigits(12);
    open.chooseAngle(1);
    EXPECT_EQ(open.document.documentWindow()->focusWidget(), open.entry());
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

TEST(FormatControls, areReachedByTabInOrder) {
    const OpenFormats open;
    const QWidget* const window = open.document.documentWindow();
    const auto segments = open.document.degreesRadiansSegmentedControl()->findChildren<QRadioButton*>();
    const QList<QWidget*> order = {open.types(),
                                   open.digits(),
                                   segments.first(),
                                   window->findChild<QWidget*>("miniModeButton"),
                                   open.document.variableOutlineView(),
                                   open.document.mainField(),
                                   open.entry()};
    for (const QWidget* expected : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), expected);
    }
    for (auto expected = order.rbegin() + 1; expected != order.rend(); ++expected) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget(), *expected);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(FormatControls, stayInOrderWithDegrees) {
    const OpenFormats open;
    open.chooseAngle(1);
    open.digits()->setFocus();
    QTest::keyClick(open.digits(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(),
              open.document.degreesRadiansSegmentedControl()->findChildren<QRadioButton*>().last());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "miniModeButton");
}

TEST(FormatControls, areUsedWithKeys) {
    OpenFormats open;
    open.types()->setFocus();
    QTimer::singleShot(0, open.types(), [&] { QTest::keyClick(open.types()->menu(), Qt::Key_H); });
    QTest::keyClick(open.types(), Qt::Key_Space);
    EXPECT_EQ(open.settings().formattingType(), TXFormattingType::hexadecimal);
    EXPECT_EQ(open.types()->title(), "Hexadecimal");
}

TEST(FormatControls, doNotMoveWhenTheirTitlesChange) {
    const OpenFormats open;
    const QRect types = open.types()->geometry();
    const QRect digits = open.digits()->geometry();
    for (int type = 1; type <= typeCount; ++type) {
        open.chooseType(type);
        EXPECT_EQ(open.types()->geometry(), types);
        EXPECT_FALSE(open.types()->isElided());
    }
    open.chooseType(1);
    for (int tag = 0; tag < tagCount; ++tag) {
        open.chooseDigits(tag);
        EXPECT_EQ(open.digits()->geometry(), digits);
        EXPECT_FALSE(open.digits()->isElided());
    }
}

TEST(FormatControls, elideTheirTitlesInANarrowWindow) {
    const OpenFormats open;
    EXPECT_EQ(open.digits()->toolTip(), "");
    open.document.documentWindow()->resize(420, 260);
    QTest::qWait(0);
    EXPECT_EQ(open.document.documentWindow()->width(), 420);
    EXPECT_TRUE(open.digits()->isElided());
    EXPECT_EQ(open.digits()->toolTip(), "Auto Digit Formatting");
    const auto* const mini = open.document.documentWindow()->findChild<QWidget*>("miniModeButton");
    EXPECT_LE(mini->geometry().right(), 420 - 8);
    EXPECT_GE(mini->width(), mini->minimumSizeHint().width());
}

TEST(BottomBar, isAsHighAsItShouldBe) {
    const OpenFormats open;
    const QWidget* const window = open.document.documentWindow();
    EXPECT_EQ(window->findChild<QWidget*>("bottomBar")->height(), 36);
    EXPECT_EQ(window->findChild<QWidget*>("bottomBarLine")->height(), 1);
    EXPECT_EQ(window->findChild<QWidget*>("miniModeButton")->height(), 26);
    EXPECT_EQ(open.types()->height(), 26);
    EXPECT_EQ(open.types()->x(), 8);
}

TEST(ChangeNumberFormatting, marksAndNamesTheChosenType) {
    OpenFormats open;
    const char* const titles[] = {"Decimal", "Scientific", "Engineering", "Percent", "Binary", "Octal", "Hexadecimal"};
    for (const int type : {7, 6, 5, 4, 3, 2, 1, 1}) {
        open.chooseType(type);
        EXPECT_EQ(open.settings().formattingType(), type);
        EXPECT_EQ(open.types()->title(), titles[type - 1]);
        for (int other = 1; other <= typeCount; ++other) {
            EXPECT_EQ(open.types()->itemAtIndex(other)->isChecked(), other == type);
        }
    }
}

TEST(ChangeNumberFormatting, doesNothingForAnyOtherItem) {
    OpenFormats open;
    open.chooseType(3);
    for (const int index : {0, 8, 9, -1}) {
        open.types()->selectItemAtIndex(index);
        open.document.changeNumberFormatting(open.types());
        EXPECT_EQ(open.settings().formattingType(), 3) << index;
        EXPECT_EQ(open.types()->title(), "Engineering");
        EXPECT_TRUE(open.types()->itemAtIndex(3)->isChecked());
    }
}

TEST(ChangeNumberFormatting, hasNoDigitsInOtherBases) {
    OpenFormats open;
    open.chooseDigits(13);
    EXPECT_EQ(open.digits()->title(), "2 Decimal Places");
    for (const int type : {5, 6, 7}) {
        open.chooseType(type);
        EXPECT_FALSE(open.digits()->isEnabled());
        EXPECT_EQ(open.digits()->title(), "Auto Digit Formatting");
        EXPECT_EQ(open.settings().decimalPlaces(), 2);
    }
    for (const int type : {1, 2, 3, 4}) {
        open.chooseType(5);
        open.chooseType(type);
        EXPECT_TRUE(open.digits()->isEnabled());
        EXPECT_EQ(open.digits()->title(), "2 Decimal Places");
    }
}

TEST(ChangeDigitFormatting, marksAndNamesEachChoice) {
    OpenFormats open;
    for (int tag = tagCount - 1; tag >= 0; --tag) {
        open.chooseDigits(tag);
        EXPECT_EQ(open.settings().digitIndexForSettingsController(), static_cast<unsigned int>(tag));
        QString marks = QString::number(tag);
        if (tag >= 1 && tag <= 10) marks += " figures";
        if (tag >= 11 && tag <= 20) marks += " places";
        EXPECT_EQ(open.marks(), marks);
    }
}

TEST(ChangeDigitFormatting, staysWhereItIsWhenItIsChosenAgain) {
    const OpenFormats open;
    open.chooseDigits(3);
    open.chooseDigits(3);
    EXPECT_EQ(open.marks(), "3 figures");
}

TEST(ChangeDigitFormatting, leavesTheSubmenuOfTenPlacesUnmarked) {
    const OpenFormats open;
    open.chooseDigits(20);
    EXPECT_EQ(open.marks(), "20 places");
    open.chooseDigits(21);
    EXPECT_EQ(open.marks(), "21");
}

TEST(ChangeDigitFormatting, doesNothingForATagThatIsNone) {
    OpenFormats open;
    open.chooseDigits(5);
    QAction stranger;
    for (const int tag : {-1, 22, 100}) {
        stranger.setData(tag);
        open.document.changeDigitFormatting(&stranger);
        EXPECT_EQ(open.settings().significantFigures(), 5);
        EXPECT_EQ(open.marks(), "5 figures");
    }
}

TEST(DigitTitle, saysEachSetting) {
    OpenFormats open;
    const QString titles[tagCount] = {
        "Auto Digit Formatting", "1 Significant Figure",  "2 Significant Figures",  "3 Significant Figures",
        "4 Significant Figures", "5 Significant Figures", "6 Significant Figures",  "7 Significant Figures",
        "8 Significant Figures", "9 Significant Figures", "10 Significant Figures", "0 Decimal Places",
        "1 Decimal Place",       "2 Decimal Places",      "3 Decimal Places",       "4 Decimal Places",
        "5 Decimal Places",      "6 Decimal Places",      "7 Decimal Places",       "8 Decimal Places",
        "9 Decimal Places",      "10 Decimal Places"};
    TXNumberFormatterSettings& settings = open.document.documentNumberFormatterSettings();
    for (unsigned int index = 0; index < tagCount; ++index) {
        settings.setDigitsWithSettingsControllerIndex(index);
        open.document.refreshDigitFormattingPopUpButtonTitle();
        EXPECT_EQ(open.digits()->title(), titles[index]);
    }
    settings.setDecimalPlaces(11);
    ASSERT_EQ(settings.digitIndexForSettingsController(), 22U);
    open.document.refreshDigitFormattingPopUpButtonTitle();
    EXPECT_EQ(open.digits()->title(), "10 Decimal Places");
}

TEST(AddZeros, canBeChosenWithAtLeastOnePlace) {
    OpenFormats open;
    open.chooseDigits(12);
    EXPECT_TRUE(open.zeros()->isEnabled());
    EXPECT_TRUE(open.zeros()->isChecked());
    open.chooseDigits(11);
    EXPECT_FALSE(open.zeros()->isEnabled());
    EXPECT_FALSE(open.zeros()->isChecked());
    EXPECT_TRUE(open.settings().addZerosInDecimalMode());
    open.chooseDigits(13);
    EXPECT_TRUE(open.zeros()->isEnabled());
    EXPECT_TRUE(open.zeros()->isChecked());
    // Without decimal places the mark stays as it is.
    open.chooseDigits(10);
    EXPECT_FALSE(open.zeros()->isEnabled());
    EXPECT_TRUE(open.zeros()->isChecked());
    open.chooseDigits(11);
    open.chooseDigits(0);
    EXPECT_FALSE(open.zeros()->isEnabled());
    EXPECT_FALSE(open.zeros()->isChecked());
}

TEST(AddZeros, flipsWithEachChoice) {
    OpenFormats open;
    open.chooseDigits(13);
    open.chooseDigits(open.zeros());
    EXPECT_FALSE(open.settings().addZerosInDecimalMode());
    EXPECT_FALSE(open.zeros()->isChecked());
    open.press(u"1/4*2⏎");
    EXPECT_EQ(open.lastAnswer(), "= 0.5");
    open.chooseDigits(14);
    EXPECT_FALSE(open.zeros()->isChecked());
    open.chooseDigits(open.zeros());
    EXPECT_TRUE(open.settings().addZerosInDecimalMode());
    EXPECT_TRUE(open.zeros()->isChecked());
    open.press(u"⌘1/4*2⏎");
    EXPECT_EQ(open.lastAnswer(), "= 0.500");
}

TEST(ThousandsSeparators, flipWithEachChoice) {
    OpenFormats open;
    open.chooseSeparators();
    EXPECT_TRUE(open.settings().thousandsSeparators());
    EXPECT_TRUE(open.item("thousandsSeparators")->isChecked());
    open.press(u"1234567.891⏎");
    EXPECT_EQ(open.lastAnswer(), "= 1,234,567.891");
    open.document.changeThousandsSeparatorCharacter(2);
    open.press(u"⌘1234567.891⏎");
    EXPECT_EQ(open.lastAnswer(), "= 1'234'567.891");
    open.chooseSeparators();
    EXPECT_FALSE(open.settings().thousandsSeparators());
    EXPECT_FALSE(open.item("thousandsSeparators")->isChecked());
    open.press(u"⌘1234567.891⏎");
    EXPECT_EQ(open.lastAnswer(), "= 1234567.891");
    EXPECT_EQ(open.types()->title(), "Decimal");
}

TEST(ExponentCharacter, changesNothingThatIsShown) {
    OpenFormats open;
    open.chooseType(2);
    open.document.changeExponentCharacter(1);
    open.press(u"12⏎");
    EXPECT_EQ(open.lastAnswer(), "= 1.2e1");
}

TEST(History, staysAsItWasWrittenWhenTheFormatChanges) {
    const OpenFormats open;
    open.press(u"1/3⏎");
    const QString before = open.history();
    open.chooseType(2);
    open.chooseDigits(3);
    open.chooseSeparators();
    EXPECT_EQ(open.history(), before);
    open.press(u"⌘1/3⏎");
    EXPECT_EQ(open.history(), before + "\n1/3\n\t= 3.33e-1\n");
}

/// Every notation with every choice of digits.
class EachFormat : public testing::TestWithParam<int> {};

TEST_P(EachFormat, isWhatTheFormatterWrites) {
    const OpenFormats open;
    const std::pair<QString, double> numbers[] = {
        {"12345.678", 12345.678}, {"0-2.5", -2.5}, {"7", 7.0}, {"0.000012345", 0.000012345}, {"0-1e300", -1e300}};
    for (int tag = 0; tag < tagCount; ++tag) {
        open.chooseType(TXFormattingType::decimal);
        open.chooseDigits(tag);
        open.chooseType(GetParam());
        TXNumberFormatterSettings settings;
        settings.setFormattingType(static_cast<std::int8_t>(GetParam()));
        settings.setDigitsWithSettingsControllerIndex(static_cast<unsigned int>(tag));
        TXNumberFormatter formatter(&settings);
        for (const auto& [typed, number] : numbers) {
            open.press(QString::fromUtf8("⌘") + typed + QString::fromUtf8("⏎"));
            EXPECT_EQ(open.lastAnswer(), "= " + QString::fromStdU16String(formatter.formattedNumberForNumber(number)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Types, EachFormat, testing::Range(1, typeCount + 1));

TEST(AngleUnit, isChosenWithTheMouse) {
    OpenFormats open;
    open.press(u"sin(90)⏎");
    EXPECT_EQ(open.lastAnswer(), "= 0.89399666360055");
    open.chooseAngle(1);
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
    open.press(u"⌘sin(90)⏎");
    EXPECT_EQ(open.lastAnswer(), "= 1");
    open.chooseAngle(0);
    EXPECT_TRUE(open.document.documentEquationController().useRadians());
}

TEST(AngleUnit, isChosenWithArrows) {
    OpenFormats open;
    const auto segments = open.document.degreesRadiansSegmentedControl()->findChildren<QRadioButton*>();
    segments.first()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
    EXPECT_TRUE(segments.last()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(open.document.documentEquationController().useRadians());
    segments.last()->setFocus();
    QTest::keyClick(segments.last(), Qt::Key_Space);
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
}

TEST(AngleUnit, isThatOfTheDefaults) {
    const FreshDefaults fresh;
    QSettings().setValue("TXUsesRadiansForNewDocuments", false);
    const MyDocument document;
    EXPECT_EQ(document.degreesRadiansSegmentedControl()->selectedSegment(), 1);
    EXPECT_FALSE(document.angleUnitActions().first()->isChecked());
    EXPECT_TRUE(document.angleUnitActions().last()->isChecked());
}

TEST(AngleUnit, hasEntriesThatStayInStep) {
    OpenFormats open;
    const QList<QAction*> entries = open.document.angleUnitActions();
    entries.last()->trigger();
    EXPECT_EQ(open.document.degreesRadiansSegmentedControl()->selectedSegment(), 1);
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
    open.chooseAngle(0);
    EXPECT_TRUE(entries.first()->isChecked());
    EXPECT_FALSE(entries.last()->isChecked());
}

}  // namespace
