// The palette of Greek letters: what it shows, types and leaves alone.

#include "app/TXGreekLetterPanel.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QWindow>

#include "tests/support/ApplicationTest.h"

namespace {

struct GreekLetters : ApplicationTest {
    TXGreekLetterPanel* openPanel() {
        application.preferences().showGreekLettersPanel();
        auto* found = document.documentWindow()->findChildren<TXGreekLetterPanel*>().last();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(found));
        // Without a display every window that is shown becomes the active one.
        document.showWindow();
        EXPECT_TRUE(becomesActive(document.documentWindow()));
        return found;
    }

    /// Whether the window has the keyboard itself, and not one of the tool windows in front of it.
    static bool becomesActive(const QWidget* window) {
        return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; });
    }

    QPushButton* button(const QString& letter) const {
        for (auto* found : panel->findChildren<QPushButton*>()) {
            if (found->text() == letter) return found;
        }
        return nullptr;
    }

    QString nameLine() const { return panel->findChild<QLabel*>("nameLine")->text(); }
    QString focusedLetter() const {
        const auto* const focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
        return focused != nullptr ? focused->text() : QString();
    }
    void pressF6() const {
        QTest::keyClick(entry, Qt::Key_F6);
        EXPECT_TRUE(becomesActive(panel));
    }

    MyDocument& document = openDocument();
    TXFormulaEnteringTextView* entry = document.formulaTextView();
    TXGreekLetterPanel* panel = openPanel();
};

TEST_F(GreekLetters, standInFiveRows) {
    QStringList rows;
    int y = -1;
    for (const auto* found : panel->findChildren<QPushButton*>()) {
        if (found->y() != y) rows.append(QString());
        y = found->y();
        rows.last() += found->text();
    }
    EXPECT_EQ(rows, QStringList({"αβγδεζηθικλμ", "νξοπρστυφχψω", "ΑΒΓΔΕΖΗΘΙΚΛΜ", "ΝΞΟΠΡΣΤΥΦΧΨΩ", "±"}));
    EXPECT_EQ(panel->width(), 450);
    EXPECT_EQ(panel->height(), 226);
}

