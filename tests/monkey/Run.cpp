#include "tests/monkey/Run.h"

#include <QApplication>
#include <QThread>
#include <QTimer>
#include <cstdio>

#include "app/Application.h"
#include "tests/monkey/DocumentWitness.h"
#include "tests/monkey/Monkey.h"
#include "ui/document/MyDocument.h"

namespace {

constexpr std::uint64_t eventsBetweenLooks = 100;
constexpr int roundsOfLoop = 3;  ///< What is done later may put off something in turn.

void print(const QString& line) {
    static_cast<void>(std::fputs((line + u'\n').toUtf8().constData(), stdout));
    static_cast<void>(std::fflush(stdout));
}

}  // namespace

void introduceProgram() { Application::introduce(); }

Run::Run(std::uint64_t seed, std::uint64_t events, bool isTraced)
    : seed_(seed), events_(events), random_(seed), journal_(seed, isTraced) {}

void Run::start() {
    print(QStringLiteral("tallix-monkey: seed %1, %2 events").arg(seed_).arg(events_));
    // Nothing blinks or fades: when it would, nobody could say.
    QApplication::setCursorFlashTime(0);
    while (journal_.eventsBegun() < events_) {
        useProgramOnce();
        lookForRemains();
    }
    printSums();
}

// In the program's own event loop, which goes round between two events.
void Run::useProgramOnce() {
    Application application;
    watch(application);
    application.start();
    ++sums_.starts;
    Monkey monkey(application, random_, journal_);
    std::uint64_t nextLook = journal_.eventsBegun() + eventsBetweenLooks;
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, &application, [&] {
        ++turn_;
        answerInInnerLoops(monkey, QThread::currentThread()->loopLevel());
        // All that the last event left to be done, and not only as much as there was time for.
        for (int round = 0; round < roundsOfLoop; ++round) QCoreApplication::processEvents();
        if (application.documents().documents().isEmpty()) return;
        monkey.act();
        ++turn_;
        lookAtDocuments(application, &DocumentWitness::entriesComplaint);
        if (journal_.eventsBegun() >= nextLook) {
            lookAtDocuments(application, &DocumentWitness::complaint);
            ++sums_.looks;
            nextLook += eventsBetweenLooks;
        }
        if (journal_.eventsBegun() >= events_) application.documents().closeAll();
    });
    pulse.start(0);
    QApplication::exec();
}

// The pulse waits for the end of an event. Where the event itself waits for an answer, in a loop of its own, the answer
// has to come from there; and so on in that one.
void Run::answerInInnerLoops(Monkey& monkey, int outerLevel) {
    QTimer::singleShot(0, &inner_, [this, &monkey, outerLevel, turn = turn_] {
        if (turn != turn_) return;
        answerInInnerLoops(monkey, outerLevel);
        if (QThread::currentThread()->loopLevel() > outerLevel) monkey.leaveInnerLoop();
    });
}

void Run::watch(Application& application) {
    QObject::connect(&application.documents(), &DocumentController::documentMade, &application,
                     [this](MyDocument* document) {
                         ++sums_.documents;
                         new DocumentWitness(*document, sums_.lines);  // owned by the document
                     });
}

void Run::lookAtDocuments(Application& application, Complaint complaintOf) const {
    for (const MyDocument* document : application.documents().allDocuments()) {
        const QString complaint = (document->findChild<DocumentWitness*>()->*complaintOf)();
        if (!complaint.isEmpty()) journal_.fail(complaint);
    }
}

void Run::lookForRemains() const {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList remains;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (widget->windowType() == Qt::Desktop) continue;  // the toolkit's own, for all of the screen
        remains.append(QString::fromLatin1(widget->metaObject()->className()) + ' ' + widget->objectName());
    }
    if (!remains.isEmpty()) journal_.fail("widgets are left when the program has ended: " + remains.join(u", "));
}

void Run::printSums() const {
    print(QStringLiteral("%1 starts, %2 documents, %3 lines entered, %4 of them refused, %5 looks at all documents")
              .arg(sums_.starts)
              .arg(sums_.documents)
              .arg(sums_.lines.entered)
              .arg(sums_.lines.refused)
              .arg(sums_.looks));
    print(QStringLiteral("%1 beeps, %2 pages and files opened").arg(beeps_.count()).arg(opened_.addresses().size()));
}
