// The preferences window: what it shows, stores and sends to the open documents.

#include "app/PreferenceController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <ostream>

#include "tests/support/ApplicationTest.h"
#include "ui/UserDefaults.h"

namespace {

struct ShownCase {
    const char* name;
    QByteArray stored;
    int separator;
    int exponent;
    int angles;
};
void PrintTo(const ShownCase& row, std::ostream* out) { *out << row.stored.toStdString(); }
class Shown : public testing::TestWithParam<ShownCase> {};

TEST_P(Shown, isWhatIsStored) {
    const SettingsFolder settings;
    settings.write("[General]\n" + GetParam().stored);
    DocumentController documents;
    const PreferenceController controller(documents);
    EXPECT_EQ(controller.thousandsSeparatorsBox()->currentIndex(), GetParam().separator);
    EXPECT_EQ(controller.exponentialCharacterComboBox()->currentIndex(), GetParam().exponent);
    EXPECT_EQ(controller.degreesOrRadians()->currentIndex(), GetParam().angles);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Stored, Shown, testing::Values(
    ShownCase{"Nothing",        "",                                            0, 0, 0},
    ShownCase{"Comma",          "TXThousandsSeparatorCharacter=\",\"\n",       0, 0, 0},
    ShownCase{"Blank",          "TXThousandsSeparatorCharacter=\" \"\n",       1, 0, 0},
    ShownCase{"Apostrophe",     "TXThousandsSeparatorCharacter='\n",           2, 0, 0},
    ShownCase{"OtherSeparator", "TXThousandsSeparatorCharacter=e\n",           0, 0, 0},
    ShownCase{"SmallExponent",  "TXExponentsCharacter=e\n",                    0, 0, 0},
    ShownCase{"Capital",        "TXExponentsCharacter=E\n",                    0, 1, 0},
    ShownCase{"OtherExponent",  "TXExponentsCharacter=x\n",                    0, 0, 0},
    ShownCase{"Radians",        "TXUsesRadiansForNewDocuments=true\n",         0, 0, 0},
    ShownCase{"Degrees",        "TXUsesRadiansForNewDocuments=false\n",        0, 0, 1},
    ShownCase{"NoAngleUnit",    "TXUsesRadiansForNewDocuments=banana\n",       0, 0, 0}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST(PreferenceController, offersWhatHelpsInTheEntry) {
    const SettingsFolder settings;
    settings.write("[interface]\nsuggestNames=false\ncolorEquation=nonsense\n");
    DocumentController documents;
    const PreferenceController controller(documents);
    EXPECT_TRUE(controller.showsAnswerBox()->isChecked());
    EXPECT_FALSE(controller.suggestsNamesBox()->isChecked());
    EXPECT_FALSE(controller.colorsEquationBox()->isChecked());
}

TEST(PreferenceController, changesWhatHelpsInOpenAndNewDocuments) {
    const SettingsFolder settings;
    DocumentController documents;
    PreferenceController controller(documents);
    const MyDocument& open = documents.newDocument();
    controller.showWindow();
    QTest::keyClick(controller.colorsEquationBox(), Qt::Key_Space);
    EXPECT_EQ(open.entryOptions(), (EntryOptions{true, true, true}));
    QTest::mouseClick(controller.showsAnswerBox(), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    EXPECT_EQ(open.entryOptions(), (EntryOptions{false, true, true}));
    EXPECT_EQ(EntryOptions::stored(), open.entryOptions());
    EXPECT_EQ(documents.newDocument().entryOptions(), open.entryOptions());
}

TEST(PreferenceController, namesItsChoices) {
    const SettingsFolder settings;
    DocumentController documents;
    const PreferenceController controller(documents);
    const auto titles = [](const QComboBox* box) {
        QStringList texts;
        for (int i = 0; i < box->count(); ++i) texts.append(box->itemText(i));
        return texts;
    };
    EXPECT_EQ(titles(controller.thousandsSeparatorsBox()),
              QStringList({", (comma)", "blank (space)", "' (apostrophe)"}));
    EXPECT_EQ(titles(controller.exponentialCharacterComboBox()), QStringList({"e", "E"}));
    EXPECT_EQ(titles(controller.degreesOrRadians()), QStringList({"Radians", "Degrees"}));
    EXPECT_EQ(controller.exponentialCharacterComboBox()->toolTip(),
              "Kept for new documents; answers are always written with e");
}

TEST(PreferenceController, hasTwoFieldsThatDoNothing) {
    const SettingsFolder settings;
    DocumentController documents;
    const PreferenceController controller(documents);
    EXPECT_EQ(controller.colorWell(), nullptr);
    EXPECT_EQ(controller.checkbox(), nullptr);
}

/// The preferences window in front, and two open documents.
struct PreferencesTest : ApplicationTest {
    PreferenceController* openPreferences() {
        application.preferences().ShowPreferencePanel();
        PreferenceController* const opened = application.preferences().preferenceController();
        EXPECT_TRUE(QTest::qWaitForWindowActive(opened->window()));
        return opened;
    }

    /// Chooses by keyboard.
    static void choose(QComboBox* box, int index) {
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < index; ++i) QTest::keyClick(box, Qt::Key_Down);
    }

    static QString stored(const char* key) { return UserDefaults().stringForKey(key); }

    MyDocument& first = openDocument();
    MyDocument& second = openDocument();
    PreferenceController* controller = openPreferences();
};

TEST_F(PreferencesTest, sendsTheSeparatorToEveryDocumentAndStoresIt) {
    const QStringList texts = {",", " ", "'"};
    for (const int index : {2, 1, 0}) {
        choose(controller->thousandsSeparatorsBox(), index);
        for (MyDocument* document : {&first, &second}) {
            EXPECT_EQ(QString::fromStdU16String(document->documentNumberFormatterSettings().thousandsCharacter()),
                      texts[index]);
        }
        EXPECT_EQ(stored(TXUserDefaultsKey::thousandsSeparatorCharacter), texts[index]);
        EXPECT_EQ(QString::fromStdU16String(openDocument().documentNumberFormatterSettings().thousandsCharacter()),
                  texts[index]);
    }
}

TEST_F(PreferencesTest, sendsTheExponentCharacterToEveryDocumentAndStoresIt) {
    const QStringList texts = {"e", "E"};
    for (const int index : {1, 0}) {
        choose(controller->exponentialCharacterComboBox(), index);
        for (MyDocument* document : {&first, &second}) {
            EXPECT_EQ(QString::fromStdU16String(document->documentNumberFormatterSettings().exponentCharacter()),
                      texts[index]);
        }
        EXPECT_EQ(stored(TXUserDefaultsKey::exponentsCharacter), texts[index]);
        EXPECT_EQ(QString::fromStdU16String(openDocument().documentNumberFormatterSettings().exponentCharacter()),
                  texts[index]);
    }
}

TEST_F(PreferencesTest, storesAChoiceAfterTheDocumentsHaveIt) {
    QString separatorThen;
    QString exponentThen;
    QObject::connect(controller, &PreferenceController::thousandsSeparatorChosen, controller, [&] {
        EXPECT_EQ(second.documentNumberFormatterSettings().thousandsCharacter(), u"'");
        separatorThen = stored(TXUserDefaultsKey::thousandsSeparatorCharacter);
    });
    QObject::connect(controller, &PreferenceController::exponentCharacterChosen, controller, [&] {
        EXPECT_EQ(second.documentNumberFormatterSettings().exponentCharacter(), u"E");
        exponentThen = stored(TXUserDefaultsKey::exponentsCharacter);
    });
    QTest::keyClick(controller->thousandsSeparatorsBox(), Qt::Key_End);
    EXPECT_EQ(separatorThen, ",");
    choose(controller->exponentialCharacterComboBox(), 1);
    EXPECT_EQ(exponentThen, "e");
}

TEST_F(PreferencesTest, keepsTheAngleUnitForDocumentsMadeAfterwards) {
    choose(controller->degreesOrRadians(), 1);
    EXPECT_EQ(stored(TXUserDefaultsKey::usesRadiansForNewDocuments), "false");
    EXPECT_TRUE(first.documentEquationController().useRadians());
    EXPECT_TRUE(second.documentEquationController().useRadians());
    EXPECT_FALSE(openDocument().documentEquationController().useRadians());
    choose(controller->degreesOrRadians(), 0);
    EXPECT_EQ(stored(TXUserDefaultsKey::usesRadiansForNewDocuments), "true");
    EXPECT_TRUE(openDocument().documentEquationController().useRadians());
}

// What no entry stands for: nothing chosen, and more entries than there are meanings.
TEST_F(PreferencesTest, takesAnyMenu) {
    QComboBox menu;
    controller->changeThousandsSeparatorCharacter(&menu);
    EXPECT_EQ(stored(TXUserDefaultsKey::thousandsSeparatorCharacter), ",");
    controller->changeExponentCharacter(&menu);
    EXPECT_EQ(stored(TXUserDefaultsKey::exponentsCharacter), "e");
    controller->changeDefaultDocumentAngleUnits(&menu);
    EXPECT_EQ(stored(TXUserDefaultsKey::usesRadiansForNewDocuments), "false");

    menu.addItems({"e", "E", "E", "x"});
    menu.setCurrentIndex(3);
    controller->changeThousandsSeparatorCharacter(&menu);
    EXPECT_EQ(stored(TXUserDefaultsKey::thousandsSeparatorCharacter), ",");
    controller->changeExponentCharacter(&menu);
    EXPECT_EQ(stored(TXUserDefaultsKey::exponentsCharacter), "e");
    menu.setCurrentIndex(2);
    controller->changeExponentCharacter(&menu);  // The title is stored, whatever its position means to documents.
    EXPECT_EQ(stored(TXUserDefaultsKey::exponentsCharacter), "E");
    EXPECT_EQ(first.documentNumberFormatterSettings().exponentCharacter(), u"e");
}

TEST_F(PreferencesTest, storesNothingBeforeTheUserChooses) {
    UserDefaults().setString("x", TXUserDefaultsKey::exponentsCharacter);
    controller->windowDidLoad();
    EXPECT_EQ(stored(TXUserDefaultsKey::exponentsCharacter), "x");
    EXPECT_EQ(controller->exponentialCharacterComboBox()->currentIndex(), 0);
}

TEST_F(PreferencesTest, isClosedByEscReturnAndItsButton) {
    QDialog* const window = controller->window();
    EXPECT_FALSE(window->isModal());
    auto* const button = window->findChild<QPushButton*>("closeButton");
    EXPECT_TRUE(button->isDefault());
    EXPECT_TRUE(button->icon().isNull());
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        controller->showWindow();
        QTest::keyClick(window, key);
        EXPECT_FALSE(window->isVisible());
    }
    controller->showWindow();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(application.documents().documents().size(), 2);
}

TEST_F(PreferencesTest, isAsWideAsItsPage) {
    EXPECT_EQ(controller->window()->width(), 388);
    EXPECT_EQ(controller->window()->height(), controller->window()->sizeHint().height());
}

TEST_F(PreferencesTest, givesEveryChoiceAMnemonicOfItsOwn) {
    QStringList mnemonics;
    for (const auto* label : controller->window()->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) mnemonics += QKeySequence::mnemonic(label->text()).toString();
    }
    mnemonics += QKeySequence::mnemonic(controller->window()->findChild<QPushButton*>()->text()).toString();
    mnemonics.sort();
    EXPECT_EQ(mnemonics, QStringList({"Alt+A", "Alt+C", "Alt+E", "Alt+O", "Alt+T"}));
}

}  // namespace