TEST_F(GreekLetters, doNotTakeTheFocusWhenClicked) {
    EXPECT_TRUE(panel->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(panel->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(QApplication::activeWindow(), document.documentWindow());
    QTest::mouseClick(button("β"), Qt::LeftButton);
    EXPECT_TRUE(entry->hasFocus());
    EXPECT_EQ(entry->text(), "β");
}

TEST_F(GreekLetters, areTypedAtTheCaretInTheLine) {
    QTest::keyClicks(entry, "2*+1");
    QTest::keyClick(entry, Qt::Key_Left);
    QTest::keyClick(entry, Qt::Key_Left);
    QTest::mouseClick(button("π"), Qt::LeftButton);
    QTest::mouseClick(button("Ω"), Qt::LeftButton);
    EXPECT_EQ(entry->text(), "2*πΩ+1");
}

TEST_F(GreekLetters, replaceTheCalculatedFormulaAndEndTheContinuation) {
    QTest::keyClicks(entry, "2+3");
    QTest::keyClick(entry, Qt::Key_Return);
    QTest::mouseClick(button("α"), Qt::LeftButton);
    QTest::keyClicks(entry, "+");
    EXPECT_EQ(entry->text(), "α+");
}

TEST_F(GreekLetters, makeNamesOfVariables) {
    for (const QString letter : {"α", "ω", "Γ"}) QTest::mouseClick(button(letter), Qt::LeftButton);
    QTest::keyClicks(entry, "=5");
    QTest::mouseClick(button("±"), Qt::LeftButton);
    QTest::keyClicks(entry, "1");
    QTest::keyClick(entry, Qt::Key_Return);
    EXPECT_EQ(document.mainField()->toPlainText(), "αωΓ=5±1\n\tαωΓ = 5\n");
}

TEST_F(GreekLetters, goIntoTheMiniWindowWhileThatIsInUse) {
    document.setIsSmallWindowShown(true);
    QTest::mouseClick(button("α"), Qt::LeftButton);
    EXPECT_EQ(document.miniModeformulaTextView()->text(), "α");
    EXPECT_EQ(entry->text(), "");
}

TEST_F(GreekLetters, standAboveTheWindowInUse) {
    document.windowShouldZoom();
    EXPECT_EQ(panel->windowHandle()->transientParent(), document.miniWindow()->windowHandle());
    application.preferences().showGreekLettersPanel();
    const auto* const opened = document.documentWindow()->findChildren<TXGreekLetterPanel*>().last();
    EXPECT_NE(opened, panel);
    EXPECT_EQ(opened->windowHandle()->transientParent(), document.miniWindow()->windowHandle());
    EXPECT_FALSE(opened->frameGeometry().intersects(document.miniWindow()->frameGeometry()));
    document.windowShouldZoom();
    EXPECT_EQ(panel->windowHandle()->transientParent(), document.documentWindow()->windowHandle());
}

TEST_F(GreekLetters, goIntoTheirOwnDocument) {
    const MyDocument& other = openDocument();
    QTest::mouseClick(button("α"), Qt::LeftButton);
    EXPECT_EQ(entry->text(), "α");
    EXPECT_EQ(other.formulaTextView()->text(), "");
}

TEST_F(GreekLetters, takeTheFocusByF6AndGiveItBack) {
    for (const auto key : {Qt::Key_F6, Qt::Key_Escape}) {
        pressF6();
        ASSERT_NE(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr);
        EXPECT_FALSE(panel->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
        QTest::keyClick(QApplication::focusWidget(), key);
        ASSERT_TRUE(becomesActive(document.documentWindow()));
        EXPECT_TRUE(entry->hasFocus());
        EXPECT_TRUE(panel->isVisible());
        EXPECT_TRUE(panel->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
    }
}

TEST_F(GreekLetters, areWalkedThroughWithArrowsAndTypedWithReturn) {
    pressF6();
    struct Step {
        Qt::Key key;
        const char* letter;
    };
    const Step steps[] = {
        {Qt::Key_Left, "α"},  {Qt::Key_Up, "α"},    {Qt::Key_Right, "β"}, {Qt::Key_Down, "ξ"}, {Qt::Key_Down, "Β"},
        {Qt::Key_Down, "Ξ"},  {Qt::Key_Down, "±"},  {Qt::Key_Down, "±"},  {Qt::Key_Up, "Ν"},   {Qt::Key_Left, "Ν"},
        {Qt::Key_Right, "Ξ"}, {Qt::Key_Right, "Ο"}, {Qt::Key_Up, "Γ"},
    };
    EXPECT_EQ(focusedLetter(), "α");
    for (const Step& step : steps) {
        QTest::keyClick(QApplication::focusWidget(), step.key);
        EXPECT_EQ(focusedLetter(), step.letter);
    }
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    EXPECT_EQ(entry->text(), "ΓΓΓ");
    for (int i = 0; i < 20; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(focusedLetter(), "Μ");
}

TEST_F(GreekLetters, rememberWhereTheFocusWas) {
    pressF6();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(document.documentWindow()));
    pressF6();
    EXPECT_EQ(focusedLetter(), "β");
}

TEST_F(GreekLetters, sayTheirNames) {
    EXPECT_EQ(nameLine(), "");
    const auto hover = [this](const char* letter) {
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(button(letter), &enter);
        return nameLine();
    };
    EXPECT_EQ(hover("α"), "alpha");
    EXPECT_EQ(hover("ω"), "omega");
    EXPECT_EQ(hover("Ω"), "capital omega");
    EXPECT_EQ(hover("π"), "pi, a letter; the constant is called pi");
    EXPECT_EQ(hover("±"), "plus-minus, for a tolerance");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button("±"), &leave);
    EXPECT_EQ(nameLine(), "");
    pressF6();
    EXPECT_EQ(nameLine(), "alpha");
    EXPECT_EQ(hover("ω"), "omega");
    QCoreApplication::sendEvent(button("ω"), &leave);
    EXPECT_EQ(nameLine(), "alpha");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(document.documentWindow()));
    EXPECT_EQ(nameLine(), "");
    EXPECT_EQ(button("π")->accessibleName(), "pi, a letter; the constant is called pi");
}

TEST_F(GreekLetters, lookLikeLettersOfNamesToTheEngine) {
    for (const auto* found : panel->findChildren<QPushButton*>()) {
        if (found->text() == "±") continue;
        const auto* const result =
            document.documentEquationController().addOneStringBlindly((found->text() + "=1").toStdU16String());
        ASSERT_TRUE(result);
        EXPECT_FALSE(result->isErrorMessage()) << found->text().toStdString();
    }
}

TEST_F(GreekLetters, areLeftToTheirOwnWhenAnotherPanelIsClosed) {
    const QPointer<TXGreekLetterPanel> second = openPanel();
    second->close();
    deleteWhatIsClosed();
    EXPECT_TRUE(second.isNull());
    QTest::mouseClick(button("α"), Qt::LeftButton);
    EXPECT_EQ(entry->text(), "α");
}

TEST_F(GreekLetters, goWithTheirDocument) {
    const QPointer<TXGreekLetterPanel> watched = panel;
    document.close();
    deleteWhatIsClosed();
    EXPECT_TRUE(watched.isNull());
}

TEST(GreekLetterKey, doesNothingWithoutAPanel) {
    const SettingsFolder settings;
    Application application;
    MyDocument& document = application.documents().newDocument();
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
    QTest::keyClick(document.formulaTextView(), Qt::Key_F6);
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
}

}  // namespace
