#pragma once

#include <QIconEngine>
#include <functional>
#include <utility>

/// An icon that is made when it is first painted, for one that is wanted early and perhaps never shown.
class LaterIcon : public QIconEngine {
public:
    explicit LaterIcon(std::function<QIcon()> make) : make_(std::move(make)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        made().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return made().pixmap(size, mode, state);
    }
    QIconEngine* clone() const override { return new LaterIcon(*this); }

private:
    const QIcon& made() {
        if (icon_.isNull() && make_ != nullptr) icon_ = std::exchange(make_, nullptr)();
        return icon_;
    }

    std::function<QIcon()> make_;
    QIcon icon_;
};
