#pragma once

#include <QRect>
#include <QString>

/// A window's place without its frame, moved and made as small as needed, so that all of it is on a screen, and its
/// title bar too. An empty place stays as it is, and one that no screen can be the reason of gives an empty one.
QRect movedOntoScreen(QRect place, int titleBarHeight);

/// The size of a window, made smaller where the first screen has no room for it with its title bar.
QSize fittedToScreen(const QSize& size, int titleBarHeight);

/// Whether a program has a say in where its windows are, on a platform named as Qt names it.
bool canPlaceWindows(const QString& platform);
