#pragma once

#include <QObject>

#ifdef TALLIX_READS_PORTAL
#include <QDBusConnection>
#include <QDBusVariant>
#endif

/// Whether the desktop prefers dark colours. It is not known at once: `changed` tells when it is, and every change.
///
/// Qt knows by itself from 6.5 on; before, the desktop's portal is asked, which need not exist.
class ColorScheme : public QObject {
    Q_OBJECT

public:
    ColorScheme();
    bool isDark() const { return isDark_; }

#ifdef TALLIX_READS_PORTAL
    /// Asks on this bus, in place of the session's.
    explicit ColorScheme(const QDBusConnection& bus);

    /// Takes over a setting's value, if the setting is that of the colours.
    Q_SLOT void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);
#endif

signals:
    void changed();

private:
    void setDark(bool isDark);

    bool isDark_ = false;
};
