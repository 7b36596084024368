// The program's names, and its start.

#include "app/Application.h"

#include <QScopeGuard>

#include "tests/support/ApplicationTest.h"

namespace {

TEST(ApplicationNames, areThoseThatTheDesktopKnows) {
    const bool quitsBefore = QGuiApplication::quitOnLastWindowClosed();
    const auto restore = qScopeGuard([quitsBefore] { QGuiApplication::setQuitOnLastWindowClosed(quitsBefore); });
    Application::introduce();
    EXPECT_EQ(QCoreApplication::organizationName(), "Tallix");
    EXPECT_EQ(QCoreApplication::applicationName(), "tallix");
    EXPECT_EQ(QCoreApplication::applicationVersion(), TALLIX_VERSION);
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), "Tallix");
    EXPECT_EQ(QGuiApplication::desktopFileName(), "org.tallix.tallix");
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}

TEST(ApplicationStart, looksAtTheDefaultsOnceAndOpensOneDocument) {
    const SettingsFolder settings;
    settings.write("[General]\nTXExponentsCharacter=x\nTXPreferenceRevision=1\nTXThousandsSeparatorCharacter='\n");
    Application application;
    EXPECT_EQ(UserDefaults().stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter), "e");
    EXPECT_TRUE(application.documents().documents().isEmpty());

    UserDefaults().setString(".", TXUserDefaultsKey::thousandsSeparatorCharacter);
    application.start();
    EXPECT_EQ(UserDefaults().stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter), ".");
    ASSERT_EQ(application.documents().documents().size(), 1);
    // What no document knows leaves it with its own separator.
    MyDocument& document = *application.documents().documents().first();
    EXPECT_EQ(document.documentNumberFormatterSettings().thousandsCharacter(), u",");
}

}  // namespace
