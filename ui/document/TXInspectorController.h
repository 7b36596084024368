#pragma once

#include <QObject>
#include <functional>
#include <memory>

class QDialog;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QWidget;

namespace Ui {
class Inspector;
}

/// The inspector: the text styles by name, and buttons that ask the document in front to use one.
///
/// Documents need not know any style. Those that do have invokable operations `setAnswerStyle(QObject*)` and so on.
class TXInspectorController : public QObject {
    Q_OBJECT

public:
    /// Gives the program's main window: the one of the document in use, or nullptr when none is open.
    using MainWindow = std::function<QWidget*()>;

    /// The `inspectorController` if there is one, or else a new inspector that `parent` owns.
    static TXInspectorController* init(MainWindow mainWindow, QObject* parent);
    ~TXInspectorController() override;

    /// Makes the controller listen to the table of styles. Done once, when the window is made.
    void windowDidLoad();
    void showWindow();
    QDialog* window() const { return window_.get(); }

    /// Shows `text`, and selects the row of the style with this very name. Any other text selects nothing new.
    void setFieldText(const QString& text);
    /// The user chose a style in the table. It is only looked at.
    void tableViewSelectionDidChange();

    // What the buttons do: the operation of the same name is sent to the document of the main window, with the sender.
    // A document that has none ignores it.
    void setAnswerStyle(QObject* sender);
    void setRegularStyle(QObject* sender);
    void setCommentStyle(QObject* sender);
    void setHeadingStyle(QObject* sender);

    QLineEdit* testField() const;
    QTableWidget* stylesTableView() const;

private:
    TXInspectorController(MainWindow mainWindow, QObject* parent);

    void showAllStyles() const;
    void send(const char* operation, QObject* sender) const;

    MainWindow mainWindow_;
    std::unique_ptr<Ui::Inspector> ui_;
    std::unique_ptr<QDialog> window_;
};

/// The one inspector of the program, once there is one.
extern TXInspectorController* inspectorController;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
