#pragma once

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextEdit>
#include <cstdint>
#include <memory>
#include <vector>

class MyDocument;
class QMenu;

namespace Ui {
class HistoryMenu;
}

/// Where the session keeps an answer: the variable that was given its number.
struct StoredAnswer {
    std::int32_t variable = -1;  ///< Its position in the list of variables; -1 for none.
    double number = 0.0;
};

/// Where a search in the history begins: at the match of before, or what is in sight, or behind or before the match.
enum class FindFrom { here, next, previous };
enum class FindResult { nothing, found, foundBehindTheEnd };

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
    ~TXHistoryViewerTextView() override;

    /// Makes the context menu, and sets the insets, 0 at the sides and 2 above and below, inside the page's own margin.
    void awakeFromNib();

    /// The document is not owned. It takes what the context menu inserts.
    void setParentDocument(MyDocument* parentDocument) { parentDocument_ = parentDocument; }

    bool isEditable() const { return !isReadOnly(); }
    void setEditable(bool isEditable);

    void moveInsertionPointToEnd();
    /// Adds "\n" at the insertion point.
    void insertLineBreak();
    /// Adds "line\n" at the insertion point, which stands on an empty line. Where its colour cannot be read on the
    /// view's base, another one is shown, but neither copied nor printed.
    void insertLine(const QString& line, LineKind kind, const QTextCharFormat& attributes);
    /// Says where the answer of the line that was inserted last is kept.
    void setStoredAnswerOfLastLine(const StoredAnswer& stored);
    void scrollToEnd();

    // TXHistoryViewerTextView_colors.cpp
    /// What a line of this kind, whose colour is `settled`, is shown in: on a dark base in another one.
    static QColor shownColor(LineKind kind, const QColor& settled, const QPalette& palette);

    // TXHistoryViewerTextView_find.cpp
    /// Looks for `text`, whatever its case, and marks the match over the text. Selection and caret stay. A search for
    /// the next one that comes to the end goes on at the beginning, and the other way round.
    FindResult findText(const QString& text, FindFrom from);
    void scrollToMatch();
    /// Takes the mark away.
    void forgetMatch();
    /// The text that is marked, which is no part of a selection.
    const QTextCursor& match() const { return match_; }
    /// Empties the view, but keeps the text until it comes back or is forgotten.
    void clearShownText();
    bool hasClearedText() const { return cleared_ != nullptr; }
    void bringClearedTextBack();
    void forgetClearedText() { cleared_.reset(); }

    // TXHistoryViewerTextView_menu.cpp: the context menu, whose entries act on the calculation under the pointer, or at
    // the caret when a key opened it.
    /// The context menu; nullptr before `awakeFromNib`.
    QMenu* wrappingMenu() const { return wrappingMenu_; }
    /// The menu for a click: the same everywhere.
    QMenu* menuForEvent(const QContextMenuEvent* event) const;
    /// Lines always wrap, so this does nothing.
    void wrap();
    /// Whether the entry of the menu can act. The one for `wrap` never can.
    bool validateMenuItem(const QAction* item) const;

    /// Text styles have a place here, but nothing makes any: both lists stay empty.
    const std::vector<QTextCharFormat>& styleDefinitions() const { return styleDefinitions_; }
    const std::vector<std::int32_t>& styleLocations() const { return styleLocations_; }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// The lines of one calculation. What is missing is no valid block.
    struct Calculation {
        QTextBlock equation;
        QTextBlock answer;  ///< Errors are none.
    };

    void makeMenu();
    Calculation calculationAt(int position) const;
    QString chosenAnswerName() const;
    void copyText(const QString& text);
    void giveFocusBack();
    void selectAllHere();
    void insertText(const QString& text);
    void wrapAnywhereIfNeededFor(const QString& line);
    bool isScrolledToEnd() const;
    int positionInSight() const;
    bool showInReadableColor(const QTextBlock& line) const;  ///< Whether that changed the line.
    void showAllInReadableColors();
    void followPalette();
    void showMatch();
    void showDocument(QTextDocument* text);
    void forgetDoubleClick();
    QTextCursor selectionToCopy() const;

    std::unique_ptr<Ui::HistoryMenu> menuUi_;
    QMenu* wrappingMenu_ = nullptr;
    QTextCursor match_;  ///< Null when nothing was found.
    std::unique_ptr<QTextDocument> cleared_;
    QColor knownBase_;  ///< With it, and with the text's colour, the lines are shown.
    QColor knownText_;
    Calculation chosen_;  ///< What the menu was opened for.
    MyDocument* parentDocument_ = nullptr;
    bool hasFocusForMenuOnly_ = false;
    std::vector<QTextCharFormat> styleDefinitions_;
    std::vector<std::int32_t> styleLocations_;
};
