#pragma once

#include <QList>
#include <QObject>
#include <deque>
#include <vector>

class MyDocument;
class QWidget;

/// The open documents, in the order in which they were made.
class DocumentController : public QObject {
    Q_OBJECT

public:
    /// Opens a document in a new window and gives it. It lives until its window is closed.
    MyDocument& newDocument();
    /// Brings back the document that was closed last, as it was, in its own window; nullptr when there is none. The
    /// last ones that were closed are kept, as long as another document is open.
    MyDocument* reopenClosedDocument();
    bool hasClosedDocument() const { return !closedDocuments_.empty(); }
    static constexpr std::size_t mostClosedDocuments = 10;
    /// Closes every document, without a question.
    void closeAll();

    QList<MyDocument*> documents() const;
    /// Those that are open, and those that can be brought back.
    QList<MyDocument*> allDocuments() const;
    /// The document whose window was the active one last; nullptr when none is open.
    MyDocument* activeDocument() const { return activeDocument_; }

signals:
    /// A document was made; its window is not yet shown.
    void documentMade(MyDocument* document);
    void lastDocumentClosed();
    /// Another document would be brought back, or none any more.
    void closedDocumentsChanged();

private:
    struct OpenDocument {
        MyDocument* document;
        int number;  ///< In its title, from 1.
    };

    bool isFree(int number) const;
    int lowestFreeNumber() const;
    void add(const OpenDocument& open);
    void keepClosed(const OpenDocument& closed);
    void forgetClosedDocuments(std::size_t kept);
    void cascade(QWidget* window) const;
    void remove(MyDocument* document);

    std::vector<OpenDocument> openDocuments_;
    std::deque<OpenDocument> closedDocuments_;  ///< The one that was closed last at the end.
    MyDocument* activeDocument_ = nullptr;
};
