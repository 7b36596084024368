// How answers are written, and in which unit angles are: the controls below the entry line, and their menus.

#include "ui/document/MyDocument.h"

#include <QActionGroup>
#include <QMenu>

#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXWindow.h"
#include "ui_MiniWindow.h"
#include "ui_MyDocument.h"

namespace {

// Where the items of the digit menu stand. Each digit entry has its choice, as settings count it, for data.
constexpr int automaticItem = 1;
constexpr int significantFiguresItem = 2;
constexpr int decimalPlacesItem = 3;

constexpr int automaticTag = 0;
constexpr int firstFiguresTag = 1;
constexpr int lastFiguresTag = 10;
constexpr int firstPlacesTag = 11;
constexpr int lastPlacesTag = 21;
/// The last of the decimal places whose submenu is marked. Ten places are chosen like the others but never marked
/// there.
constexpr int lastMarkedPlacesTag = 20;

constexpr int radiansSegment = 0;
constexpr int degreesSegment = 1;

QAction* addCheckItem(QMenu* menu, const QString& text, const QString& name) {
    QAction* item = menu->addAction(text);
    item->setObjectName(name);
    item->setCheckable(true);
    return item;
}

QString withoutMnemonic(QString text) { return text.remove(u'&'); }

}  // namespace

void MyDocument::prepareFormatControls() {
    fillFormattingTypeMenu();
    fillDigitMenu();
    addAngleUnitActions();
    connect(degreesRadiansSegmentedControl(), &SegmentedControl::chosen, this,
            [this] { changeDegreesRadians(degreesRadiansSegmentedControl()); });
}

void MyDocument::fillFormattingTypeMenu() {
    const QString types[] = {tr("&Decimal"), tr("&Scientific"), tr("&Engineering"), tr("&Percent"),
                             tr("&Binary"),  tr("&Octal"),      tr("&Hexadecimal")};
    PullDownButton* button = formattingTypeButton();
    auto* menu = new QMenu(button);
    auto* group = new QActionGroup(menu);
    QStringList titles;
    for (const QString& type : types) {
        const int index = static_cast<int>(titles.size()) + 1;
        titles.append(withoutMnemonic(type));
        const QAction* item = group->addAction(addCheckItem(menu, type, QStringLiteral("formattingType%1").arg(index)));
        connect(item, &QAction::triggered, this, [this, button, index] {
            button->selectItemAtIndex(index);
            changeNumberFormatting(button);
        });
    }
    menu->addSeparator();
    const QAction* separators = addCheckItem(menu, tr("&Thousands Separators"), QStringLiteral("thousandsSeparators"));
    connect(separators, &QAction::triggered, this, [this, separators] { changeThousandsSeparators(separators); });
    button->setMenu(menu);
    button->setTitles(titles);
    button->itemAtIndex(TXFormattingType::decimal)->setChecked(true);
    button->setTitle(titles.first());
}

void MyDocument::fillDigitMenu() {
    PullDownButton* button = numberFormattingButton();
    auto* menu = new QMenu(button);
    digitItems_ = new QActionGroup(menu);
    button->setMenu(menu);
    addDigitItem(menu, automaticTag, QStringLiteral("&Auto Digit Formatting"))->setChecked(true);

    QMenu* figures = menu->addMenu(tr("&Significant Figures"));
    addDigitItem(figures, firstFiguresTag, tr("&1 Figure"));
    for (int count = 2; count < lastFiguresTag; ++count) addDigitItem(figures, count, tr("&%1 Figures").arg(count));
    addDigitItem(figures, lastFiguresTag, tr("1&0 Figures"));

    QMenu* places = menu->addMenu(tr("&Decimal Places"));
    for (int tag = firstPlacesTag; tag < lastPlacesTag; ++tag) {
        const int count = tag - firstPlacesTag;
        addDigitItem(places, tag, (count == 1 ? tr("&%1 Place") : tr("&%1 Places")).arg(count));
    }
    addDigitItem(places, lastPlacesTag, tr("10 &Places"));
    places->addSeparator();
    QAction* zeros = addCheckItem(places, tr("Add &Zeros After Digits"), QStringLiteral("addZeros"));
    zeros->setChecked(true);
    zeros->setEnabled(false);
    connect(zeros, &QAction::triggered, this, [this, zeros] { changeAddZerosAfterDigits(zeros); });

    auto* submenus = new QActionGroup(menu);
    for (const QMenu* submenu : {figures, places}) submenus->addAction(submenu->menuAction())->setCheckable(true);
    QStringList titles;
    for (unsigned int index = 0; index <= lastPlacesTag; ++index) titles.append(digitTitle(index));
    button->setTitles(titles);
    refreshDigitFormattingPopUpButtonTitle();
}

QAction* MyDocument::addDigitItem(QMenu* menu, int tag, const QString& text) {
    QAction* item = addCheckItem(menu, text, QStringLiteral("digits%1").arg(tag));
    item->setData(tag);
    digitItems_->addAction(item);
    connect(item, &QAction::triggered, this, [this, item] { changeDigitFormatting(item); });
    return item;
}

void MyDocument::addAngleUnitActions() {
    auto* group = new QActionGroup(documentWindow());
    addAngleUnitAction(group, radiansSegment, tr("Rad&ians"))->setObjectName("radians");
    addAngleUnitAction(group, degreesSegment, tr("&Degrees"))->setObjectName("degrees");
}

QAction* MyDocument::addAngleUnitAction(QActionGroup* group, int segment, const QString& text) {
    QAction* action = group->addAction(text);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, segment] {
        degreesRadiansSegmentedControl()->setSelectedSegment(segment);
        changeDegreesRadians(degreesRadiansSegmentedControl());
    });
    angleUnitActions_.append(action);
    return action;
}

