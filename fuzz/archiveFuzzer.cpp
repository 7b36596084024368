// What a document reads from an archive: an input is the archive's bytes.

#include <QCborArray>
#include <QCborMap>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

#include "fuzz/Toolkit.h"
#include "fuzz/expect.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"

namespace {

QString nameOf(const TXVariable& variable) {
    const std::u16string_view name = variable.variableName();
    return QString::fromUtf16(name.data(), static_cast<qsizetype>(name.size()));
}

/// All NaNs are the same to a reader.
std::uint64_t bitsOf(double number) {
    return std::bit_cast<std::uint64_t>(std::isnan(number) ? std::numeric_limits<double>::quiet_NaN() : number);
}

void checkVariables(const TXVariableArray& variables) {
    std::int32_t position = 0;
    for (const TXVariable& variable : variables) {
        expect(variable.variableIndex() == position, "a variable knows where it stands");
        expect(variable.isDefined() == variable.definedState(), "both states are the same");
        expect(variable.isDefined() || bitsOf(variable.number()) == 0, "an undefined variable has the number 0");
        const std::int32_t first = variables.indexOf(variable.variableName());
        expect(first >= 0 && first <= position && nameOf(variables[first]) == nameOf(variable),
               "a name leads to the first that has it");
        ++position;
    }
    expect(position == variables.size(), "the variables are counted");
}

QCborMap archiveOf(const TXVariable& variable) {
    QCborMap fields{{QStringLiteral("variableName"), nameOf(variable)},
                    {QStringLiteral("isLocked"), variable.isLocked()},
                    {QStringLiteral("isAutoCached"), variable.isAutoCached()}};
    if (variable.isDefined()) fields.insert(QStringLiteral("number"), variable.number());
    return fields;
}

/// An archive of what the document has loaded.
QByteArray archiveOf(const MyDocument& document) {
    QCborArray variables;
    for (const TXVariable& variable : document.variableArray()) variables.append(archiveOf(variable));
    return QCborMap{{QStringLiteral("testKey"), document.stringForFile().toPlainText()},
                    {QStringLiteral("variableArray"), variables}}
        .toCborValue()
        .toCbor();
}

/// A line that gives a variable its value is written with a name that the document knows.
void enterAnAssignment(MyDocument& document) {
    document.formulaTextView()->setPlainText(QStringLiteral("x=4"));
    document.equationEntered();
    const TXVariableArray& variables = document.variableArray();
    const std::int32_t position = document.documentEquationController().lastVariableAssignedIndex();
    const QString name = variables.holds(position) ? nameOf(variables[position]) : QStringLiteral("x");
    // The view cleans such names up like any other text.
    const QString shown = QTextDocumentFragment::fromPlainText(u'\t' + name + " = 4\n").toPlainText();
    expect(document.mainField()->toPlainText().endsWith(shown), "the answer is given to a name");
    document.clearEverything();
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Toolkit::prepare();
    static const auto kept = std::make_unique<MyDocument>();
    MyDocument& document = *kept;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    expect(document.loadDataRepresentation(bytes, QStringLiteral("txt")), "everything is read as something");
    checkVariables(document.variableArray());

    const QByteArray archive = archiveOf(document);
    expect(document.loadDataRepresentation(archive, QStringLiteral("txt")), "an archive of it is read");
    checkVariables(document.variableArray());
    expect(archiveOf(document) == archive, "an archive of it holds the same");
    if (document.variableArray().size() > 0) enterAnAssignment(document);
    return 0;
}
