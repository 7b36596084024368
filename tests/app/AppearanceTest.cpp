// The colours of the program: what is stored, what the desktop prefers, and what comes of both.

#include "app/Appearance.h"

#include <QComboBox>
#include <QDBusVariant>
#include <QDialog>
#include <QSignalSpy>

#include "tests/support/ApplicationTest.h"
#include "tests/support/contrast.h"
#include "ui/UserDefaults.h"

namespace {

using Choice = Appearance::Choice;

struct AppearanceTest : testing::Test {
    static QPalette shown() { return QApplication::palette(); }
    void setDesktopDark(bool isDark) {
        scheme.takeSetting("org.freedesktop.appearance", "color-scheme", QDBusVariant(isDark ? 1U : 2U));
    }

    SettingsFolder settings;
    ColorScheme scheme;
};

TEST_F(AppearanceTest, followsTheSystemAtFirst) {
    const Appearance appearance(scheme);
    EXPECT_EQ(Appearance::storedChoice(), Choice::followSystem);
    EXPECT_EQ(shown(), Appearance::lightPalette());
    setDesktopDark(true);
    EXPECT_EQ(shown(), Appearance::darkPalette());
    setDesktopDark(false);
    EXPECT_EQ(shown(), Appearance::lightPalette());
}

TEST_F(AppearanceTest, isWhatTheUserChose) {
    Appearance appearance(scheme);
    for (const bool isDesktopDark : {false, true}) {
        setDesktopDark(isDesktopDark);
        appearance.setChoice(Choice::dark);
        EXPECT_EQ(shown(), Appearance::darkPalette());
        appearance.setChoice(Choice::light);
        EXPECT_EQ(shown(), Appearance::lightPalette());
        appearance.setChoice(Choice::followSystem);
        EXPECT_EQ(shown(), isDesktopDark ? Appearance::darkPalette() : Appearance::lightPalette());
    }
    appearance.setChoice(Choice::light);
    setDesktopDark(false);
    setDesktopDark(true);
    EXPECT_EQ(shown(), Appearance::lightPalette());
}

TEST_F(AppearanceTest, isKeptForTheNextStart) {
    for (const Choice choice : {Choice::dark, Choice::light, Choice::followSystem}) {
        Appearance(scheme).setChoice(choice);
        EXPECT_EQ(Appearance::storedChoice(), choice);
        const Appearance next(scheme);
        EXPECT_EQ(shown(), choice == Choice::dark ? Appearance::darkPalette() : Appearance::lightPalette());
    }
    EXPECT_EQ(UserDefaults().interfaceValueForKey("colors").toString(), "system");
}

TEST_F(AppearanceTest, takesAnythingElseThatIsStoredForTheSystem) {
    for (const QVariant& stored : {QVariant("purple"), QVariant(2), QVariant(QStringList({"dark", "light"}))}) {
        UserDefaults().setInterfaceValue(stored, "colors");
        EXPECT_EQ(Appearance::storedChoice(), Choice::followSystem);
    }
}

TEST_F(AppearanceTest, goesWithTheProgram) {
    const QPalette before = shown();
    {
        Appearance appearance(scheme);
        appearance.setChoice(Choice::dark);
    }
    EXPECT_EQ(shown(), before);
    setDesktopDark(true);
    EXPECT_EQ(shown(), before);
}

// Every window hears of it, but the program's colours are looked at once.
TEST_F(AppearanceTest, looksAgainWhenTheDesktopsThemeChanges) {
    const Appearance appearance(scheme);
    QWindow windows[2];
    QApplication::setPalette(QPalette(Qt::red));
    for (QWindow& window : windows) {
        QEvent changed(QEvent::ThemeChange);
        QCoreApplication::sendEvent(&window, &changed);
    }
    QTest::qWait(0);
    EXPECT_EQ(shown(), Appearance::lightPalette());
}

TEST(AppearancePalettes, canBeRead) {
    using Role = QPalette::ColorRole;
    const std::pair<Role, Role> pairs[] = {{QPalette::WindowText, QPalette::Window},
                                           {QPalette::Text, QPalette::Base},
                                           {QPalette::Text, QPalette::AlternateBase},
                                           {QPalette::ButtonText, QPalette::Button},
                                           {QPalette::ToolTipText, QPalette::ToolTipBase},
                                           {QPalette::HighlightedText, QPalette::Highlight},
                                           {QPalette::Link, QPalette::Base},
                                           {QPalette::LinkVisited, QPalette::Base},
                                           {QPalette::Link, QPalette::Window},
                                           {QPalette::LinkVisited, QPalette::Window},
                                           {QPalette::PlaceholderText, QPalette::Base},
                                           {QPalette::PlaceholderText, QPalette::Window}};
    for (const QPalette& palette : {Appearance::lightPalette(), Appearance::darkPalette()}) {
        for (const auto& [text, background] : pairs) {
            EXPECT_GE(contrastRatio(palette.color(text), palette.color(background)), 4.5)
                << text << " on " << background;
        }
    }
    EXPECT_EQ(Appearance::darkPalette().color(QPalette::Window), QColor("#36363A"));
    EXPECT_EQ(Appearance::darkPalette().color(QPalette::Base), QColor("#222226"));
}

using AppearanceInPreferences = ApplicationTest;

TEST_F(AppearanceInPreferences, isChosenThereAndActsAtOnce) {
    MyDocument& document = openDocument();
    application.preferences().ShowPreferencePanel();
    QComboBox* const box = application.preferences().preferenceController()->colorsBox();
    EXPECT_EQ(box->currentText(), "Follow the system");
    const struct {
        int key;
        const char* title;
        const char* stored;
        QPalette palette;
    } choices[] = {{Qt::Key_End, "Dark", "dark", Appearance::darkPalette()},
                   {Qt::Key_Up, "Light", "light", Appearance::lightPalette()},
                   {Qt::Key_Home, "Follow the system", "system", Appearance::lightPalette()}};
    for (const auto& choice : choices) {
        QTest::keyClick(box, static_cast<Qt::Key>(choice.key));
        EXPECT_EQ(box->currentText(), choice.title);
        EXPECT_EQ(UserDefaults().interfaceValueForKey("colors").toString(), choice.stored);
        QCoreApplication::processEvents();
        for (QWidget* widget : {static_cast<QWidget*>(document.documentWindow()), static_cast<QWidget*>(box)}) {
            EXPECT_EQ(widget->palette().color(QPalette::Window), choice.palette.color(QPalette::Window));
        }
    }
}

TEST_F(AppearanceInPreferences, isShownAsItIsStored) {
    UserDefaults().setInterfaceValue("dark", "colors");
    application.preferences().ShowPreferencePanel();
    EXPECT_EQ(application.preferences().preferenceController()->colorsBox()->currentText(), "Dark");
}

TEST_F(AppearanceInPreferences, takesAnyMenu) {
    application.preferences().ShowPreferencePanel();
    PreferenceController* const controller = application.preferences().preferenceController();
    const QSignalSpy chosen(controller, &PreferenceController::colorsChosen);
    QComboBox menu;
    controller->changeColors(&menu);
    menu.addItems({"a", "b", "c", "d"});
    menu.setCurrentIndex(3);
    controller->changeColors(&menu);
    EXPECT_EQ(chosen.count(), 0);
}

}  // namespace
