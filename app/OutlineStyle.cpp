#include "app/OutlineStyle.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "app/LaterIcon.h"
#include "ui/document/contrast.h"

namespace {

constexpr auto fusionName = "fusion";
constexpr qsizetype mostPalettes = 64;
constexpr int step = 5;
constexpr int whole = 255;
constexpr qreal cornerRadius = 2.0;
constexpr qreal sliderMargin = 4.5;

// How Fusion derives outlines from the colour of windows. That of a check box is lighter than the others.
constexpr int darkeningOfOutline = 140;
constexpr int lighteningOfBox = 110;

QColor outlineFrom(const QColor& window) { return window.darker(darkeningOfOutline); }

// How it derives the outline of what has the focus from the highlight's.
QColor focusOutlineFrom(const QColor& highlight) {
    constexpr int darkening = 125;
    constexpr int brightest = 160;
    QColor outline = highlight.darker(darkening);
    if (outline.value() > brightest) outline.setHsl(outline.hue(), outline.saturation(), brightest);
    return outline;
}

// The groove of a scroll bar, where that is most like a slider.
QColor grooveFrom(const QColor& button) {
    constexpr int change = 114;
    return isDark(button) ? button.lighter(change) : button.darker(change);
}

/// `from`, as much nearer to the palette's text as makes all that is drawn by it visible on windows.
template <typename IsVisible>
QColor changedUntil(const IsVisible& isVisible, const QColor& from, const QColor& text) {
    QColor color = from;
    for (int share = step; !isVisible(color) && share <= whole; share += step) color = mixed(text, from, share);
    return color;
}

bool isWhole(qreal number) { return std::floor(number) == number; }

/// Whether a frame of this colour cannot be seen around an area of the base's.
bool isLost(const QColor& color, const QPalette& palette) { return hairlineColor(color, palette) != color; }

}  // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QLatin1String(fusionName)) {}

bool OutlineStyle::isFusion() {
    const QStyle* const style = QApplication::style();
    return style->name() == QLatin1String(fusionName) || qobject_cast<const OutlineStyle*>(style) != nullptr;
}

void OutlineStyle::install() {
    if (!isFusion() || qobject_cast<OutlineStyle*>(QApplication::style()) != nullptr) return;
    QApplication::setStyle(new OutlineStyle);
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns it.

// Each menu bar asks for the icon of a button that it shows only where it has too little room. To find one in the
// themes would keep the first window waiting.
QIcon OutlineStyle::standardIcon(StandardPixmap standard, const QStyleOption* option, const QWidget* widget) const {
    if (standard != SP_ToolBarHorizontalExtensionButton) return QProxyStyle::standardIcon(standard, option, widget);
    const QPointer style(this);
    return QIcon(new LaterIcon([style] {
        return style == nullptr ? QIcon() : style->QProxyStyle::standardIcon(SP_ToolBarHorizontalExtensionButton);
    }));
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the icon owns it.

const QPalette& OutlineStyle::outlinedPalette(const QPalette& palette) const {
    const auto known = outlinedPalettes_.constFind(palette.cacheKey());
    if (known != outlinedPalettes_.constEnd()) return *known;
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const auto isVisible = [&window](const QColor& outline) { return contrast(outline, window) >= visibleContrast; };
    QPalette outlined = palette;
    outlined.setColor(QPalette::Window, changedUntil(
                                            [&](const QColor& color) {
                                                const QColor outline = outlineFrom(color);
                                                return isVisible(outline) &&
                                                       isVisible(outline.lighter(lighteningOfBox));
                                            },
                                            window, text));
    outlined.setColor(QPalette::Highlight,
                      changedUntil([&](const QColor& color) { return isVisible(focusOutlineFrom(color)); },
                                   palette.color(QPalette::Highlight), text));
    if (outlinedPalettes_.size() >= mostPalettes) outlinedPalettes_.clear();
    return *outlinedPalettes_.insert(palette.cacheKey(), outlined);
}

template <typename Option>
void OutlineStyle::drawOutlined(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    const auto* const given = qstyleoption_cast<const Option*>(option);
    if (given == nullptr || !option->state.testFlag(State_Enabled)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    Option outlined(*given);
    outlined.palette = outlinedPalette(option->palette);
    outlined.palette.setCurrentColorGroup(option->palette.currentColorGroup());
    QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    switch (element) {
        case PE_IndicatorCheckBox:
        case PE_IndicatorRadioButton:
        case PE_PanelButtonCommand: drawOutlined<QStyleOptionButton>(element, option, painter, widget); break;
        case PE_FrameLineEdit: drawOutlined<QStyleOptionFrame>(element, option, painter, widget); break;
        case PE_FrameFocusRect:
            if (!option->state.testFlag(State_KeyboardFocusChange)) break;
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(focusMarkColor(option->palette));
            painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
            painter->restore();
            break;
        case PE_Frame:
            if (isLost(outlineFrom(option->palette.color(QPalette::Window)), option->palette)) {
                drawOutlined<QStyleOptionFrame>(element, option, painter, widget);
            } else {
                QProxyStyle::drawPrimitive(element, option, painter, widget);
            }
            break;
        case PE_PanelMenu:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            painter->setPen(hairlineColor(outlineFrom(option->palette.color(QPalette::Window)), option->palette));
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            break;
        default: QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

// Between two panes, where the style leaves the colour of windows.
void OutlineStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const QColor line = option->palette.color(QPalette::Window);
    if (element == CE_Splitter && isLost(line, option->palette)) {
        painter->fillRect(option->rect, hairlineColor(line, option->palette));
    }
}

// Qt shares out the filling of more than 64 rows of pixels among threads. For something as narrow as a scroll bar, to
// wake them takes longer than to fill it, and those of the history and the sidebar change with every line. So
// it is drawn in pieces. Each has an image of its own, since Fusion does not keep to the painter's clip.
void OutlineStyle::drawInPieces(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                const QWidget* widget) const {
    constexpr int mostRows = 64;
    const int scale = std::max(1, static_cast<int>(painter->device()->devicePixelRatioF()));
    const int height = std::max(1, mostRows / scale);
    QImage piece(option->rect.width() * scale, height * scale, QImage::Format_ARGB32_Premultiplied);
    piece.setDevicePixelRatio(scale);
    for (int top = option->rect.top(); top <= option->rect.bottom(); top += height) {
        const QPoint corner(option->rect.left(), top);
        piece.fill(Qt::transparent);
        QPainter onPiece(&piece);
        onPiece.translate(-corner);
        QProxyStyle::drawComplexControl(control, option, &onPiece, widget);
        painter->drawImage(corner, piece);
    }
}

// Fusion's own slider hardly differs from its groove.
void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    // Between the pixels of a screen, as of one that is scaled by a half, pieces would not meet.
    const bool isOnPixels = painter->deviceTransform().type() <= QTransform::TxScale &&
                            isWhole(painter->device()->devicePixelRatioF()) &&
                            isWhole(painter->deviceTransform().dx()) && isWhole(painter->deviceTransform().dy());
    if (control == CC_ScrollBar && isOnPixels) {
        drawInPieces(control, option, painter, widget);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr || bar->minimum == bar->maximum) return;
    const QColor groove = grooveFrom(bar->palette.color(QPalette::Button));
    const QRectF slider = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(strengthened(groove, groove, bar->palette.color(QPalette::ButtonText), visibleContrast));
    painter->drawRoundedRect(slider.adjusted(sliderMargin, sliderMargin, -sliderMargin, -sliderMargin), cornerRadius,
                             cornerRadius);
    painter->restore();
}
