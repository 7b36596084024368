// How long a key takes until it is painted, in a session that is already large. Usage:
//     tallix-bench-typing COUNT KEYS
// Enters COUNT lines, each with a new variable, and types KEYS keys: into the calculator window, and in turn into the
// entry of a bare window of the same toolkit. Prints medians and 99th percentiles in microseconds, as JSON.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>
#include <vector>

#include "bench/benchLines.h"
#include "ui/document/LiveAnswer.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXWindow.h"

namespace {

using Nanoseconds = std::vector<qint64>;

// Names of the session, names that are none, functions and numbers, so that suggestions and answers come and go.
constexpr std::string_view typedLine = "v000001*2.5+sin(v000002)-(v000003+cosh(3)*12^2)/v000001";

constexpr QSize windowSize(1200, 500);  // room for the line and its answer

/// Counts what is painted of a widget.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }
    int count() const { return count_; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isHandled = QObject::eventFilter(watched, event);
        if (event->type() == QEvent::Paint) ++count_;
        return isHandled;
    }

private:
    int count_ = 0;
};

void press(QWidget* widget, int key, const QString& text = {}) {
    QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &pressed);
    QKeyEvent released(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &released);
}

/// From the key until it is painted, with all that the key brought along.
qint64 timeOfKey(QPlainTextEdit* entry, const PaintCount& painted, QChar character) {
    const int before = painted.count();
    QElapsedTimer clock;
    clock.start();
    press(entry, character.toUpper().unicode(), character);
    while (painted.count() == before) QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    return clock.nsecsElapsed();
}

/// From when the line has rested until its answer is painted; -1 when none comes.
qint64 timeOfAnswer(const LiveAnswer* live, const PaintCount& painted) {
    constexpr qint64 patience = 5000;  // milliseconds
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < patience) {
        const int before = painted.count();
        QElapsedTimer clock;
        clock.start();
        QCoreApplication::processEvents();
        if (live->text().isEmpty()) continue;
        while (painted.count() == before) QCoreApplication::processEvents();
        return clock.nsecsElapsed();
    }
    return -1;
}

void typeLine(QPlainTextEdit* entry, const PaintCount& painted, Nanoseconds& times) {
    for (const char character : typedLine) times.push_back(timeOfKey(entry, painted, QLatin1Char(character)));
}

void print(const char* name, Nanoseconds& times, const char* end) {
    std::sort(times.begin(), times.end());
    const auto microseconds = [&](double share) {
        return static_cast<double>(times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))]) /
               1000;
    };
    std::printf("  \"%s\": {\"keys\": %zu, \"median\": %.1f, \"p99\": %.1f}%s\n", name, times.size(), microseconds(0.5),
                microseconds(0.99), end);
}

/// Enters lines as a user does, apart from the single keys.
void enterLines(MyDocument& document, std::size_t count) {
    BenchLines lines(LineFamily::variables);
    for (std::size_t i = 0; i < count; ++i) {
        document.formulaTextView()->setText(QString::fromStdString(lines.next()));
        press(document.formulaTextView(), Qt::Key_Return, QStringLiteral("\r"));
    }
}

/// False when a typed line had no answer, or nothing was suggested for its names.
bool measure(std::size_t count, std::size_t keys) {
    QMainWindow bareWindow;
    auto* bareEntry = new QPlainTextEdit(&bareWindow);
    bareWindow.setCentralWidget(bareEntry);
    bareWindow.resize(windowSize);
    bareWindow.show();
    MyDocument document;
    document.documentWindow()->resize(windowSize);
    document.showWindow();
    enterLines(document, count);
    TXFormulaEnteringTextView* entry = document.formulaTextView();
    const auto* live = entry->findChild<LiveAnswer*>();
    const PaintCount bare(bareEntry->viewport());
    const PaintCount tallix(entry->viewport());
    Nanoseconds bareTimes;
    Nanoseconds tallixTimes;
    Nanoseconds answerTimes;
    while (tallixTimes.size() < keys) {
        bareEntry->clear();
        bareWindow.activateWindow();
        QCoreApplication::processEvents();
        typeLine(bareEntry, bare, bareTimes);
        press(entry, Qt::Key_Escape);
        document.showWindow();
        QCoreApplication::processEvents();
        typeLine(entry, tallix, tallixTimes);
        answerTimes.push_back(timeOfAnswer(live, tallix));
        if (answerTimes.back() < 0 || entry->suggestions() == nullptr) return false;
    }
    std::printf("{\n");
    print("bare", bareTimes, ",");
    print("tallix", tallixTimes, ",");
    print("answer", answerTimes, "");
    std::printf("}\n");
    return true;
}

std::size_t numberIn(std::string_view text) {
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv, argv + argc);
    const std::size_t count = arguments.size() == 3 ? numberIn(arguments[1]) : 0;
    const std::size_t keys = arguments.size() == 3 ? numberIn(arguments[2]) : 0;
    if (count == 0 || keys == 0) {
        std::fputs("Usage: tallix-bench-typing COUNT KEYS\n", stderr);
        return 2;
    }
    // Not the user's own.
    const QTemporaryDir settings;
    const QTemporaryDir runtime;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    const QApplication application(argc, argv);
    if (measure(count, keys)) return 0;
    std::fputs("tallix-bench-typing: a line had no answer or no suggestions\n", stderr);
    return 1;
}
