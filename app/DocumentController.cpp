#include "app/DocumentController.h"

#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "ui/document/MyDocument.h"
#include "ui/document/TXWindow.h"

namespace {

constexpr QPoint cascadeStep(24, 24);

/// Closes the panels and dialogs of a window that is being closed itself.
void closePanels(const QWidget& window) {
    for (QWidget* panel : window.findChildren<QWidget*>()) {
        if (panel->windowType() != Qt::Dialog && panel->windowType() != Qt::Tool) continue;
        panel->hide();
        panel->deleteLater();
    }
}

/// Lets a window come back where it is: one that is shown again would be placed anew.
void keepPlace(const QWidget& window) {
    if (QWindow* handle = window.windowHandle()) handle->setFramePosition(handle->framePosition());
}

}  // namespace

MyDocument& DocumentController::newDocument() {
    if (activeDocument_ != nullptr) activeDocument_->rememberLayout();
    auto* document = new MyDocument(this);
    cascade(document->documentWindow());
    add({document, lowestFreeNumber()});
    emit documentMade(document);
    document->showWindow();
    return *document;
}

MyDocument* DocumentController::reopenClosedDocument() {
    if (closedDocuments_.empty()) return nullptr;
    OpenDocument closed = closedDocuments_.back();
    closedDocuments_.pop_back();
    if (!isFree(closed.number)) closed.number = lowestFreeNumber();
    // What all documents have in common may have changed meanwhile.
    if (activeDocument_ != nullptr) {
        closed.document->setKeepsMiniWindowOnTop(activeDocument_->keepsMiniWindowOnTop());
    }
    add(closed);
    emit closedDocumentsChanged();
    closed.document->showWindow();
    return closed.document;
}

void DocumentController::add(const OpenDocument& open) {
    MyDocument* const document = open.document;
    const QString title = open.number == 1 ? tr("Untitled") : tr("Untitled %1").arg(open.number);
    for (QWidget* window : document->windows()) window->setWindowTitle(title);
    openDocuments_.push_back(open);
    connect(document, &MyDocument::activated, this, [this, document] { activeDocument_ = document; });
    connect(document, &MyDocument::closed, this, [this, document] { remove(document); });
    activeDocument_ = document;
}

// The active one last, since it is its window that the next start is to resemble.
void DocumentController::closeAll() {
    QList<MyDocument*> closing = documents();
    if (closing.removeOne(activeDocument_)) closing.append(activeDocument_);
    for (MyDocument* document : closing) document->close();
}

QList<MyDocument*> DocumentController::allDocuments() const {
    QList<MyDocument*> all = documents();
    for (const OpenDocument& closed : closedDocuments_) all.append(closed.document);
    return all;
}

QList<MyDocument*> DocumentController::documents() const {
    QList<MyDocument*> documents;
    for (const OpenDocument& open : openDocuments_) documents.append(open.document);
    return documents;
}

bool DocumentController::isFree(int number) const {
    const auto hasNumber = [number](const OpenDocument& open) { return open.number == number; };
    return std::none_of(openDocuments_.begin(), openDocuments_.end(), hasNumber);
}

int DocumentController::lowestFreeNumber() const {
    int number = 1;
    while (!isFree(number)) ++number;
    return number;
}

// Below and right of the active window, or at the screen's corner where there is no more room for it.
void DocumentController::cascade(QWidget* window) const {
    const QWidget* const active = activeDocument_ != nullptr ? activeDocument_->documentWindow() : nullptr;
    if (active == nullptr || !active->isVisible()) return;
    const QRect screen = active->screen()->availableGeometry();
    const QRect place = active->frameGeometry().translated(cascadeStep);
    window->move(screen.contains(place) ? place.topLeft() : screen.topLeft());
}

void DocumentController::remove(MyDocument* document) {
    const auto isDocument = [document](const OpenDocument& open) { return open.document == document; };
    const auto found = std::find_if(openDocuments_.begin(), openDocuments_.end(), isDocument);
    if (found == openDocuments_.end()) return;
    document->disconnect(this);  // It may still be activated while it goes.
    const OpenDocument closed = *found;
    openDocuments_.erase(found);
    if (activeDocument_ == document) {
        activeDocument_ = openDocuments_.empty() ? nullptr : openDocuments_.back().document;
    }
    keepClosed(closed);
    if (openDocuments_.empty()) emit lastDocumentClosed();
}

// The document itself is kept, with hidden windows, since nobody else knows all that it consists of.
void DocumentController::keepClosed(const OpenDocument& closed) {
    for (const QWidget* window : closed.document->windows()) closePanels(*window);
    keepPlace(*closed.document->activeWindow());
    closedDocuments_.push_back(closed);
    forgetClosedDocuments(openDocuments_.empty() ? 0 : mostClosedDocuments);
    emit closedDocumentsChanged();
}

void DocumentController::forgetClosedDocuments(std::size_t kept) {
    while (closedDocuments_.size() > kept) {
        closedDocuments_.front().document->deleteLater();
        closedDocuments_.pop_front();
    }
}
