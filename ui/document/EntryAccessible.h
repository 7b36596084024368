#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

class TXFormulaEnteringTextView;

/// The entry line for screen readers and the like: one line of text that can be read and changed, and whose action
/// does what Return does. The toolkit's own would take it for a text of many lines, and let line breaks into it.
///
/// Positions are counted in characters of UTF-16. What is changed from here is not typed: an operator brings no "ans".
class EntryAccessible : public QAccessibleWidget,
                        public QAccessibleTextInterface,
                        public QAccessibleEditableTextInterface {
public:
    explicit EntryAccessible(TXFormulaEnteringTextView& view);

    /// Makes one for an entry line, nothing for anything else: to be installed once.
    static QAccessibleInterface* make(const QString& className, QObject* object);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    /// Its parts are the editor's own affair.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int position) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int position, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int position, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    /// Keeps positions inside the line, wherever they came from.
    int inLine(int position) const;

    TXFormulaEnteringTextView& view_;
};
