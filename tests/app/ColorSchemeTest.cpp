// What the desktop's portal says about colours, asked over a bus of the test's own.

#include "app/ColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <utility>

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto scheme = "color-scheme";
constexpr uint noPreference = 0;
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

/// A session bus, as long as it lives.
class Bus {
public:
    /// A connection of its own.
    QDBusConnection connection() const {
        static int number = 0;
        return QDBusConnection::connectToBus(address_, QStringLiteral("test%1").arg(++number));
    }

private:
    Process daemon_{{"/usr/bin/dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"}, {}, {}, {}}};
    QString address_ = QString::fromStdString(daemon_.outputUntil("\n")).trimmed();
};

}  // namespace

/// Stands for the desktop's portal.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Portal(QDBusConnection bus, uint value) : bus_(std::move(bus)), value_(value) {
        bus_.registerObject("/org/freedesktop/portal/desktop", this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        EXPECT_TRUE(bus_.registerService("org.freedesktop.portal.Desktop"));
    }

    void change(uint value) {
        value_ = value;
        emit SettingChanged(appearance, scheme, QDBusVariant(value));
    }
    int questions() const { return questions_; }

public slots:
    // NOLINTNEXTLINE(readability-identifier-naming): its name on the bus.
    QDBusVariant Read(const QString& group, const QString& key) {
        ++questions_;
        EXPECT_EQ(group, appearance);
        EXPECT_EQ(key, scheme);
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value_)));  // a variant in a variant, as portals answer
    }

signals:
    // NOLINTNEXTLINE(readability-identifier-naming, readability-inconsistent-declaration-parameter-name)
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection bus_;
    uint value_;
    int questions_ = 0;
};

namespace {

TEST(ColorScheme, isAskedForAtTheStart) {
    for (const uint value : {prefersDark, noPreference, prefersLight}) {
        const Bus bus;
        const Portal portal(bus.connection(), value);
        const ColorScheme colors(bus.connection());
        QSignalSpy changed(&colors, &ColorScheme::changed);
        EXPECT_FALSE(colors.isDark());
        EXPECT_TRUE(QTest::qWaitFor([&] { return portal.questions() > 0; }));
        EXPECT_EQ(changed.wait(value == prefersDark ? 5000 : 50), value == prefersDark);
        EXPECT_EQ(colors.isDark(), value == prefersDark);
    }
}

TEST(ColorScheme, isFollowed) {
    const Bus bus;
    Portal portal(bus.connection(), noPreference);
    const ColorScheme colors(bus.connection());
    const QSignalSpy changed(&colors, &ColorScheme::changed);
    for (const uint value : {prefersDark, prefersLight, prefersDark, noPreference}) {
        portal.change(value);
        EXPECT_TRUE(QTest::qWaitFor([&] { return colors.isDark() == (value == prefersDark); }));
    }
    EXPECT_EQ(changed.count(), 4);
}

TEST(ColorScheme, isNoneOfTheOtherSettings) {
    const Bus bus;
    Portal portal(bus.connection(), noPreference);
    const ColorScheme colors(bus.connection());
    emit portal.SettingChanged(appearance, "accent-color", QDBusVariant(prefersDark));
    emit portal.SettingChanged("org.gnome.desktop.interface", scheme, QDBusVariant(prefersDark));
    emit portal.SettingChanged(appearance, scheme, QDBusVariant("dark"));
    portal.change(prefersLight);
    QTest::qWait(100);
    EXPECT_FALSE(colors.isDark());
    portal.change(prefersDark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return colors.isDark(); }));
}

TEST(ColorScheme, isFollowedWhenThePortalComesLater) {
    const Bus bus;
    const ColorScheme colors(bus.connection());
    QTest::qWait(50);
    EXPECT_FALSE(colors.isDark());
    Portal portal(bus.connection(), noPreference);
    QTest::qWait(50);
    portal.change(prefersDark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return colors.isDark(); }));
}

TEST(ColorScheme, doesWithoutABus) {
    testing::internal::CaptureStderr();
    const ColorScheme colors;
    QTest::qWait(0);
    EXPECT_FALSE(colors.isDark());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ColorScheme, doesNotWaitForAPortalThatIsBusy) {
    const Bus bus;
    QDBusConnection busy = bus.connection();  // It has the portal's name, but answers nothing.
    struct Silence : QDBusVirtualObject {
        QString introspect(const QString& /*path*/) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
            message.setDelayedReply(true);
            isAsked = true;
            return true;
        }
        bool isAsked = false;
    } silence;
    busy.registerVirtualObject("/org/freedesktop/portal/desktop", &silence);
    busy.registerService("org.freedesktop.portal.Desktop");
    const ColorScheme colors(bus.connection());
    EXPECT_TRUE(QTest::qWaitFor([&] { return silence.isAsked; }));
    EXPECT_FALSE(colors.isDark());
}

}  // namespace

#include "ColorSchemeTest.moc"
