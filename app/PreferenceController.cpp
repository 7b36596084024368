#include "app/PreferenceController.h"

#include <QDialog>
#include <algorithm>
#include <iterator>

#include "app/DocumentController.h"
#include "ui/UserDefaults.h"
#include "ui/document/MyDocument.h"
#include "ui_Preferences.h"

namespace {

// The entries' positions in their menus.
constexpr int commaIndex = 0;
constexpr int blankIndex = 1;
constexpr int apostropheIndex = 2;
constexpr int smallExponentIndex = 0;
constexpr int capitalExponentIndex = 1;
constexpr int radiansIndex = 0;
constexpr int degreesIndex = 1;
constexpr Appearance::Choice choicesOfColors[] = {Appearance::Choice::followSystem, Appearance::Choice::light,
                                                  Appearance::Choice::dark};

int indexOfColors(Appearance::Choice choice) {
    return static_cast<int>(std::find(std::begin(choicesOfColors), std::end(choicesOfColors), choice) -
                            std::begin(choicesOfColors));
}

int indexOfSeparator(const QString& separator) {
    if (separator == " ") return blankIndex;
    return separator == "'" ? apostropheIndex : commaIndex;
}

QString separatorAt(int index) {
    switch (index) {
        case blankIndex: return QStringLiteral(" ");
        case apostropheIndex: return QStringLiteral("'");
        default: return QStringLiteral(",");
    }
}

}  // namespace

PreferenceController::PreferenceController(DocumentController& documents)
    : documents_(documents), ui_(std::make_unique<Ui::Preferences>()), window_(std::make_unique<QDialog>()) {
    ui_->setupUi(window_.get());
    windowDidLoad();
    sendChoicesToDocuments();
    connect(thousandsSeparatorsBox(), &QComboBox::activated, this,
            [this] { changeThousandsSeparatorCharacter(thousandsSeparatorsBox()); });
    connect(exponentialCharacterComboBox(), &QComboBox::activated, this,
            [this] { changeExponentCharacter(exponentialCharacterComboBox()); });
    connect(degreesOrRadians(), &QComboBox::activated, this,
            [this] { changeDefaultDocumentAngleUnits(degreesOrRadians()); });
    for (const QCheckBox* box : {showsAnswerBox(), suggestsNamesBox(), colorsEquationBox()}) {
        connect(box, &QCheckBox::clicked, this, &PreferenceController::changeEntryOptions);
    }
    connect(colorsBox(), &QComboBox::activated, this, [this] { changeColors(colorsBox()); });
    connect(ui_->closeButton, &QPushButton::clicked, window_.get(), &QDialog::close);
}

PreferenceController::~PreferenceController() = default;

void PreferenceController::sendChoicesToDocuments() {
    connect(this, &PreferenceController::thousandsSeparatorChosen, &documents_, [this](int index) {
        for (MyDocument* document : documents_.documents()) document->changeThousandsSeparatorCharacter(index);
    });
    connect(this, &PreferenceController::exponentCharacterChosen, &documents_, [this](int index) {
        for (MyDocument* document : documents_.documents()) document->changeExponentCharacter(index);
    });
}

void PreferenceController::windowDidLoad() {
    const UserDefaults defaults;
    const QString separator = defaults.stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter);
    const bool isCapital = defaults.stringForKey(TXUserDefaultsKey::exponentsCharacter) == "E";
    const bool isRadians = defaults.boolForKey(TXUserDefaultsKey::usesRadiansForNewDocuments, true);
    thousandsSeparatorsBox()->setCurrentIndex(indexOfSeparator(separator));
    exponentialCharacterComboBox()->setCurrentIndex(isCapital ? capitalExponentIndex : smallExponentIndex);
    degreesOrRadians()->setCurrentIndex(isRadians ? radiansIndex : degreesIndex);
    const EntryOptions options = EntryOptions::stored();
    showsAnswerBox()->setChecked(options.showsAnswer);
    suggestsNamesBox()->setChecked(options.suggestsNames);
    colorsEquationBox()->setChecked(options.colorsEquation);
    colorsBox()->setCurrentIndex(indexOfColors(Appearance::storedChoice()));
}

void PreferenceController::showWindow() {
    window_->showNormal();
    window_->raise();
    window_->activateWindow();
}

void PreferenceController::changeThousandsSeparatorCharacter(const QComboBox* popUp) {
    const int index = popUp->currentIndex();
    emit thousandsSeparatorChosen(index);
    UserDefaults().setString(separatorAt(index), TXUserDefaultsKey::thousandsSeparatorCharacter);
}

void PreferenceController::changeExponentCharacter(const QComboBox* popUp) {
    emit exponentCharacterChosen(popUp->currentIndex());
    const QString title = popUp->currentText();
    if (title == "e" || title == "E") UserDefaults().setString(title, TXUserDefaultsKey::exponentsCharacter);
}

void PreferenceController::changeDefaultDocumentAngleUnits(const QComboBox* popUp) {
    UserDefaults().setBool(popUp->currentIndex() == radiansIndex, TXUserDefaultsKey::usesRadiansForNewDocuments);
}

void PreferenceController::changeEntryOptions() {
    const EntryOptions options{showsAnswerBox()->isChecked(), suggestsNamesBox()->isChecked(),
                               colorsEquationBox()->isChecked()};
    options.store();
    for (MyDocument* document : documents_.documents()) document->setEntryOptions(options);
}

void PreferenceController::changeColors(const QComboBox* popUp) {
    const int index = popUp->currentIndex();
    if (index >= 0 && index < std::ssize(choicesOfColors)) emit colorsChosen(choicesOfColors[index]);
}

QComboBox* PreferenceController::thousandsSeparatorsBox() const { return ui_->thousandsSeparatorsBox; }

QComboBox* PreferenceController::exponentialCharacterComboBox() const { return ui_->exponentialCharacterComboBox; }

QComboBox* PreferenceController::degreesOrRadians() const { return ui_->degreesOrRadians; }

QCheckBox* PreferenceController::showsAnswerBox() const { return ui_->showsAnswerBox; }

QCheckBox* PreferenceController::suggestsNamesBox() const { return ui_->suggestsNamesBox; }

QCheckBox* PreferenceController::colorsEquationBox() const { return ui_->colorsEquationBox; }

QComboBox* PreferenceController::colorsBox() const { return ui_->colorsBox; }
