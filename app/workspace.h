#pragma once

#include <QString>
#include <QUrl>
#include <functional>

/// Opens a page or a file in the program that the desktop has for it. Gives false when there is no such file, or when
/// the desktop has nothing to hand it to. What was handed over counts as opened: should the desktop's own opener fail
/// later on, it does not tell.
bool openInWorkspace(const QUrl& address);

/// Lets something else stand for the desktop, such as a test that listens. An empty function brings the desktop back.
void setWorkspace(std::function<bool(const QUrl&)> opener);

/// The folder that holds "Contents/Resources": `lib/tallix` beside the folder of the executable, in an installation as
/// in a folder where Tallix is built; the application's bundle on macOS.
QString bundlePath();
