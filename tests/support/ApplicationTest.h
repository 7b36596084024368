#pragma once

#include <QAction>
#include <QApplication>
#include <QMenu>

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "app/Application.h"
#include "tests/support/BeepCount.h"
#include "tests/support/DocumentTest.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/SettingsFolder.h"

/// The application with user defaults of its own, and no document at first.
struct ApplicationTest : testing::Test {
    /// Opens one more document and waits until its window has the keyboard.
    MyDocument& openDocument() {
        MyDocument& document = application.documents().newDocument();
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
        return document;
    }

    /// The entry of the document's menu bar with this object name.
    static QAction* action(const MyDocument& document, const char* name) {
        auto* found = document.documentWindow()->findChild<QAction*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    static void trigger(const MyDocument& document, const char* name) { action(document, name)->trigger(); }

    /// Lets go what was told to go later.
    static void deleteWhatIsClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    SettingsFolder settings;
    BeepCount beeps;
    Application application;
};
