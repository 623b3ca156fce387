#include "app/tray/frm_sys_tray.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>

#include "app/common/dialogs.h"
#include "app/common/menu_look.h"
#include "core/common/settings_keys.h"
#include "core/common/text_table.h"
#include "core/tray/restrictions.h"

namespace zv::app {
namespace {

QString trimmed(const QString& text) {
    return text.trimmed();
}

}  // namespace

FrmSysTray::FrmSysTray(TrayContext context, QObject* parent) : QObject(parent), m_ctx(std::move(context)) {
    setObjectName(QStringLiteral("frmSysTray"));
    for (int frame = 0; frame < 3; ++frame) {
        m_frames[frame] = drawIcon(frame);
    }
    m_menu = new QMenu;
    m_menu->setObjectName(QStringLiteral("mnu0"));
    mnuSystray = m_menu->addAction(QString(), this, &FrmSysTray::mnuSystray_Click);
    mnuSystray->setObjectName(QStringLiteral("mnuSystray"));
    QFont bold = mnuSystray->font();
    bold.setBold(true);
    mnuSystray->setFont(bold);
    m_menu->setDefaultAction(mnuSystray);
    m_menu->addSeparator();
    m_util = m_menu->addMenu(QString());
    m_util->setObjectName(QStringLiteral("mnuUtil"));
    mnuAlarme = m_util->addAction(QString(), this, &FrmSysTray::mnuAlarme_Click);
    mnuAlarme->setObjectName(QStringLiteral("mnuAlarme"));
    mnuAlarme->setCheckable(true);
    mnuDesligar = m_util->addAction(QString(), this, &FrmSysTray::mnuDesligar_Click);
    mnuDesligar->setObjectName(QStringLiteral("mnuDesligar"));
    mnuDesligar->setCheckable(true);
    mnuProteger = m_util->addAction(QString(), this, &FrmSysTray::mnuProteger_Click);
    mnuProteger->setObjectName(QStringLiteral("mnuProteger"));
    mnuProteger->setCheckable(true);
    // Where the system has no such policies the item would do nothing: it is not offered.
    mnuProteger->setVisible(m_ctx.registry != nullptr);
    if (m_ctx.store != nullptr) {
        const std::optional<long> segur = common::parseWhole(
            common::GetSetting(*m_ctx.store, common::settings::kConfigura, common::settings::kSegur, "0"));
        mnuProteger->setChecked(segur.value_or(0) != 0);
    }
    mnuAtalho = m_util->addAction(QString(), this, &FrmSysTray::mnuAtalho_Click);
    mnuAtalho->setObjectName(QStringLiteral("mnuAtalho"));
    m_menu->addSeparator();
    mnuSair = m_menu->addAction(QString(), this, &FrmSysTray::mnuSair_Click);
    mnuSair->setObjectName(QStringLiteral("mnuSair"));

    const std::optional<bool> menuXP =
        m_ctx.store != nullptr
            ? common::parseBool(common::GetSetting(*m_ctx.store, common::settings::kConfigura,
                                                   common::settings::kMenuXP, "True"))
            : std::nullopt;
    if (menuXP.value_or(true)) {
        applyOfficeMenuLook(m_menu);
        applyOfficeMenuLook(m_util);
    }

    tmrTempo = new QTimer(this);
    tmrTempo->setObjectName(QStringLiteral("tmrTempo"));
    tmrTempo->setInterval(1000);
    connect(tmrTempo, &QTimer::timeout, this, &FrmSysTray::tmrTempo_Timer);
    tmrTray = new QTimer(this);
    tmrTray->setObjectName(QStringLiteral("tmrTray"));
    tmrTray->setInterval(1000);
    connect(tmrTray, &QTimer::timeout, this, &FrmSysTray::tmrTray_Timer);

    setLanguage(m_ctx.language);
}

FrmSysTray::~FrmSysTray() {
    if (m_icon != nullptr) {
        m_icon->hide();
    }
    delete m_menu;
}

QString FrmSysTray::text(int code, const QString& arg1, const QString& arg2) const {
    return QString::fromStdString(
        common::GetText(m_ctx.language, code, arg1.toStdString(), arg2.toStdString()));
}

void FrmSysTray::setLanguage(common::Language language) {
    m_ctx.language = language;
    mnuSystray->setText(text(81, QStringLiteral("   Ctrl+Shift+C")));
    m_util->setTitle(text(83));
    mnuAlarme->setText(m_schedule.alarmScheduled()
                           ? text(45, QString::fromStdString(tray::formatTimeOfDay(*m_schedule.alarmTime())))
                           : trimmed(text(67)));
    mnuDesligar->setText(
        m_schedule.shutdownScheduled()
            ? text(80, QString::fromStdString(tray::formatTimeOfDay(*m_schedule.shutdownTime())))
            : trimmed(text(70)));
    mnuProteger->setText(text(84));
    mnuAtalho->setText(text(85));
    mnuSair->setText(text(87));
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
    return tmrTempo->isActive();
}

bool FrmSysTray::blinkRunning() const {
    return tmrTray->isActive();
}

void FrmSysTray::setIconFrame(int frame) {
    m_iconFrame = frame;
    if (m_icon != nullptr) {
        m_icon->setIcon(m_frames[frame]);
    }
}

int FrmSysTray::timeOfDay() const {
    const common::DateTime now = m_ctx.clock->now();
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

void FrmSysTray::mnuAlarme_Click() {
    if (m_schedule.alarmScheduled()) {
        m_schedule.cancelAlarm();
        mnuAlarme->setChecked(false);
        mnuAlarme->setText(trimmed(text(67)));
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(38));
        return;
    }
    mnuAlarme->setChecked(false);
    const QString now = QString::fromStdString(tray::formatTimeOfDay(timeOfDay()));
    const std::optional<QString> time = m_ctx.dialogs->ask(nullptr, text(67), text(66), now);
    const std::optional<int> at = time ? tray::parseTimeOfDay(time->toStdString()) : std::nullopt;
    if (!at) {
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(38));
        return;
    }
    const std::optional<QString> reason = m_ctx.dialogs->ask(nullptr, text(67), text(68), QString());
    if (!reason || reason->trimmed().isEmpty()) {
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(38));
        return;
    }
    m_schedule.scheduleAlarm(*at, reason->toStdString());
    mnuAlarme->setText(text(45, QString::fromStdString(tray::formatTimeOfDay(*at))));
    mnuAlarme->setChecked(true);
    tmrTempo->start();
}

