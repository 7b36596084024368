// The inspector: which style it shows, and what its buttons ask a document for.

#include "ui/document/TXInspectorController.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "tests/support/DocumentTest.h"

namespace {

/// A document that knows the styles, and notes what it is asked for.
class StyledDocument : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE void setAnswerStyle(QObject* sender) { note("answer", sender); }
    Q_INVOKABLE void setRegularStyle(QObject* sender) { note("regular", sender); }
    Q_INVOKABLE void setCommentStyle(QObject* sender) { note("comment", sender); }
    Q_INVOKABLE void setHeadingStyle(QObject* sender) { note("heading", sender); }

    QStringList requests;

private:
    void note(const QString& style, const QObject* sender) { requests += style + " by " + sender->objectName(); }
};

struct Inspector : testing::Test {
    Inspector() { inspector->showWindow(); }

    /// The rows that are selected.
    QList<int> rows() const {
        QList<int> selected;
        for (const QModelIndex& index : inspector->stylesTableView()->selectionModel()->selectedRows()) {
            selected += index.row();
        }
        return selected;
    }

    void clickAllButtons() const {
        for (const char* name : {"answer", "regular", "comment", "heading"}) {
            auto* button = inspector->window()->findChild<QPushButton*>(QString(name) + "StyleButton");
            ASSERT_NE(button, nullptr) << name;
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    QObject owner;
    QWidget* mainWindow = nullptr;
    TXInspectorController* inspector = TXInspectorController::init([this] { return mainWindow; }, &owner);
};

TEST_F(Inspector, namesTheStyles) {
    const QTableWidget* const table = inspector->stylesTableView();
    QStringList names;
    for (int row = 0; row < table->rowCount(); ++row) names += table->item(row, 0)->text();
    EXPECT_EQ(names, QStringList({"Answer", "Equation", "Heading", "Paragraph"}));
    EXPECT_EQ(rows(), QList<int>());
}

TEST_F(Inspector, selectsTheRowOfTheStyleWithThisVeryName) {
    const std::pair<const char*, int> styles[] = {{"Paragraph", 3}, {"Answer", 0}, {"Heading", 2}, {"Equation", 1}};
    for (const auto& [name, row] : styles) {
        inspector->setFieldText(name);
        EXPECT_EQ(inspector->testField()->text(), name);
        EXPECT_EQ(rows(), QList<int>{row});
    }
    for (const char* other : {"paragraph", "ANSWER", "Answer ", "", "Comment"}) {
        inspector->setFieldText(other);
        EXPECT_EQ(inspector->testField()->text(), other);
        EXPECT_EQ(rows(), QList<int>{1}) << other;
    }
}

TEST_F(Inspector, selectsNothingForAnUnknownNameAtFirst) {
    inspector->setFieldText("paragraph");
    EXPECT_EQ(rows(), QList<int>());
}

TEST_F(Inspector, doesNothingWithARowThatIsChosen) {
    inspector->setFieldText("Answer");
    QTableWidget* const table = inspector->stylesTableView();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualItemRect(table->item(2, 0)).center());
    EXPECT_EQ(rows(), QList<int>{2});
    EXPECT_EQ(inspector->testField()->text(), "Answer");
    inspector->tableViewSelectionDidChange();
    EXPECT_EQ(rows(), QList<int>{2});
}

TEST_F(Inspector, sendsTheRequestsToTheDocumentOfTheMainWindow) {
    TXWindow window;
    StyledDocument document;
    window.setDocumentController(&document);
    mainWindow = &window;
    clickAllButtons();
    EXPECT_EQ(document.requests, QStringList({"answer by answerStyleButton", "regular by regularStyleButton",
                                              "comment by commentStyleButton", "heading by headingStyleButton"}));
}

TEST_F(Inspector, isIgnoredByADocumentThatLacksTheStyles) {
    const OpenDocument open;
    open.press(u"2+3⏎");
    mainWindow = open.document.documentWindow();
    testing::internal::CaptureStderr();
    clickAllButtons();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n");
}

TEST_F(Inspector, doesNothingWithoutAMainWindowOrDocument) {
    testing::internal::CaptureStderr();
    clickAllButtons();
    TXWindow empty;
    mainWindow = &empty;
    clickAllButtons();
    QWidget other;
    mainWindow = &other;
    clickAllButtons();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Inspector, isClosedByEsc) {
    EXPECT_FALSE(inspector->window()->isModal());
    QTest::keyClick(inspector->window(), Qt::Key_Escape);
    EXPECT_FALSE(inspector->window()->isVisible());
}

TEST(InspectorController, isTheOneThatThereIs) {
    QObject owner;
    const auto noWindow = [] { return nullptr; };
    TXInspectorController* const first = TXInspectorController::init(noWindow, &owner);
    EXPECT_EQ(inspectorController, nullptr);
    EXPECT_NE(TXInspectorController::init(noWindow, &owner), first);
    inspectorController = first;
    EXPECT_EQ(TXInspectorController::init(noWindow, &owner), first);
    delete first;
    EXPECT_EQ(inspectorController, nullptr);
}

}  // namespace

#include "TXInspectorControllerTest.moc"
