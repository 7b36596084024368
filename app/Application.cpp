#include "app/Application.h"

#include <QGuiApplication>

#include "app/MainMenu.h"
#include "app/StartChannel.h"
#include "ui/document/MyDocument.h"

void Application::introduce() {
    QCoreApplication::setOrganizationName(QStringLiteral("Tallix"));
    QCoreApplication::setApplicationName(QStringLiteral("tallix"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALLIX_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tallix"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.tallix.tallix"));
    // The documents decide: neither panels nor the preferences keep the program alive, or end it.
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

Application::Application() {
    connect(&documents_, &DocumentController::documentMade, this,
            [this](MyDocument* document) { MainMenu::fill(*document, documents_, preferences_); });
#ifndef Q_OS_MACOS
    connect(&documents_, &DocumentController::lastDocumentClosed, this, [] { QCoreApplication::exit(0); });
#endif
    preferences_.awakeFromNib();
}

void Application::start() { documents_.newDocument(); }

void Application::listen(StartChannel& channel) {
    channel.listen([this](const QByteArray& activationToken) {
        // From there Qt takes it when the window asks to be the active one.
        if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken);
        documents_.newDocument();
    });
#ifndef Q_OS_MACOS
    // A program that is about to end gives no more answers.
    connect(&documents_, &DocumentController::lastDocumentClosed, this, [&channel] { channel.close(); });
#endif
}
