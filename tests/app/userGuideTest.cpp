// The user guide that the Help menu opens, and what it says of the keys.

#include <QFile>
#include <QFileInfo>

#include "app/KeyboardShortcuts.h"
#include "tests/support/ApplicationTest.h"

namespace {

struct UserGuide : ApplicationTest {
    MyDocument& document = openDocument();
};

TEST_F(UserGuide, isWhereTheProgramLooks) {
    for (const char* command : {"usersGuideAction", "releaseNotesAction"}) {
        SCOPED_TRACE(command);
        const OpenedAddresses opened;
        trigger(document, command);
        ASSERT_EQ(opened.addresses().size(), 1);
        QFile guide(opened.addresses().first().toLocalFile());
        ASSERT_TRUE(guide.open(QFile::ReadOnly)) << guide.fileName().toStdString();
        EXPECT_TRUE(guide.read(5) == "%PDF-");
        EXPECT_TRUE(QFileInfo(guide).fileName() == "TALLIX User Guide.pdf");
    }
}

/// The rows of the guide's table for what the program lists.
QString rowsOf(const QList<KeyboardShortcuts::Group>& groups) {
    QString rows;
    for (const auto& group : groups) {
        rows += "| **" + group.title + "** | |\n";
        for (const auto& entry : group.entries)
            rows += "| " + entry.command + " | `" + entry.keys.join("` or `") + "` |\n";
    }
    return rows;
}

TEST_F(UserGuide, listsTheKeys) {
    QFile chapter(TALLIX_SOURCE_FOLDER "/docs/guide/13-keyboard-shortcuts.md");
    ASSERT_TRUE(chapter.open(QFile::ReadOnly | QFile::Text));
    const QString text = QString::fromUtf8(chapter.readAll());
    const QString rows = rowsOf(KeyboardShortcuts::groupsOf(*document.documentWindow()));
    EXPECT_TRUE(text.contains("| --- | --- |\n" + rows + '\n')) << rows.toStdString();
}

}  // namespace
