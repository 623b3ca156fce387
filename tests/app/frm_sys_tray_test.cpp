// The tray program's commands with a clock, dialogs, registry, power switch and global shortcut of
// the test's own: the real power-off and the desktop's keys are never reachable from here.
#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>
#include <functional>

#include "app/calc/frm_calcula.h"
#include "app/common/app_icon.h"
#include "app/tray/frm_sys_tray.h"
#include "app/window_services.h"
#include "fakes/memory_registry.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::pt;
using Answer = app::Dialogs::Answer;
namespace txt = common::txt;

// Grants Ctrl+Shift+C or refuses it, as the test says, and keeps what a press would run.
class ScriptedHotkey final : public platform::GlobalHotkey {
public:
    ScriptedHotkey(bool grant, std::function<void()>* pressed) : m_grant(grant), m_pressed(pressed) {}
    bool registerCtrlShiftC(std::function<void()> pressed) override {
        if (m_grant) {
            *m_pressed = std::move(pressed);
        }
        return m_grant;
    }

private:
    bool m_grant;
    std::function<void()>* m_pressed;
};

enum class Hotkey { None, Refused, Granted };
Q_DECLARE_METATYPE(Hotkey)

class FrmSysTrayTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    fakes::MemoryRegistry m_registry;
    int m_powerOffs = 0;
    std::function<void()> m_pressHotkey;

    std::unique_ptr<app::FrmSysTray> open(bool withRegistry = true, Hotkey hotkey = Hotkey::None) {
        app::TrayContext context;
        context.registry = withRegistry ? &m_registry : nullptr;
        context.powerOff = [this] { ++m_powerOffs; };
        context.createShortcut = [] { return std::optional<std::string>("/home/user/.local/share"); };
        if (hotkey != Hotkey::None) {
            context.hotkey = std::make_unique<ScriptedHotkey>(hotkey == Hotkey::Granted, &m_pressHotkey);
        }
        return std::make_unique<app::FrmSysTray>(m_s->context(), std::move(context));
    }
    void at(int h, int m, int s) { m_s->clock = fakes::FakeClock({2026, 11, 21, h, m, s}); }
    static QAction* action(const app::FrmSysTray& tray, const char* name) {
        return fakes::child<QAction>(*tray.trayMenu(), name);
    }
    // Chooses `name` and answers its questions: the typed lines in turn, then `reply`.
    void choose(const app::FrmSysTray& tray, const char* name, QStringList typed,
                Answer reply = Answer::Yes) {
        m_s->dialogs.answers = std::move(typed);
        m_s->dialogs.reply = reply;
        action(tray, name)->trigger();
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_registry = fakes::MemoryRegistry{};
        m_powerOffs = 0;
        m_pressHotkey = nullptr;
        at(14, 0, 0);
    }

    void menuInEveryLanguage() {
        auto tray = open();
        QVERIFY(action(*tray, "mnuSystray")->font().bold());
        QCOMPARE(tray->trayMenu()->defaultAction(), action(*tray, "mnuSystray"));
        QCOMPARE(action(*tray, "mnuAlarme")->text(), u"Agendar Hor\u00E1rio para Alarme"_s);
        // The calculator offers the same utilities in its own menu; the tray's entry still follows.
        app::CalcWindowContext calcContext;
        calcContext.utilities = tray->utilitiesMenu();
        app::FrmCalcula calculator(m_s->context(), std::move(calcContext));
        m_s->language.set(common::Language::Spanish);
        QAction* entry = nullptr;
        for (QAction* item : tray->trayMenu()->actions()) {
            entry = item->menu() == tray->utilitiesMenu() ? item : entry;
        }
        QVERIFY(entry != nullptr);
        QCOMPARE(entry->text(), u"Herramientas"_s);
        QCOMPARE(action(*tray, "mnuSair")->text(), u"Salir"_s);
        auto* calcUtil = fakes::child<QAction>(calculator, "mnuUtil");
        QCOMPARE(calcUtil->menu()->actions(), tray->utilitiesMenu()->actions());
    }

    void showCaptionNamesTheShortcutOnlyWhenGranted_data() {
        QTest::addColumn<Hotkey>("hotkey");
        QTest::addColumn<QString>("portuguese");
        QTest::addColumn<QString>("spanish");
        // The text keeps its own blank before the shortcut.
        QTest::newRow("granted") << Hotkey::Granted << u"Exibir Calculadora    Ctrl+Shift+C"_s
                                 << u"Mostrar Calculadora    Ctrl+Shift+C"_s;
        QTest::newRow("held by another program")
            << Hotkey::Refused << u"Exibir Calculadora"_s << u"Mostrar Calculadora"_s;
        QTest::newRow("no way to register")
            << Hotkey::None << u"Exibir Calculadora"_s << u"Mostrar Calculadora"_s;
    }

    void showCaptionNamesTheShortcutOnlyWhenGranted() {
        QFETCH(Hotkey, hotkey);
        QFETCH(QString, portuguese);
        QFETCH(QString, spanish);
        auto tray = open(true, hotkey);
        QCOMPARE(action(*tray, "mnuSystray")->text(), portuguese);
        m_s->language.set(common::Language::Spanish);
        QCOMPARE(action(*tray, "mnuSystray")->text(), spanish);
    }

    void shortcutShowsTheCalculator() {
        auto tray = open(true, Hotkey::Granted);
        QWidget calculator;
        tray->setCalculator(&calculator);
        QVERIFY(m_pressHotkey);
        m_pressHotkey();
        QVERIFY(calculator.isVisible());
    }

    void alarmFiresInItsFiveSecondsAndClears() {
        auto tray = open();
        choose(*tray, "mnuAlarme", {u"14:05:30"_s, u"reuni\u00E3o"_s});
        QCOMPARE(action(*tray, "mnuAlarme")->text(), pt(txt::kMnuAlarmeAt, "14:05:30"));
        QVERIFY(tray->watchRunning());
        at(14, 5, 30);
        tray->tmrTempo_Timer();
        QCOMPARE(m_s->dialogs.messages, QStringList());
        at(14, 5, 32);
        tray->tmrTempo_Timer();
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kAlarmMessage, "14:05:30", "REUNI\u00C3O")});
        QVERIFY(!action(*tray, "mnuAlarme")->isChecked());
        QVERIFY(!tray->watchRunning());
    }

    void refusedOrCancelledSchedules() {
        auto tray = open();
        choose(*tray, "mnuAlarme", {u"25:00"_s});
        QCOMPARE(m_s->dialogs.messages.last(), pt(txt::kScheduleCancelled));
        choose(*tray, "mnuAlarme", {u"15:00"_s});  // the reason box cancelled
        QVERIFY(!tray->schedule().alarmScheduled());
        choose(*tray, "mnuDesligar", {u"18:30"_s}, Answer::No);
        QCOMPARE(m_s->dialogs.messages.last(), pt(txt::kScheduleCancelled));
        QVERIFY(!tray->schedule().shutdownScheduled());
        // Choosing a scheduled item again cancels it.
        choose(*tray, "mnuDesligar", {u"18:30"_s});
        QCOMPARE(m_s->dialogs.messages.last(), pt(txt::kConfirmShutdown, "18:30"));
        QVERIFY(action(*tray, "mnuDesligar")->isChecked());
        action(*tray, "mnuDesligar")->trigger();
        QVERIFY(!action(*tray, "mnuDesligar")->isChecked());
        QCOMPARE(action(*tray, "mnuDesligar")->text(), pt(txt::kMnuDesligar).trimmed());
    }

    void shutdownWarnsBlinkingThenSwitchesOff() {
        auto tray = open();
        QSignalSpy quit(tray.get(), &app::FrmSysTray::quitRequested);
        choose(*tray, "mnuDesligar", {u"10:00"_s});
        QCOMPARE(action(*tray, "mnuDesligar")->text(), pt(txt::kMnuDesligarAt, "10:00:00"));
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
        choose(*tray, "mnuProteger", {}, Answer::No);
        QVERIFY(!proteger->isChecked());
        QVERIFY(m_registry.calls.empty());
        choose(*tray, "mnuProteger", {});
        QVERIFY(proteger->isChecked());
        QCOMPARE(m_s->dialogs.messages.last(), pt(txt::kProtectionOn));
        QCOMPARE(m_registry.calls.size(), std::size_t{17});
        QVERIFY(action(*open(), "mnuProteger")->isChecked());  // at the next start
        proteger->trigger();
        QCOMPARE(m_s->dialogs.messages.last(), pt(txt::kProtectionOff));
        QCOMPARE(m_registry.calls.size(), std::size_t{33});
        QVERIFY(!action(*open(), "mnuProteger")->isChecked());
        // No policies on this system: the item is not offered.
        QVERIFY(!action(*open(false), "mnuProteger")->isVisible());
    }

    void normalPictureIsTheApplicationIcon() {
        const QIcon normal = app::FrmSysTray::drawIcon(0);
        for (const int size : {16, 24, 48}) {
            QCOMPARE(normal.pixmap(QSize(size, size), 1.0).toImage(),
                     app::applicationIcon().pixmap(QSize(size, size), 1.0).toImage());
        }
    }

    void blinkingPicturesLightTheMachineOrGreyTheTape_data() {
        QTest::addColumn<int>("frame");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<QString>("change");
        // 16 px: (2, 12) is the machine's body between its keys, (5, 1) the tape's paper.
        QTest::newRow("frame 2, the body turns red") << 2 << 2 << 12 << u"red"_s;
        QTest::newRow("frame 2, the tape turns yellow") << 2 << 5 << 1 << u"yellow"_s;
        QTest::newRow("frame 1, the tape turns grey") << 1 << 5 << 1 << u"darker"_s;
        QTest::newRow("frame 1, the body stays") << 1 << 2 << 12 << u"same"_s;
    }
    void blinkingPicturesLightTheMachineOrGreyTheTape() {
        QFETCH(int, frame);
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(QString, change);
        const QColor before =
            app::FrmSysTray::drawIcon(0).pixmap(QSize(16, 16), 1.0).toImage().pixelColor(x, y);
        const QColor after =
            app::FrmSysTray::drawIcon(frame).pixmap(QSize(16, 16), 1.0).toImage().pixelColor(x, y);
        QCOMPARE(after.alpha(), before.alpha());
        if (change == u"red"_s) {
            QVERIFY2(after.red() > before.red() + 60 && after.red() > after.blue() + 60,
                     qPrintable(after.name()));
        } else if (change == u"yellow"_s) {
            QVERIFY2(after.blue() + 60 < before.blue() && after.red() > 200 && after.green() > 180,
                     qPrintable(after.name()));
        } else if (change == u"darker"_s) {
            QVERIFY2(after.lightness() + 60 < before.lightness(), qPrintable(after.name()));
        } else {
            QCOMPARE(after, before);
        }
    }

    void shortcutSaysWhereItWent() {
        auto tray = open();
        action(*tray, "mnuAtalho")->trigger();
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kShortcutCreated, "/home/user/.local/share")});
    }
};

QTEST_MAIN(FrmSysTrayTest)
#include "frm_sys_tray_test.moc"
