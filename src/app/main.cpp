// Start-up: one running copy per user, found by its channel "Stiopreig"; the tray program with
// its icon and utilities; the calculator window unless told to start in the tray.
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QThread>
#include <QTime>
#include <memory>

#ifdef _WIN32
#include <windows.h>
#endif

#include "app/calc/frm_calcula.h"
#include "app/common/app_icon.h"
#include "app/common/dialogs.h"
#include "app/common/qsettings_store.h"
#include "app/common/qt_translations.h"
#include "app/common/startup_entry.h"
#include "app/common/ui_language.h"
#include "app/tray/frm_sys_tray.h"
#include "app/tray/native_hotkey.h"
#include "app/tray/power_off_factory.h"
#include "app/tray/single_copy.h"
#include "core/common/clock.h"
#include "core/common/settings_keys.h"
#include "core/tray/start_words.h"
#include "platform/copy_lock.h"
#include "platform/data_folder.h"
#include "platform/midi_out.h"
#include "platform/num_lock.h"
#include "platform/shortcut.h"
#include "platform/system_registry.h"

namespace {

zv::common::Regional regionalFromLocale(const zv::common::SettingsStore& store) {
    const QLocale locale;
    zv::common::Regional regional;
#ifdef _WIN32
    const zv::common::Language detected = zv::tray::languageFromLangId(GetUserDefaultLangID());
#else
    const zv::common::Language detected = zv::tray::languageFromLocaleName(locale.name().toStdString());
#endif
    regional.language = zv::tray::startLanguage(
        zv::common::GetSetting(store, zv::common::settings::kConfigura, zv::common::settings::kIdiomas2, "0"),
        detected);
    regional.separators = zv::common::withGroupFallback(
        {locale.decimalPoint().toStdString(), locale.groupSeparator().toStdString()});
    const QString pattern = locale.dateFormat(QLocale::ShortFormat);
    const qsizetype d = pattern.indexOf(QLatin1Char('d'));
    const qsizetype m = pattern.indexOf(QLatin1Char('M'));
    const qsizetype y = pattern.indexOf(QLatin1Char('y'));
    if (y >= 0 && y < m && y < d) {
        regional.dateOrder = zv::common::DateOrder::YearMonthDay;
    } else if (m >= 0 && m < d) {
        regional.dateOrder = zv::common::DateOrder::MonthDayYear;
    }
    for (const QChar c : pattern) {
        if (!c.isLetter()) {
            regional.dateSeparator = QString(c).toStdString();
            break;
        }
    }
    return regional;
}

// The X display for switching NumLock on, when the program runs on X11.
void* x11Display() {
#if defined(Q_OS_LINUX)
    if (auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>()) {
        return x11->display();
    }
#endif
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zavrello"));
    QApplication::setOrganizationName(QStringLiteral("Zavrello"));
    // The desktop matches the windows to the installed entry by this name on Wayland and by the
    // window class (the application name, "Zavrello") on X11.
    QGuiApplication::setDesktopFileName(zv::app::applicationId());
    // Every window, the tool windows included, shows the program's icon.
    QApplication::setWindowIcon(zv::app::applicationIcon());
    // The tray program decides when the program ends, not the last window.
    QApplication::setQuitOnLastWindowClosed(false);

    const zv::tray::StartWords words =
        zv::tray::parseStartWords(QApplication::arguments().mid(1).join(QLatin1Char(' ')).toStdString());
    const QString channel = zv::app::SingleCopy::channelName();
    if (words.fechar || words.atualiza) {
        zv::app::SingleCopy::send(channel, QByteArray(zv::tray::kCloseMessage.data()));
        if (words.fechar) {
            return 0;
        }
    }
    zv::app::SingleCopy single(channel);
    bool first = single.listen();
    // Taking the place of a copy that was just asked to end: give it a moment to go.
    for (int i = 0; words.atualiza && !first && i < 30; ++i) {
        QThread::msleep(100);
        first = single.listen();
    }
    if (!first && !words.outra) {
        const QByteArray show = QByteArray(zv::tray::kShowMessage.data()) +
                                QTime::currentTime().toString(QStringLiteral("HH:mm:ss")).toLatin1();
        if (zv::app::SingleCopy::send(channel, show)) {
            return 0;
        }
    }

    zv::app::QSettingsStore store;
    const zv::common::SystemClock clock;
    const zv::common::Regional regional = regionalFromLocale(store);
    zv::app::UiLanguage language(regional.language);
    const zv::app::QtTranslations qtTexts(language);
    zv::app::DesktopDialogs dialogs(language);
    zv::app::AppContext shared;
    shared.store = &store;
    shared.regional = regional;
    shared.clock = &clock;
    shared.dialogs = &dialogs;
    shared.dataFolder = zv::platform::dataFolder();
    shared.language = &language;
    // Each running calculator keeps a tape file of its own.
    std::optional<zv::platform::CopyLock> lock = zv::platform::CopyLock::acquire(shared.dataFolder);
    const std::unique_ptr<zv::tray::Registry> registry = zv::platform::makeSystemRegistry();

    std::unique_ptr<zv::app::FrmSysTray> tray;
    if (first) {
        zv::app::TrayContext trayContext;
        trayContext.registry = registry.get();
        trayContext.powerOff = [] {
            if (const std::unique_ptr<zv::platform::PowerOff> power = zv::app::makeSystemPowerOff()) {
                power->powerOff();
            }
        };
        trayContext.createShortcut = []() -> std::optional<std::string> {
            const QString program = QCoreApplication::applicationFilePath();
            const zv::platform::ShortcutResult result = zv::platform::createProgramShortcut(
                QDir::toNativeSeparators(program).toStdString(),
                QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString());
            return result.created ? std::optional<std::string>(result.where) : std::nullopt;
        };
        trayContext.hotkey = std::make_unique<zv::app::NativeHotkey>(x11Display());
        tray = std::make_unique<zv::app::FrmSysTray>(shared, std::move(trayContext));
    }

    zv::app::CalcWindowContext context;
    context.tapeSuffix = lock ? lock->suffix() : std::string("x");
    context.makeMidi = [] { return zv::platform::makeMidiOut(); };
    context.setStartWithSystem = zv::app::setStartWithSystem;
    context.auxiliary = !first;
    context.timeMode = !first && words.tempo;
    context.utilities = tray ? tray->utilitiesMenu() : nullptr;
    context.keepNumLockOn = [](bool checked) { return zv::platform::KeepNumLockOn(checked, x11Display()); };
    zv::app::FrmSysTray* trayWindow = tray.get();
    context.onClosed = [trayWindow](bool stayInTray) {
        // With the icon in the tray the program stays; otherwise closing the calculator ends it.
        if (trayWindow == nullptr || !stayInTray || !trayWindow->iconVisible()) {
            QCoreApplication::quit();
        }
    };
    zv::app::FrmCalcula window(shared, std::move(context));

    if (tray) {
        tray->setCalculator(&window);
        QObject::connect(&single, &zv::app::SingleCopy::showRequested, tray.get(),
                         &zv::app::FrmSysTray::mnuSystray_Click);
        const auto end = [&window] {
            window.close();
            QCoreApplication::quit();
        };
        QObject::connect(&single, &zv::app::SingleCopy::closeRequested, &app, end);
        QObject::connect(tray.get(), &zv::app::FrmSysTray::quitRequested, &app, end);
        const bool inTray = window.settings().stayInTray && tray->showIcon();
        // Without an icon to come back from, the calculator is always shown.
        if (!words.systray || !inTray) {
            window.show();
        }
    } else {
        window.show();
    }
    return app.exec();
}
