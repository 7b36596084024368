#pragma once

#include <QThread>
#include <memory>

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "app/StartChannel.h"

/// What handOver gives in another thread, while this one answers.
inline bool isHandedOver(StartChannel& channel, const QByteArray& token = {}) {
    bool isHandedOver = false;
    const std::unique_ptr<QThread> other(QThread::create([&] { isHandedOver = channel.handOver(token); }));
    other->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return other->isFinished(); }, 30'000));
    return isHandedOver;
}
