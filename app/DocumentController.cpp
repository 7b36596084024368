#include "app/DocumentController.h"

#include <QScreen>
#include <algorithm>

#include "ui/document/MyDocument.h"
#include "ui/document/TXWindow.h"

namespace {

constexpr QPoint cascadeStep(24, 24);

}  // namespace

MyDocument& DocumentController::newDocument() {
    auto* document = new MyDocument(this);
    const int number = lowestFreeNumber();
    document->documentWindow()->setWindowTitle(number == 1 ? tr("Untitled") : tr("Untitled %1").arg(number));
    cascade(document->documentWindow());
    openDocuments_.push_back({document, number});
    connect(document, &MyDocument::activated, this, [this, document] { activeDocument_ = document; });
    connect(document, &MyDocument::closed, this, [this, document] { remove(document); });
    activeDocument_ = document;
    emit documentMade(document);
    document->showWindow();
    return *document;
}

void DocumentController::closeAll() {
    for (MyDocument* document : documents()) document->close();
}

QList<MyDocument*> DocumentController::documents() const {
    QList<MyDocument*> documents;
    for (const OpenDocument& open : openDocuments_) documents.append(open.document);
    return documents;
}

int DocumentController::lowestFreeNumber() const {
    int number = 1;
    const auto isTaken = [&number](const OpenDocument& open) { return open.number == number; };
    while (std::any_of(openDocuments_.begin(), openDocuments_.end(), isTaken)) ++number;
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
    openDocuments_.erase(found);
    if (activeDocument_ == document) {
        activeDocument_ = openDocuments_.empty() ? nullptr : openDocuments_.back().document;
    }
    document->deleteLater();
    if (openDocuments_.empty()) emit lastDocumentClosed();
}
