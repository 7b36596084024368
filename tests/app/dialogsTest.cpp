// What all alerts and questions have in common.

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include "tests/support/EveryWindow.h"

namespace {

struct Dialogs : EveryWindow {
    QList<QMessageBox*> boxes() const { return full.documentWindow()->findChildren<QMessageBox*>(); }
};

TEST_F(Dialogs, areModalToTheirWindowOnly) {
    EXPECT_EQ(boxes().size(), 6);
    for (const QMessageBox* box : boxes()) {
        EXPECT_EQ(box->windowModality(), Qt::WindowModal) << box->text().toStdString();
        EXPECT_EQ(box->parentWidget(), full.documentWindow());
        EXPECT_TRUE(box->isWindow());
    }
    mini.showWindow();
    enter(mini, "2+3");
    EXPECT_EQ(mini.activeFormulaTextView()->text(), "2+3");
}

TEST_F(Dialogs, goWithEscapeAndChangeNothing) {
    const QString history = full.mainField()->toPlainText();
    for (QPointer<QMessageBox> box : boxes()) {
        QTest::keyClick(box, Qt::Key_Escape);
        deleteWhatIsClosed();
        EXPECT_TRUE(box.isNull());
    }
    EXPECT_EQ(full.mainField()->toPlainText(), history);
}

TEST_F(Dialogs, haveADefaultButtonThatCanBeSeen) {
    for (const QMessageBox* box : boxes()) {
        QPushButton* const button = box->defaultButton();
        ASSERT_NE(button, nullptr) << box->text().toStdString();
        EXPECT_TRUE(button->isDefault());
        const QImage picture = button->grab().toImage();
        button->setDefault(false);
        EXPECT_NE(button->grab().toImage(), picture) << box->text().toStdString();
        button->setDefault(true);
    }
}

TEST_F(Dialogs, takeReturnForTheDefaultButton) {
    for (QPointer<QMessageBox> box : boxes()) {
        const QSignalSpy clicked(box->defaultButton(), &QPushButton::clicked);
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_EQ(clicked.count(), 1);
        deleteWhatIsClosed();
        EXPECT_TRUE(box.isNull());
    }
    EXPECT_FALSE(full.documentEquationController().equationsArray().empty());
}

}  // namespace
