// What the document reads from an archive. It writes none.

#include "ui/document/MyDocument.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>

namespace {

std::optional<TXVariable> variableOf(const QCborValue& archived) {
    const QCborMap fields = archived.toMap();
    const QCborValue name = fields.value(QStringLiteral("variableName"));
    if (!name.isString()) return std::nullopt;
    const QCborValue number = fields.value(QStringLiteral("number"));
    const bool isDefined = number.isDouble() || number.isInteger();
    TXVariable variable = TXVariable::initWithName(name.toString().toStdU16String(), isDefined, number.toDouble());
    variable.setIsLocked(fields.value(QStringLiteral("isLocked")).toBool());
    variable.setIsAutoCached(fields.value(QStringLiteral("isAutoCached")).toBool());
    return variable;
}

/// The variables of an archived list in its order; none at all when one of them is no variable.
std::unique_ptr<TXVariableArray> variablesOf(const QCborValue& archived) {
    auto variables = std::make_unique<TXVariableArray>();
    const QCborArray list = archived.toArray();
    for (const auto& element : list) {
        std::optional<TXVariable> variable = variableOf(element);
        if (!variable) return std::make_unique<TXVariableArray>();
        variables->append(std::move(*variable));
    }
    return variables;
}

}  // namespace

std::optional<QByteArray> MyDocument::dataRepresentationOfType(const QString& /*typeName*/) { return std::nullopt; }

bool MyDocument::loadDataRepresentation(const QByteArray& data, const QString& /*typeName*/) {
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(data, &error);
    const QCborMap archive = error.error == QCborError::NoError ? value.toMap() : QCborMap();
    stringForFile_ = QTextDocumentFragment::fromPlainText(archive.value(QStringLiteral("testKey")).toString());
    loadedVariableArray_ = variablesOf(archive.value(QStringLiteral("variableArray")));
    variableArray_ = loadedVariableArray_.get();
    return true;
}
