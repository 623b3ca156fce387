// The tray program's commands with a clock, dialogs, registry and power switch of the test's own:
// the real power-off is never reachable from here.
#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

#include "app/tray/frm_sys_tray.h"
#include "app/window_services.h"
#include "fakes/memory_registry.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::pt;
using Answer = app::Dialogs::Answer;
namespace txt = common::txt;

class FrmSysTrayTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    fakes::MemoryRegistry m_registry;
    int m_powerOffs = 0;
    std::unique_ptr<app::FrmSysTray> m_tray;

    std::unique_ptr<app::FrmSysTray> open(bool withRegistry = true) {
        app::TrayContext context;
        context.registry = withRegistry ? &m_registry : nullptr;
        context.powerOff = [this] { ++m_powerOffs; };
        context.createShortcut = [] { return std::optional<std::string>("/home/user/.local/share"); };
        return std::make_unique<app::FrmSysTray>(m_s->context(), std::move(context));
    }
    QAction* action(const char* name, const app::FrmSysTray* tray = nullptr) const {
        return fakes::child<QAction>(*(tray != nullptr ? tray : m_tray.get())->trayMenu(), name);
    }
    // The one-second timer ticks with the clock at h:m:s.
    void tick(int h, int m, int s) {
        m_s->clock = fakes::FakeClock({2026, 11, 21, h, m, s});
        m_tray->tmrTempo_Timer();
    }
    // Chooses `name` and answers its questions: the typed lines in turn, then `reply`.
    void choose(const char* name, QStringList typed, Answer reply = Answer::Yes) {
        m_s->dialogs.answers = std::move(typed);
        m_s->dialogs.reply = reply;
        action(name)->trigger();
    }
    QString lastMessage() const { return m_s->dialogs.messages.value(m_s->dialogs.messages.size() - 1); }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_s->clock = fakes::FakeClock({2026, 11, 21, 14, 0, 0});
        m_registry = fakes::MemoryRegistry{};
        m_powerOffs = 0;
        m_tray = open();
    }
    void cleanup() { m_tray.reset(); }

    void menuInEveryLanguage() {
        QCOMPARE(action("mnuSystray")->text(), pt(txt::kMnuSystray, "   Ctrl+Shift+C"));
        QVERIFY(action("mnuSystray")->font().bold());
        QCOMPARE(m_tray->trayMenu()->defaultAction(), action("mnuSystray"));
        QCOMPARE(action("mnuAlarme")->text(), u"Agendar Hor\u00E1rio para Alarme"_s);
        m_s->language.set(common::Language::Spanish);
        QCOMPARE(m_tray->utilitiesMenu()->title(), u"Herramientas"_s);
        QCOMPARE(action("mnuSair")->text(), u"Salir"_s);
    }

    void alarmFiresInItsFiveSecondsAndClears() {
        choose("mnuAlarme", {u"14:05:30"_s, u"reuni\u00E3o"_s});
        QCOMPARE(action("mnuAlarme")->text(), pt(txt::kMnuAlarmeAt, "14:05:30"));
        QVERIFY(m_tray->watchRunning());
        tick(14, 5, 30);
        QCOMPARE(m_s->dialogs.messages, QStringList());
        tick(14, 5, 32);
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kAlarmMessage, "14:05:30", "REUNI\u00C3O")});
        QVERIFY(!action("mnuAlarme")->isChecked());
        QVERIFY(!m_tray->watchRunning());
    }

    void refusedOrCancelledSchedules() {
        choose("mnuAlarme", {u"25:00"_s});
        QCOMPARE(lastMessage(), pt(txt::kScheduleCancelled));
        choose("mnuAlarme", {u"15:00"_s});  // the reason box cancelled
        QVERIFY(!m_tray->schedule().alarmScheduled());
        choose("mnuDesligar", {u"18:30"_s}, Answer::No);
        QCOMPARE(lastMessage(), pt(txt::kScheduleCancelled));
        QVERIFY(!m_tray->schedule().shutdownScheduled());
        // Choosing a scheduled item again cancels it.
        choose("mnuDesligar", {u"18:30"_s});
        QCOMPARE(lastMessage(), pt(txt::kConfirmShutdown, "18:30"));
        QVERIFY(action("mnuDesligar")->isChecked());
        action("mnuDesligar")->trigger();
        QVERIFY(!action("mnuDesligar")->isChecked());
        QCOMPARE(action("mnuDesligar")->text(), pt(txt::kMnuDesligar).trimmed());
    }

    void shutdownWarnsBlinkingThenSwitchesOff() {
        QSignalSpy quit(m_tray.get(), &app::FrmSysTray::quitRequested);
        choose("mnuDesligar", {u"10:00"_s});
        QCOMPARE(action("mnuDesligar")->text(), pt(txt::kMnuDesligarAt, "10:00:00"));
        tick(9, 59, 30);
        QVERIFY(!m_tray->blinkRunning());
        tick(9, 59, 41);
        QVERIFY(m_tray->blinkRunning());
        m_tray->tmrTray_Timer();
        const int first = m_tray->iconFrame();
        m_tray->tmrTray_Timer();
        QVERIFY(m_tray->iconFrame() != first);
        QCOMPARE(m_powerOffs, 0);
        tick(10, 0, 2);
        m_tray->tmrTray_Timer();
        QCOMPARE(std::pair(m_powerOffs, static_cast<int>(quit.count())), std::pair(1, 1));
    }

    void protectionWritesAndRemovesThePolicies() {
        QAction* proteger = action("mnuProteger");
        QVERIFY(proteger->isVisible());
        choose("mnuProteger", {}, Answer::No);
        QVERIFY(!proteger->isChecked() && m_registry.calls.empty());
        choose("mnuProteger", {});
        QCOMPARE(lastMessage(), pt(txt::kProtectionOn));
        QCOMPARE(m_registry.calls.size(), std::size_t{17});
        QVERIFY(proteger->isChecked() &&
                action("mnuProteger", open().get())->isChecked());  // and at the next start
        proteger->trigger();
        QCOMPARE(lastMessage(), pt(txt::kProtectionOff));
        QCOMPARE(m_registry.calls.size(), std::size_t{33});
        QVERIFY(!action("mnuProteger", open().get())->isChecked());
        // No policies on this system: the item is not offered.
        QVERIFY(!action("mnuProteger", open(false).get())->isVisible());
    }

    void shortcutSaysWhereItWent() {
        action("mnuAtalho")->trigger();
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kShortcutCreated, "/home/user/.local/share")});
    }
};

QTEST_MAIN(FrmSysTrayTest)
#include "frm_sys_tray_test.moc"
