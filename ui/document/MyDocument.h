#pragma once

#include <QByteArray>
#include <QFont>
#include <QList>
#include <QObject>
#include <QRect>
#include <QTextDocumentFragment>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "engine/controller/TXEquationController.h"
#include "format/TXNumberFormatter.h"
#include "format/TXNumberFormatterSettings.h"
#include "ui/document/EntryOptions.h"
#include "ui/document/TXFormulaScrollerController.h"

class FindBar;
class HistoryPages;
class MiniModeAnswerField;
class PullDownButton;
class QAction;
class QActionGroup;
class QInputMethodEvent;
class QKeyEvent;
class QMenu;
class QPagedPaintDevice;
class QPrinter;
class QSplitter;
class QWheelEvent;
class SegmentedControl;
enum class EquationPart;
enum class FindFrom;
struct NameSuggestion;
struct StoredAnswer;
class TXFormulaEnteringMiniModeTextField;
class TXFormulaEnteringTextView;
class TXHistoryViewerTextView;
class TXOutlineView;
class TXVariableOutlineViewController;
class TXWindow;
class UserDefaults;

namespace Ui {
class MiniWindow;
class MyDocument;
}  // namespace Ui

/// The variables of the document that was made last; nullptr once that one is gone. Documents set it, nobody else.
extern TXVariableArray* globalVariableArray;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

/// One calculator: its session, and the windows in which a person works with it.
///
///     MyDocument document;      // takes the angle unit and the characters from the user defaults
///     document.showWindow();    // the caret is in the entry line
///
/// The history exists only in the window: nothing is ever saved.
class MyDocument : public QObject {
    Q_OBJECT

public:
    explicit MyDocument(QObject* parent = nullptr);
    ~MyDocument() override;

    /// The name of the window's layout.
    static QString windowNibName() { return QStringLiteral("MyDocument"); }
    /// Makes the loaded windows ready: takes over the user defaults, and sets up the views.
    void windowControllerDidLoadNib();

    /// Shows the active window in front of the others, with the caret in its entry line.
    void showWindow();
    /// Closes the active window, and with it the document.
    void close();

    /// Calculates the line of the active entry and adds it, with its answer or its error, to the history. A blank line
    /// changes nothing. The line stays, wholly selected.
    void equationEntered();

    /// Types `text` into the line of the full window, which then has the focus.
    void insertTextIntoEnteringBox(const QString& text) const;
    /// Inserts `text` at the caret of the active entry, beside what is selected there, and gives it the focus.
    void insertAtCaretOfEntry(const QString& text) const;
    /// The name of the variable that was given this answer, as long as it holds it; or else an empty one.
    QString nameOfVariableHolding(const StoredAnswer& stored) const;
    /// Brings the formula before the present one back into the active entry, or beeps.
    void optionArrowMoveToPreviousFormula();
    /// Brings the formula after the present one back, or beeps; right after a calculation it empties the line.
    void optionArrowMoveToNextFormula();

    // MyDocument_editing.cpp: commands of the Edit menu, and keys that are meant for the entry or the history.
    /// Copies the number of the last answer that there was, as the present format writes it. A line that was refused
    /// leaves it as it was. Nothing happens before the first answer.
    void copyLastAnswer() const;
    /// The same, but without a character between groups of digits.
    void copyLastAnswerWithoutSeparators() const;
    bool hasLastAnswer() const;
    /// Types "±" into the active entry, which then has the focus.
    void insertPlusMinus() const;
    /// Says that a text of so many characters is too long for the line. A part of it could be another equation.
    void refuseTooLongText(qsizetype length) const;
    /// Gives a key that was pressed elsewhere in the window to the active entry, with the focus, if it types something.
    /// Or else gives false.
    bool typeIntoEntry(QKeyEvent* event) const;
    /// The same for what an input method composes elsewhere, beginning with a dead key. The focus follows when the text
    /// is complete, since the input method would give up a composition that loses it.
    void composeIntoEntry(QInputMethodEvent* event) const;
    /// What an input method that composes in `view` is to know of the active entry, with places in the view.
    QVariant inputMethodQueryOfEntry(Qt::InputMethodQuery query, const QWidget& view) const;
    /// Scrolls the history by a page, up when `pages` is negative.
    void scrollHistory(int pages) const;
    /// Empties the shown history. The session with its variables and the scrollback stay.
    void clearHistory();
    /// Whether the history that was cleared can come back: as long as no line was changed or entered since.
    bool canUndoClearHistory() const;
    void undoClearHistory();

