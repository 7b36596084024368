#pragma once

#include <QSettings>
#include <QString>

/// The names under which the user's choices are stored.
namespace TXUserDefaultsKey {
inline constexpr auto preferenceRevision = "TXPreferenceRevision";                    ///< An integer.
inline constexpr auto appRevision = "TXAppRevision";                                  ///< An integer.
inline constexpr auto exponentsCharacter = "TXExponentsCharacter";                    ///< "e" or "E".
inline constexpr auto thousandsSeparatorCharacter = "TXThousandsSeparatorCharacter";  ///< ",", " " or "'".
inline constexpr auto usesRadiansForNewDocuments = "TXUsesRadiansForNewDocuments";    ///< A Boolean.
}  // namespace TXUserDefaultsKey

/// What the user chose, kept from one start of the program to the next.
///
///     UserDefaults defaults;
///     defaults.setString("E", TXUserDefaultsKey::exponentsCharacter);
///     UserDefaults().stringForKey(TXUserDefaultsKey::exponentsCharacter)  // "E", at once and everywhere
///
/// Nothing here fails. A file that cannot be read, or holds something else, reads as if nothing were stored; what
/// cannot be written stays known as long as an object of this class lives.
class UserDefaults {
public:
    /// The file of the application, by its organisation and name. It is not created before something is stored.
    UserDefaults();

    /// The 32-bit integer under `key`; 0 when there is none.
    int integerForKey(const char* key) const;
    void setInteger(int number, const char* key);

    /// The text under `key`; a null string when there is none.
    QString stringForKey(const char* key) const;
    void setString(const QString& text, const char* key);

    /// The Boolean under `key`; `fallback` when there is none.
    bool boolForKey(const char* key, bool fallback) const;
    void setBool(bool isTrue, const char* key);

    /// What the windows remember has a group of its own, `interface`: nothing there is one of the choices above.
    QVariant interfaceValueForKey(const QString& key) const;
    void setInterfaceValue(const QVariant& value, const QString& key);
    /// The Boolean under `key` there; `fallback` when there is none.
    bool interfaceBoolForKey(const QString& key, bool fallback) const;

private:
    /// Writes nothing where the value is stored already.
    void store(const QVariant& value, const QString& key);
    QVariant valueForKey(const QString& key) const;

    QSettings settings_;
};
