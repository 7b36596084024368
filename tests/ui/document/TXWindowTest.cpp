#include "ui/document/TXWindow.h"

#include <gtest/gtest.h>

namespace {

TEST(TXWindow, hasNoDocumentAtFirst) {
    const TXWindow window;
    EXPECT_EQ(window.documentController(), nullptr);
}

TEST(TXWindow, keepsItsDocument) {
    TXWindow window;
    QObject document;
    window.setDocumentController(&document);
    EXPECT_EQ(window.documentController(), &document);
}

TEST(TXWindow, forgetsADocumentThatIsGone) {
    TXWindow window;
    {
        QObject document;
        window.setDocumentController(&document);
    }
    EXPECT_EQ(window.documentController(), nullptr);
}

TEST(TXWindow, isTakenForWhatItIs) {
    TXWindow window;
    QWidget* const any = &window;
    EXPECT_EQ(TXWindow::initWithNSWindow(any), &window);
    QMainWindow other;
    EXPECT_EQ(TXWindow::initWithNSWindow(&other), nullptr);
    EXPECT_EQ(TXWindow::initWithNSWindow(nullptr), nullptr);
}

}  // namespace
