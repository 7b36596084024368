// The program's names, and its start.

#include "app/Application.h"

#include <QScopeGuard>
#include <QTemporaryDir>

#include "tests/support/ApplicationTest.h"
#include "tests/support/handOver.h"

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

struct LaterStart : ApplicationTest {
    LaterStart() {
        EXPECT_FALSE(channel.hasRunningProgram());
        application.listen(channel);
        application.start();
    }
    ~LaterStart() override { qunsetenv("XDG_ACTIVATION_TOKEN"); }

    QTemporaryDir folder;
    StartChannel channel{folder.filePath("tallix")};
    StartChannel later{folder.filePath("tallix")};
};

TEST_F(LaterStart, getsAnActiveWindowOfItsOwn) {
    ASSERT_TRUE(isHandedOver(later));
    ASSERT_EQ(application.documents().documents().size(), 2);
    EXPECT_TRUE(QTest::qWaitForWindowActive(application.documents().documents().last()->documentWindow()));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(LaterStart, bringsItsLeaveToComeToTheFront) {
    ASSERT_TRUE(isHandedOver(later, "token-7"));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-7");
}

TEST_F(LaterStart, isTheFirstOneAfterTheLastWindow) {
    application.documents().closeAll();
    EXPECT_FALSE(later.hasRunningProgram());
}

}  // namespace
