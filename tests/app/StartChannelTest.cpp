// How a program that is started again finds the one that runs, and what it does about foreign things in its place.

#include "app/StartChannel.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <ostream>

#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/handOver.h"

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto shortPatience = 200ms;

struct StartChannelTest : testing::Test {
    QString place() const { return folder.filePath("tallix"); }

    /// Makes `channel` the one that is asked.
    void listen(StartChannel& channel) {
        ASSERT_FALSE(channel.hasRunningProgram());
        channel.listen([this](const QByteArray& token) { windows.push_back(token); });
    }

    /// Whether a program that is started now gets its window from the one that listens.
    bool isAnswered() const {
        StartChannel second(place());
        return second.hasRunningProgram() && isHandedOver(second);
    }

    /// Tries to hand over in vain, and gives whether that took no longer than it may.
    static bool givesUpInTime(StartChannel& channel) {
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(isHandedOver(channel));
        return !timer.hasExpired((10 * shortPatience).count());
    }

    QTemporaryDir folder;
    std::vector<QByteArray> windows;  ///< The token of each window that was opened.
    StartChannel first{place()};
};

TEST_F(StartChannelTest, theFirstOneFindsNobody) {
    EXPECT_FALSE(first.hasRunningProgram());
    EXPECT_FALSE(first.hasRunningProgram());
    EXPECT_FALSE(first.handOver({}));
}

TEST_F(StartChannelTest, everyLaterOneIsAnswered) {
    listen(first);
    EXPECT_TRUE(isAnswered());
    StartChannel third(place());
    EXPECT_TRUE(isHandedOver(third, "gnome-shell/Tallix/17-3_TIME5"));
    EXPECT_THAT(windows, ElementsAre("", "gnome-shell/Tallix/17-3_TIME5"));
}

TEST_F(StartChannelTest, whatIsNoTokenIsLeftOut) {
    listen(first);
    for (const QByteArray& token :
         {QByteArray("a\nb"), QByteArray("a b"), QByteArray("\xc3\xa4"), QByteArray(5000, 'a')}) {
        StartChannel second(place());
        EXPECT_TRUE(isHandedOver(second, token));
    }
    EXPECT_THAT(windows, ElementsAre("", "", "", ""));
}

TEST_F(StartChannelTest, waitsForOneThatIsJustStarting) {
    ASSERT_FALSE(first.hasRunningProgram());
    QTimer::singleShot(100, [this] { listen(first); });
    EXPECT_TRUE(isAnswered());
    EXPECT_THAT(windows, ElementsAre(""));
}

TEST_F(StartChannelTest, followsOneThatIsJustEnding) {
    listen(first);
    StartChannel second(place());
    ASSERT_TRUE(second.hasRunningProgram());
    first.close();
    EXPECT_FALSE(isHandedOver(second));
    second.listen([this](const QByteArray&) { windows.emplace_back("of the second"); });
    EXPECT_TRUE(isAnswered());
    EXPECT_THAT(windows, ElementsAre("of the second"));
}

TEST_F(StartChannelTest, leavesNoSocketBehind) {
    listen(first);
    EXPECT_TRUE(QFileInfo::exists(first.socketPath()));
    first.close();
    EXPECT_FALSE(QFileInfo::exists(first.socketPath()));
}

TEST_F(StartChannelTest, isReachableByTheUserAlone) {
    listen(first);
    for (const QString& path : {first.lockPath(), first.socketPath()}) {
        struct stat facts = {};
        ASSERT_EQ(stat(QFile::encodeName(path).constData(), &facts), 0);
        EXPECT_EQ(facts.st_mode & (S_IRWXG | S_IRWXO), 0U) << path.toStdString();
        EXPECT_NE(facts.st_mode & S_ISVTX, 0U) << "might be cleaned away: " << path.toStdString();
    }
}

TEST_F(StartChannelTest, withoutAPlaceEveryoneIsAlone) {
    StartChannel one{QString()};
    StartChannel two{QString()};
    for (StartChannel* channel : {&one, &two}) {
        EXPECT_FALSE(channel->hasRunningProgram());
        channel->listen([](const QByteArray&) {});
        EXPECT_FALSE(channel->handOver({}));
    }
}

TEST_F(StartChannelTest, takesThePlaceOfAFileThatWasLeftBehind) {
    for (const QString& path : {first.lockPath(), first.socketPath()}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("12345\n");
    }
    listen(first);
    EXPECT_TRUE(isAnswered());
}

TEST_F(StartChannelTest, takesThePlaceOfASocketThatWasLeftBehind) {
    {
        QLocalServer killed;
        ASSERT_TRUE(killed.listen(folder.filePath("other")));
        ASSERT_TRUE(QFile::rename(folder.filePath("other"), first.socketPath()));
    }
    ASSERT_TRUE(QFileInfo::exists(first.socketPath()));
    listen(first);
    EXPECT_TRUE(isAnswered());
}

