#include "ui/document/TXInspectorController.h"

#include <QDialog>
#include <QHeaderView>
#include <QMetaMethod>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "ui/document/TXWindow.h"
#include "ui_Inspector.h"

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
TXInspectorController* inspectorController = nullptr;

namespace {

constexpr int rowPadding = 8;

/// The row of a style in the table; -1 when there is no such style.
int rowOfStyle(const QString& name) {
    static const QStringList styles = {"Answer", "Equation", "Heading", "Paragraph"};
    return static_cast<int>(styles.indexOf(name));
}

}  // namespace

TXInspectorController* TXInspectorController::init(MainWindow mainWindow, QObject* parent) {
    if (inspectorController != nullptr) return inspectorController;
    return new TXInspectorController(std::move(mainWindow), parent);
}

TXInspectorController::TXInspectorController(MainWindow mainWindow, QObject* parent)
    : QObject(parent),
      mainWindow_(std::move(mainWindow)),
      ui_(std::make_unique<Ui::Inspector>()),
      window_(std::make_unique<QDialog>()) {
    ui_->setupUi(window_.get());
    showAllStyles();
    windowDidLoad();
    const auto connectTo = [this](QPushButton* button, void (TXInspectorController::*operation)(QObject*)) {
        connect(button, &QPushButton::clicked, this, [this, button, operation] { (this->*operation)(button); });
    };
    connectTo(ui_->answerStyleButton, &TXInspectorController::setAnswerStyle);
    connectTo(ui_->regularStyleButton, &TXInspectorController::setRegularStyle);
    connectTo(ui_->commentStyleButton, &TXInspectorController::setCommentStyle);
    connectTo(ui_->headingStyleButton, &TXInspectorController::setHeadingStyle);
}

TXInspectorController::~TXInspectorController() {
    if (inspectorController == this) inspectorController = nullptr;
}

void TXInspectorController::windowDidLoad() {
    connect(stylesTableView(), &QTableWidget::itemSelectionChanged, this,
            &TXInspectorController::tableViewSelectionDidChange);
}

// The rows are as high as the font of the desktop, and none is out of sight.
void TXInspectorController::showAllStyles() const {
    QTableWidget* const table = stylesTableView();
    const int row = std::max(table->verticalHeader()->defaultSectionSize(), table->fontMetrics().height() + rowPadding);
    table->verticalHeader()->setDefaultSectionSize(row);
    table->setFixedHeight(row * table->rowCount() + 2 * table->frameWidth());
}

void TXInspectorController::showWindow() {
    window_->showNormal();
    window_->raise();
    window_->activateWindow();
}

void TXInspectorController::setFieldText(const QString& text) {
    testField()->setText(text);
    const int row = rowOfStyle(text);
    if (row >= 0) stylesTableView()->selectRow(row);
}

void TXInspectorController::tableViewSelectionDidChange() { static_cast<void>(stylesTableView()->currentRow()); }

void TXInspectorController::setAnswerStyle(QObject* sender) { send("setAnswerStyle", sender); }

void TXInspectorController::setRegularStyle(QObject* sender) { send("setRegularStyle", sender); }

void TXInspectorController::setCommentStyle(QObject* sender) { send("setCommentStyle", sender); }

void TXInspectorController::setHeadingStyle(QObject* sender) { send("setHeadingStyle", sender); }

void TXInspectorController::send(const char* operation, QObject* sender) const {
    const TXWindow* const window = TXWindow::initWithNSWindow(mainWindow_());
    QObject* const document = window != nullptr ? window->documentController() : nullptr;
    if (document == nullptr) return;
    // To invoke what is not there would fail too, but not quietly.
    const QByteArray signature = QByteArray(operation) + "(QObject*)";
    const QMetaMethod method = document->metaObject()->method(document->metaObject()->indexOfMethod(signature));
    if (method.isValid()) method.invoke(document, Qt::DirectConnection, Q_ARG(QObject*, sender));
}

QLineEdit* TXInspectorController::testField() const { return ui_->testField; }

QTableWidget* TXInspectorController::stylesTableView() const { return ui_->stylesTableView; }
