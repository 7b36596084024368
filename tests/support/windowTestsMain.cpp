#include <QApplication>

#include <gtest/gtest.h>

#include "tests/support/OwnFolders.h"

// The tests of windows share one application, in the C locale. Its settings and sockets live in folders that go with
// it.
int main(int argc, char** argv) {
    const OwnFolders folders;
    qputenv("DBUS_SESSION_BUS_ADDRESS", "none:");  // Not the user's desktop, with its colours.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);

    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    QApplication::setOrganizationName("Tallix");
    QApplication::setApplicationName("tallix");
    return RUN_ALL_TESTS();
}