TEST_F(StartChannelTest, staysAloneWhereThereCanBeNoSocket) {
    ASSERT_TRUE(QDir().mkpath(first.socketPath() + "/full"));
    listen(first);
    StartChannel second(place());
    EXPECT_FALSE(second.hasRunningProgram());
}

TEST_F(StartChannelTest, staysAloneWhereThereCanBeNoLock) {
    ASSERT_TRUE(QDir().mkpath(first.lockPath()));
    listen(first);
    EXPECT_FALSE(StartChannel(place()).hasRunningProgram());
}

TEST_F(StartChannelTest, followsNoLinkToAFileOfTheUser) {
    ASSERT_TRUE(QFile::link(folder.filePath("target"), first.lockPath()));
    listen(first);
    EXPECT_FALSE(StartChannel(place()).hasRunningProgram());
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("target")));
}

TEST_F(StartChannelTest, doesNotWaitForAPipeInPlaceOfTheLock) {
    ASSERT_EQ(mkfifo(QFile::encodeName(first.lockPath()).constData(), S_IRUSR | S_IWUSR), 0);
    listen(first);
    EXPECT_TRUE(isAnswered());
}

TEST_F(StartChannelTest, givesUpWhenNobodyListens) {
    ASSERT_FALSE(first.hasRunningProgram());
    StartChannel second(place(), shortPatience);
    EXPECT_TRUE(givesUpInTime(second));
}

TEST_F(StartChannelTest, givesUpWhenNobodyAnswers) {
    ASSERT_FALSE(first.hasRunningProgram());
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(first.socketPath()));
    StartChannel second(place(), shortPatience);
    EXPECT_TRUE(givesUpInTime(second));
}

TEST_F(StartChannelTest, givesUpWhenTheAnswerIsAnother) {
    for (const QByteArray& answer : {QByteArray("no\n"), QByteArray("opened"), QByteArray(5000, 'o')}) {
        StartChannel holder(folder.filePath("foreign"));
        ASSERT_FALSE(holder.hasRunningProgram());
        QLocalServer foreign;
        ASSERT_TRUE(foreign.listen(holder.socketPath()));
        QObject::connect(&foreign, &QLocalServer::newConnection,
                         [&] { foreign.nextPendingConnection()->write(answer); });
        StartChannel second(folder.filePath("foreign"), shortPatience);
        EXPECT_TRUE(givesUpInTime(second)) << answer.left(20).toStdString();
    }
}

TEST_F(StartChannelTest, doesNotAskTwiceWhoGivesAnotherAnswer) {
    ASSERT_FALSE(first.hasRunningProgram());
    QLocalServer foreign;
    ASSERT_TRUE(foreign.listen(first.socketPath()));
    int asked = 0;
    QObject::connect(&foreign, &QLocalServer::newConnection, [&] {
        ++asked;
        foreign.nextPendingConnection()->write("no\n");
    });
    StartChannel second(place());
    EXPECT_FALSE(isHandedOver(second));
    EXPECT_EQ(asked, 1);
}

TEST_F(StartChannelTest, opensNothingForOneThatWaitsNoLonger) {
    listen(first);
    {
        QLocalSocket impatient;
        impatient.connectToServer(first.socketPath());
        ASSERT_TRUE(impatient.waitForConnected());
        impatient.write("new-window \n");
        ASSERT_TRUE(impatient.flush());
    }
    EXPECT_TRUE(isAnswered());
    EXPECT_THAT(windows, ElementsAre(""));
}

TEST_F(StartChannelTest, hangsUpOnOthers) {
    for (const QByteArray& line : {QByteArray("hello\n"), QByteArray("\n"), QByteArray(5000, 'n')}) {
        StartChannel listening(folder.filePath("listening"));
        listen(listening);
        QLocalSocket foreign;
        foreign.connectToServer(listening.socketPath());
        foreign.write(line);
        EXPECT_TRUE(QTest::qWaitFor([&] { return foreign.state() == QLocalSocket::UnconnectedState; }));
    }
    EXPECT_THAT(windows, IsEmpty());
}

