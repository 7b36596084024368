#pragma once

#include <QAction>

/// An entry of a menu that is enabled by hand, whatever the menu's owner would say.
class TXMenuItem : public QAction {
    Q_OBJECT

public:
    /// Disabled at first.
    explicit TXMenuItem(const QString& text = QString(), QObject* parent = nullptr);

    bool enabledOverride() const { return enabledOverride_; }
    void setEnabledOverride(bool isEnabled);
    /// The override, whichever item is asked about.
    bool validateMenuItem(const QAction* item) const;

private:
    bool enabledOverride_ = false;
};
