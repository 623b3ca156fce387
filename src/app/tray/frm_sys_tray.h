#pragma once

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/common/app_context.h"
#include "core/tray/schedule.h"
#include "platform/global_hotkey.h"

class QAction;
class QMenu;
class QSystemTrayIcon;
class QWidget;

namespace zv::tray {
class Registry;
}

namespace zv::app {

class Captions;

// What only the tray program is given, beside the program's shared services; tests pass fakes,
// and only the program's entry point passes the real power-off.
struct TrayContext {
    tray::Registry* registry = nullptr;  // none: this system has no workstation policies
    std::function<void()> powerOff;      // switches the computer off
    // Creates the program's shortcut; where it went, or nullopt when it could not be made.
    std::function<std::optional<std::string>()> createShortcut;
    // Ctrl+Shift+C for the whole desktop, registered when the tray starts; none: not offered.
    std::unique_ptr<platform::GlobalHotkey> hotkey;
};

// frmSysTray: the program's icon in the notification area and its menu mnu0 (show the
// calculator, the utilities, exit), the alarm and the timed shutdown with their two timers,
// the workstation restrictions and the shortcut. Ctrl+Shift+C shows the calculator, and the menu
// names it, only while the system has granted it.
class FrmSysTray final : public QObject {
    Q_OBJECT
public:
    FrmSysTray(const AppContext& app, TrayContext context, QObject* parent = nullptr);
    ~FrmSysTray() override;

    // Puts the icon in the notification area; false when the desktop has none.
    bool showIcon();
    bool iconVisible() const;
    void setCalculator(QWidget* calculator) { m_calculator = calculator; }
    // mnuUtil: the utilities, offered in the calculator's menu as well.
    QMenu* utilitiesMenu() const { return m_util; }
    QMenu* trayMenu() const { return m_menu; }

    void mnuSystray_Click();
    void mnuAlarme_Click();
    void mnuDesligar_Click();
    void mnuProteger_Click();
    void mnuAtalho_Click();
    void mnuSair_Click();
    void tmrTempo_Timer();
    void tmrTray_Timer();

    const tray::Schedule& schedule() const { return m_schedule; }
    bool watchRunning() const;
    bool blinkRunning() const;
    int iconFrame() const { return m_iconFrame; }

    // The three icons: normal (the application icon), and the two frames of the blinking one.
    static QIcon drawIcon(int frame);

signals:
    void quitRequested();

private:
    QString text(int code, const QString& arg1 = {}, const QString& arg2 = {}) const;
    // The alarm and shutdown items say the time they are set for.
    void showSchedule();
    // "Exibir Calculadora" names Ctrl+Shift+C only when the combination was registered.
    void labelSystray();
    struct TypedTime {
        QString typed;  // as the user typed it, blanks around taken off
        int seconds;    // the time of day
    };
    // Asks a time of day, offering the present time; nullopt when cancelled or not a time.
    std::optional<TypedTime> askTime(int titleCode, int promptCode);
    // After a schedule was set, or cancelled (which the user is told).
    void scheduleChanged(bool cancelled);
    int timeOfDay() const;
    void setIconFrame(int frame);

    AppContext m_app;
    TrayContext m_ctx;
    Captions* m_captions;
    tray::Schedule m_schedule;
    QPointer<QWidget> m_calculator;
    QSystemTrayIcon* m_icon = nullptr;
    QIcon m_frames[3];
    int m_iconFrame = 0;
    QMenu* m_menu = nullptr;
    QMenu* m_util = nullptr;
    QAction* mnuSystray = nullptr;
    bool m_hotkeyRegistered = false;
    QAction* mnuAlarme = nullptr;
    QAction* mnuDesligar = nullptr;
    QAction* mnuProteger = nullptr;
    QTimer tmrTempo;
    QTimer tmrTray;
};

}  // namespace zv::app
