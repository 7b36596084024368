#pragma once

#include "ui/document/beep.h"

/// Counts the beeps as long as it lives; nothing sounds meanwhile.
class BeepCount {
public:
    BeepCount() {
        setBeep([this] { ++count_; });
    }
    ~BeepCount() { setBeep({}); }
    BeepCount(const BeepCount&) = delete;
    BeepCount& operator=(const BeepCount&) = delete;

    int count() const { return count_; }

private:
    int count_ = 0;
};
