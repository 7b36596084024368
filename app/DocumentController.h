#pragma once

#include <QList>
#include <QObject>
#include <vector>

class MyDocument;
class QWidget;

/// The open documents, in the order in which they were made.
class DocumentController : public QObject {
    Q_OBJECT

public:
    /// Opens a document in a new window and gives it. It lives until its window is closed.
    MyDocument& newDocument();
    /// Closes every document, without a question.
    void closeAll();

    QList<MyDocument*> documents() const;
    /// The document whose window was the active one last; nullptr when none is open.
    MyDocument* activeDocument() const { return activeDocument_; }

signals:
    /// A document was made; its window is not yet shown.
    void documentMade(MyDocument* document);
    void lastDocumentClosed();

private:
    struct OpenDocument {
        MyDocument* document;
        int number;  ///< In its title, from 1.
    };

    int lowestFreeNumber() const;
    void cascade(QWidget* window) const;
    void remove(MyDocument* document);

    std::vector<OpenDocument> openDocuments_;
    MyDocument* activeDocument_ = nullptr;
};
