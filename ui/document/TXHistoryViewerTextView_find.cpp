// A text that is found in the history, and the history that was cleared.

#include "ui/document/TXHistoryViewerTextView.h"

#include <QAbstractTextDocumentLayout>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextFrame>

FindResult TXHistoryViewerTextView::findText(const QString& text, FindFrom from) {
    QTextCursor found;
    bool hasWrapped = false;
    const int end = document()->characterCount();
    const auto search = [&](int position, QTextDocument::FindFlags flags) {
        if (found.isNull()) found = document()->find(text, position, flags);
        return !found.isNull();
    };
    switch (from) {
        case FindFrom::here:
            // What is nearest to what is in sight, or to what was found for a shorter text.
            search(match_.isNull() ? positionInSight() : match_.selectionStart(), {});
            search(end, QTextDocument::FindBackward);
            break;
        case FindFrom::next:
            hasWrapped = !search(match_.isNull() ? positionInSight() : match_.selectionEnd(), {}) && search(0, {});
            break;
        case FindFrom::previous:
            hasWrapped = !search(match_.isNull() ? end : match_.selectionStart(), QTextDocument::FindBackward) &&
                         search(end, QTextDocument::FindBackward);
            break;
    }
    match_ = found;
    showMatch();
    if (match_.isNull()) return FindResult::nothing;
    return hasWrapped ? FindResult::foundBehindTheEnd : FindResult::found;
}

void TXHistoryViewerTextView::forgetMatch() {
    match_ = QTextCursor();
    showMatch();
}

int TXHistoryViewerTextView::positionInSight() const { return cursorForPosition(QPoint(0, 0)).block().position(); }

// As a mark over the text: what is selected, and copied, stays as it is.
void TXHistoryViewerTextView::showMatch() {
    if (match_.isNull()) {
        setExtraSelections({});
        return;
    }
    ExtraSelection mark;
    mark.cursor = match_;
    mark.format.setBackground(palette().brush(QPalette::Active, QPalette::Highlight));
    mark.format.setForeground(palette().brush(QPalette::Active, QPalette::HighlightedText));
    setExtraSelections({mark});
}

void TXHistoryViewerTextView::scrollToMatch() {
    if (match_.isNull()) return;
    QRect line = cursorRect(match_);
    const QRect sight = viewport()->rect();
    QScrollBar* const bar = verticalScrollBar();
    if (line.top() < sight.top()) bar->setValue(bar->value() + line.top() - sight.top());
    if (line.bottom() > sight.bottom()) bar->setValue(bar->value() + line.bottom() - sight.bottom());
}

// The old text waits as a whole, since its lines know where their answers are kept.
void TXHistoryViewerTextView::clearShownText() {
    QTextDocument* const shown = document();
    auto* const empty = new QTextDocument(this);
    empty->setUndoRedoEnabled(false);
    empty->setDefaultTextOption(shown->defaultTextOption());
    empty->rootFrame()->setFrameFormat(shown->rootFrame()->frameFormat());
    shown->setParent(nullptr);  // Or else the editor would delete it.
    showDocument(empty);
    cleared_.reset(shown);
}

void TXHistoryViewerTextView::bringClearedTextBack() {
    if (cleared_ == nullptr) return;
    const std::unique_ptr<QTextDocument> shown(document());
    shown->setParent(nullptr);
    cleared_->setParent(this);
    showDocument(cleared_.release());
    moveInsertionPointToEnd();
    scrollToEnd();
}

void TXHistoryViewerTextView::showDocument(QTextDocument* text) {
    forgetMatch();
    chosen_ = {};
    text->setDefaultFont(font());
    setDocument(text);
    text->documentLayout()->setPaintDevice(viewport());
    forgetDoubleClick();
    showAllInReadableColors();
    emit textChanged();
}

// The editor goes on to extend the word or the line that was selected so, and would look for it in a text that is gone.
// Only a click makes it forget; this one is far from every other, so that it is no third one.
void TXHistoryViewerTextView::forgetDoubleClick() {
    constexpr QPointF place(-10'000.0, -10'000.0);
    QMouseEvent press(QEvent::MouseButtonPress, place, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    mousePressEvent(&press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, place, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    mouseReleaseEvent(&release);
}
