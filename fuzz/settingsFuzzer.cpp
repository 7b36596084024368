// A program's way from start to end with a settings file of any content: an input is the file's bytes.
//
// Windows take a hundred times as long as all the rest, so only some of the inputs, chosen by their bytes, see them.
// A replay shows them for all.

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMap>
#include <QRegularExpression>
#include <QScreen>
#include <QStringEncoder>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "app/AppPreferencesController.h"
#include "app/Appearance.h"
#include "app/DocumentController.h"
#include "fuzz/Toolkit.h"
#include "fuzz/expect.h"
#include "ui/SilencedMessages.h"
#include "ui/UserDefaults.h"
#include "ui/document/EntryOptions.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXWindow.h"

namespace {

constexpr const char* choiceKeys[] = {
    TXUserDefaultsKey::preferenceRevision, TXUserDefaultsKey::appRevision, TXUserDefaultsKey::exponentsCharacter,
    TXUserDefaultsKey::thousandsSeparatorCharacter, TXUserDefaultsKey::usesRadiansForNewDocuments};
constexpr const char* interfaceKeys[] = {
    "windowPlace",         "sidebarWidth",          "sidebarShown", "entryHeight",   "textSize", "miniWindowPlace",
    "keepMiniWindowOnTop", "showAnswerWhileTyping", "suggestNames", "colorEquation", "colors"};

/// A settings file under a name of its own, since Qt remembers what it has read by the name.
class SettingsFile {
public:
    explicit SettingsFile(const QByteArray& bytes) {
        static int count = 0;
        QCoreApplication::setApplicationName(QStringLiteral("tallix-%1").arg(++count));
        path_ = QSettings().fileName();
        QDir().mkpath(path_.section(u'/', 0, -2));
        QFile file(path_);
        expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "a file can be written");
    }
    ~SettingsFile() { QFile::remove(path_); }
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

    QByteArray bytes() const {
        QFile file(path_);
        expect(file.open(QIODevice::ReadOnly), "the file is still there");
        return file.readAll();
    }

private:
    QString path_;
};

/// The text as a file holds it: half of a surrogate pair, which a `\x` can make, has no UTF-8.
QString writable(const QString& text) {
    QStringEncoder encoder(QStringEncoder::Utf8);
    const QByteArray bytes = encoder(text);
    return QString::fromUtf8(bytes);
}

/// What the program finds under each of its keys.
QMap<QString, QString> storedValues() {
    const UserDefaults defaults;
    QMap<QString, QString> values;
    for (const char* key : choiceKeys) {
        values[key] =
            QStringLiteral("%1 %2 %3").arg(defaults.integerForKey(key)).arg(defaults.boolForKey(key, true) ? 1 : 0);
        values[key] += writable(defaults.stringForKey(key));
    }
    for (const char* key : interfaceKeys) {
        const QVariant value = defaults.interfaceValueForKey(key);
        const QRect place = value.toRect();
        values[key] =
            QStringLiteral("%1 %2 %3 %4").arg(place.x()).arg(place.y()).arg(place.right()).arg(place.bottom());
        values[key] += writable(value.toString()) + QString::number(defaults.interfaceBoolForKey(key, true) ? 1 : 0);
    }
    return values;
}

void checkStart() {
    const UserDefaults defaults;
    const QString separator = defaults.stringForKey(TXUserDefaultsKey::thousandsSeparatorCharacter);
    expect(separator == "," || separator == " " || separator == "'" || separator == "e", "a start leaves a separator");
    expect(defaults.integerForKey(TXUserDefaultsKey::preferenceRevision) != 0, "a start leaves its revision");
}

void checkPlace(const QWidget& window) {
    // A new window stands there with its frame, which is known only when it is shown.
    constexpr int frame = 8;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    expect(screen.adjusted(-frame, 0, frame, frame).contains(window.geometry()), "a window is on the screen");
    expect(window.width() >= window.minimumWidth() && window.height() >= window.minimumHeight(),
           "it has its least size");
}

void checkDocument(MyDocument& document) {
    const int size = document.textSize();
    expect(size >= MyDocument::smallestTextSize && size <= MyDocument::largestTextSize, "the text has a size");
    expect(size % MyDocument::textSizeStep == 0, "its size is one of the steps");
    checkPlace(*document.documentWindow());
    const int sidebar = document.controlledView()->width();
    const bool isShown = document.isSidebarShown();
    expect(!isShown || sidebar >= document.variableOutlineView()->minimumWidth(), "the sidebar can be read");
    expect(document.secondaryControlledView()->height() > 0, "the entry is there");

    const TXNumberFormatterSettings& settings = document.documentNumberFormatterSettings();
    const std::u16string& exponent = settings.exponentCharacter();
    const std::u16string& thousands = settings.thousandsCharacter();
    expect(exponent == u"e" || exponent == u"E", "numbers have an exponent character");
    expect(thousands == u"," || thousands == u" " || thousands == u"'", "numbers have a separator");
}

