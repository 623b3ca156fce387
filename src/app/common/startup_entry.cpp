#include "app/common/startup_entry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>

#include "app/common/app_icon.h"
#include "platform/desktop_identity.h"

namespace zv::app {

void setStartWithSystem(bool enabled) {
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
#ifdef _WIN32
    QSettings run(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"),
                  QSettings::NativeFormat);
    if (enabled) {
        run.setValue(QStringLiteral("Quorvati"), QStringLiteral("\"%1\" systray").arg(program));
    } else {
        run.remove(QStringLiteral("Quorvati"));
    }
#else
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/autostart");
    const QString path = folder + QStringLiteral("/zavrello.desktop");
    if (!enabled) {
        QFile::remove(path);
        return;
    }
    QDir().mkpath(folder);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        return;
    }
    // The installed entry's name, icon and window class, so the session's list of start-up
    // programs shows the program as the menu does. TryExec: once the program is removed the
    // session skips the entry instead of failing to start it at every log-on.
    const QString entry = QStringLiteral(
                              "[Desktop Entry]\nType=Application\nName=Zavrello\nExec=\"%1\" systray\n"
                              "TryExec=%1\nIcon=%2\nStartupWMClass=%3\nX-GNOME-Autostart-enabled=true\n")
                              .arg(program, applicationId(), latin1(platform::kWindowClass));
    file.write(entry.toUtf8());
    file.commit();
#endif
}

}  // namespace zv::app
