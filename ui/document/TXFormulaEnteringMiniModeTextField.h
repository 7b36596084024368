#pragma once

#include <QColor>
#include <QPointF>
#include <QTimer>

#include "ui/document/TXFormulaEnteringTextView.h"

/// A shadow under text: the same glyphs, moved and in one colour, without blur.
struct TextShadow {
    QColor color;
    QPointF offset;  ///< Pixels to the right and down.
};

/// The entry line of the mini window: white on dark, and plain text only.
class TXFormulaEnteringMiniModeTextField : public TXFormulaEnteringTextView {
    Q_OBJECT

public:
    explicit TXFormulaEnteringMiniModeTextField(QWidget* parent = nullptr);

    /// Sets the field up by itself, without what the full window's line does.
    void awakeFromNib() override;

    /// Pastes as plain text.
    void paste();
    /// Pastes too: there is no font to paste here.
    void pasteFont();
    /// Writes the selected text into `pasteboard` if `type` is the one for plain text, or else refuses.
    bool writeSelectionToPasteboard(QMimeData* pasteboard, const QString& type) const;

    /// The shadow of what is typed. It is not there at first.
    const TextShadow& typedTextShadow() const { return typedTextShadow_; }
    void setTypedTextShadow(const TextShadow& shadow) { typedTextShadow_ = shadow; }
    void setTextColor(const QColor& color);
    void setInsertionPointColor(const QColor& color) { insertionPointColor_ = color; }

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void addToContextMenu(QMenu* menu) override;

private:
    QRect insertionPoint() const;
    void showInsertionPoint(bool isShown);
    void restartBlinking();

    TextShadow typedTextShadow_{Qt::transparent, {}};
    // The editor's own insertion point is the inverse of what lies under it, and so never quite white.
    QColor insertionPointColor_ = Qt::white;
    QTimer blinking_;
    bool isInsertionPointShown_ = false;
};
