#pragma once

#include <QObject>
#include <cstdint>
#include <memory>

#include "app/Appearance.h"
#include "app/PreferenceController.h"
#include "ui/UserDefaults.h"

class DocumentController;
class QUrl;
class QWidget;

/// Keeps the user defaults in order, and serves what the menus ask for beside the documents: the preferences, the pages
/// and the guide of the Help menu, and the Greek letters.
class AppPreferencesController : public QObject {
    Q_OBJECT

public:
    /// The documents are not owned and must outlive the controller.
    explicit AppPreferencesController(DocumentController& documents);
    ~AppPreferencesController() override;

    /// Makes this the program's controller, and examines the user defaults: once for each start.
    void awakeFromNib();

    /// Fills in the defaults on a first start, mends them on a later one, and notes the revisions of this program.
    void loadPreferences();
    /// Writes the value of a first start under every key that holds a choice.
    void setDefaultPreferences();
    /// Mends what no document could use. A stored exponent character that is none makes "e" the stored *separator*, and
    /// stays stored itself: this is so on purpose.
    void loadExistingPreferences();

    /// The separator for a locale that groups digits with `groupSeparator`: the same one if documents know it, or else
    /// ",".
    static QString separatorForGroupSeparator(const QString& groupSeparator);

    /// Shows the preferences window.
    void ShowPreferencePanel();  // NOLINT(readability-identifier-naming): its name in the menu's resource.
    void anotherShowPrefPanel();

    // The Help menu. What cannot be opened is told in an alert, with its address.
    void openFeedbackURL();
    /// Opens the feedback page as well: reports of bugs are taken there.
    void openBugReportURL();
    void openUsersGuide();
    /// Opens the guide as well: it ends with the release notes.
    void openReleaseNotes();
    void openScreencastURL();
    /// Shows one more panel of Greek letters, which belongs to the active document.
    void showGreekLettersPanel();
    /// Shows the inspector, one for all documents.
    void showInspector();

    /// Nullptr until the preferences are shown for the first time.
    PreferenceController* preferenceController() const { return preferenceController_.get(); }
    std::int32_t currentPreferencRevisionNumber() const { return currentPreferencRevisionNumber_; }
    std::int32_t currentAppRevisionNumber() const { return currentAppRevisionNumber_; }

signals:
    /// The user chose in the preferences how the program is to look.
    void colorsChosen(Appearance::Choice choice);

private:
    void openPage(const QString& section);
    void open(const QUrl& address, const QString& complaint);
    QWidget* activeWindow() const;

    std::unique_ptr<PreferenceController> preferenceController_;
    std::int32_t currentPreferencRevisionNumber_ = 0;
    std::int32_t currentAppRevisionNumber_ = 0;
    DocumentController& documents_;
    UserDefaults defaults_;  ///< Held for the whole run, so that what cannot be written is not forgotten.
};

/// The program's controller, once it is awake; nullptr before and afterwards.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
extern AppPreferencesController* appPreferencesGlobalController;
