#pragma once

#include <QObject>
#include <cstddef>
#include <cstdint>

#include "tests/models/Random.h"
#include "tests/monkey/DocumentWitness.h"
#include "tests/monkey/Journal.h"
#include "tests/support/BeepCount.h"
#include "tests/support/OpenedAddresses.h"

class Application;
class Monkey;

/// Tells the toolkit the program's names, before there is an application.
void introduceProgram();

/// So many events, from as many starts of the program as it takes: it ends when its last document is closed. After
/// every hundred events all documents are looked at, and after each one their entries. What is wrong ends the process.
class Run {
public:
    Run(std::uint64_t seed, std::uint64_t events, bool isTraced);

    void start();

private:
    struct Sums {
        std::size_t starts = 0;
        std::size_t documents = 0;
        LineCounts lines;
        std::size_t looks = 0;
    };

    using Complaint = QString (DocumentWitness::*)() const;

    void useProgramOnce();
    void answerInInnerLoops(Monkey& monkey, int outerLevel);
    void watch(Application& application);
    void lookAtDocuments(Application& application, Complaint complaintOf) const;
    void lookForRemains() const;
    void printSums() const;

    std::uint64_t seed_;
    std::uint64_t events_;
    Random random_;
    Journal journal_;
    BeepCount beeps_;
    OpenedAddresses opened_;
    Sums sums_;
    QObject inner_;           ///< Goes with its timers.
    std::uint64_t turn_ = 0;  ///< Answers are for the present one only.
};
