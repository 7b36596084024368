#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "tests/models/Random.h"
#include "tests/monkey/Hands.h"
#include "tests/monkey/Journal.h"
#include "tests/monkey/RandomText.h"

class Application;
class MyDocument;
class QAction;
class QMenu;

/// Somebody who uses the program without knowing it: types, clicks, drags, pastes, resizes, opens and closes whatever
/// is there. What comes next depends on the numbers drawn and on what the program shows, and on no clock.
class Monkey {
public:
    Monkey(Application& application, Random& random, Journal& journal);

    /// Does one thing.
    void act();
    /// Answers a dialog that lets its caller wait.
    void leaveInnerLoop();

private:
    using Deed = void (Monkey::*)();
    struct Chance {
        int weight;
        Deed deed;
    };
    using Step = std::function<void()>;

    Deed nextDeed();
    void later(const QString& event, Step step);
    bool bringsKeyboardBack();
    bool dealsWithModalWindow();
    bool dealsWithPopup();
    MyDocument* document() const;

    // Monkey_keys.cpp
    void typeLine();
    void typeFast(const QString& text);
    void typeFragment();
    void typeSpecialKey();
    void pressShortcut();
    void composeText();
    void pressKeyForWindow();
    void rest();

    // Monkey_mouse.cpp
    void click();
    void clickTwice();
    void clickRight();
    void drag();
    void turnWheel();
    void dropForeign();
    void dropWhatIsDragged(QWidget& source);
    QWidget* somewhere();
    QWidget* popularPlace();
    QWidget* anyPlace();
    QPoint spotIn(const QWidget& widget);
    void moveOn(const QString& what, QWidget& widget);

    // Monkey_windows.cpp
    void fillClipboard();
    void paste();
    void chooseFromMenus();
    void chooseFormat();
    void clearHistory();
    void resizeWindow();
    void activateWindow();
    void closeWindow();
    void openWindow();
    void operateDialog();
    void guardPrinting() const;
    QAction* oneOf(const QMenu& menu);
    QList<QWidget*> windows() const;

    Application& application_;
    Random& random_;
    Journal& journal_;
    RandomText texts_;
    Hands hands_;
    struct Planned {
        QString event;
        Step step;
    };
    bool broughtKeyboardBack_ = false;  ///< Just now, and not again before something else happened.
    std::deque<Planned> plan_;          ///< What is begun is mostly brought to its end.
};