    // MyDocument_help.cpp: what helps while a line is typed. Nothing of it changes the session.
    const EntryOptions& entryOptions() const { return entryOptions_; }
    void setEntryOptions(const EntryOptions& options);
    /// "= 7", or "r = 2.5" for an assignment, in the present format; empty where the line has no answer.
    QString previewOfLine(const QString& line);
    /// "30*2 = 60" for a part of a line that is an expression of its own; or else empty.
    QString previewOfPart(const QString& part);
    /// So many names at most that begin so, whatever their case: variables with their values, then functions.
    QList<NameSuggestion> suggestionsFor(QStringView beginning, int most) const;
    /// Whether the name is a function's or that of a variable with a value.
    std::optional<EquationPart> partOfName(QStringView name) const;

    // MyDocument_find.cpp: finding a text in the history.
    /// Opens the bar for what is to be found, in the full window.
    void findInHistory();
    /// Goes on to the next match below or above, and round at the end. Opens the bar first where it is not open.
    void findNextInHistory();
    void findPreviousInHistory();
    /// Closes the bar. When it goes with the focus, the entry line gets the focus.
    void closeFindBar();

    // MyDocument_textSize.cpp: the size of the text of history, entry and sidebar, in percent of the normal one.
    static constexpr int normalTextSize = 100;
    static constexpr int smallestTextSize = 50;
    static constexpr int largestTextSize = 300;
    static constexpr int textSizeStep = 10;
    int textSize() const { return textSize_; }
    /// Takes the step that is nearest to what is wished, and remembers it for new documents. The entry's pane grows
    /// with its line. What is copied or printed keeps its size.
    void setTextSize(int wished);

    /// Documents cannot be saved or opened: these two beep and say so.
    void saveDocument();
    void openDocument();
    /// No data, of whatever type.
    static std::optional<QByteArray> dataRepresentationOfType(const QString& typeName);
    /// Reads `stringForFile` and `variableArray` from an archive, a CBOR map with the keys "testKey" (a text) and
    /// "variableArray" (a list of maps: "variableName", a text, and perhaps "number", "isLocked" and "isAutoCached").
    /// What the data does not hold is empty afterwards. Neither the window nor the session is told. Always true.
    bool loadDataRepresentation(const QByteArray& data, const QString& typeName);

    /// Asks how to print the history, in a sheet of the window, and prints it.
    void printDocument() const;
    /// Prints the history, in its normal size whatever its size in the window. Whether it could be printed.
    bool printHistory(QPagedPaintDevice* device) const;
    /// Prints it as the printer is set up, and says in an alert why it could not be printed.
    void printHistoryOn(QPrinter* printer) const;
    /// Asks whether to forget everything, in a sheet of the window, and does it.
    void askToClearEverything();
    /// Begins anew: forgets the session's variables and equations, the history and the scrollback, and empties the
    /// line. The formats and the angle unit stay.
    void clearEverything();

    /// Chooses the character between groups of digits: 0 ",", 1 " ", 2 "'". Any other choice does nothing.
    void changeThousandsSeparatorCharacter(std::int32_t choice);
    /// Chooses the exponent character: 0 "e", 1 "E". Any other choice does nothing.
    void changeExponentCharacter(std::int32_t choice);

    // MyDocument_formats.cpp: the controls below the entry line. What is in the history already stays as it is.
    /// Takes the notation that was chosen in `sender`, whose items 1 to 7 are the formatting types. Binary, octal and
    /// hexadecimal have no choice of digits.
    void changeNumberFormatting(PullDownButton* sender);
    /// Takes over whether `sender`, which flips when it is chosen, is checked.
    void changeThousandsSeparators(const QAction* sender);
    /// The same for zeros after the last digit.
    void changeAddZerosAfterDigits(const QAction* sender);
    /// Takes the digits for which `sender` stands. Its data counts them as the settings do: 0 automatic, 1 to 10
    /// significant figures, 11 to 21 that many decimal places and 11. Anything else does nothing.
    void changeDigitFormatting(QAction* sender);
    /// Lets the digit button say what the settings are. There is no title for 22 and more.
    void refreshDigitFormattingPopUpButtonTitle();
    /// Takes the angle unit that `sender` shows: segment 0 is radians.
    void changeDegreesRadians(const SegmentedControl* sender);

    // MyDocument_miniMode.cpp
    /// Changes from the full window to the mini window or back, with the line, its selection and its flags. Always
    /// false: no window is ever zoomed.
    bool windowShouldZoom();
    /// Whether the mini window stays above the windows of other programs. It is remembered for new documents.
    bool keepsMiniWindowOnTop() const { return keepsMiniWindowOnTop_; }
    void setKeepsMiniWindowOnTop(bool isOnTop);
    /// Whether a program can have this on a platform, named as Qt names it.
    static bool canKeepMiniWindowOnTop(const QString& platform);
    /// Adds what the mini window, which has no menu bar, offers with a right click.
    void addMiniModeCommands(QMenu* menu);

