#include "ui/document/FindBar.h"

#include <QKeyEvent>

#include "ui_FindBar.h"

namespace {

QString withKey(const QString& text, const char* shortcut) {
    return QStringLiteral("%1 (%2)").arg(text,
                                         QKeySequence(QLatin1String(shortcut)).toString(QKeySequence::NativeText));
}

}  // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::FindBar>()) {
    ui_->setupUi(this);
    ui_->findNextButton->setToolTip(withKey(tr("Find next"), "F3"));
    ui_->findPreviousButton->setToolTip(withKey(tr("Find previous"), "Shift+F3"));
    ui_->findCloseButton->setToolTip(withKey(tr("Close"), "Esc"));
    setFocusProxy(ui_->findField);
    ui_->findField->setLayoutDirection(Qt::LeftToRight);  // as the equations are
    connect(ui_->findField, &QLineEdit::textEdited, this, &FindBar::edited);
    connect(ui_->findNextButton, &QToolButton::clicked, this, &FindBar::nextRequested);
    connect(ui_->findPreviousButton, &QToolButton::clicked, this, &FindBar::previousRequested);
    connect(ui_->findCloseButton, &QToolButton::clicked, this, &FindBar::closeRequested);
}

FindBar::~FindBar() = default;

void FindBar::open() {
    show();
    ui_->findField->setFocus(Qt::ShortcutFocusReason);
    ui_->findField->selectAll();
}

QString FindBar::text() const { return ui_->findField->text(); }

// Also as what a screen reader says about the field, which keeps the focus.
void FindBar::showStatus(const QString& status) {
    ui_->findStatus->setText(status);
    ui_->findField->setAccessibleDescription(status);
}

QString FindBar::status() const { return ui_->findStatus->text(); }

// What the field leaves.
void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape: emit closeRequested(); break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (event->modifiers().testFlag(Qt::ShiftModifier)) {
                emit previousRequested();
            } else {
                emit nextRequested();
            }
            break;
        default: QWidget::keyPressEvent(event);
    }
}
