// The tray program's commands with a clock, dialogs, registry and power switch of the test's own:
// the real power-off is never reachable from here.
#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

#include "app/common/dialogs.h"
#include "app/common/ui_language.h"
#include "app/tray/frm_sys_tray.h"
#include "core/common/text_table.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_registry.h"
#include "fakes/memory_settings_store.h"
#include "fakes/scripted_dialogs.h"

using namespace zv;

namespace {

using fakes::ScriptedDialogs;

QString pt(int code, const char* arg = "") {
    return QString::fromStdString(common::GetText(common::Language::Portuguese, code, arg));
}

}  // namespace

class FrmSysTrayTest : public QObject {
    Q_OBJECT

    fakes::FakeClock m_clock;
    ScriptedDialogs m_dialogs;
    fakes::MemoryRegistry m_registry;
    fakes::MemorySettingsStore m_store;
    std::unique_ptr<app::UiLanguage> m_language;
    int m_powerOffs = 0;

    std::unique_ptr<app::FrmSysTray> open(bool withRegistry = true) {
        app::AppContext app;
        app.store = &m_store;
        app.dialogs = &m_dialogs;
        app.clock = &m_clock;
        app.language = m_language.get();
        app::TrayContext context;
        context.registry = withRegistry ? &m_registry : nullptr;
        context.powerOff = [this] { ++m_powerOffs; };
        context.createShortcut = [] {
            return std::optional<std::string>("/home/user/.local/share/applications");
        };
        return std::make_unique<app::FrmSysTray>(app, std::move(context));
    }
    void at(int h, int m, int s) { m_clock = fakes::FakeClock({2026, 11, 21, h, m, s}); }
    static QAction* action(const app::FrmSysTray& tray, const char* name) {
        return tray.trayMenu()->findChild<QAction*>(QLatin1String(name)) != nullptr
                   ? tray.trayMenu()->findChild<QAction*>(QLatin1String(name))
                   : tray.utilitiesMenu()->findChild<QAction*>(QLatin1String(name));
    }

private slots:
    void init() {
        m_dialogs = ScriptedDialogs{};
        m_dialogs.otherwise = ScriptedDialogs::Answer::Yes;
        m_language = std::make_unique<app::UiLanguage>(common::Language::Portuguese);
        m_registry = fakes::MemoryRegistry{};
        m_store = fakes::MemorySettingsStore{};
        m_powerOffs = 0;
        at(14, 0, 0);
    }

    void menuInEveryLanguage() {
        auto tray = open();
        QCOMPARE(action(*tray, "mnuSystray")->text(), pt(81, "   Ctrl+Shift+C"));
        QVERIFY(action(*tray, "mnuSystray")->font().bold());
        QCOMPARE(tray->trayMenu()->defaultAction(), action(*tray, "mnuSystray"));
        QCOMPARE(action(*tray, "mnuAlarme")->text(), QStringLiteral("Agendar Hor\u00E1rio para Alarme"));
        m_language->set(common::Language::Spanish);
        QCOMPARE(tray->utilitiesMenu()->title(), QStringLiteral("Herramientas"));
        QCOMPARE(action(*tray, "mnuSair")->text(), QStringLiteral("Salir"));
    }

    void alarmFiresInItsFiveSecondsAndClears() {
        auto tray = open();
        m_dialogs.answers = {QStringLiteral("14:05:30"), QStringLiteral("reuni\u00E3o")};
        action(*tray, "mnuAlarme")->trigger();
        QVERIFY(action(*tray, "mnuAlarme")->isChecked());
        QCOMPARE(action(*tray, "mnuAlarme")->text(), pt(45, "14:05:30"));
        QVERIFY(tray->watchRunning());
        at(14, 5, 30);
        tray->tmrTempo_Timer();
        QVERIFY(m_dialogs.messages.isEmpty());
        at(14, 5, 32);
        tray->tmrTempo_Timer();
        QCOMPARE(m_dialogs.messages.size(), 1);
        QCOMPARE(m_dialogs.messages.last(),
                 QString::fromStdString(
                     common::GetText(common::Language::Portuguese, 43, "14:05:30", "REUNI\u00C3O")));
        QVERIFY(!action(*tray, "mnuAlarme")->isChecked());
        QVERIFY(!tray->watchRunning());
    }