    // MyDocument_sidebar.cpp
    /// Shows the session's variables in the sidebar as they are now, in the present format.
    void reloadSidebar();
    bool isSidebarShown() const;
    /// Shows or hides the sidebar. When it goes with the focus, the entry line gets the focus.
    void setSidebarShown(bool isShown);

    /// Gives the divider beside the sidebar the focus, then the one above the entry, and then the entry line again.
    void moveToNextDivider();

    /// To be asked before a window changes its size: notes the sizes of the panes that are to stay, and gives the size
    /// that the window may have. Only the width of the mini window can change.
    QSize windowWillResize(const QWidget& window, QSize toSize);
    /// To be told after the full window changed its size: gives the sidebar its width back and the entry its height.
    void windowDidResize();

    // MyDocument_layout.cpp
    /// Stores the full window's place, its panes and the size of its text for the documents that are made from now on.
    /// The window does it by itself when another one gets active, and when it is closed.
    void rememberLayout() const;

    TXWindow* documentWindow() const { return documentWindow_.get(); }
    /// The mini window, which is made when it is asked for, like its parts below.
    QWidget* miniWindow() const;
    /// The full window, and the mini window once it is made.
    QList<QWidget*> windows() const;
    /// The window in use: the full or the mini one.
    QWidget* activeWindow() const;
    TXHistoryViewerTextView* mainField() const;
    TXFormulaEnteringTextView* formulaTextView() const;
    TXFormulaEnteringMiniModeTextField* miniModeformulaTextView() const;
    MiniModeAnswerField* miniModeAnswerField() const;
    /// The notation, and the switch for thousands separators.
    PullDownButton* formattingTypeButton() const;
    /// The digits; its title says which.
    PullDownButton* numberFormattingButton() const;
    SegmentedControl* degreesRadiansSegmentedControl() const;
    /// Radians and degrees as entries of a menu.
    const QList<QAction*>& angleUnitActions() const { return angleUnitActions_; }
    /// The entry line of the window in use.
    TXFormulaEnteringTextView* activeFormulaTextView() const;

    TXFormulaScrollerController& documentFormulaScrollerController() { return documentFormulaScrollerController_; }
    TXEquationController& documentEquationController() { return documentEquationController_; }
    TXNumberFormatter& documentNumberFormatter() { return documentNumberFormatter_; }
    TXNumberFormatterSettings& documentNumberFormatterSettings() { return documentNumberFormatterSettings_; }
    /// The session's own list, or the one that was loaded.
    const TXVariableArray& variableArray() const { return *variableArray_; }
    const QTextDocumentFragment& stringForFile() const { return stringForFile_; }
    /// There is none: nullptr.
    static QWidget* variableSearchField() { return nullptr; }

    FindBar* findBar() const;
    TXOutlineView* variableOutlineView() const;
    TXVariableOutlineViewController* variableOutlineViewController() const {
        return variableOutlineViewController_.get();
    }
    /// What is searched in the sidebar: nothing, as long as it has no search field.
    bool currentlySearchingVariableTable() const;
    const QString& currentVariableSearchString() const;
    std::uint16_t currentVariable() const;

    /// The sidebar beside the rest, and the pane of it that keeps its width.
    QSplitter* mySplitView() const;
    QWidget* controlledView() const;
    /// The history above the entry, and the entry's pane, which keeps its height.
    QSplitter* secondarySplitView() const;
    QWidget* secondaryControlledView() const;
    /// The width of the sidebar before the window last changed its size, and then: first the height of the entry's pane
    /// before it, afterwards where the divider above it was put.
    float currentWidth() const { return currentWidth_; }
    float secondaryCurrentWidth() const { return secondaryCurrentWidth_; }
    /// How answers are formatted, as it is at the start.
    std::int32_t answerFormatting() const { return answerFormatting_; }
    const QFont& documentFont() const { return documentFont_; }

