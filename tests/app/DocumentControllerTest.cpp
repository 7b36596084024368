// The list of open documents: order, titles, places, and what closing does.

#include "app/DocumentController.h"

#include <QDialog>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <ostream>

#include <QtTest/QSignalSpy>

#include "tests/support/ApplicationTest.h"
#include "ui/UserDefaults.h"

namespace {

using Documents = ApplicationTest;

QString titleOf(const MyDocument& document) { return document.documentWindow()->windowTitle(); }

TEST_F(Documents, areNoneAtFirst) {
    EXPECT_TRUE(application.documents().documents().isEmpty());
    EXPECT_EQ(application.documents().activeDocument(), nullptr);
}

TEST_F(Documents, openWithTheCaretInTheEntryLine) {
    application.start();
    ASSERT_EQ(application.documents().documents().size(), 1);
    MyDocument& document = *application.documents().documents().first();
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
    EXPECT_TRUE(document.formulaTextView()->hasFocus());
}

TEST_F(Documents, stayInTheOrderInWhichTheyWereMade) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    MyDocument& third = openDocument();
    first.showWindow();
    EXPECT_EQ(application.documents().documents(), (QList<MyDocument*>{&first, &second, &third}));
    second.close();
    EXPECT_EQ(application.documents().documents(), (QList<MyDocument*>{&first, &third}));
}

TEST_F(Documents, areNumberedFromTheSecondOnWithTheLowestFreeNumber) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    EXPECT_EQ(titleOf(first), "Untitled");
    EXPECT_EQ(titleOf(second), "Untitled 2");
    EXPECT_EQ(titleOf(openDocument()), "Untitled 3");
    second.close();
    EXPECT_EQ(titleOf(openDocument()), "Untitled 2");
    first.close();
    EXPECT_EQ(titleOf(openDocument()), "Untitled");
    EXPECT_EQ(titleOf(openDocument()), "Untitled 4");
}

TEST_F(Documents, showNoModifiedMark) {
    MyDocument& document = openDocument();
    QTest::keyClicks(document.formulaTextView(), "1+1");
    QTest::keyClick(document.formulaTextView(), Qt::Key_Return);
    EXPECT_FALSE(document.documentWindow()->isWindowModified());
}

TEST_F(Documents, cascade) {
    MyDocument& first = openDocument();
    first.documentWindow()->move(10, 20);
    const QPoint place = first.documentWindow()->pos();
    const QPoint next = openDocument().documentWindow()->pos();
    EXPECT_EQ(next - place, QPoint(24, 24));
    // From the active window, which need not be the newest.
    first.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(first.documentWindow()));
    EXPECT_EQ(openDocument().documentWindow()->pos(), next);
}

TEST_F(Documents, haveTheLayoutOfTheActiveOne) {
    MyDocument& first = openDocument();
    first.documentWindow()->setGeometry(10, 20, 640, 420);
    first.setSidebarShown(false);
    MyDocument& second = openDocument();
    EXPECT_EQ(second.documentWindow()->size(), QSize(640, 420));
    EXPECT_FALSE(second.isSidebarShown());
    EXPECT_FALSE(action(second, "sidebarAction")->isChecked());
}

TEST_F(Documents, leaveTheLayoutOfTheActiveOneToTheNextStart) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    second.documentWindow()->resize(800, 540);
    first.documentWindow()->setGeometry(15, 25, 600, 400);
    first.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(first.documentWindow()));
    application.documents().closeAll();
    EXPECT_EQ(MyDocument().documentWindow()->geometry(), QRect(15, 25, 600, 400));
}

TEST_F(Documents, beginAgainAtTheCornerWhereTheScreenEnds) {
    MyDocument& first = openDocument();
    const QRect screen = first.documentWindow()->screen()->availableGeometry();
    first.documentWindow()->move(screen.bottomRight() - QPoint(100, 100));
    EXPECT_EQ(openDocument().documentWindow()->pos(), screen.topLeft());
}

