#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// Folders for settings and sockets in place of the user's, for this program and those that it starts. They go with it.
class OwnFolders {
public:
    OwnFolders() {
        inheritedRuntime() = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_CONFIG_HOME", settings_.path().toLocal8Bit());
        qputenv("XDG_RUNTIME_DIR", runtime_.path().toLocal8Bit());
    }

    /// Where sockets would have been without it; empty where the user has no such folder.
    static QByteArray& inheritedRuntime() {
        static QByteArray folder;
        return folder;
    }

private:
    // Nobody else may look into them.
    QTemporaryDir settings_;
    QTemporaryDir runtime_;
};
