// What the full window remembers for the next one: its place, and how it is divided.

#include "ui/document/MyDocument.h"

#include <QGuiApplication>
#include <QSplitter>
#include <QStyle>

#include "ui/UserDefaults.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXWindow.h"
#include "ui/document/windowPlace.h"

namespace {

constexpr auto placeKey = "windowPlace";
constexpr auto sidebarWidthKey = "sidebarWidth";
constexpr auto sidebarShownKey = "sidebarShown";
constexpr auto entryHeightKey = "entryHeight";

/// What is stored under `key`, where it is a length that a pane can have; or else `fallback`.
int storedLength(const UserDefaults& defaults, const char* key, int fallback, int smallest, int largest) {
    bool isNumber = false;
    const int length = defaults.interfaceValueForKey(key).toInt(&isNumber);
    return isNumber && length >= smallest && length <= largest ? length : fallback;
}

}  // namespace

// After everything has the size that it has on the first day.
void MyDocument::takeLastLayout() {
    const UserDefaults defaults;
    smallestSize_ = documentWindow()->minimumSize();
    keepRoomForControls();
    takeLastPlace(defaults);
    takeTextSize();
    takeLastPanes(defaults);
}

void MyDocument::takeLastPlace(const UserDefaults& defaults) {
    const int titleBarHeight = documentWindow()->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect place = movedOntoScreen(defaults.interfaceValueForKey(placeKey).toRect(), titleBarHeight);
    if (place.isEmpty()) {
        documentWindow()->resize(fittedToScreen(documentWindow()->size(), titleBarHeight));
    } else if (canPlaceWindows(QGuiApplication::platformName())) {
        documentWindow()->setGeometry(place);
    } else {
        documentWindow()->resize(place.size());
    }
}

// With a large font of the desktop, the controls below the entry need more than the smallest width, and then they get
// it.
void MyDocument::keepRoomForControls() {
    const QSize needed = documentWindow()->minimumSizeHint().expandedTo(smallestSize_);
    if (needed != documentWindow()->minimumSize()) documentWindow()->setMinimumSize(needed);
}

// The height of the entry's pane is remembered without what a larger text adds to it.
void MyDocument::takeLastPanes(const UserDefaults& defaults) {
    const QSize window = documentWindow()->size();
    const int sidebar = storedLength(defaults, sidebarWidthKey, qRound(currentWidth_),
                                     variableOutlineView()->minimumWidth(), window.width());
    const int entry = storedLength(defaults, entryHeightKey, qRound(secondaryCurrentWidth_), 1, window.height());
    currentWidth_ = static_cast<float>(sidebar);
    secondaryCurrentWidth_ = static_cast<float>(entry);
    mySplitView()->setSizes({sidebar, window.width()});
    secondarySplitView()->setSizes({window.height(), entry + growthOfEntryLine()});
    const bool isSidebarHidden = defaults.interfaceValueForKey(sidebarShownKey).toString() == u"false";
    controlledView()->setHidden(isSidebarHidden);
}

void MyDocument::rememberLayout() const {
    UserDefaults defaults;
    const bool isLarge = documentWindow()->isMaximized() || documentWindow()->isFullScreen();
    defaults.setInterfaceValue(isLarge ? documentWindow()->normalGeometry() : documentWindow()->geometry(), placeKey);
    const int sidebar = isSidebarShown() ? controlledView()->width() : qRound(currentWidth_);
    defaults.setInterfaceValue(sidebar, sidebarWidthKey);
    defaults.setInterfaceValue(isSidebarShown(), sidebarShownKey);
    defaults.setInterfaceValue(secondaryControlledView()->height() - growthOfEntryLine(), entryHeightKey);
    rememberTextSize(&defaults);
}
