#include "ui/UserDefaults.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "ui/SilencedMessages.h"

namespace {

/// Whether the value is a plain text in the file once Qt has written it. An unquoted comma in the file makes it a list.
bool isSingle(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QString:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
        case QMetaType::QKeySequence:
        case QMetaType::Bool: return true;
        default: return false;
    }
}

/// Where the defaults are stored. A device, such as a link to one that throws everything away, would be replaced by a
/// file when something is stored; nothing can be, below it.
QString storePath() {
    const QString path = QSettings().fileName();
    const QFileInfo store(path);
    return store.exists() && !store.isFile() && !store.isDir() ? path + "/none" : path;
}

/// A program that is killed while it stores something may leave a lock that does not tell whose it is, and for which Qt
/// would wait half a minute. Who holds one says so at once.
void removeNamelessLock(const QString& path) {
    constexpr qint64 longEnough = 100;  // ms
    const QFileInfo lock(path + ".lock");
    if (!lock.isFile() || lock.size() > 0) return;
    if (qAbs(lock.lastModified().msecsTo(QDateTime::currentDateTime())) > longEnough) QFile::remove(lock.filePath());
}

QString interfaceKey(const QString& key) { return "interface/" + key; }

bool booleanOf(const QVariant& value, bool fallback) {
    const QString text = isSingle(value) ? value.toString().toLower() : QString();
    if (text == "true" || text == "1") return true;
    if (text == "false" || text == "0") return false;
    return fallback;
}

}  // namespace

// By its path, since what is stored for all users or for all programs of the organisation is none of this user's
// choices.
UserDefaults::UserDefaults() : settings_(storePath(), QSettings::NativeFormat) {
    removeNamelessLock(settings_.fileName());
}

int UserDefaults::integerForKey(const char* key) const {
    const QVariant value = valueForKey(key);
    return isSingle(value) ? value.toString().toInt() : 0;
}

void UserDefaults::setInteger(int number, const char* key) { store(number, key); }

QString UserDefaults::stringForKey(const char* key) const {
    const QVariant value = valueForKey(key);
    return isSingle(value) ? value.toString() : QString();
}

void UserDefaults::setString(const QString& text, const char* key) { store(text, key); }

bool UserDefaults::boolForKey(const char* key, bool fallback) const { return booleanOf(valueForKey(key), fallback); }

void UserDefaults::setBool(bool isTrue, const char* key) { store(isTrue, key); }

QVariant UserDefaults::interfaceValueForKey(const QString& key) const { return valueForKey(interfaceKey(key)); }

void UserDefaults::setInterfaceValue(const QVariant& value, const QString& key) { store(value, interfaceKey(key)); }

bool UserDefaults::interfaceBoolForKey(const QString& key, bool fallback) const {
    return booleanOf(valueForKey(interfaceKey(key)), fallback);
}

QVariant UserDefaults::valueForKey(const QString& key) const {
    // A file written by something else may hold types that Qt complains about. What this program never stores is none
    // of its user's choices.
    const SilencedMessages silenced;
    QVariant value = settings_.value(key);
    if (isSingle(value) || value.typeId() == QMetaType::QRect) return value;
    const QStringList texts = value.typeId() == QMetaType::QStringList ? value.toStringList() : QStringList();
    return texts.size() == 1 ? texts.constFirst() : QVariant();  // Qt writes a list of one text as the text alone
}

// To write the file takes milliseconds until it is on the disk, and each start would, for what it leaves there.
void UserDefaults::store(const QVariant& value, const QString& key) {
    const QVariant stored = valueForKey(key);
    const bool isSame = isSingle(value) ? isSingle(stored) && stored.toString() == value.toString() : stored == value;
    if (!isSame) settings_.setValue(key, value);
}