TEST_F(Documents, knowWhichIsActive) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    EXPECT_EQ(application.documents().activeDocument(), &second);
    first.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(first.documentWindow()));
    EXPECT_EQ(application.documents().activeDocument(), &first);
    // The preferences are no document: commands still go to the last one.
    application.preferences().ShowPreferencePanel();
    ASSERT_TRUE(QTest::qWaitForWindowActive(application.preferences().preferenceController()->window()));
    EXPECT_EQ(application.documents().activeDocument(), &first);
    first.close();
    EXPECT_EQ(application.documents().activeDocument(), &second);
    second.close();
    EXPECT_EQ(application.documents().activeDocument(), nullptr);
}

TEST_F(Documents, goWithTheirWindowWithoutAQuestion) {
    const QPointer<MyDocument> document = &openDocument();
    const QPointer<TXWindow> window = document->documentWindow();
    QTest::keyClicks(document->formulaTextView(), "half a line");
    window->close();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    deleteWhatIsClosed();
    EXPECT_TRUE(document.isNull());
    EXPECT_TRUE(window.isNull());
}

TEST_F(Documents, tellWhenTheLastOneIsClosedAndNotBefore) {
    QSignalSpy spy(&application.documents(), &DocumentController::lastDocumentClosed);
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    application.preferences().ShowPreferencePanel();
    first.close();
    EXPECT_EQ(spy.count(), 0);
    application.preferences().preferenceController()->window()->close();
    EXPECT_EQ(spy.count(), 0);
    application.preferences().showGreekLettersPanel();
    second.close();
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(Documents, areAllClosedAtOnce) {
    QSignalSpy spy(&application.documents(), &DocumentController::lastDocumentClosed);
    const QPointer<MyDocument> first = &openDocument();
    const QPointer<MyDocument> second = &openDocument();
    second->saveDocument();  // its alert does not hold it
    application.documents().closeAll();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_TRUE(application.documents().documents().isEmpty());
    deleteWhatIsClosed();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(second.isNull());
}

TEST_F(Documents, openAndCloseAHundredTimes) {
    openDocument();
    for (int i = 0; i < 100; ++i) {
        MyDocument& document = application.documents().newDocument();
        EXPECT_EQ(titleOf(document), "Untitled 2");
        document.close();
        deleteWhatIsClosed();
    }
    EXPECT_EQ(application.documents().documents().size(), 1);
}

TEST_F(Documents, areAHundredAtOnceAndAllClosed) {
    const QSignalSpy closed(&application.documents(), &DocumentController::lastDocumentClosed);
    QList<QPointer<QObject>> remaining;
    for (int i = 0; i < 100; ++i) {
        MyDocument& document = application.documents().newDocument();
        remaining += {&document, document.documentWindow(), document.miniWindow()};
    }
    EXPECT_EQ(application.documents().documents().size(), 100);
    EXPECT_EQ(titleOf(*application.documents().documents().last()), "Untitled 100");
    application.documents().closeAll();
    deleteWhatIsClosed();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(std::all_of(remaining.begin(), remaining.end(), [](const auto& object) { return object.isNull(); }));
    EXPECT_EQ(globalVariableArray, nullptr);
}

/// What can be open in front of a document's window when it is closed.
struct CoveredCase {
    const char* name;
    void (*cover)(Application& application, MyDocument& document);
};
void PrintTo(const CoveredCase& row, std::ostream* out) { *out << row.name; }
class CoveredDocument : public Documents, public testing::WithParamInterface<CoveredCase> {
protected:
    QPointer<MyDocument> openCovered() {
        MyDocument& document = openDocument();
        GetParam().cover(application, document);
        EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), document.documentWindow());
        return &document;
    }
};

TEST_P(CoveredDocument, isClosedWithWhatCoversIt) {
    MyDocument& other = openDocument();
    const QPointer<MyDocument> document = openCovered();
    const QPointer<QWidget> cover = QApplication::activeModalWidget();
    document->close();
    deleteWhatIsClosed();
    EXPECT_FALSE(document->documentWindow()->isVisible());
    EXPECT_TRUE(cover.isNull());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(application.documents().documents(), QList<MyDocument*>{&other});
    QTest::keyClicks(other.formulaTextView(), "1");
    EXPECT_EQ(other.formulaTextView()->text(), "1");
}

