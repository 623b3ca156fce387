#include "app/tray/frm_sys_tray.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>
#include <climits>

#include "app/common/app_icon.h"
#include "app/common/captions.h"
#include "app/common/dialogs.h"
#include "app/common/menu_look.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text_table.h"
#include "core/tray/restrictions.h"

namespace zv::app {

namespace txt = common::txt;

FrmSysTray::FrmSysTray(const AppContext& app, TrayContext context, QObject* parent)
    : QObject(parent),
      m_app(app),
      m_ctx(std::move(context)),
      m_captions(new Captions(*m_app.language, this)) {
    setObjectName(QStringLiteral("frmSysTray"));
    for (int frame = 0; frame < 3; ++frame) {
        m_frames[frame] = drawIcon(frame);
    }
    const auto addAction = [this](QMenu* menu, const char* name, void (FrmSysTray::*slot)()) {
        QAction* action = menu->addAction(QString(), this, slot);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    m_menu = new QMenu;
    m_menu->setObjectName(QStringLiteral("mnu0"));
    mnuSystray = addAction(m_menu, "mnuSystray", &FrmSysTray::mnuSystray_Click);
    QFont bold = mnuSystray->font();
    bold.setBold(true);
    mnuSystray->setFont(bold);
    m_menu->setDefaultAction(mnuSystray);
    m_hotkeyRegistered =
        m_ctx.hotkey != nullptr && m_ctx.hotkey->registerCtrlShiftC([this] { mnuSystray_Click(); });
    m_menu->addSeparator();
    m_util = m_menu->addMenu(QString());
    m_util->setObjectName(QStringLiteral("mnuUtil"));
    m_captions->add(m_util, txt::kMnuUtilTray);
    mnuAlarme = addAction(m_util, "mnuAlarme", &FrmSysTray::mnuAlarme_Click);
    mnuDesligar = addAction(m_util, "mnuDesligar", &FrmSysTray::mnuDesligar_Click);
    mnuProteger = addAction(m_util, "mnuProteger", &FrmSysTray::mnuProteger_Click);
    m_captions->add(mnuProteger, txt::kMnuProteger);
    for (QAction* option : {mnuAlarme, mnuDesligar, mnuProteger}) {
        option->setCheckable(true);
    }
    // Where the system has no such policies the item would do nothing: it is not offered.
    mnuProteger->setVisible(m_ctx.registry != nullptr);
    const common::SettingsReader config(*m_app.store, common::settings::kConfigura);
    mnuProteger->setChecked(config.whole(common::settings::kSegur, INT_MIN, INT_MAX).value_or(0) != 0);
    m_captions->add(addAction(m_util, "mnuAtalho", &FrmSysTray::mnuAtalho_Click), txt::kMnuAtalho);
    m_menu->addSeparator();
    m_captions->add(addAction(m_menu, "mnuSair", &FrmSysTray::mnuSair_Click), txt::kMnuSair);
    connect(m_captions, &Captions::relabelled, this, &FrmSysTray::labelSystray);
    connect(m_captions, &Captions::relabelled, this, &FrmSysTray::showSchedule);
    labelSystray();
    showSchedule();

    if (config.boolean(common::settings::kMenuXP).value_or(true)) {
        applyOfficeMenuLook(m_menu);
        applyOfficeMenuLook(m_util);
    }

    const std::pair<QTimer*, void (FrmSysTray::*)()> timers[] = {{&tmrTempo, &FrmSysTray::tmrTempo_Timer},
                                                                 {&tmrTray, &FrmSysTray::tmrTray_Timer}};
    for (const auto& [timer, tick] : timers) {
        timer->setInterval(1000);
        connect(timer, &QTimer::timeout, this, tick);
    }
    tmrTempo.setObjectName(QStringLiteral("tmrTempo"));
    tmrTray.setObjectName(QStringLiteral("tmrTray"));
}

FrmSysTray::~FrmSysTray() {
    if (m_icon != nullptr) {
        m_icon->hide();
    }
    delete m_menu;
}

QString FrmSysTray::text(int code, const QString& arg1, const QString& arg2) const {
    return m_captions->text(code, arg1, arg2);
}

void FrmSysTray::labelSystray() {
    mnuSystray->setText(m_hotkeyRegistered ? text(txt::kMnuSystray, QStringLiteral("   Ctrl+Shift+C"))
                                           : text(txt::kMnuSystray).trimmed());
}

void FrmSysTray::showSchedule() {
    const std::optional<int> alarm = m_schedule.alarmTime();
    mnuAlarme->setText(alarm ? text(txt::kMnuAlarmeAt, QString::fromStdString(tray::formatTimeOfDay(*alarm)))
                             : text(txt::kMnuAlarme).trimmed());
    mnuAlarme->setChecked(alarm.has_value());
    const std::optional<int> shutdown = m_schedule.shutdownTime();
    mnuDesligar->setText(
        shutdown ? text(txt::kMnuDesligarAt, QString::fromStdString(tray::formatTimeOfDay(*shutdown)))
                 : text(txt::kMnuDesligar).trimmed());
    mnuDesligar->setChecked(shutdown.has_value());
}

bool FrmSysTray::showIcon() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        return false;
    }
    if (m_icon == nullptr) {
        m_icon = new QSystemTrayIcon(m_frames[0], this);
        m_icon->setToolTip(QStringLiteral("Zavrello"));
        m_icon->setContextMenu(m_menu);
        connect(m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                mnuSystray_Click();
            }
        });
    }
    m_icon->show();
    return true;
}

