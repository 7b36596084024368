// Finding a text in the history.

#include "ui/document/MyDocument.h"

#include <QApplication>

#include "ui/document/FindBar.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui_MyDocument.h"

void MyDocument::prepareFindBar() {
    findBar()->hide();
    connect(findBar(), &FindBar::edited, this, [this] { showMatch(FindFrom::here); });
    connect(findBar(), &FindBar::nextRequested, this, &MyDocument::findNextInHistory);
    connect(findBar(), &FindBar::previousRequested, this, &MyDocument::findPreviousInHistory);
    connect(findBar(), &FindBar::closeRequested, this, &MyDocument::closeFindBar);
}

// The mini window shows no history.
void MyDocument::findInHistory() {
    if (isSmallWindowShown_) windowShouldZoom();
    findBar()->open();
    showMatch(FindFrom::here);
}

void MyDocument::findNextInHistory() { goOnFinding(FindFrom::next); }

void MyDocument::findPreviousInHistory() { goOnFinding(FindFrom::previous); }

// Without the bar nobody could see what is looked for.
void MyDocument::goOnFinding(FindFrom from) {
    if (findBar()->isHidden() || isSmallWindowShown_) {
        findInHistory();
    } else {
        showMatch(from);
    }
}

void MyDocument::showMatch(FindFrom from) {
    TXHistoryViewerTextView* const history = mainField();
    FindBar* const bar = findBar();
    if (bar->text().isEmpty()) {
        history->forgetMatch();
        bar->showStatus(QString());
        return;
    }
    switch (history->findText(bar->text(), from)) {
        case FindResult::nothing: bar->showStatus(tr("No matches")); break;
        case FindResult::found: bar->showStatus(QString()); break;
        case FindResult::foundBehindTheEnd:
            bar->showStatus(from == FindFrom::previous ? tr("Wrapped to the end") : tr("Wrapped to the start"));
            break;
    }
    history->scrollToMatch();
}

void MyDocument::closeFindBar() {
    const bool hadFocus = findBar()->isAncestorOf(QApplication::focusWidget());
    findBar()->hide();
    mainField()->forgetMatch();
    if (hadFocus) activeFormulaTextView()->setFocus();
}

FindBar* MyDocument::findBar() const { return ui_->findBar; }