void MyDocument::changeNumberFormatting(PullDownButton* sender) {
    const int index = sender->indexOfSelectedItem();
    if (index < TXFormattingType::decimal || index > TXFormattingType::hexadecimal) return;
    for (int type = TXFormattingType::decimal; type <= TXFormattingType::hexadecimal; ++type) {
        sender->itemAtIndex(type)->setChecked(false);
    }
    QAction* item = sender->itemAtIndex(index);
    item->setChecked(true);
    sender->setTitle(withoutMnemonic(item->text()));
    documentNumberFormatterSettings_.setFormattingType(static_cast<std::int8_t>(index));
    answerFormatChanged();

    const bool hasDigits = index < TXFormattingType::binary;
    numberFormattingButton()->setEnabled(hasDigits);
    numberFormattingButton()->menu()->setEnabled(hasDigits);
    if (hasDigits) {
        refreshDigitFormattingPopUpButtonTitle();
    } else {
        numberFormattingButton()->setTitle(digitTitle(automaticTag));
    }
}

void MyDocument::changeThousandsSeparators(const QAction* sender) {
    documentNumberFormatterSettings_.setThousandsSeparators(sender->isChecked());
    answerFormatChanged();
}

void MyDocument::changeAddZerosAfterDigits(const QAction* sender) {
    documentNumberFormatterSettings_.setAddZerosInDecimalMode(sender->isChecked());
    answerFormatChanged();
}

void MyDocument::changeDigitFormatting(QAction* sender) {
    const int tag = sender->data().toInt();
    if (tag < automaticTag || tag > lastPlacesTag) return;
    if (tag < firstPlacesTag) {
        const int figures = tag == automaticTag ? TXNumberFormatterSettings::automatic : tag;
        documentNumberFormatterSettings_.setSignificantFigures(static_cast<std::int8_t>(figures));
    } else {
        documentNumberFormatterSettings_.setDecimalPlaces(static_cast<std::int8_t>(tag - firstPlacesTag));
    }
    uncheckDigitItems();
    refreshAddZerosItem(tag);
    refreshDigitFormattingPopUpButtonTitle();
    sender->setChecked(true);
    if (tag >= firstFiguresTag && tag <= lastFiguresTag) {
        numberFormattingButton()->itemAtIndex(significantFiguresItem)->setChecked(true);
    } else if (tag >= firstPlacesTag && tag <= lastMarkedPlacesTag) {
        numberFormattingButton()->itemAtIndex(decimalPlacesItem)->setChecked(true);
    }
    answerFormatChanged();
}

// The separator and the entry for zeros end the list, and are no digits.
void MyDocument::uncheckDigitItems() {
    const PullDownButton* button = numberFormattingButton();
    QList<QAction*> entries = button->itemAtIndex(significantFiguresItem)->menu()->actions() +
                              button->itemAtIndex(decimalPlacesItem)->menu()->actions();
    entries.resize(entries.size() - 2);
    for (QAction* entry : entries) entry->setChecked(false);
    for (const int item : {automaticItem, significantFiguresItem, decimalPlacesItem}) {
        button->itemAtIndex(item)->setChecked(false);
    }
}

// There is nothing to fill up with zeros but one decimal place or more. Significant figures leave the mark as it is.
void MyDocument::refreshAddZerosItem(int tag) {
    QAction* zeros = numberFormattingButton()->itemAtIndex(decimalPlacesItem)->menu()->actions().last();
    zeros->setEnabled(tag > firstPlacesTag);
    if (tag == firstPlacesTag) zeros->setChecked(false);
    if (tag > firstPlacesTag) zeros->setChecked(documentNumberFormatterSettings_.addZerosInDecimalMode());
}

// These titles are the same in every language, and the entry that has one of them as well.
QString MyDocument::digitTitle(unsigned int index) {
    if (index == automaticTag) return QStringLiteral("Auto Digit Formatting");
    if (index == firstFiguresTag) return QStringLiteral("1 Significant Figure");
    if (index < firstPlacesTag) return QStringLiteral("%1 Significant Figures").arg(index);
    if (index == firstPlacesTag + 1) return QStringLiteral("1 Decimal Place");
    if (index <= lastPlacesTag) return QStringLiteral("%1 Decimal Places").arg(index - firstPlacesTag);
    return {};
}

void MyDocument::refreshDigitFormattingPopUpButtonTitle() {
    const QString title = digitTitle(documentNumberFormatterSettings_.digitIndexForSettingsController());
    if (!title.isEmpty()) numberFormattingButton()->setTitle(title);
}

void MyDocument::changeDegreesRadians(const SegmentedControl* sender) {
    documentEquationController_.setUseRadians(sender->selectedSegment() == radiansSegment);
    refreshAngleUnit();
    emit sessionChanged();
}

void MyDocument::refreshAngleUnit() {
    const bool usesRadians = documentEquationController_.useRadians();
    degreesRadiansSegmentedControl()->setSelectedSegment(usesRadians ? radiansSegment : degreesSegment);
    angleUnitActions_.at(radiansSegment)->setChecked(usesRadians);
    angleUnitActions_.at(degreesSegment)->setChecked(!usesRadians);
    refreshMiniModeFormatLabel();
}

// What is already in the history stays as it was written.
void MyDocument::answerFormatChanged() {
    reloadSidebar();
    refreshMiniModeFormatLabel();
    emit sessionChanged();
}

PullDownButton* MyDocument::formattingTypeButton() const { return ui_->formattingTypeButton; }

PullDownButton* MyDocument::numberFormattingButton() const { return ui_->numberFormattingButton; }

SegmentedControl* MyDocument::degreesRadiansSegmentedControl() const { return ui_->degreesRadiansSegmentedControl; }
