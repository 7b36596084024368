#pragma once

#include <QObject>
#include <memory>

#include "app/Appearance.h"

class DocumentController;
class QCheckBox;
class QComboBox;
class QDialog;
class QWidget;

namespace Ui {
class Preferences;
}

/// The preferences window. What is chosen there is stored at once; the separator and the exponent character are sent to
/// every open document before.
class PreferenceController : public QObject {
    Q_OBJECT

public:
    /// The documents are not owned and must outlive the controller.
    explicit PreferenceController(DocumentController& documents);
    ~PreferenceController() override;

    /// Makes the pop-up menus show what is stored. Done once, when the window is made.
    void windowDidLoad();
    void showWindow();
    QDialog* window() const { return window_.get(); }

    // What the pop-up menus do when the user has chosen; each is handed its menu.
    void changeThousandsSeparatorCharacter(const QComboBox* popUp);
    void changeExponentCharacter(const QComboBox* popUp);
    /// Counts for documents that are made from now on: open ones stay as they are.
    void changeDefaultDocumentAngleUnits(const QComboBox* popUp);
    /// What helps in the entry line, as the three check boxes say. It counts for open documents too.
    void changeEntryOptions();
    /// Only tells of the choice: whoever shows the colours stores it.
    void changeColors(const QComboBox* popUp);

    /// These two have no behaviour and no place in the window: nullptr.
    QWidget* colorWell() const { return colorWell_; }
    QCheckBox* checkbox() const { return checkbox_; }
    QComboBox* thousandsSeparatorsBox() const;
    QComboBox* exponentialCharacterComboBox() const;
    QComboBox* degreesOrRadians() const;
    QCheckBox* showsAnswerBox() const;
    QCheckBox* suggestsNamesBox() const;
    QCheckBox* colorsEquationBox() const;
    QComboBox* colorsBox() const;

signals:
    // The position that was chosen. The open documents have it with these signals, and it is stored afterwards.
    void thousandsSeparatorChosen(int index);
    void exponentCharacterChosen(int index);
    void colorsChosen(Appearance::Choice choice);

private:
    void sendChoicesToDocuments();

    DocumentController& documents_;
    std::unique_ptr<Ui::Preferences> ui_;
    QWidget* colorWell_ = nullptr;
    QCheckBox* checkbox_ = nullptr;
    std::unique_ptr<QDialog> window_;
};
