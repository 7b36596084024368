// The user's choices, in files of every kind.

#include "ui/UserDefaults.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QRect>
#include <algorithm>
#include <ostream>
#include <tuple>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/support/SettingsFolder.h"

void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace {

constexpr auto number = "TXPreferenceRevision";
constexpr auto text = "TXExponentsCharacter";
constexpr auto boolean = "TXUsesRadiansForNewDocuments";

TEST(UserDefaults, hasNothingAtFirst) {
    const SettingsFolder settings;
    const UserDefaults defaults;
    EXPECT_EQ(defaults.integerForKey(number), 0);
    EXPECT_TRUE(defaults.stringForKey(text).isNull());
    EXPECT_TRUE(defaults.boolForKey(boolean, true));
    EXPECT_FALSE(defaults.boolForKey(boolean, false));
    EXPECT_FALSE(QFile::exists(settings.filePath()));
}

TEST(UserDefaults, keepsWhatIsStoredFromOneStartToTheNext) {
    const SettingsFolder settings;
    {
        UserDefaults defaults;
        defaults.setInteger(-7, number);
        defaults.setString(" ", text);
        defaults.setBool(false, boolean);
    }
    const UserDefaults defaults;
    EXPECT_EQ(defaults.integerForKey(number), -7);
    EXPECT_EQ(defaults.stringForKey(text), " ");
    EXPECT_FALSE(defaults.boolForKey(boolean, true));
}

TEST(UserDefaults, storesChoicesAtTopLevelAndTheRestInAGroup) {
    const SettingsFolder settings;
    {
        UserDefaults defaults;
        defaults.setInteger(1, number);
        defaults.setInterfaceValue(200, "sidebarWidth");
        EXPECT_EQ(defaults.interfaceValueForKey("sidebarWidth"), 200);
        EXPECT_FALSE(defaults.interfaceValueForKey(number).isValid());
    }
    EXPECT_EQ(settings.text(), "[General]\nTXPreferenceRevision=1\n\n[interface]\nsidebarWidth=200\n");
}

TEST(UserDefaults, leavesTheFileAloneWhereTheValueIsStoredAlready) {
    const SettingsFolder settings;
    const char* const written =
        "; by hand\n[General]\nTXPreferenceRevision = 1\nTXExponentsCharacter=\",\"\n"
        "TXUsesRadiansForNewDocuments=true\n[interface]\nsidebarWidth=200\nplace=@Rect(1 2 3 4)\n";
    settings.write(written);
    const auto store = [](const QRect& place) {
        UserDefaults defaults;
        defaults.setInteger(1, number);
        defaults.setString(",", text);
        defaults.setBool(true, boolean);
        defaults.setInterfaceValue(200, "sidebarWidth");
        defaults.setInterfaceValue(place, "place");
    };
    store({1, 2, 3, 4});
    EXPECT_EQ(settings.text(), written);
    store({1, 2, 3, 5});
    EXPECT_NE(settings.text(), written);
}

struct StoredCase {
    const char* name;
    const char* stored;
    int integer;
    const char* string;
    bool boolean;
    bool isOtherBoolean;  ///< Whether the fallback counts instead.
};
void PrintTo(const StoredCase& row, std::ostream* out) { *out << row.stored; }
class StoredValue : public testing::TestWithParam<StoredCase> {};

TEST_P(StoredValue, isReadAsWhatItIs) {
    const SettingsFolder settings;
    const QByteArray value = GetParam().stored;
    settings.write("[General]\nTXPreferenceRevision=" + value + "\nTXExponentsCharacter=" + value +
                   "\nTXUsesRadiansForNewDocuments=" + value + "\n");
    testing::internal::CaptureStderr();
    const UserDefaults defaults;
    EXPECT_EQ(defaults.integerForKey(number), GetParam().integer);
    EXPECT_EQ(defaults.stringForKey(text), QString(GetParam().string));
    for (const bool fallback : {false, true}) {
        EXPECT_EQ(defaults.boolForKey(boolean, fallback), GetParam().isOtherBoolean ? fallback : GetParam().boolean);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Qt writes everything anew when anything is stored, and some of it in another form.
TEST_P(StoredValue, isReadTheSameOnceSomethingElseIsStored) {
    const SettingsFolder settings;
    const QByteArray value = GetParam().stored;
    settings.write("[interface]\nvalue=" + value + "\n");
    const auto read = [] {
        const UserDefaults defaults;
        const bool isTrue = defaults.interfaceBoolForKey("value", true);
        return std::make_tuple(defaults.interfaceValueForKey("value").toString(),
                               defaults.interfaceValueForKey("value").toRect(), isTrue);
    };
    const auto before = read();
    UserDefaults().setInteger(1, number);
    EXPECT_NE(settings.text().indexOf("TXPreferenceRevision=1"), -1);
    EXPECT_EQ(read(), before);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Values, StoredValue, testing::Values(
    //         name              stored                                  integer  string        boolean  fallback
    StoredCase{"True",           "true",                                 0,       "true",       true,    false},
    StoredCase{"False",          "false",                                0,       "false",      false,   false},
    StoredCase{"CapitalFalse",   "FALSE",                                0,       "FALSE",      false,   false},
    StoredCase{"One",            "1",                                    1,       "1",          true,    false},
    StoredCase{"Zero",           "0",                                    0,       "0",          false,   false},
    StoredCase{"OtherNumber",    "12",                                   12,      "12",         false,   true},
    StoredCase{"Word",           "banana",                               0,       "banana",     false,   true},
    StoredCase{"Empty",          "",                                     0,       "",           false,   true},
    StoredCase{"TooLarge",       "4294967297",                           0,       "4294967297", false,   true},
    StoredCase{"Fraction",       "1.5",                                  0,       "1.5",        false,   true},
    StoredCase{"QuotedComma",    "\",\"",                                0,       ",",          false,   true},
    StoredCase{"List",           "1,1",                                  0,       "",           false,   true},
    StoredCase{"NoValue",        "@Invalid()",                           0,       "",           false,   true},
    StoredCase{"Rectangle",      "@Rect(1 2 3 4)",                       0,       "",           false,   true},
    StoredCase{"SmallNumber",    "@Variant(\\0\\0\\0\\x87?\\x80\\0\\0)",     1,       "1",          true,    false},
    StoredCase{"ListOfOne",      "@Variant(\\0\\0\\0\\xb\\0\\0\\0\\x1\\0\\0\\0\\x2\\0\\x31)", 1, "1", true, false},
    StoredCase{"Shortcut",       "@Variant(\\0\\0\\0L\\0\\0\\0\\x1\\0\\0\\0\\x2c)",  0,   ",",          false,   true},
    StoredCase{"OtherRectangle", "@Variant(\\0\\0\\0\\x14" "00000000000000000000000000000000)", 0, "", false, true},
    StoredCase{"UnknownType",    "@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x5zork\\0)", 0, "",         false,   true},
    StoredCase{"CutOffType",     "@Variant(\\0\\0)",                     0,       "",           false,   true}
), [](const auto& row) { return row.param.name; });
// clang-format on

struct FileCase {
    const char* name;
    QByteArray bytes;
};
void PrintTo(const FileCase& row, std::ostream* out) { *out << row.name; }
class ForeignFile : public testing::TestWithParam<FileCase> {};

TEST_P(ForeignFile, readsAsNothingAndTakesWhatIsStored) {
    const SettingsFolder settings;
    settings.write(GetParam().bytes);
    {
        UserDefaults defaults;
        EXPECT_EQ(defaults.integerForKey(number), 0);
        EXPECT_TRUE(defaults.stringForKey(text).isNull());
        defaults.setString("E", text);
    }
    EXPECT_EQ(UserDefaults().stringForKey(text), "E");
}

QByteArray everyByte(int times) {
    QByteArray bytes;
    for (int i = 0; i < 256 * times; ++i) bytes.append(static_cast<char>(i * 7));
    return bytes;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, ForeignFile, testing::Values(
    FileCase{"Empty",        ""},
    FileCase{"Markup",       "<?xml version=\"1.0\"?>\n<plist/>\n"},
    FileCase{"CutOffGroup",  "[General\nTXPreferenceRevision"},
    FileCase{"OtherGroup",   "[TXPreferenceRevision]\nTXPreferenceRevision=1\n"},
    FileCase{"NoText",       everyByte(20)},
    FileCase{"Zeros",        QByteArray(100000, '\0')},
    FileCase{"LongLine",     QByteArray(1000000, '[')}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST(UserDefaults, leavesTheValuesOfOthersInTheFile) {
    const SettingsFolder settings;
    settings.write("[General]\nmine=1\n\n[other]\nyours=2\n");
    UserDefaults().setInteger(1, number);
    EXPECT_EQ(settings.text(), "[General]\nTXPreferenceRevision=1\nmine=1\n\n[other]\nyours=2\n");
}

// Nothing can be written below a folder of that name, even by the superuser.
TEST(UserDefaults, knowsWhatItCannotWriteAsLongAsItLives) {
    const SettingsFolder settings;
    ASSERT_TRUE(QDir().mkpath(settings.filePath()));
    testing::internal::CaptureStderr();
    UserDefaults defaults;
    defaults.setString("E", text);
    EXPECT_EQ(defaults.stringForKey(text), "E");
    EXPECT_EQ(UserDefaults().stringForKey(text), "E");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(UserDefaults, leavesWhatIsNoFileInItsPlace) {
    const SettingsFolder settings;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(settings.filePath());
    ASSERT_LT(path.size(), static_cast<qsizetype>(sizeof address.sun_path));
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    {
        UserDefaults defaults;
        defaults.setString("E", text);
        EXPECT_EQ(defaults.stringForKey(text), "E");
    }
    EXPECT_TRUE(QFileInfo(settings.filePath()).exists());
    EXPECT_FALSE(QFileInfo(settings.filePath()).isFile());
    close(descriptor);
}

/// The lock of a program that was killed before it wrote its number into it, made so long ago.
void leaveNamelessLock(const SettingsFolder& settings, int secondsAgo) {
    QFile lock(settings.filePath() + ".lock");
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    ASSERT_TRUE(lock.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo), QFileDevice::FileModificationTime));
}

TEST(UserDefaults, doesNotWaitForAProgramThatWasKilled) {
    const SettingsFolder settings;
    leaveNamelessLock(settings, 1);
    const QDeadlineTimer soon(5000);
    UserDefaults().setString("E", text);
    EXPECT_FALSE(soon.hasExpired());
    EXPECT_EQ(settings.text(), "[General]\nTXExponentsCharacter=E\n");
}

TEST(UserDefaults, removesALockOfAnotherTime) {
    const SettingsFolder settings;
    leaveNamelessLock(settings, -3600);  // The clock was put back since.
    const UserDefaults defaults;
    EXPECT_FALSE(QFile::exists(settings.filePath() + ".lock"));
}

// Whoever made it may be about to tell its number. A busy machine may take longer than it is given.
TEST(UserDefaults, leavesALockThatWasJustMade) {
    const SettingsFolder settings;
    bool isLeft = false;
    for (int attempt = 0; attempt < 20 && !isLeft; ++attempt) {
        leaveNamelessLock(settings, 0);
        const UserDefaults defaults;
        isLeft = QFile::exists(settings.filePath() + ".lock");
    }
    EXPECT_TRUE(isLeft);
}

TEST(UserDefaults, doesNotLookIntoTheFileOfAllProgramsOfTheOrganisation) {
    const SettingsFolder settings;
    QSettings("Tallix").setValue(text, "E");
    EXPECT_TRUE(UserDefaults().stringForKey(text).isNull());
}

}  // namespace
