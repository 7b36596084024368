#pragma once

#include <QList>
#include <QUrl>

#include "app/workspace.h"

/// Stands for the desktop as long as it lives: notes what is to be opened, and opens nothing.
class OpenedAddresses {
public:
    /// `opens` is what the desktop answers.
    explicit OpenedAddresses(bool opens = true) {
        setWorkspace([this, opens](const QUrl& address) {
            addresses_.append(address);
            return opens;
        });
    }
    ~OpenedAddresses() { setWorkspace({}); }
    OpenedAddresses(const OpenedAddresses&) = delete;
    OpenedAddresses& operator=(const OpenedAddresses&) = delete;

    const QList<QUrl>& addresses() const { return addresses_; }

private:
    QList<QUrl> addresses_;
};
