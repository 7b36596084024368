// The program's names, and its start.

#include "app/Application.h"

#include <QIcon>
#include <QImage>
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

struct WindowIcon : testing::Test {
    ~WindowIcon() override {
        QIcon::setThemeSearchPaths(pathsBefore);
        QIcon::setThemeName(nameBefore);
        QGuiApplication::setWindowIcon({});
    }

    /// The icon that the program shows when its first window is there.
    QIcon icon() {
        application.start();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QGuiApplication::windowIcon().isNull(); }));
        return QGuiApplication::windowIcon();
    }

    const QStringList pathsBefore = QIcon::themeSearchPaths();
    const QString nameBefore = QIcon::themeName();
    QTemporaryDir themes;
    SettingsFolder settings;
    Application application;
};

TEST_F(WindowIcon, isBuiltInInEverySizeOfAWindow) {
    QIcon::setThemeSearchPaths({themes.path()});
    const QIcon shown = icon();
    EXPECT_FALSE(shown.availableSizes().contains(QSize(256, 256)));
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        EXPECT_TRUE(shown.availableSizes().contains(QSize(size, size))) << size;
        EXPECT_EQ(shown.pixmap(size).toImage().pixelColor(size / 2, size * 7 / 8).blue() / 16, 0xd0 / 16) << size;
    }
}

TEST_F(WindowIcon, isThatOfTheTheme) {
    ASSERT_TRUE(QDir(themes.path()).mkpath("own/16x16/apps"));
    QFile index(themes.filePath("own/index.theme"));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=own\nDirectories=16x16/apps\n\n[16x16/apps]\nSize=16\n");
    index.close();
    QImage green(16, 16, QImage::Format_RGB32);
    green.fill(Qt::green);
    ASSERT_TRUE(green.save(themes.filePath("own/16x16/apps/org.tallix.tallix.png")));
    QIcon::setThemeSearchPaths({themes.path()});
    QIcon::setThemeName("own");

    EXPECT_EQ(icon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::green));
}

TEST_F(WindowIcon, doesNotKeepTheFirstWindowWaiting) {
    application.start();
    EXPECT_TRUE(QGuiApplication::windowIcon().isNull());
}

TEST_F(WindowIcon, comesAlsoToAWindowThatIsNotPainted) {
    application.start();
    application.documents().documents().first()->documentWindow()->hide();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QGuiApplication::windowIcon().isNull(); }));
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

TEST_F(LaterStart, leavesNoTokenToProgramsThatAreStartedNextWhereNobodyTakesIt) {
    ASSERT_TRUE(isHandedOver(later, "token-7"));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(LaterStart, isTheFirstOneAfterTheLastWindow) {
    // In the loop that ends with the last document: otherwise the next loop would end in its place.
    const bool quitsBefore = QGuiApplication::quitOnLastWindowClosed();
    const auto restore = qScopeGuard([quitsBefore] { QGuiApplication::setQuitOnLastWindowClosed(quitsBefore); });
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QMetaObject::invokeMethod(
        &application, [this] { application.documents().closeAll(); }, Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(later.hasRunningProgram());
}

}  // namespace
