// The tests of windows must not meet the programs that the user runs meanwhile.

#include "tests/support/OwnFolders.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

constexpr QFileDevice::Permissions userAlone = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                               QFileDevice::ExeOwner | QFileDevice::ReadUser | QFileDevice::WriteUser |
                                               QFileDevice::ExeUser;

TEST(OwnFolders, holdTheSocketsInPlaceOfTheUsers) {
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    EXPECT_NE(folder, OwnFolders::inheritedRuntime());
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation), QString::fromLocal8Bit(folder));
    EXPECT_EQ(QFileInfo(QString::fromLocal8Bit(folder)).permissions(), userAlone);
}

TEST(OwnFolders, areThoseOfTheProgramsThatTestsStart) {
    Command command;
    command.program = "/usr/bin/env";
    EXPECT_NE(Process::run(command).output.find("XDG_RUNTIME_DIR=" + qgetenv("XDG_RUNTIME_DIR").toStdString() + "\n"),
              std::string::npos);
}

}  // namespace
