#pragma once

#include <QHash>
#include <QPalette>
#include <QProxyStyle>

/// The platform's Fusion style, but with outlines and focus marks that can be seen on every palette.
///
/// Fusion draws the outlines of its controls a little darker than the window: too little on a light one, and nearly
/// invisible on a dark one. Disabled controls stay as they are.
class OutlineStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// Lays it over the application's style, if that is Fusion. Any other one has outlines of its own.
    static void install();
    /// Whether the application's style is Fusion, with or without this.
    static bool isFusion();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option, const QWidget* widget) const override;

private:
    OutlineStyle();
    template <typename Option>
    void drawOutlined(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                      const QWidget* widget) const;
    void drawInPieces(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                      const QWidget* widget) const;
    const QPalette& outlinedPalette(const QPalette& palette) const;

    mutable QHash<qint64, QPalette> outlinedPalettes_;  ///< By the keys of those they were made from.
};
