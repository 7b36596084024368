#include "app/ColorScheme.h"

void ColorScheme::setDark(bool isDark) {
    if (isDark == isDark_) return;
    isDark_ = isDark;
    emit changed();
}

#ifdef TALLIX_READS_PORTAL

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";
constexpr auto appearanceGroup = "org.freedesktop.appearance";
constexpr auto schemeKey = "color-scheme";
constexpr uint prefersDark = 1;

/// What the portal wraps: its answers are variants in variants.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace

ColorScheme::ColorScheme() : ColorScheme(QDBusConnection::sessionBus()) {}

// Without a bus or a portal there is no answer, and nothing changes.
ColorScheme::ColorScheme(const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>();  // By its name, too, or else no slot would be found to take it.
    QDBusConnection connection = bus;
    connection.connect(service, path, interface, "SettingChanged", this,
                       SLOT(takeSetting(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << QString(appearanceGroup) << QString(schemeKey);
    auto* answer = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid()) takeSetting(appearanceGroup, schemeKey, reply.value());
        answer->deleteLater();
    });
}

void ColorScheme::takeSetting(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == appearanceGroup && key == schemeKey) setDark(unwrapped(value.variant()).toUInt() == prefersDark);
}

#else

#include <QGuiApplication>
#include <QStyleHints>

ColorScheme::ColorScheme() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    const QStyleHints* const hints = QGuiApplication::styleHints();
    const auto take = [this](Qt::ColorScheme scheme) { setDark(scheme == Qt::ColorScheme::Dark); };
    take(hints->colorScheme());
    connect(hints, &QStyleHints::colorSchemeChanged, this, take);
#endif
}

#endif
