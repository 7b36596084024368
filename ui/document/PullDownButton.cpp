#include "ui/document/PullDownButton.h"

#include <QMenu>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QtMath>
#include <algorithm>

namespace {

constexpr int lowestHeight = 26;
constexpr int heightPadding = 8;
constexpr int leftPadding = 10;
constexpr int rightPadding = 8;
constexpr int arrowGap = 8;
constexpr int arrowSize = 8;

}  // namespace

PullDownButton::PullDownButton(QWidget* parent) : QPushButton(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void PullDownButton::setTitles(const QStringList& titles) {
    titles_ = titles;
    updateGeometry();
}

void PullDownButton::setTitle(const QString& title) {
    setText(title);
    setAccessibleDescription(title);
    refreshToolTip();
}

QAction* PullDownButton::itemAtIndex(int index) const { return menu()->actions().value(index - 1); }

QSize PullDownButton::sizeHint() const {
    int widest = 0;
    const QFontMetricsF metrics(font());
    for (const QString& title : titles_) widest = std::max(widest, qCeil(metrics.horizontalAdvance(title)));
    return {widthFor(widest), minimumSizeHint().height()};
}

QSize PullDownButton::minimumSizeHint() const {
    const int width = widthFor(fontMetrics().horizontalAdvance(QStringLiteral("M…")));
    return {width, std::max(lowestHeight, fontMetrics().height() + heightPadding)};
}

int PullDownButton::widthFor(int titleWidth) const {
    return leftPadding + titleWidth + arrowGap + arrowSize + rightPadding;
}

QString PullDownButton::shownTitle() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, width() - widthFor(0));
}

void PullDownButton::refreshToolTip() { setToolTip(isElided() ? text() : QString()); }

void PullDownButton::resizeEvent(QResizeEvent* event) {
    QPushButton::resizeEvent(event);
    refreshToolTip();
}

// As the style paints a button, but for the place of title and arrow: styles centre the one, and crowd it with the
// other.
void PullDownButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.features &= ~QStyleOptionButton::ButtonFeatures(QStyleOptionButton::HasMenu);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    const QRect inside = rect().adjusted(leftPadding, 0, -rightPadding, 0);
    const QRect titleArea = inside.adjusted(0, 0, -arrowGap - arrowSize, 0);
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);  // "2 Decimal Places"
    painter.drawItemText(QStyle::visualRect(layoutDirection(), rect(), titleArea),
                         static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)),
                         palette(), isEnabled(), shownTitle(), QPalette::ButtonText);

    QStyleOption arrow;
    arrow.initFrom(this);
    arrow.rect = QRect(inside.right() + 1 - arrowSize, inside.center().y() - arrowSize / 2 + 1, arrowSize, arrowSize);
    arrow.rect = QStyle::visualRect(layoutDirection(), rect(), arrow.rect);
    painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, arrow);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
