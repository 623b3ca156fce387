// The calculator window driven as a user drives it: keys, buttons and menu commands, with a
// settings file, a data folder and dialogs of the test's own.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/calc/tape_view.h"
#include "app/common/dialogs.h"
#include "app/common/qsettings_store.h"
#include "app/common/ui_language.h"
#include "core/common/text_table.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_midi_out.h"
#include "fakes/sample_text.h"
#include "fakes/scripted_dialogs.h"

using namespace zv;

namespace {

using fakes::ScriptedDialogs;

QString tapeLine(const char* amount, const char* symbol) {
    return QString::fromStdString(fakes::tapeLine(amount, symbol));
}
QString portuguese(int code) {
    return QString::fromStdString(common::GetText(common::Language::Portuguese, code));
}

}  // namespace

class FrmCalculaTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<app::FrmCalcula> open() {
        app::AppContext app;
        app.store = m_store.get();
        app.dataFolder = path("data").toStdString();
        app.regional = common::Regional{};  // Brazilian separators
        app.clock = &m_clock;
        app.dialogs = &m_dialogs;
        app.language = m_language.get();
        app::CalcWindowContext context;
        context.makeMidi = [this] { return m_synth.make(); };
        context.beep = [this] { ++m_beeps; };
        auto window = std::make_unique<app::FrmCalcula>(app, std::move(context));
        window->show();
        return window;
    }
    QString tape(const app::FrmCalcula& window) const {
        return QString::fromStdString(window.calculator().tape().text());
    }
    template <typename T>
    static T* child(const QObject& window, const char* name) {
        T* found = window.findChild<T*>(QLatin1String(name));
        if (found == nullptr) {
            qFatal("no child %s", name);
        }
        return found;
    }
    static void trigger(const QObject& window, const char* name) { child<QAction>(window, name)->trigger(); }
    static void click(const QObject& w, const char* name) {
        QTest::mouseClick(child<QPushButton>(w, name), Qt::LeftButton);
    }
    static QString label(const QObject& w, const char* name) { return child<QLabel>(w, name)->text(); }
    QString path(const char* name) const { return m_dir->filePath(QLatin1String(name)); }
    QString setting(const char* key) const {
        return QString::fromStdString(m_store->read("Configura", key).value_or("(none)"));
    }
    static QString fileText(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                              : QStringLiteral("(unreadable)");
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<app::QSettingsStore> m_store;
    fakes::FakeClock m_clock;
    ScriptedDialogs m_dialogs;
    std::unique_ptr<app::UiLanguage> m_language;
    fakes::FakeSynth m_synth;
    int m_beeps = 0;

private slots:
    void init() {
        m_dir = std::make_unique<QTemporaryDir>();
        QDir(m_dir->path()).mkpath(QStringLiteral("data"));
        m_store = std::make_unique<app::QSettingsStore>(path("Quorvati.ini"));
        m_dialogs = ScriptedDialogs{};
        m_language = std::make_unique<app::UiLanguage>(common::Language::Portuguese);
        m_synth = fakes::FakeSynth{};
        m_beeps = 0;
    }

    void soundThatCannotStartCostsNoKey() {
        m_synth.opens = false;
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("12+"));
        auto* notice = child<QLabel>(*window, "lblAviso");
        QTRY_VERIFY(notice->isVisible());
        m_beeps = 0;
        QTest::keyClicks(window.get(), QStringLiteral("3+"));
        QCOMPARE(tape(*window), tapeLine("12,00", "+") + tapeLine("3,00", "+"));
        QVERIFY2(m_dialogs.messages.isEmpty(), qPrintable(m_dialogs.messages.join(QLatin1Char('|'))));
        QCOMPARE(notice->text(), portuguese(common::txt::kMidiError));
        QCOMPARE(m_beeps, 2);
        QVERIFY(m_synth.notes.empty());
        // Dismissed, it stays away while the keys go on beeping.
        QTest::mouseClick(child<QWidget>(*window, "cmdFecharAviso"), Qt::LeftButton);
        QVERIFY(!notice->isVisible());
        QTest::keyClicks(window.get(), QStringLiteral("4"));
        QCOMPARE(m_beeps, 3);
    }

    void musicalKeysPlayTheirNotes() {
        auto window = open();
        QTRY_COMPARE(m_synth.openings, 1);
        QTest::keyClicks(window.get(), QStringLiteral("7+"));
        QCOMPARE(m_synth.notes, (std::vector<int>{'7' + 36, '+' + 36}));
        QCOMPARE(m_beeps, 0);
        QVERIFY(!child<QLabel>(*window, "lblAviso")->isVisible());
    }

    void keysMakeTapeLinesAndTotals() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("250+1234,5-3*"));
        QTest::keyClick(window.get(), Qt::Key_Return);
        QCOMPARE(tape(*window), tapeLine("250,00", "+") + tapeLine("1.234,50", "-") + tapeLine("3,00", "=") +
                                    tapeLine("1.481,50", "T") + QString::fromStdString(fakes::kStrikeLine));
        QCOMPARE(label(*window, "lblTotal"), QStringLiteral("1.481,50"));
        QCOMPARE(child<QLabel>(*window, "lblTotal")->property("tag").toString(), QStringLiteral("T"));
        QCOMPARE(label(*window, "lblVisor1"), QStringLiteral("003"));
        // The view shows the same lines, and the file holds them already.
        QCOMPARE(child<app::TapeView>(*window, "txtFita")->toPlainText() + QStringLiteral("\n"),
                 QString(tape(*window)).remove(QLatin1Char('\r')));
        QCOMPARE(fileText(path("data/calc.fita")), tape(*window));
    }

    void keypadButtonsAndEnterPopup() {
        auto window = open();
        for (const char* button : {"chkNum7", "chkVirgula", "chkNum5"}) {
            click(*window, button);
        }
        QCOMPARE(label(*window, "lblVisor0"), QStringLiteral("7,5"));
        click(*window, "chkNeg");
        click(*window, "chkVezes");
        QCOMPARE(tape(*window), tapeLine("-7,50", "\u00D7"));
        // With Enter adding, the + key sends Enter.
        trigger(*window, "mnuEnter");
        QVERIFY(m_dialogs.messages.last().startsWith(QStringLiteral("Voc\u00EA acabou de configurar")));
        QTest::keyClicks(window.get(), QStringLiteral("2"));
        click(*window, "chkMais");
        QCOMPARE(window->calculator().total(), -15.0);
        QCOMPARE(setting("CalcEnter"), QStringLiteral("ok"));
    }

    void undoRedoAndDeleteTwice() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("100+50+"));
        trigger(*window, "mnuUndo");
        QCOMPARE(tape(*window), tapeLine("100,00", "+"));
        QCOMPARE(label(*window, "lblVisor0"), QStringLiteral("100,00"));
        QVERIFY(child<QAction>(*window, "mnuRedo")->isEnabled());
        trigger(*window, "mnuRedo");
        QCOMPARE(tape(*window), tapeLine("100,00", "+") + tapeLine("50,00", "+"));
        QTest::keyClicks(window.get(), QStringLiteral("7"));
        QTest::keyClick(window.get(), Qt::Key_Delete);
        QCOMPARE(label(*window, "lblVisor0"), QStringLiteral("0"));
        QCOMPARE(tape(*window), tapeLine("100,00", "+") + tapeLine("50,00", "+"));
        QTest::keyClick(window.get(), Qt::Key_Delete);
        QCOMPARE(tape(*window), QStringLiteral("21/11/2026 ==============\r\n"));
        QVERIFY(fileText(path("data/calcula.txt")).contains("BKP = 14:05:09 hs."));
    }

    void languageRelabelsEveryMenuItem() {
        auto window = open();
        const auto caption = [](const QObject* item) {
            return item->property(qobject_cast<const QMenu*>(item) != nullptr ? "title" : "text").toString();
        };
        // Every menu caption comes from the text table: note the codes of each Portuguese caption.
        std::vector<std::pair<const QObject*, std::vector<int>>> items;
        for (const QObject* item :
             window->findChildren<QObject*>(QRegularExpression(QStringLiteral("^mnu")))) {
            items.emplace_back(item, std::vector<int>{});
            for (int code = 1; code < 1000; ++code) {
                if (caption(item) == portuguese(code) && !portuguese(code).isEmpty()) {
                    items.back().second.push_back(code);
                }
            }
            QVERIFY2(!items.back().second.empty(), qPrintable(item->objectName()));
        }
        QVERIFY(items.size() >= 58);
        for (const auto language :
             {common::Language::English, common::Language::Spanish, common::Language::Portuguese}) {
            trigger(*window, language == common::Language::English   ? "mnuEnglish"
                             : language == common::Language::Spanish ? "mnuSpanish"
                                                                     : "mnuPortuguese");
            for (const auto& [item, codes] : items) {
                QVERIFY2(std::any_of(codes.begin(), codes.end(),
                                     [&](int code) {
                                         return caption(item) ==
                                                QString::fromStdString(common::GetText(language, code));
                                     }),
                         qPrintable(item->objectName() + QStringLiteral(": ") + caption(item)));
            }
            QCOMPARE(child<QPushButton>(*window, "chkNeg")->toolTip(),
                     QString::fromStdString(common::GetText(language, common::txt::kSignTooltip)));
        }
        QCOMPARE(child<QAction>(*window, "mnuEnglish")->text(), QStringLiteral("&English"));
        QCOMPARE(setting("Idiomas2"), QStringLiteral("1"));
    }

    void optionsAreStoredAndReadBack() {
        {
            auto window = open();
            for (const char* command :
                 {"mnuGrande", "mnuNumeral2", "mnuCor3", "mnuNumLock", "mnuOcultar", "mnuEnglish"}) {
                trigger(*window, command);
            }
            window->close();
        }
        const QString ini = fileText(path("Quorvati.ini"));
        for (const char* line :
             {"Letrona=True", "Formato=2", "Cor=3", "NumLock=False", "Oculte=True", "CalcHeight="}) {
            QVERIFY2(ini.contains(QLatin1String("\n") + QLatin1String(line)), line);
        }

        auto again = open();
        for (const char* command : {"mnuGrande", "mnuNumeral2", "mnuCor3"}) {
            QVERIFY(child<QAction>(*again, command)->isChecked());
        }
        QVERIFY(!child<QAction>(*again, "mnuNumLock")->isChecked());
        QVERIFY(!child<QWidget>(*again, "fraTeclado")->isVisible());
        QCOMPARE(again->language(), common::Language::English);
        QCOMPARE(child<QMenu>(*again, "mnuFita")->title(), QStringLiteral("Calculation &List"));
        QTest::keyClicks(again.get(), QStringLiteral("250+"));
        QCOMPARE(tape(*again), tapeLine("250", "+"));  // numeral format: no forced decimals
    }

    void colourSchemeIsApplied() {
        auto window = open();
        trigger(*window, "mnuCor3");
        const auto* tapeView = child<app::TapeView>(*window, "txtFita");
        QCOMPARE(tapeView->palette().color(QPalette::Base), QColor(0xC0, 0xFF, 0xC0));
        QCOMPARE(child<QWidget>(*window, "fraTeclado")->palette().color(QPalette::Window),
                 QColor(0xC0, 0xFF, 0xC0));
        QCOMPARE(child<QWidget>(*window, "fraVisor")->palette().color(QPalette::Window),
                 QColor(0x80, 0xFF, 0x80));
        QVERIFY(child<QPushButton>(*window, "chkMais")->styleSheet().contains(QStringLiteral("#80ffff")));
        trigger(*window, "mnuCor1");
        QCOMPARE(tapeView->palette().color(QPalette::Text), QColor(0, 0, 0xFF));  // 0xFF0000 is blue
        QCOMPARE(setting("Cor"), QStringLiteral("1"));
    }

    void clipboardMonitorTakesCopiedNumbers() {
        auto window = open();
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->setText(QStringLiteral("1.234,56"));
        QTRY_COMPARE(tape(*window), tapeLine("1.234,56", "+"));
        clipboard->setText(QStringLiteral("just words"));
        QTest::qWait(20);
        QCOMPARE(tape(*window), tapeLine("1.234,56", "+"));
        // Two columns: each row multiplied, the products added and put back on the clipboard.
        clipboard->setText(QStringLiteral("2\t3\r\n4\t5\r\n"));
        QTRY_COMPARE(window->calculator().total(), 1234.56 + 6 + 20);
        QCOMPARE(clipboard->text(), QStringLiteral("6,00\r\n20,00"));
        clipboard->setText(QStringLiteral("1\t2\t3\n4\t5\t6\n"));
        QTRY_VERIFY(!m_dialogs.messages.isEmpty());
        QCOMPARE(m_dialogs.messages.last(), portuguese(20));
        // Off: copies are left alone.
        trigger(*window, "mnuMonit");
        clipboard->setText(QStringLiteral("99"));
        QTest::qWait(20);
        QCOMPARE(window->calculator().counter(), 3);
    }

    void amountInWordsGoesToTheClipboard() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("1234"));
        trigger(*window, "mnuExtenso");
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QStringLiteral("(UM MIL E DUZENTOS E TRINTA E QUATRO REAIS)"));
        QVERIFY(m_dialogs.messages.last().startsWith(QStringLiteral("$ 1.234,00\n")));
        // The monitor does not take the words back in.
        QCOMPARE(tape(*window), QString());
        QTest::keyClick(window.get(), Qt::Key_Delete);
        trigger(*window, "mnuExtenso");
        QCOMPARE(m_dialogs.messages.last(), portuguese(228));
    }

    void printingToPdfHoldsTheTape() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("12,5*4="));
        m_dialogs.pdfPath = path("tape.pdf");
        trigger(*window, "mnuImprimir1");
        QVERIFY(QFile::exists(m_dialogs.pdfPath));
        QProcess text;
        text.start(QStringLiteral("pdftotext"),
                   {QStringLiteral("-layout"), m_dialogs.pdfPath, QStringLiteral("-")});
        QVERIFY(text.waitForFinished(10000));
        const QString printed = QString::fromUtf8(text.readAllStandardOutput());
        QVERIFY2(printed.contains(QStringLiteral("12,50 \u00D7")), qPrintable(printed));
        QVERIFY(printed.contains(QStringLiteral("50,00 T")));
        QVERIFY(m_dialogs.messages.isEmpty());
    }

    void tapeCommandsFindSaveAndEdit() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("10+20+"));
        m_dialogs.answers = {QStringLiteral("20,00"), QStringLiteral("nada")};
        trigger(*window, "mnuLocalizar");
        QCOMPARE(child<app::TapeView>(*window, "txtFita")->textCursor().selectedText(),
                 QStringLiteral("20,00"));
        trigger(*window, "mnuLocalizar");
        QCOMPARE(m_dialogs.messages.last(), QStringLiteral("Fim da procura"));

        m_dialogs.saveAs = path("saved.txt");
        trigger(*window, "mnuSalvar");
        QCOMPARE(fileText(m_dialogs.saveAs), tape(*window));
        QCOMPARE(setting("UltimoArq"), QStringLiteral("saved.txt"));

        // Editing waits until the running total is struck.
        trigger(*window, "mnuEditar");
        QCOMPARE(m_dialogs.messages.last(), portuguese(12));
        QVERIFY(!child<QAction>(*window, "mnuEditar")->isChecked());
        QTest::keyClick(window.get(), Qt::Key_Return);
        trigger(*window, "mnuEditar");
        auto* view = child<app::TapeView>(*window, "txtFita");
        QVERIFY(view->editing());
        view->setPlainText(
            QString(view->toPlainText()).replace(QStringLiteral("   10,00 +"), QStringLiteral("   15,00 +")));
        trigger(*window, "mnuEditar");
        QVERIFY(!view->editing());
        QCOMPARE(window->calculator().total(), 35.0);
        QVERIFY(tape(*window).startsWith(tapeLine("15,00", "+")));
    }

    void rollPrinterRefusesUnknownPortsAndReportsDeadOnes() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("5+"));
        m_dialogs.answers = {QStringLiteral("LPT3")};
        trigger(*window, "mnuMatricial");
        QVERIFY(m_dialogs.messages.isEmpty());
        QCOMPARE(setting("Porta"), QStringLiteral("(none)"));
        m_dialogs.answers = {QStringLiteral("com4")};
        trigger(*window, "mnuMatricial");
        QCOMPARE(setting("Porta"), QStringLiteral("COM4"));
        QCOMPARE(m_dialogs.prompts.last(), portuguese(176));
        QVERIFY(!m_dialogs.messages.isEmpty());  // written, or a clear message about the port
    }

    void escapeClosesAndTheTapeSurvives() {
        {
            auto window = open();
            QTest::keyClicks(window.get(), QStringLiteral("7+8+"));
            QTest::keyClick(window.get(), Qt::Key_Escape);
            QVERIFY(!window->isVisible());
        }
        auto again = open();
        QCOMPARE(tape(*again), tapeLine("7,00", "+") + tapeLine("8,00", "+"));
        QCOMPARE(again->calculator().total(), 15.0);
    }
};

QTEST_MAIN(FrmCalculaTest)
#include "frm_calcula_test.moc"
