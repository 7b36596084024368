#pragma once

#include <QPushButton>
#include <QStringList>

class QMenu;

/// A button with a menu below a title of its own. The items of the menu are counted from 1: number 0 is the title.
///
/// It is as wide as its longest title, so that nothing moves when the title changes. With less room the title is
/// elided, and stands in the tooltip.
class PullDownButton : public QPushButton {
    Q_OBJECT

public:
    explicit PullDownButton(QWidget* parent = nullptr);

    /// The titles that the button may come to show.
    void setTitles(const QStringList& titles);
    /// The text on the button. Assistive technology hears it as the control's description.
    void setTitle(const QString& title);
    QString title() const { return text(); }

    /// The item at this index; nullptr where there is none, and for the title.
    QAction* itemAtIndex(int index) const;
    /// The item that was chosen last; 0 before.
    int indexOfSelectedItem() const { return indexOfSelectedItem_; }
    void selectItemAtIndex(int index) { indexOfSelectedItem_ = index; }

    bool isElided() const { return shownTitle() != text(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int widthFor(int titleWidth) const;
    QString shownTitle() const;
    void refreshToolTip();

    QStringList titles_;
    int indexOfSelectedItem_ = 0;
};