bool FrmSysTray::iconVisible() const {
    return m_icon != nullptr && m_icon->isVisible();
}

bool FrmSysTray::watchRunning() const {
    return tmrTempo.isActive();
}

bool FrmSysTray::blinkRunning() const {
    return tmrTray.isActive();
}

void FrmSysTray::setIconFrame(int frame) {
    m_iconFrame = frame;
    if (m_icon != nullptr) {
        m_icon->setIcon(m_frames[frame]);
    }
}

int FrmSysTray::timeOfDay() const {
    const common::DateTime now = m_app.clock->now();
    return now.hour * 3600 + now.minute * 60 + now.second;
}

void FrmSysTray::mnuSystray_Click() {
    if (m_calculator == nullptr) {
        return;
    }
    m_calculator->showNormal();
    m_calculator->raise();
    m_calculator->activateWindow();
}

std::optional<FrmSysTray::TypedTime> FrmSysTray::askTime(int titleCode, int promptCode) {
    // A click on a checkable item has turned its check mark; the schedule says what it is.
    showSchedule();
    const QString now = QString::fromStdString(tray::formatTimeOfDay(timeOfDay()));
    const std::optional<QString> typed = m_app.dialogs->ask(nullptr, text(titleCode), text(promptCode), now);
    const std::optional<int> at = typed ? tray::parseTimeOfDay(typed->toStdString()) : std::nullopt;
    return at ? std::optional<TypedTime>(TypedTime{typed->trimmed(), *at}) : std::nullopt;
}

void FrmSysTray::scheduleChanged(bool cancelled) {
    showSchedule();
    if (cancelled) {
        m_app.dialogs->message(nullptr, Dialogs::Icon::Critical, text(txt::kScheduleCancelled));
    } else {
        tmrTempo.start();
    }
}

void FrmSysTray::mnuAlarme_Click() {
    if (m_schedule.alarmScheduled()) {
        m_schedule.cancelAlarm();
        scheduleChanged(true);
        return;
    }
    const std::optional<TypedTime> time = askTime(txt::kMnuAlarme, txt::kTimePrompt);
    const std::optional<QString> reason =
        time ? m_app.dialogs->ask(nullptr, text(txt::kMnuAlarme), text(txt::kReasonPrompt), QString())
             : std::nullopt;
    const bool given = reason && !reason->trimmed().isEmpty();
    if (given) {
        m_schedule.scheduleAlarm(time->seconds, reason->toStdString());
    }
    scheduleChanged(!given);
}

void FrmSysTray::mnuDesligar_Click() {
    if (m_schedule.shutdownScheduled()) {
        m_schedule.cancelShutdown();
        scheduleChanged(true);
        return;
    }
    const std::optional<TypedTime> time = askTime(txt::kMnuDesligar, txt::kShutdownPrompt);
    const bool confirmed = time && m_app.dialogs->question(nullptr, text(txt::kConfirmShutdown, time->typed),
                                                           Dialogs::Buttons::YesNo) == Dialogs::Answer::Yes;
    if (confirmed) {
        m_schedule.scheduleShutdown(time->seconds);
    }
    scheduleChanged(!confirmed);
}

