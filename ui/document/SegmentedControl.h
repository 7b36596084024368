#pragma once

#include <QButtonGroup>
#include <QWidget>

/// Two choices side by side, of which exactly one is taken: one rounded box, in which the chosen segment is filled and
/// bold. The segments are radio buttons, for the keyboard and for assistive technology too. A click leaves the focus
/// where it is.
///
/// Around the box there is a margin for the focus ring.
class SegmentedControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QStringList segments READ segments WRITE setSegments)

public:
    /// What the ring needs at each side.
    static constexpr int margin = 3;

    explicit SegmentedControl(QWidget* parent = nullptr);

    /// The two titles, from left to right (mirrored on right-to-left desktops).
    QStringList segments() const;
    void setSegments(const QStringList& titles);

    /// Counted from 0, which is the one chosen at first.
    int selectedSegment() const { return group_.checkedId(); }
    /// Chooses without telling anybody.
    void setSelectedSegment(int segment);

signals:
    /// The user chose the other segment.
    void chosen();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRectF box() const;

    QButtonGroup group_;
    bool isSetByProgram_ = false;
};
