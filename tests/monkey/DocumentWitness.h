#pragma once

#include <QObject>
#include <QString>
#include <cstddef>
#include <vector>

#include "engine/controller/TXEquationController.h"
#include "format/TXNumberFormatterSettings.h"

class MyDocument;

/// How many lines were entered, and how many of them had an error for an answer.
struct LineCounts {
    std::size_t entered = 0;
    std::size_t refused = 0;
};

/// Looks on while somebody works with a document, and can say at any time whether its windows show what they should:
///
/// - each line entered was calculated as a session calculates it that gets nothing but these lines, whatever was typed,
///   previewed and undone in between;
/// - the history is what the session's equations give, each under the settings in force when it was entered, from the
///   line on since which nothing was cleared;
/// - the sidebar has the session's variables with their values in the present format, in its model and in its rows;
/// - each entry is one line.
///
/// It belongs to the document.
class DocumentWitness : public QObject {
    Q_OBJECT

public:
    /// Lines are counted there.
    DocumentWitness(MyDocument& document, LineCounts& lines);

    /// What is wrong; empty when nothing is.
    QString complaint() const;
    /// What is wrong with the entries alone, which costs next to nothing.
    QString entriesComplaint() const;

private:
    void followSession();
    void followClearing();
    void noteLine();
    void begin();

    QString sessionComplaint() const;
    QString equationComplaint(std::size_t position) const;
    QString variablesComplaint() const;
    QString historyComplaint() const;
    QStringList historyLines() const;
    QString answerLine(std::size_t position) const;
    QString sidebarComplaint() const;
    QString rowsComplaint() const;

    MyDocument& document_;
    LineCounts& lines_;
    TXEquationController session_;                     ///< Enters the same lines, and nothing else happens to it.
    std::vector<TXNumberFormatterSettings> settings_;  ///< Of each equation, when it was entered.
    std::size_t firstShown_ = 0;                       ///< The equation that begins the history.
    std::size_t firstShownBefore_ = 0;                 ///< Before the history was cleared.
    QString lineWhenCleared_;
    QString surprise_;  ///< What was wrong when a line came; empty when nothing was.
};
