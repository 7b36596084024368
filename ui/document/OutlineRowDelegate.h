#pragma once

#include <QStyledItemDelegate>

/// How the rows of the sidebar look: variables in the window's text colour, the titles of their groups smaller, bold
/// and quiet.
class OutlineRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The font of group titles beside variables in `font`.
    static QFont titleFont(QFont font);
    /// The palette's colour for placeholders on its window colour, as much stronger as a contrast of 4.5:1 needs.
    static QColor titleColor(const QPalette& palette);

    /// Whether `text` is cut where the row is `width` wide.
    static bool isElided(const QString& text, const QFont& font, int width, const QWidget& view);
    /// The whole text, in lines of a readable length.
    static QString toolTipOf(const QString& text);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
