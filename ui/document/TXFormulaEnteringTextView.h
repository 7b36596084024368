#pragma once

#include <QPlainTextEdit>
#include <optional>

class MyDocument;
class NameSuggestions;
class QMenu;
enum class EquationPart;

/// The entry line of a document: one line of plain text that is calculated with Return.
///
/// Right after a calculation, an operator typed as the first key continues from the last answer: "+" becomes "ans+".
/// Two flags keep track of what "right after" means. Whatever the program itself does to caret and selection leaves
/// them alone.
class TXFormulaEnteringTextView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TXFormulaEnteringTextView(QWidget* parent = nullptr);

    /// Sets the insets, 0 at the sides and 1 above and below, and the flag for a line not yet calculated.
    virtual void awakeFromNib();

    /// The document is not owned, and must outlive what is typed here.
    MyDocument* parentDocument() const { return parentDocument_; }
    void setParentDocument(MyDocument* parentDocument) { parentDocument_ = parentDocument; }

    /// The line as it stands, character for character.
    QString text() const;
    /// Replaces the whole line, in one step that the user can undo, and puts the caret behind it.
    void setText(const QString& text);
    void selectWholeText();
    /// Goes on where `other` is: with its line, its selection and its flags. Undo does not lead back behind a line that
    /// is new here.
    void takeOver(const TXFormulaEnteringTextView& other);

    /// Takes typed text in at the selection, wherever it came from: keys, dead keys or an input method. A text that
    /// starts with a line feed is Return: it calculates and is not inserted.
    void insertText(const QString& text);
    /// Does what typing `text` does, by whatever way other than a key it is chosen.
    void typeText(const QString& text);
    /// Inserts `text` at the caret, without replacing what is selected: no line is ever lost by it. One step undoes it.
    void insertAtCaret(const QString& text);
    /// What a key does. Modifier keys alone, dead keys and commands of the menu are no such keys.
    void keyDown(QKeyEvent* event);
    /// Whether the key types something into the line.
    static bool isTyping(const QKeyEvent& event);
    /// The user moved the caret or changed the selection: an operator now stands for itself.
    void textViewDidChangeSelection();

    /// True from the Return that calculated until the next key or change of the selection.
    bool wasFormulaJustCalculated() const { return wasFormulaJustCalculated_; }
    void setWasFormulaJustCalculated(bool wasJustCalculated) { wasFormulaJustCalculated_ = wasJustCalculated; }
    /// True while an operator that is typed gets "ans" in front.
    bool permissibleToEnterTextFlag() const { return permissibleToEnterTextFlag_; }
    void setPermissibleToEnterTextFlag(bool isPermissible) { permissibleToEnterTextFlag_ = isPermissible; }

    /// A text made fit for one line: trimmed, with a blank for each run of line ends. Text without line ends stays as
    /// it is.
    static QString asOneLine(const QString& text);
    /// So many characters does the line take at most from what is pasted or dropped. A hundred times as many would need
    /// all of a machine's memory to be laid out.
    static constexpr qsizetype longestLine = 1'000'000;

    // TXFormulaEnteringTextView_help.cpp: marks in the line, and names that could be meant. Neither moves the caret.
    /// Marks what stands in the line: each ")" without a "(", and where the user wants it, numbers and names.
    void refreshMarks();
    /// Suggests names for the word before the caret, or no longer.
    void offerSuggestions();
    void closeSuggestions();
    /// The list of suggestions; nullptr before it was wanted.
    NameSuggestions* suggestions() const { return suggestions_; }
    /// Types `text` in place of the characters from `start` to before `end`. One step undoes it.
    void replaceAsTyped(qsizetype start, qsizetype end, const QString& text);
    // Where the line is, in the viewport: the left edge of a character, the upper edge, and the end of the text.
    int leftOf(qsizetype position) const;
    int lineTop() const;
    int endOfText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Adds to the menu of a right click what there is beside the commands for text.
    virtual void addToContextMenu(QMenu* /*menu*/) {}
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The room around the line, the same at all sides.
    void setTextContainerInset(int inset);

private:
    void clearFlags();
    void interpretKey(QKeyEvent* event);
    void emptyLine(QKeyEvent* event);
    void insertThroughEditor(const QString& text);
    void showComposition(QInputMethodEvent* event);
    void endComposition();
    int lineHeight() const;
    void centreLine();
    void prepareMarks();
    std::optional<EquationPart> partOf(QStringView name) const;
    bool isComposing() const;
    void paintBrackets();
    QColor bracketColor() const;
    void suggestAfter(bool wasTyping);

    MyDocument* parentDocument_ = nullptr;
    bool wasFormulaJustCalculated_ = false;
    bool permissibleToEnterTextFlag_ = false;
    bool isMovedByProgram_ = false;
    bool isBeingTyped_ = false;
    NameSuggestions* suggestions_ = nullptr;
};
