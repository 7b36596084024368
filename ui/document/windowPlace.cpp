#include "ui/document/windowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace {

/// Farther away than any screen, and near enough to calculate with.
constexpr int farthest = 1'000'000;

bool isNear(int coordinate) { return coordinate > -farthest && coordinate < farthest; }

bool isNear(const QRect& place) {
    return isNear(place.left()) && isNear(place.top()) && isNear(place.right()) && isNear(place.bottom());
}

}  // namespace

QRect movedOntoScreen(QRect place, int titleBarHeight, const QSize& least) {
    if (!isNear(place) || place.isEmpty()) return {};
    place.setSize(place.size().expandedTo(least));
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    QRect area = (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    area.setTop(area.top() + titleBarHeight);
    place.setSize(place.size().boundedTo(area.size()));
    place.moveRight(std::min(place.right(), area.right()));
    place.moveBottom(std::min(place.bottom(), area.bottom()));
    place.moveLeft(std::max(place.left(), area.left()));
    place.moveTop(std::max(place.top(), area.top()));
    return place;
}

QSize fittedToScreen(const QSize& size, int titleBarHeight) {
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - QSize(0, titleBarHeight);
    return size.boundedTo(room);
}

bool canPlaceWindows(const QString& platform) { return !platform.startsWith(u"wayland"); }

QRect placeToStore(const QRect& place, const QRect& stored, const QString& platform) {
    if (canPlaceWindows(platform)) return place;
    return {isNear(stored) ? stored.topLeft() : QPoint(), place.size()};
}
