#include "ui/document/LiveAnswer.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>

#include "ui/document/EntryColors.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"

LiveAnswer::LiveAnswer(TXFormulaEnteringTextView& entry, double relativeSize)
    : QLabel(&entry), entry_(entry), relativeSize_(relativeSize) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::WindowText);
    setLayoutDirection(Qt::LeftToRight);
    hide();
    rest_.setSingleShot(true);
    rest_.setInterval(delayInMilliseconds);
    connect(&rest_, &QTimer::timeout, this, &LiveAnswer::findOut);
    connect(&entry, &QPlainTextEdit::textChanged, this, &LiveAnswer::waitForRest);
    connect(&entry, &QPlainTextEdit::selectionChanged, this, &LiveAnswer::waitForRest);
    connect(&entry, &QPlainTextEdit::updateRequest, this, &LiveAnswer::place);
    entry.installEventFilter(this);
}

void LiveAnswer::waitForRest() {
    clear();
    hide();
    rest_.start();
}

void LiveAnswer::findOut() {
    setText(answer());
    takeLook();
}

QString LiveAnswer::answer() const {
    MyDocument* const document = entry_.parentDocument();
    const bool isWanted = document != nullptr && document->entryOptions().showsAnswer;
    if (!isWanted || entry_.wasFormulaJustCalculated() || entry_.text().size() > longestLine) return {};
    const QString line = entry_.text();
    const QString selected = entry_.textCursor().selectedText();
    if (!selected.isEmpty() && selected.size() < line.size()) {
        const QString part = document->previewOfPart(selected);
        if (!part.isEmpty()) return part;
    }
    return document->previewOfLine(line);
}

// Not before there is something to show: a font takes long to load.
void LiveAnswer::takeLook() {
    if (text().isEmpty()) return;
    QFont font = entry_.font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * relativeSize_);
    setFont(font);
    QPalette colors = entry_.palette();
    colors.setColor(QPalette::WindowText, EntryColors::on(colors.color(QPalette::Base)).quiet);
    setPalette(colors);
    place();
}

// On the line's own baseline, with its end where the line's room ends.
void LiveAnswer::place() {
    if (text().isEmpty()) return;
    const QWidget* const viewport = entry_.viewport();
    const QSize size = sizeHint();
    const int right = viewport->geometry().right() + 1 - qCeil(entry_.document()->documentMargin());
    const int baseline = viewport->y() + entry_.lineTop() + entry_.fontMetrics().ascent();
    setGeometry(right - size.width(), baseline - fontMetrics().ascent(), size.width(), size.height());
    const int endOfText = viewport->x() + entry_.endOfText();
    setVisible(endOfText + leastDistance <= x());
}

bool LiveAnswer::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize: place(); break;
        case QEvent::FontChange:
        case QEvent::PaletteChange: takeLook(); break;
        default: break;
    }
    return QLabel::eventFilter(watched, event);
}
