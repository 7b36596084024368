// The least that a document-like window of this toolkit is: a text, an entry line and a tree. Each line is added to the
// text, Ctrl+N opens another window, and nothing is calculated.
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QShortcut>
#include <QSplitter>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

namespace {

void openWindow() {
    auto* window = new QMainWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QStringLiteral("Bare"));
    auto* split = new QSplitter(window);
    auto* side = new QWidget(split);
    auto* layout = new QVBoxLayout(side);
    auto* text = new QTextEdit(side);
    auto* entry = new QLineEdit(side);
    text->setReadOnly(true);
    layout->addWidget(text);
    layout->addWidget(entry);
    split->insertWidget(0, new QTreeWidget(split));
    window->setCentralWidget(split);
    QObject::connect(entry, &QLineEdit::returnPressed, text, [text, entry] {
        text->append(entry->text());
        entry->selectAll();
    });
    const auto* another = new QShortcut(QKeySequence::New, window);
    QObject::connect(another, &QShortcut::activated, window, openWindow);
    window->resize(760, 500);
    window->show();
    entry->setFocus();
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    openWindow();
    return QApplication::exec();
}