void FrmSysTray::mnuDesligar_Click() {
    if (m_schedule.shutdownScheduled()) {
        m_schedule.cancelShutdown();
        mnuDesligar->setChecked(false);
        mnuDesligar->setText(trimmed(text(70)));
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(38));
        return;
    }
    mnuDesligar->setChecked(false);
    const QString now = QString::fromStdString(tray::formatTimeOfDay(timeOfDay()));
    const std::optional<QString> time = m_ctx.dialogs->ask(nullptr, text(70), text(69), now);
    const std::optional<int> at = time ? tray::parseTimeOfDay(time->toStdString()) : std::nullopt;
    if (!at || !m_ctx.dialogs->question(nullptr, text(39, time->trimmed()))) {
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(38));
        return;
    }
    m_schedule.scheduleShutdown(*at);
    mnuDesligar->setText(text(80, QString::fromStdString(tray::formatTimeOfDay(*at))));
    mnuDesligar->setChecked(true);
    tmrTempo->start();
}

void FrmSysTray::tmrTempo_Timer() {
    const bool showAlarm = m_schedule.tickWatch(timeOfDay());
    if (m_schedule.blinkRunning() && !tmrTray->isActive()) {
        tmrTray->start();
    }
    if (!m_schedule.watchRunning()) {
        tmrTempo->stop();
    }
    if (showAlarm) {
        const std::optional<int> at = m_schedule.alarmTime();
        mnuSystray_Click();
        // The timers go on while the message is open: the tray beeps and blinks until it closes.
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Information,
                               text(43, QString::fromStdString(tray::formatTimeOfDay(at.value_or(0))),
                                    QString::fromStdString(m_schedule.alarmReason())));
        m_schedule.alarmMessageClosed();
        mnuAlarme->setChecked(false);
        mnuAlarme->setText(trimmed(text(67)));
        if (!m_schedule.watchRunning()) {
            tmrTempo->stop();
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
        tmrTray->stop();
        tmrTempo->stop();
        if (m_ctx.powerOff) {
            m_ctx.powerOff();
        }
        emit quitRequested();
        return;
    }
    if (!m_schedule.blinkRunning()) {
        tmrTray->stop();
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
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Information, text(40));
    } else if (m_ctx.dialogs->question(nullptr, text(41))) {
        tray::protectWorkstation(*m_ctx.registry);
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Information, text(42));
    } else {
        mnuProteger->setChecked(false);
    }
    if (m_ctx.store != nullptr) {
        common::SaveSetting(*m_ctx.store, common::settings::kConfigura, common::settings::kSegur,
                            mnuProteger->isChecked() ? "1" : "0");
    }
}

void FrmSysTray::mnuAtalho_Click() {
    if (!m_ctx.createShortcut) {
        return;
    }
    const std::optional<std::string> where = m_ctx.createShortcut();
    if (where) {
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Information,
                               text(common::txt::kShortcutCreated, QString::fromStdString(*where)));
    } else {
        m_ctx.dialogs->message(nullptr, Dialogs::Icon::Critical, text(common::txt::kShortcutFailed));
    }
}

void FrmSysTray::mnuSair_Click() {
    if (m_icon != nullptr) {
        m_icon->hide();
    }
    emit quitRequested();
}

QIcon FrmSysTray::drawIcon(int frame) {
    // A small desk calculator: body, display, two rows of keys. Frame 2 lights the body and the
    // display, frame 1 dims the display; the normal icon is frame 0.
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        const qreal s = size / 16.0;
        QPainterPath body;
        body.addRoundedRect(QRectF(1.5 * s, 0.5 * s, 13 * s, 15 * s), 2 * s, 2 * s);
        p.fillPath(body, frame == 2 ? QColor(0xc0, 0x30, 0x30) : QColor(0x2f, 0x4f, 0x7f));
        const QColor display = frame == 2   ? QColor(0xff, 0xf0, 0x80)
                               : frame == 1 ? QColor(0x70, 0x90, 0x90)
                                            : QColor(0xc0, 0xff, 0xff);
        p.fillRect(QRectF(3 * s, 2 * s, 10 * s, 4 * s), display);
        for (int row = 0; row < 2; ++row) {
            for (int col = 0; col < 3; ++col) {
                p.fillRect(QRectF((3 + col * 3.5) * s, (8 + row * 3.5) * s, 2.5 * s, 2.5 * s), Qt::white);
            }
        }
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace zv::app