TEST_F(StartChannelTest, hangsUpOnOneThatSaysNothing) {
    StartChannel listening(folder.filePath("listening"), shortPatience);
    listen(listening);
    QLocalSocket silent;
    silent.connectToServer(listening.socketPath());
    silent.write("new-win");
    ASSERT_TRUE(silent.waitForConnected());
    EXPECT_TRUE(QTest::qWaitFor([&] { return silent.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_THAT(windows, IsEmpty());
}

TEST_F(StartChannelTest, goesOnWhenManySayNothing) {
    StartChannel listening(folder.filePath("listening"));
    listen(listening);
    std::vector<std::unique_ptr<QLocalSocket>> silent(100);
    for (auto& socket : silent) {
        socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(listening.socketPath());
    }
    StartChannel second(folder.filePath("listening"));
    EXPECT_TRUE(isHandedOver(second));
    EXPECT_THAT(windows, ElementsAre(""));
}

TEST_F(StartChannelTest, staysAloneWhereThePathIsTooLongForAnAddress) {
    const QString deep = folder.filePath(QString(120, u'd'));
    ASSERT_TRUE(QDir().mkpath(deep));
    StartChannel one(deep + "/tallix");
    listen(one);
    EXPECT_FALSE(StartChannel(deep + "/tallix").hasRunningProgram());
}

/// The environment of a program, for a while.
class Environment {
public:
    explicit Environment(const std::vector<std::pair<const char*, QByteArray>>& values) {
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "FLATPAK_ID"}) {
            before_.emplace_back(name, qgetenv(name));
            qunsetenv(name);
        }
        for (const auto& [name, value] : values) qputenv(name, value);
    }
    ~Environment() {
        for (const auto& [name, value] : before_) value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    std::vector<std::pair<const char*, QByteArray>> before_;
};

struct PlaceTest : testing::Test {
    /// The place, with a display of these names.
    QString place(const QByteArray& x11, const QByteArray& wayland = {}, const QByteArray& platform = {}) const {
        const Environment environment({{"XDG_RUNTIME_DIR", folder.path().toLocal8Bit()},
                                       {"DISPLAY", x11},
                                       {"WAYLAND_DISPLAY", wayland},
                                       {"QT_QPA_PLATFORM", platform}});
        return StartChannel::placeInEnvironment();
    }

    QTemporaryDir folder;
};

TEST_F(PlaceTest, isInTheUsersFolder) {
    EXPECT_TRUE(place(":0").startsWith(folder.filePath("org.tallix.tallix-")));
    EXPECT_FALSE(QFileInfo(place(":0", "/run/wayland/0")).fileName().isEmpty());
}

TEST_F(PlaceTest, isThatOfADisplay) {
    EXPECT_EQ(place(":0"), place(":0"));
    EXPECT_EQ(place(":0"), place(":0.1"));
    EXPECT_EQ(place(":0"), place(":0", {}, "xcb"));
    EXPECT_EQ(place(":0", "wayland-0", "xcb"), place(":0"));
    EXPECT_EQ(place(":0", "wayland-0", "wayland"), place({}, "wayland-0"));
    EXPECT_EQ(place({}, "wayland-0", "wayland-egl"), place({}, "wayland-0"));
    EXPECT_EQ(place({}, {}, "wayland"), place({}, "wayland-0"));
    EXPECT_EQ(place(":0", "wayland-0", "wayland;xcb"), place(":0", "wayland-0"));
    EXPECT_EQ(place(":0", {}, "wayland;xcb"), place(":0"));
    EXPECT_EQ(place(":0", {}, "xcb:option;wayland"), place(":0"));
    EXPECT_EQ(place("unix:0"), place(":0"));
    EXPECT_NE(place(":0"), place(":1"));
    EXPECT_NE(place(":0"), place("other:0"));
    EXPECT_NE(place("host.name:1"), place("host.name:2"));
    EXPECT_NE(place(":0", "wayland-0"), place(":0", "wayland-1"));
    EXPECT_NE(place(":0"), place({}, ":0"));
}

TEST_F(PlaceTest, isNowhereWithoutADisplay) {
    EXPECT_EQ(place({}), QString());
    EXPECT_EQ(place(":0", "wayland-0", "offscreen"), QString());
}

TEST_F(PlaceTest, isNowhereWithoutAFolderOfTheUserAlone) {
    for (const QByteArray& path : {QByteArray(), QByteArray("relative"), QByteArray("/nowhere/at/all")}) {
        const Environment environment({{"DISPLAY", ":0"}, {"XDG_RUNTIME_DIR", path}});
        EXPECT_EQ(StartChannel::placeInEnvironment(), QString()) << path.toStdString();
    }
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::permissions(folder.path()) | QFile::ReadOther));
    EXPECT_EQ(place(":0"), QString());
}

TEST_F(PlaceTest, isInTheSharedPartOfASandbox) {
    const QString shared = folder.filePath("app/org.tallix.tallix");
    ASSERT_TRUE(QDir().mkpath(shared));
    ASSERT_TRUE(QFile::setPermissions(shared, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const Environment environment(
        {{"XDG_RUNTIME_DIR", folder.path().toLocal8Bit()}, {"DISPLAY", ":0"}, {"FLATPAK_ID", "org.tallix.tallix"}});
    EXPECT_TRUE(StartChannel::placeInEnvironment().startsWith(shared + '/'));
}

}  // namespace