TEST_P(CoveredDocument, doesNotHoldUpTheEnd) {
    const QSignalSpy closed(&application.documents(), &DocumentController::lastDocumentClosed);
    const QPointer<MyDocument> first = openCovered();
    const QPointer<MyDocument> second = openCovered();
    application.documents().closeAll();
    EXPECT_EQ(closed.count(), 1);
    deleteWhatIsClosed();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Covers, CoveredDocument, testing::Values(
    CoveredCase{"PrintDialog",        [](Application& /*application*/, MyDocument& document) { document.printDocument(); }},
    CoveredCase{"Alert",              [](Application& /*application*/, MyDocument& document) { document.openDocument(); }},
    CoveredCase{"PanelUnderAnAlert",  [](Application& application, MyDocument& document) {
        application.preferences().showGreekLettersPanel();
        document.saveDocument();
    }}
), [](const auto& row) { return row.param.name; });
// clang-format on

struct ClosedDocuments : Documents {
    void enter(const MyDocument& document, const QString& line) const {
        QTest::keyClicks(document.activeFormulaTextView(), line);
        QTest::keyClick(document.activeFormulaTextView(), Qt::Key_Return);
    }
    /// The document that comes back when the keys are pressed in the other one.
    MyDocument& reopenByKey() {
        other.showWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(other.documentWindow()));
        QTest::keyClick(other.formulaTextView(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
        MyDocument* const last = application.documents().documents().last();
        EXPECT_NE(last, &other);
        EXPECT_TRUE(QTest::qWaitForWindowActive(last->activeWindow()));
        return *last;
    }

    MyDocument& other = openDocument();
};

TEST_F(ClosedDocuments, comeBackAsTheyWere) {
    MyDocument& document = openDocument();
    enter(document, "x=1234.5");
    enter(document, "x*2");
    trigger(document, "thousandsSeparators");
    trigger(document, "degrees");
    QTest::keyClicks(document.formulaTextView(), "half a line");
    const QString history = document.mainField()->toPlainText();
    const QRect place = document.documentWindow()->geometry();
    const QString title = titleOf(document);
    document.close();
    deleteWhatIsClosed();
    EXPECT_EQ(application.documents().documents(), QList<MyDocument*>{&other});
    MyDocument& reopened = reopenByKey();
    EXPECT_EQ(reopened.mainField()->toPlainText(), history);
    EXPECT_EQ(reopened.formulaTextView()->text(), "half a line");
    EXPECT_TRUE(reopened.formulaTextView()->hasFocus());
    EXPECT_EQ(reopened.documentWindow()->geometry(), place);
    EXPECT_EQ(titleOf(reopened), title);
    EXPECT_EQ(application.documents().activeDocument(), &reopened);
    QTest::keyClick(reopened.formulaTextView(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(reopened.formulaTextView()->text(), "x*2");
    QTest::keyClick(reopened.formulaTextView(), Qt::Key_Return);
    EXPECT_TRUE(reopened.mainField()->toPlainText().endsWith("x*2\n\t= 2,469\n"));
    EXPECT_FALSE(reopened.documentEquationController().useRadians());
}

TEST_F(ClosedDocuments, comeBackTheLastOneFirst) {
    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    enter(first, "1");
    enter(second, "2");
    first.close();
    second.close();
    EXPECT_EQ(reopenByKey().mainField()->toPlainText(), "2\n\t= 2\n");
    EXPECT_EQ(reopenByKey().mainField()->toPlainText(), "1\n\t= 1\n");
    EXPECT_FALSE(application.documents().hasClosedDocument());
    EXPECT_EQ(application.documents().reopenClosedDocument(), nullptr);
}

TEST_F(ClosedDocuments, enableTheEntryOfEveryMenu) {
    const char* const name = "reopenClosedWindowAction";
    EXPECT_FALSE(action(other, name)->isEnabled());
    openDocument().close();
    EXPECT_TRUE(action(other, name)->isEnabled());
    EXPECT_TRUE(action(openDocument(), name)->isEnabled());
    other.showWindow();
    application.documents().reopenClosedDocument();
    EXPECT_FALSE(action(other, name)->isEnabled());
}

TEST_F(ClosedDocuments, areKeptUpToANumber) {
    QList<QPointer<MyDocument>> closed;
    for (int i = 0; i < 12; ++i) {
        closed.append(&openDocument());
        closed.last()->close();
        deleteWhatIsClosed();
    }
    EXPECT_EQ(std::count_if(closed.begin(), closed.end(), [](const auto& document) { return document.isNull(); }), 2);
    EXPECT_TRUE(closed.at(1).isNull());
    for (int i = 0; i < 10; ++i) EXPECT_EQ(application.documents().reopenClosedDocument(), closed.at(11 - i));
    EXPECT_FALSE(application.documents().hasClosedDocument());
}

TEST_F(ClosedDocuments, takeAFreeNumberWhenTheirsIsTaken) {
    MyDocument& document = openDocument();
    document.close();
    EXPECT_EQ(titleOf(openDocument()), "Untitled 2");
    EXPECT_EQ(titleOf(*application.documents().reopenClosedDocument()), "Untitled 3");
}

TEST_F(ClosedDocuments, comeBackInTheMiniWindowTheyHad) {
    MyDocument& document = openDocument();
    document.windowShouldZoom();
    enter(document, "2+3");
    document.close();
    EXPECT_FALSE(document.miniWindow()->isVisible());
    trigger(other, "keepMiniWindowOnTopAction");
    MyDocument& reopened = reopenByKey();
    EXPECT_TRUE(reopened.isSmallWindowShown());
    EXPECT_TRUE(reopened.miniWindow()->isVisible());
    EXPECT_FALSE(reopened.documentWindow()->isVisible());
    EXPECT_TRUE(reopened.keepsMiniWindowOnTop());
    QTest::keyClicks(reopened.activeFormulaTextView(), "+");
    EXPECT_EQ(reopened.activeFormulaTextView()->text(), "ans+");
}

TEST_F(ClosedDocuments, canBeClosedAgain) {
    MyDocument& document = openDocument();
    document.close();
    reopenByKey().close();
    EXPECT_EQ(application.documents().documents(), QList<MyDocument*>{&other});
    EXPECT_EQ(&reopenByKey(), &document);
}

TEST_F(ClosedDocuments, goWithTheLastOpenOne) {
    const QPointer<MyDocument> document = &openDocument();
    document->close();
    const QSignalSpy closed(&application.documents(), &DocumentController::lastDocumentClosed);
    other.close();
    EXPECT_EQ(closed.count(), 1);
    deleteWhatIsClosed();
    EXPECT_TRUE(document.isNull());
    EXPECT_FALSE(application.documents().hasClosedDocument());
}

TEST_F(Documents, areNotActiveOnceTheyAreClosed) {
    MyDocument& document = openDocument();
    document.close();
    QEvent activation(QEvent::WindowActivate);  // may still come, until the window is gone
    QCoreApplication::sendEvent(document.documentWindow(), &activation);
    EXPECT_EQ(application.documents().activeDocument(), nullptr);
}

TEST_F(Documents, takeTheDefaultsOfTheirDay) {
    MyDocument& before = openDocument();
    UserDefaults().setBool(false, TXUserDefaultsKey::usesRadiansForNewDocuments);
    UserDefaults().setString("E", TXUserDefaultsKey::exponentsCharacter);
    UserDefaults().setString(" ", TXUserDefaultsKey::thousandsSeparatorCharacter);
    MyDocument& after = openDocument();
    EXPECT_TRUE(before.documentEquationController().useRadians());
    EXPECT_FALSE(after.documentEquationController().useRadians());
    EXPECT_EQ(before.documentNumberFormatterSettings().exponentCharacter(), u"e");
    EXPECT_EQ(after.documentNumberFormatterSettings().exponentCharacter(), u"E");
    EXPECT_EQ(before.documentNumberFormatterSettings().thousandsCharacter(), u",");
    EXPECT_EQ(after.documentNumberFormatterSettings().thousandsCharacter(), u" ");
}

}  // namespace
