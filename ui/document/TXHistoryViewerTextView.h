#pragma once

#include <QTextCharFormat>
#include <QTextEdit>

/// The history of a document: each equation with its answer below it, to be read and copied.
///
/// Lines are only ever added at the end, which costs the same however many there are.
class TXHistoryViewerTextView : public QTextEdit {
    Q_OBJECT

public:
    enum class LineKind { equation = 1, answer, error };

    /// What a line is, as the number of its LineKind: a property of its block's format. Blank lines have none.
    static constexpr int lineKindProperty = QTextFormat::UserProperty + 1;

    explicit TXHistoryViewerTextView(QWidget* parent = nullptr);

    /// Sets the insets, 0 at the sides and 2 above and below, inside the page's own margin.
    void awakeFromNib();

    bool isEditable() const { return !isReadOnly(); }
    void setEditable(bool isEditable);

    void moveInsertionPointToEnd();
    /// Adds "\n" at the insertion point.
    void insertLineBreak();
    /// Adds "line\n" at the insertion point, which stands on an empty line.
    void insertLine(const QString& line, LineKind kind, const QTextCharFormat& attributes);
    void scrollToEnd();

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void wrapAnywhereIfNeededFor(const QString& line);
    bool isScrolledToEnd() const;
    QTextCursor selectionToCopy() const;
};