/// Uses everything that windows remember, and then changes it.
void useWindows(DocumentController& documents, AppPreferencesController& preferences, std::size_t choice) {
    MyDocument& document = documents.newDocument();
    checkDocument(document);
    document.windowShouldZoom();
    checkPlace(*document.miniWindow());
    document.setKeepsMiniWindowOnTop(choice % 3 == 0);
    document.windowShouldZoom();

    preferences.ShowPreferencePanel();
    PreferenceController& panel = *preferences.preferenceController();
    const auto choose = [choice](QComboBox* box) {
        expect(box->currentIndex() >= 0, "something is chosen");
        box->setCurrentIndex(static_cast<int>(choice % static_cast<std::size_t>(box->count())));
        emit box->activated(box->currentIndex());
    };
    choose(panel.thousandsSeparatorsBox());
    choose(panel.exponentialCharacterComboBox());
    choose(panel.degreesOrRadians());
    choose(panel.colorsBox());
    panel.changeEntryOptions();
    document.setTextSize(static_cast<int>(choice));
    document.setSidebarShown(choice % 2 == 0);
    QCoreApplication::processEvents();
    document.rememberLayout();
    checkDocument(document);
}

/// Changes what the preferences window changes.
void useWithoutWindows(std::size_t choice) {
    EntryOptions options = EntryOptions::stored();
    options.colorsEquation = !options.colorsEquation;
    options.store();
    expect(EntryOptions::stored() == options, "what helps in the entry is stored");
    const Appearance::Choice colors = Appearance::storedChoice();
    expect(colors == Appearance::Choice::followSystem || colors == Appearance::Choice::light ||
               colors == Appearance::Choice::dark,
           "the colours are one choice of three");
    UserDefaults defaults;
    defaults.setBool(choice % 2 == 0, TXUserDefaultsKey::usesRadiansForNewDocuments);
    defaults.setInterfaceValue(QRect(1, 2, 300, 200), "windowPlace");
    defaults.setInterfaceValue(static_cast<int>(choice), "textSize");
}

bool showsWindows([[maybe_unused]] const QByteArray& bytes) {
#ifdef TALLIX_REPLAYS
    return true;
#else
    constexpr std::size_t share = 32;
    return qHash(bytes, 0) % share == 0;
#endif
}

/// From the start of a program to its end.
void run(const QByteArray& bytes) {
    const auto choice = static_cast<std::size_t>(bytes.size());
    DocumentController documents;
    AppPreferencesController preferences(documents);
    preferences.awakeFromNib();
    checkStart();
    useWithoutWindows(choice);
    if (!showsWindows(bytes)) return;
    useWindows(documents, preferences, choice);
    documents.closeAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

bool isOurs(const QString& key) {
    const auto is = [&key](const char* own) { return key == QLatin1String(own); };
    const auto isInterface = [&key](const char* own) { return key == QStringLiteral("interface/") + own; };
    return std::any_of(std::begin(choiceKeys), std::end(choiceKeys), is) ||
           std::any_of(std::begin(interfaceKeys), std::end(interfaceKeys), isInterface);
}

/// Whether a damaged file has a key such as `/TXAppRevision`, in a group without a name, that is one of ours as soon as
/// Qt has written it.
bool hasKeysThatBecomeOurs() {
    const auto becomesOurs = [](const QString& key) {
        return !isOurs(key) && isOurs(key.split(u'/', Qt::SkipEmptyParts).join(u'/'));
    };
    const QStringList keys = QSettings().allKeys();
    return std::any_of(keys.begin(), keys.end(), becomesOurs);
}

/// What others have stored, under keys that are nothing but words: Qt writes stranger ones, which it never made, in
/// another way than it reads them.
QStringList keysOfOthers() {
    static const QRegularExpression words(QStringLiteral("^[A-Za-z]+(/[A-Za-z]+)*$"));
    QStringList keys = QSettings().allKeys();
    keys.removeIf([](const QString& key) { return isOurs(key) || !words.match(key).hasMatch(); });
    return keys;
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Toolkit::prepare();
    const SilencedMessages silenced;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const SettingsFile file(bytes);
    run(bytes);
    const QMap<QString, QString> values = storedValues();
    const bool isClear = !hasKeysThatBecomeOurs();

    const SettingsFile next(file.bytes());
    expect(!isClear || storedValues() == values, "the next program finds what this one has stored");
    // Of a damaged file, Qt keeps what it can make out. What it has written once stays.
    const QStringList others = keysOfOthers();
    useWithoutWindows(size + 1);
    const SettingsFile last(next.bytes());
    expect(keysOfOthers() == others, "what others have stored stays");
    return 0;
}
