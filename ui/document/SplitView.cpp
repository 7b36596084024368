#include "ui/document/SplitView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <limits>

namespace {

/// Drawn as thin as the style draws it, but as wide as the pointer can grasp it while it has the focus.
class Divider : public QSplitterHandle {
public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isSideways = orientation() == Qt::Horizontal;
        const QMargins margins = contentsMargins();
        const int place = isSideways ? x() + margins.left() : y() + margins.top();
        const int key = event->key();
        if (key == (isSideways ? Qt::Key_Left : Qt::Key_Up)) {
            moveSplitter(place - SplitView::step);
        } else if (key == (isSideways ? Qt::Key_Right : Qt::Key_Down)) {
            moveSplitter(place + SplitView::step);
        } else if (key == Qt::Key_Home) {
            moveSplitter(0);
        } else if (key == Qt::Key_End) {
            moveSplitter(isSideways ? splitter()->width() : splitter()->height());
        } else {
            QSplitterHandle::keyPressEvent(event);
        }
    }

    // Beside the line that the style draws, the panes are to be seen and not what was here before them.
    void resizeEvent(QResizeEvent* event) override {
        QSplitterHandle::resizeEvent(event);
        clearMask();
    }

    void focusInEvent(QFocusEvent* /*event*/) override { update(); }
    void focusOutEvent(QFocusEvent* /*event*/) override { update(); }

    void paintEvent(QPaintEvent* event) override {
        if (hasFocus()) {
            QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
        } else {
            QSplitterHandle::paintEvent(event);
        }
    }
};

/// For assistive technology: a separator with a value, as it is between panes.
class DividerAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    DividerAccessible(QSplitterHandle& divider, SplitView& view)
        : QAccessibleWidget(&divider, QAccessible::Separator), view_(view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return view_.dividerPosition(); }
    void setCurrentValue(const QVariant& value) override { view_.setDividerPosition(value.toInt()); }
    QVariant minimumValue() const override { return range().first; }
    QVariant maximumValue() const override { return range().second; }
    QVariant minimumStepSize() const override { return SplitView::step; }

private:
    std::pair<int, int> range() const {
        std::pair<int, int> range;
        view_.getRange(1, &range.first, &range.second);
        return range;
    }

    SplitView& view_;
};

QAccessibleInterface* makeDivider(const QString& /*className*/, QObject* object) {
    auto* divider = dynamic_cast<Divider*>(object);
    auto* view = divider != nullptr ? qobject_cast<SplitView*>(divider->splitter()) : nullptr;
    return view != nullptr ? new DividerAccessible(*divider, *view) : nullptr;
}

}  // namespace

SplitView::SplitView(QWidget* parent) : QSplitter(parent) {
    QAccessible::installFactory(makeDivider);  // Once: it is known by its address.
    connect(this, &QSplitter::splitterMoved, this, [this] {
        QAccessibleValueChangeEvent moved(divider(), dividerPosition());
        QAccessible::updateAccessibility(&moved);
    });
}

void SplitView::setDividerPosition(int position) { moveSplitter(position, 1); }

QSplitterHandle* SplitView::createHandle() { return new Divider(orientation(), this); }