void FrmSysTray::tmrTempo_Timer() {
    const bool showAlarm = m_schedule.tickWatch(timeOfDay());
    if (m_schedule.blinkRunning() && !tmrTray.isActive()) {
        tmrTray.start();
    }
    if (!m_schedule.watchRunning()) {
        tmrTempo.stop();
    }
    if (showAlarm) {
        const std::optional<int> at = m_schedule.alarmTime();
        mnuSystray_Click();
        // The timers go on while the message is open: the tray beeps and blinks until it closes.
        m_app.dialogs->message(
            nullptr, Dialogs::Icon::Information,
            text(txt::kAlarmMessage, QString::fromStdString(tray::formatTimeOfDay(at.value_or(0))),
                 QString::fromStdString(m_schedule.alarmReason())));
        m_schedule.alarmMessageClosed();
        showSchedule();
        if (!m_schedule.watchRunning()) {
            tmrTempo.stop();
        }
    }
}

void FrmSysTray::tmrTray_Timer() {
    const tray::Schedule::TrayTick tick = m_schedule.tickBlink(timeOfDay());
    if (tick.beep) {
        QApplication::beep();
    }
    setIconFrame(tick.icon);
    if (tick.shutdownNow) {
        tmrTray.stop();
        tmrTempo.stop();
        if (m_ctx.powerOff) {
            m_ctx.powerOff();
        }
        emit quitRequested();
        return;
    }
    if (!m_schedule.blinkRunning()) {
        tmrTray.stop();
        setIconFrame(0);
    }
}

void FrmSysTray::mnuProteger_Click() {
    if (m_ctx.registry == nullptr) {
        return;
    }
    if (!mnuProteger->isChecked()) {
        // It was checked: the click unprotects.
        tray::unprotectWorkstation(*m_ctx.registry);
        m_app.dialogs->message(nullptr, Dialogs::Icon::Information, text(txt::kProtectionOff));
    } else if (m_app.dialogs->question(nullptr, text(txt::kConfirmProtection), Dialogs::Buttons::YesNo) ==
               Dialogs::Answer::Yes) {
        tray::protectWorkstation(*m_ctx.registry);
        m_app.dialogs->message(nullptr, Dialogs::Icon::Information, text(txt::kProtectionOn));
    } else {
        mnuProteger->setChecked(false);
    }
    common::SaveSetting(*m_app.store, common::settings::kConfigura, common::settings::kSegur,
                        mnuProteger->isChecked() ? "1" : "0");
}

void FrmSysTray::mnuAtalho_Click() {
    if (!m_ctx.createShortcut) {
        return;
    }
    const std::optional<std::string> where = m_ctx.createShortcut();
    if (where) {
        m_app.dialogs->message(nullptr, Dialogs::Icon::Information,
                               text(txt::kShortcutCreated, QString::fromStdString(*where)));
    } else {
        m_app.dialogs->message(nullptr, Dialogs::Icon::Critical, text(txt::kShortcutFailed));
    }
}

void FrmSysTray::mnuSair_Click() {
    if (m_icon != nullptr) {
        m_icon->hide();
    }
    emit quitRequested();
}

QIcon FrmSysTray::drawIcon(int frame) {
    // The application icon is the normal picture. The two blinking frames change it where the
    // eye looks in a small picture: frame 2 lights the machine red and its tape yellow, frame 1
    // greys the tape. The icon is drawn on a 16-unit grid: the tape's paper is x 4-12 above the
    // roller at y 8, the machine's body y 8-16.
    // The program's icon is read once, by main(); a window of a test has none set.
    const QIcon application =
        QGuiApplication::windowIcon().isNull() ? applicationIcon() : QGuiApplication::windowIcon();
    if (frame == 0) {
        return application;
    }
    QIcon icon;
    for (const QSize& size : application.availableSizes()) {
        QPixmap pixmap = application.pixmap(size, 1.0);
        {
            QPainter p(&pixmap);
            // Only where the picture has paint, so the outline stays the same.
            p.setCompositionMode(QPainter::CompositionMode_SourceAtop);
            const qreal s = size.width() / 16.0;
            const QRectF tape(4 * s, 0, 8 * s, 8 * s);
            const QRectF body(0, 8 * s, 16 * s, 8 * s);
            if (frame == 2) {
                p.fillRect(body, QColor(0xe0, 0x20, 0x20, 0xa0));
                p.fillRect(tape, QColor(0xff, 0xe0, 0x40, 0x90));
            } else {
                p.fillRect(tape, QColor(0x60, 0x70, 0x70, 0xa0));
            }
        }
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace zv::app