    /// Whether the mini window is the one in use.
    bool isSmallWindowShown() const { return isSmallWindowShown_; }
    void setIsSmallWindowShown(bool isShown) { isSmallWindowShown_ = isShown; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// One of the document's windows became the active one.
    void activated();
    /// The document's window was closed: the document has done its work.
    void closed();
    /// The other of the two windows is the one in use now.
    void miniModeChanged(bool isMini);
    void keepsMiniWindowOnTopChanged(bool isOnTop);
    /// The mini window was made, and is ready.
    void miniWindowLoaded(QWidget* miniWindow);
    /// A line was entered, everything was cleared, or answers are computed or written in another way.
    void sessionChanged();
    /// The history was cleared, or can no longer come back.
    void canUndoClearHistoryChanged();
    void textSizeChanged(int percent);
    void entryOptionsChanged();
    /// The window manager made a window large that should give way to the other one.
    void zoomRequested();

private:
    struct Answer;

    void init();
    void loadWindows();
    void prepareEntry(TXFormulaEnteringTextView* entry, double sizeOfLiveAnswer);
    void loadMiniWindow();
    void prepareMiniWindow();
    void putMiniWindowOnTop();
    void prepareSidebar();
    void prepareFindBar();
    void forgetClearedHistoryWithChangesOf(const TXFormulaEnteringTextView& entry);
    void prepareHelp(TXFormulaEnteringTextView* entry, double sizeOfLiveAnswer);
    QString formatted(double number) const;
    void suggestVariables(QStringView beginning, int most, QList<NameSuggestion>& suggestions) const;
    void forgetClearedHistory();
    void goOnFinding(FindFrom from);
    void showMatch(FindFrom from);
    void takeLastLayout();
    void keepRoomForControls();
    void takeLastPlace(const UserDefaults& defaults);
    void takeLastPanes(const UserDefaults& defaults);
    void takeTextSize();
    void rememberTextSize(UserDefaults* defaults) const;
    int growthOfEntryLine() const;
    void showTextSize();
    bool changeTextSizeByWheel(const QWheelEvent& event);
    void showSidebarForTheFirstTime();
    void followResizing(const QObject* watched);
    bool leaveDividerByKey(QKeyEvent* event) const;
    void takeUserDefaults();
    QString variableNameOf(const TXResult& result) const;
    void copyAnswer(const TXNumberFormatterSettings& settings) const;
    Answer answerOf(const TXResult& result);
    void appendToHistory(const Answer& answer);
    void showInMiniWindow(const Answer& answer) const;
    void showLastAnswerInMiniWindow();
    void prepareFormatControls();
    void fillFormattingTypeMenu();
    void fillDigitMenu();
    QAction* addDigitItem(QMenu* menu, int tag, const QString& text);
    void addAngleUnitActions();
    QAction* addAngleUnitAction(QActionGroup* group, int segment, const QString& text);
    void uncheckDigitItems();
    void refreshAddZerosItem(int tag);
    static QString digitTitle(unsigned int index);
    void refreshAngleUnit();
    void answerFormatChanged();
    void prepareMiniMode();
    void leaveZoom();
    void placeMiniWindow();
    void rememberMiniWindow(const QRect& place);
    bool isZoomRequest(const QObject* window, const QEvent& event) const;
    void refreshMiniModeFormatLabel();
    void showMiniModeMenu(const QPoint& position);
    HistoryPages historyPages() const;
    void showSorry(const QString& message);

    std::unique_ptr<Ui::MyDocument> ui_;
    std::unique_ptr<Ui::MiniWindow> miniUi_;
    /// For operations that are const, too: nobody sees whether the window was there before.
    std::function<void()> needMiniWindow_{[this] { loadMiniWindow(); }};

    TXEquationController documentEquationController_;
    TXNumberFormatterSettings documentNumberFormatterSettings_;
    TXNumberFormatter documentNumberFormatter_;
    const TXVariableArray* variableArray_ = nullptr;
    std::unique_ptr<TXVariableArray> loadedVariableArray_;
    QTextDocumentFragment stringForFile_;
    TXFormulaScrollerController documentFormulaScrollerController_;
    QFont documentFont_;
    float currentWidth_ = 0.0F;
    float secondaryCurrentWidth_ = 0.0F;
    std::int32_t answerFormatting_ = 0;
    bool isSmallWindowShown_ = false;
    bool isBeingResized_ = false;
    std::unique_ptr<TXVariableOutlineViewController> variableOutlineViewController_;
    EntryOptions entryOptions_;
    int textSize_ = normalTextSize;
    int normalLineHeight_ = 0;
    QSize smallestSize_;       ///< Of the full window, whatever the font.
    int wheelMovement_ = 0;    ///< Less than a step of the wheel.
    QString lineWhenCleared_;  ///< When the history was cleared.
    bool keepsMiniWindowOnTop_ = false;
    QRect miniWindowPlace_;  // without the window manager's frame
    QActionGroup* digitItems_ = nullptr;
    QList<QAction*> angleUnitActions_;

    // Last, so that the windows go first.
    std::unique_ptr<TXWindow> documentWindow_;
    std::unique_ptr<QWidget> miniWindow_;
};
