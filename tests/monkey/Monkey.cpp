#include "tests/monkey/Monkey.h"

#include <QApplication>
#include <numeric>

#include "app/Application.h"
#include "ui/document/MyDocument.h"

namespace {

constexpr std::size_t distraction = 12;  ///< Once in so many times something else comes between.

}  // namespace

Monkey::Monkey(Application& application, Random& random, Journal& journal)
    : application_(application), random_(random), journal_(journal), texts_(random) {}

MyDocument* Monkey::document() const { return application_.documents().activeDocument(); }

void Monkey::later(const QString& event, Step step) { plan_.push_back({event, std::move(step)}); }

void Monkey::act() {
    guardPrinting();
    broughtKeyboardBack_ = !broughtKeyboardBack_ && bringsKeyboardBack();
    if (broughtKeyboardBack_) return;
    if (!plan_.empty() && !random_.oneIn(distraction)) {
        const Planned planned = plan_.front();
        plan_.pop_front();
        journal_.begin(planned.event);
        planned.step();
    } else if (!dealsWithPopup() && !dealsWithModalWindow()) {
        (this->*nextDeed())();
    }
}

Monkey::Deed Monkey::nextDeed() {
    static constexpr Chance chances[] = {
        {200, &Monkey::typeLine},     {60, &Monkey::typeFragment},    {140, &Monkey::typeSpecialKey},
        {40, &Monkey::pressShortcut}, {20, &Monkey::composeText},     {120, &Monkey::click},
        {25, &Monkey::clickTwice},    {30, &Monkey::clickRight},      {50, &Monkey::drag},
        {25, &Monkey::turnWheel},     {25, &Monkey::dropForeign},     {20, &Monkey::fillClipboard},
        {30, &Monkey::paste},         {50, &Monkey::chooseFromMenus}, {40, &Monkey::chooseFormat},
        {25, &Monkey::resizeWindow},  {20, &Monkey::activateWindow},  {10, &Monkey::closeWindow},
        {6, &Monkey::openWindow},     {40, &Monkey::operateDialog},   {12, &Monkey::clearHistory},
        {15, &Monkey::rest},
    };
    static constexpr int sum = std::accumulate(std::begin(chances), std::end(chances), 0,
                                               [](int total, const Chance& chance) { return total + chance.weight; });
    int drawn = random_.between(0, sum - 1);
    for (const Chance& chance : chances) {
        drawn -= chance.weight;
        if (drawn < 0) return chance.deed;
    }
    return &Monkey::click;
}

void Monkey::leaveInnerLoop() {
    journal_.add(QStringLiteral("and waits"));
    hands_.release();
    bringsKeyboardBack();
    pressKeyForWindow();
}

// As a window manager does. The platform without a screen gives the keyboard to every window that appears, also where
// it is not wanted, and to none when that one goes.
bool Monkey::bringsKeyboardBack() {
    const QWindow* const focused = QGuiApplication::focusWindow();
    const bool isGood =
        focused != nullptr && focused->isVisible() && !focused->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    if (isGood || document() == nullptr) return false;
    QWidget* const modal = QApplication::activeModalWidget();
    (modal != nullptr ? modal : document()->activeWindow())->activateWindow();
    return true;
}

// Menus and lists that have opened take what comes, and are mostly used with the keyboard.
bool Monkey::dealsWithPopup() {
    if (QApplication::activePopupWidget() == nullptr || random_.oneIn(3)) return false;
    pressKeyForWindow();
    return true;
}

// Questions and alerts are answered before long. What is behind them must bear being used meanwhile.
bool Monkey::dealsWithModalWindow() {
    if (QApplication::activeModalWidget() == nullptr || random_.oneIn(3)) return false;
    pressKeyForWindow();
    return true;
}
