#include "app/Application.h"

#include <QGuiApplication>
#include <QIcon>
#include <chrono>

#include "app/MainMenu.h"
#include "app/OutlineStyle.h"
#include "app/StartChannel.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXWindow.h"

namespace {

constexpr char16_t id[] = u"org.tallix.tallix";
constexpr std::chrono::seconds longestTimeWithoutIcon{1};

/// The icon that is built in, in each size that was drawn.
QIcon bundledIcon() {
    QIcon icon;
    for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256"}) {
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(QLatin1String(size)));
    }
    return icon;
}

/// An icon for windows. All its pictures go to the display with every window, and larger ones would be most of that.
QIcon withoutLargePictures(const QIcon& icon) {
    constexpr int largest = 128;
    QIcon small;
    for (const QSize& size : icon.availableSizes()) {
        if (size.width() <= largest && size.height() <= largest) small.addPixmap(icon.pixmap(size, 1.0));
    }
    return small.isNull() ? icon : small;
}

}  // namespace

void Application::introduce() {
    QCoreApplication::setOrganizationName(QStringLiteral("Tallix"));
    QCoreApplication::setApplicationName(QStringLiteral("tallix"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALLIX_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tallix"));
    QGuiApplication::setDesktopFileName(QString::fromUtf16(id));
    // The documents decide: neither panels nor the preferences keep the program alive, or end it.
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

Application::Application() {
    OutlineStyle::install();
    connect(&preferences_, &AppPreferencesController::colorsChosen, &appearance_, &Appearance::setChoice);
    Q_INIT_RESOURCE(icons);
    connect(&documents_, &DocumentController::documentMade, this,
            [this](MyDocument* document) { MainMenu::fill(*document, documents_, preferences_); });
#ifndef Q_OS_MACOS
    connect(&documents_, &DocumentController::lastDocumentClosed, this, [] { QCoreApplication::exit(0); });
#endif
    preferences_.awakeFromNib();
}

void Application::start() {
    documents_.newDocument().documentWindow()->installEventFilter(this);
    // A window that begins minimized is not painted.
    connect(&iconTimer_, &QTimer::timeout, this, &Application::showWindowIcon);
    iconTimer_.setSingleShot(true);
    iconTimer_.start(longestTimeWithoutIcon);
}

bool Application::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        iconTimer_.start(0);
    }
    return QObject::eventFilter(watched, event);
}

// To look for the icon in the desktop's themes is a third of the work of a start.
void Application::showWindowIcon() {
    // A theme may bring an icon of its own. Where none is installed, ours is at hand.
    QGuiApplication::setWindowIcon(withoutLargePictures(QIcon::fromTheme(QString::fromUtf16(id), bundledIcon())));
}

void Application::listen(StartChannel& channel) {
    channel.listen([this](const QByteArray& activationToken) {
        // From there Qt takes it when the window asks to be the active one. Elsewhere it would be left to what is
        // started next.
        const bool isTaken = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
        if (isTaken && !activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken);
        documents_.newDocument();
    });
#ifndef Q_OS_MACOS
    // A program that is about to end gives no more answers.
    connect(&documents_, &DocumentController::lastDocumentClosed, this, [&channel] { channel.close(); });
#endif
}