    void refusedOrCancelledSchedules() {
        auto tray = open();
        m_dialogs.answers = {QStringLiteral("25:00")};
        action(*tray, "mnuAlarme")->trigger();
        QCOMPARE(m_dialogs.messages.last(), pt(38));
        QVERIFY(!action(*tray, "mnuAlarme")->isChecked());
        m_dialogs.answers = {QStringLiteral("15:00")};  // the reason box cancelled
        action(*tray, "mnuAlarme")->trigger();
        QVERIFY(!tray->schedule().alarmScheduled());
        m_dialogs.otherwise = ScriptedDialogs::Answer::No;
        m_dialogs.answers = {QStringLiteral("18:30")};
        action(*tray, "mnuDesligar")->trigger();
        QCOMPARE(m_dialogs.messages.last(), pt(38));
        QVERIFY(!tray->schedule().shutdownScheduled());
        // Choosing a scheduled item again cancels it.
        m_dialogs.otherwise = ScriptedDialogs::Answer::Yes;
        m_dialogs.answers = {QStringLiteral("18:30")};
        action(*tray, "mnuDesligar")->trigger();
        QCOMPARE(m_dialogs.messages.last(), pt(39, "18:30"));
        QVERIFY(action(*tray, "mnuDesligar")->isChecked());
        action(*tray, "mnuDesligar")->trigger();
        QVERIFY(!action(*tray, "mnuDesligar")->isChecked());
        QCOMPARE(action(*tray, "mnuDesligar")->text(), pt(70).trimmed());
    }

    void shutdownWarnsBlinkingThenSwitchesOff() {
        auto tray = open();
        QSignalSpy quit(tray.get(), &app::FrmSysTray::quitRequested);
        m_dialogs.answers = {QStringLiteral("10:00")};
        action(*tray, "mnuDesligar")->trigger();
        QCOMPARE(action(*tray, "mnuDesligar")->text(), pt(80, "10:00:00"));
        at(9, 59, 30);
        tray->tmrTempo_Timer();
        QVERIFY(!tray->blinkRunning());
        at(9, 59, 41);
        tray->tmrTempo_Timer();
        QVERIFY(tray->blinkRunning());
        tray->tmrTray_Timer();
        const int first = tray->iconFrame();
        tray->tmrTray_Timer();
        QVERIFY(tray->iconFrame() != first);
        QCOMPARE(m_powerOffs, 0);
        at(10, 0, 2);
        tray->tmrTempo_Timer();
        tray->tmrTray_Timer();
        QCOMPARE(m_powerOffs, 1);
        QCOMPARE(quit.count(), 1);
    }

    void protectionWritesAndRemovesThePolicies() {
        auto tray = open();
        QAction* proteger = action(*tray, "mnuProteger");
        QVERIFY(proteger->isVisible());
        m_dialogs.otherwise = ScriptedDialogs::Answer::No;
        proteger->trigger();
        QVERIFY(!proteger->isChecked());
        QVERIFY(m_registry.calls.empty());
        m_dialogs.otherwise = ScriptedDialogs::Answer::Yes;
        proteger->trigger();
        QVERIFY(proteger->isChecked());
        QCOMPARE(m_dialogs.messages.last(), pt(42));
        QCOMPARE(m_registry.calls.size(), std::size_t{17});
        QCOMPARE(m_store.read("Configura", "Segur"), std::optional<std::string>("1"));
        proteger->trigger();
        QVERIFY(!proteger->isChecked());
        QCOMPARE(m_dialogs.messages.last(), pt(40));
        QCOMPARE(m_registry.calls.size(), std::size_t{33});
        QCOMPARE(m_store.read("Configura", "Segur"), std::optional<std::string>("0"));
        // The stored state comes back at the next start.
        m_store.write("Configura", "Segur", "1");
        QVERIFY(action(*open(), "mnuProteger")->isChecked());
        // No policies on this system: the item is not offered.
        QVERIFY(!action(*open(false), "mnuProteger")->isVisible());
    }

    void shortcutSaysWhereItWent() {
        auto tray = open();
        action(*tray, "mnuAtalho")->trigger();
        QVERIFY(m_dialogs.messages.last().contains(QStringLiteral("/home/user/.local/share/applications")));
    }
};

QTEST_MAIN(FrmSysTrayTest)
#include "frm_sys_tray_test.moc"
