#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// The tests of windows share one application. Its settings live in a folder that goes with it, in the C locale.
int main(int argc, char** argv) {
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "none:");  // Not the user's desktop, with its colours.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);

    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    QApplication::setOrganizationName("Tallix");
    QApplication::setApplicationName("tallix");
    return RUN_ALL_TESTS();
}
