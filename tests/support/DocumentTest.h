#pragma once

#include <QSettings>

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "tests/support/BeepCount.h"
#include "tests/support/keys.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXWindow.h"

/// So that a failed comparison shows the text and not its bytes.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

/// User defaults as on the first day.
struct FreshDefaults {
    FreshDefaults() { QSettings().clear(); }
};

/// A new document in its window, with the defaults of the first day, and with the beeps counted.
struct OpenDocument {
    OpenDocument() {
        document.showWindow();
        // The rest of what showing brings along, such as the focus.
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
    }

    TXFormulaEnteringTextView* entry() const { return document.activeFormulaTextView(); }
    void press(QStringView keys) const { pressKeys(entry(), keys); }
    QString line() const { return entry()->text(); }
    QString selection() const { return entry()->textCursor().selectedText(); }
    QString history() const { return document.mainField()->toPlainText(); }

    FreshDefaults defaults;
    BeepCount beeps;
    MyDocument document;
};

/// Names a row of a table.
struct RowName {
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const {
        return row.param.name;
    }
};
