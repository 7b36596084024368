#include "ui/document/SegmentedControl.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <algorithm>

#include "ui/document/contrast.h"

namespace {

constexpr int segmentCount = 2;
constexpr int lowestHeight = 26;
constexpr int heightPadding = 8;
constexpr int sidePadding = 12;
constexpr qreal cornerRadius = 4.0;
constexpr int outlineOpacity = 77;  // 30 %
constexpr int hoverFactor = 105;
constexpr qreal ringWidth = 2.0;

/// One of the radio buttons. The control around it paints what it has below its title.
class Segment : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

    /// All are as wide as the widest title is in bold, so that nothing moves when another one gets bold.
    QSize sizeHint() const override {
        const QFontMetrics bold(titleFont(true));
        int widest = 0;
        for (const QAbstractButton* segment : group()->buttons()) {
            widest = std::max(widest, bold.horizontalAdvance(segment->text()));
        }
        return {widest + 2 * sidePadding, std::max(lowestHeight, bold.height() + heightPadding)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setFont(titleFont(isChecked()));
        painter.setPen(palette().color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
        painter.drawText(rect(), static_cast<int>(Qt::AlignCenter), text());
    }
    /// All of it, and not only where a style would paint the circle and the title.
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    QFont titleFont(bool isBold) const {
        QFont titleFont = font();
        titleFont.setBold(isBold);
        return titleFont;
    }
};

/// For assistive technology, radio buttons that belong together.
QAccessibleInterface* makeGroup(const QString& /*className*/, QObject* object) {
    auto* control = qobject_cast<SegmentedControl*>(object);
    return control != nullptr ? new QAccessibleWidget(control, QAccessible::Grouping) : nullptr;
}

/// A part of the text's colour, and as much more of it as an outline needs to be seen.
QColor outlineColor(const QPalette& palette) {
    const QColor text = palette.color(QPalette::WindowText);
    QColor outline = text;
    outline.setAlpha(outlineOpacity);
    return strengthened(outline, palette.color(QPalette::Window), text, visibleContrast);
}

QColor lightened(const QColor& color) { return color.lighter(hoverFactor); }

}  // namespace

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent) {
    QAccessible::installFactory(makeGroup);  // Once: it is known by its address.
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (int id = 0; id < segmentCount; ++id) {
        auto* segment = new Segment(this);
        segment->setFocusPolicy(Qt::NoFocus);
        segment->setAttribute(Qt::WA_Hover);
        segment->installEventFilter(this);
        group_.addButton(segment, id);
        row->addWidget(segment);
    }
    connect(&group_, &QButtonGroup::idToggled, this, [this](int id, bool isChosen) {
        // Tab stops at the chosen one alone; a click takes no focus.
        group_.button(id)->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus);
        update();
        // Not with the click, since assistive technology chooses without one.
        if (isChosen && !isSetByProgram_) emit chosen();
    });
    setSelectedSegment(0);
}

QStringList SegmentedControl::segments() const {
    QStringList titles;
    for (const QAbstractButton* segment : group_.buttons()) titles.append(segment->text());
    return titles;
}

void SegmentedControl::setSegments(const QStringList& titles) {
    for (QAbstractButton* segment : group_.buttons()) segment->setText(titles.value(group_.id(segment)));
    for (QAbstractButton* segment : group_.buttons()) segment->updateGeometry();
}

void SegmentedControl::setSelectedSegment(int segment) {
    const QScopedValueRollback byProgram(isSetByProgram_, true);
    group_.button(segment)->setChecked(true);
}

QRectF SegmentedControl::box() const { return QRectF(rect()).adjusted(margin, margin, -margin, -margin); }

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath inside;
    inside.addRoundedRect(box(), cornerRadius, cornerRadius);
    painter.setClipPath(inside);
    bool hasFocus = false;
    for (const QAbstractButton* segment : group_.buttons()) {
        const QColor color = palette().color(segment->isChecked() ? QPalette::Highlight : QPalette::Button);
        painter.fillRect(segment->geometry(), segment->underMouse() ? lightened(color) : color);
        hasFocus |= segment->hasFocus();
    }
    painter.setClipping(false);

    painter.setPen(QPen(outlineColor(palette()), 1.0));
    painter.drawRoundedRect(box().adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    if (!hasFocus) return;
    const qreal half = ringWidth / 2;
    painter.setPen(QPen(focusMarkColor(palette()), ringWidth));
    painter.drawRoundedRect(box().adjusted(-half, -half, half, half), cornerRadius + half, cornerRadius + half);
}

// What the control paints for a segment changes with it.
bool SegmentedControl::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::Enter:
        case QEvent::Leave: update(); break;
        default: break;
    }
    return QWidget::eventFilter(watched, event);
}
