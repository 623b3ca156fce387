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
#include <deque>

#include "calc/frm_calcula.h"
#include "calc/tape_view.h"
#include "common/dialogs.h"
#include "common/qsettings_store.h"
#include "common/text_table.h"
#include "fakes/fake_clock.h"

using namespace zv;

namespace {

// Answers for the user and records what the window said.
class ScriptedDialogs final : public app::Dialogs {
public:
    void message(QWidget*, Icon, const QString& text) override { messages << text; }
    bool question(QWidget*, const QString& text) override {
        messages << text;
        return false;
    }
    std::optional<QString> ask(QWidget*, const QString&, const QString& prompt, const QString&) override {
        prompts << prompt;
        if (answers.empty()) {
            return std::nullopt;
        }
        QString answer = answers.front();
        answers.pop_front();
        return answer;
    }
    QString saveFileName(QWidget*, const QString&, const QString&) override { return saveAs; }
    bool print(QWidget*, QPrinter& printer, const std::function<bool(QPrinter&)>& paint) override {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath);
        return paint(printer);
    }
    bool openUrl(const QString& url) override {
        opened << url;
        return true;
    }

    QStringList messages;
    QStringList prompts;
    QStringList opened;
    std::deque<QString> answers;
    QString saveAs;
    QString pdfPath;
};

QString tapeLine(const QString& amount, const QString& symbol) {
    return amount.rightJustified(24, QLatin1Char(' ')) + QLatin1Char(' ') + symbol + QStringLiteral("\r\n");
}

}  // namespace

class FrmCalculaTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<app::FrmCalcula> open() {
        app::CalcWindowContext context;
        context.store = m_store.get();
        context.dataFolder = m_dir->filePath(QStringLiteral("data")).toStdString();
        context.regional = common::Regional{};  // Brazilian separators, Portuguese
        context.clock = &m_clock;
        context.dialogs = &m_dialogs;
        auto window = std::make_unique<app::FrmCalcula>(std::move(context));
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

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<app::QSettingsStore> m_store;
    fakes::FakeClock m_clock;
    ScriptedDialogs m_dialogs;

private slots:
    void init() {
        m_dir = std::make_unique<QTemporaryDir>();
        QDir(m_dir->path()).mkpath(QStringLiteral("data"));
        m_store = std::make_unique<app::QSettingsStore>(m_dir->filePath(QStringLiteral("Quorvati.ini")));
        // Quiet keys: no sound device here.
        m_store->write("Configura", "Sons", "1");
        m_dialogs = ScriptedDialogs{};
    }

    void keysMakeTapeLinesAndTotals() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("250+1234,5-3*"));
        QTest::keyClick(window.get(), Qt::Key_Return);
        QCOMPARE(tape(*window), tapeLine("250,00", "+") + tapeLine("1.234,50", "-") + tapeLine("3,00", "=") +
                                    tapeLine("1.481,50", "T") +
                                    QStringLiteral(" =========================\r\n"));
        QCOMPARE(child<QLabel>(*window, "lblTotal")->text(), QStringLiteral("1.481,50"));
        QCOMPARE(child<QLabel>(*window, "lblTotal")->property("tag").toString(), QStringLiteral("T"));
        QCOMPARE(child<QLabel>(*window, "lblVisor1")->text(), QStringLiteral("003"));
        // The view shows the same lines, and the file holds them already.
        QCOMPARE(child<app::TapeView>(*window, "txtFita")->toPlainText() + QStringLiteral("\n"),
                 QString(tape(*window)).remove(QLatin1Char('\r')));
        QFile file(m_dir->filePath(QStringLiteral("data/calc.fita")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()), tape(*window));
    }

    void keypadButtonsAndEnterPopup() {
        auto window = open();
        QTest::mouseClick(child<QPushButton>(*window, "chkNum7"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(*window, "chkVirgula"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(*window, "chkNum5"), Qt::LeftButton);
        QCOMPARE(child<QLabel>(*window, "lblVisor0")->text(), QStringLiteral("7,5"));
        QTest::mouseClick(child<QPushButton>(*window, "chkNeg"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(*window, "chkVezes"), Qt::LeftButton);
        QCOMPARE(tape(*window), tapeLine("-7,50", "\u00D7"));
        // With Enter adding, the + key sends Enter.
        trigger(*window, "mnuEnter");
        QVERIFY(m_dialogs.messages.last().startsWith(QStringLiteral("Voc\u00EA acabou de configurar")));
        QTest::keyClicks(window.get(), QStringLiteral("2"));
        QTest::mouseClick(child<QPushButton>(*window, "chkMais"), Qt::LeftButton);
        QCOMPARE(window->calculator().total(), -15.0);
        QCOMPARE(m_store->read("Configura", "CalcEnter"), std::optional<std::string>("ok"));
    }

    void undoRedoAndDeleteTwice() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("100+50+"));
        trigger(*window, "mnuUndo");
        QCOMPARE(tape(*window), tapeLine("100,00", "+"));
        QCOMPARE(child<QLabel>(*window, "lblVisor0")->text(), QStringLiteral("100,00"));
        QVERIFY(child<QAction>(*window, "mnuRedo")->isEnabled());
        trigger(*window, "mnuRedo");
        QCOMPARE(tape(*window), tapeLine("100,00", "+") + tapeLine("50,00", "+"));
        QTest::keyClicks(window.get(), QStringLiteral("7"));
        QTest::keyClick(window.get(), Qt::Key_Delete);
        QCOMPARE(child<QLabel>(*window, "lblVisor0")->text(), QStringLiteral("0"));
        QCOMPARE(tape(*window), tapeLine("100,00", "+") + tapeLine("50,00", "+"));
        QTest::keyClick(window.get(), Qt::Key_Delete);
        QCOMPARE(tape(*window), QStringLiteral("21/11/2026 ==============\r\n"));
        QFile backup(m_dir->filePath(QStringLiteral("data/calcula.txt")));
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QVERIFY(backup.readAll().contains("BKP = 14:05:09 hs."));
    }

    void languageRelabelsEveryMenuItem() {
        auto window = open();
        const std::pair<const char*, int> captions[] = {
            {"mnuOutra", 89},      {"mnuWindows", 90},     {"mnuData", 91},       {"mnuTempo", 92},
            {"mnuJuro", 93},       {"mnuRegra", 177},      {"mnuCopiar", 94},     {"mnuUndo", 217},
            {"mnuRedo", 219},      {"mnuExtenso", 220},    {"mnuCheque", 221},    {"mnuPromissoria", 222},
            {"mnuConverte", 223},  {"mnuUtil", 224},       {"mnuEditar", 97},     {"mnuLocalizar", 98},
            {"mnuAgrupar", 174},   {"mnuLimpar", 99},      {"mnuBackup", 170},    {"mnuMostraBack", 169},
            {"mnuImprimir0", 100}, {"mnuImprimir1", 101},  {"mnuImprimir2", 102}, {"mnuMatricial", 175},
            {"mnuSalvar", 225},    {"mnuOcultar", 104},    {"mnuFicar", 105},     {"mnuMonit", 106},
            {"mnuVisivel", 107},   {"mnuGrande", 214},     {"mnuNumLock", 216},   {"mnuNumeral0", 109},
            {"mnuNumeral1", 110},  {"mnuNumeral2", 111},   {"mnuCor1", 113},      {"mnuCor2", 114},
            {"mnuCor3", 115},      {"mnuCor4", 116},       {"mnuSemSom", 118},    {"mnuBeep", 119},
            {"mnuSom", 120},       {"mnuPortuguese", 233}, {"mnuEnglish", 234},   {"mnuSpanish", 235},
            {"mnuXP", 226},        {"mnuEnter", 123},      {"mnuIgual", 124},     {"mnuCalc", 126},
            {"mnuEmail", 128},
        };
        const std::pair<const char*, int> menus[] = {
            {"mnuOpcoes", 88},   {"mnuFita", 96},     {"mnuForm", 103},
            {"mnuNumeral", 108}, {"mnuEsquema", 112}, {"mnuSomEscolher", 117},
            {"mnuIdioma", 121},  {"mnu4", 122},       {"mnuAjuda", 125}};
        for (const auto language :
             {common::Language::English, common::Language::Spanish, common::Language::Portuguese}) {
            trigger(*window, language == common::Language::English   ? "mnuEnglish"
                             : language == common::Language::Spanish ? "mnuSpanish"
                                                                     : "mnuPortuguese");
            for (const auto& [name, code] : captions) {
                QCOMPARE(child<QAction>(*window, name)->text(),
                         QString::fromStdString(common::GetText(language, code)));
            }
            for (const auto& [name, code] : menus) {
                QCOMPARE(child<QMenu>(*window, name)->title(),
                         QString::fromStdString(common::GetText(language, code)));
            }
            QCOMPARE(child<QPushButton>(*window, "chkNeg")->toolTip(),
                     QString::fromStdString(common::GetText(language, common::txt::kSignTooltip)));
        }
        QCOMPARE(child<QAction>(*window, "mnuEnglish")->text(), QStringLiteral("&English"));
        QCOMPARE(m_store->read("Configura", "Idiomas2"), std::optional<std::string>("1"));
    }

    void optionsAreStoredAndReadBack() {
        {
            auto window = open();
            trigger(*window, "mnuGrande");
            trigger(*window, "mnuNumeral2");
            trigger(*window, "mnuCor3");
            trigger(*window, "mnuNumLock");
            trigger(*window, "mnuOcultar");
            trigger(*window, "mnuEnglish");
            window->close();
        }
        QSettings file(m_dir->filePath(QStringLiteral("Quorvati.ini")), QSettings::IniFormat);
        QCOMPARE(file.value(QStringLiteral("Configura/Letrona")).toString(), QStringLiteral("True"));
        QCOMPARE(file.value(QStringLiteral("Configura/Formato")).toString(), QStringLiteral("2"));
        QCOMPARE(file.value(QStringLiteral("Configura/Cor")).toString(), QStringLiteral("3"));
        QCOMPARE(file.value(QStringLiteral("Configura/NumLock")).toString(), QStringLiteral("False"));
        QCOMPARE(file.value(QStringLiteral("Configura/Oculte")).toString(), QStringLiteral("True"));
        QVERIFY(file.contains(QStringLiteral("Configura/CalcHeight")));

        auto again = open();
        QVERIFY(child<QAction>(*again, "mnuGrande")->isChecked());
        QVERIFY(child<QAction>(*again, "mnuNumeral2")->isChecked());
        QVERIFY(child<QAction>(*again, "mnuCor3")->isChecked());
        QVERIFY(!child<QAction>(*again, "mnuNumLock")->isChecked());
        QVERIFY(!child<QWidget>(*again, "fraTeclado")->isVisible());
        QCOMPARE(again->language(), common::Language::English);
        QCOMPARE(child<QMenu>(*again, "mnuFita")->title(), QStringLiteral("Calculation &List"));
        QTest::keyClicks(again.get(), QStringLiteral("250+"));
        QCOMPARE(tape(*again), tapeLine("250", "+"));  // numeral format: no forced decimals
    }

    void malformedSettingsKeepTheDesign() {
        m_store->write("Configura", "Formato", "x");
        m_store->write("Configura", "Cor", "9");
        m_store->write("Configura", "Visivel", "perhaps");
        auto window = open();
        QVERIFY(child<QAction>(*window, "mnuNumeral0")->isChecked());
        QVERIFY(child<QAction>(*window, "mnuVisivel")->isChecked());
        for (int i = 1; i <= 4; ++i) {
            QVERIFY(!child<QAction>(*window, QByteArray("mnuCor" + QByteArray::number(i)).constData())
                         ->isChecked());
        }
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
        QCOMPARE(m_store->read("Configura", "Cor"), std::optional<std::string>("1"));
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
        QCOMPARE(m_dialogs.messages.last(),
                 QString::fromStdString(common::GetText(common::Language::Portuguese, 20)));
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
        QCOMPARE(m_dialogs.messages.last(),
                 QString::fromStdString(common::GetText(common::Language::Portuguese, 228)));
    }

    void printingToPdfHoldsTheTape() {
        auto window = open();
        QTest::keyClicks(window.get(), QStringLiteral("12,5*4="));
        m_dialogs.pdfPath = m_dir->filePath(QStringLiteral("tape.pdf"));
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

        m_dialogs.saveAs = m_dir->filePath(QStringLiteral("saved.txt"));
        trigger(*window, "mnuSalvar");
        QFile saved(m_dialogs.saveAs);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(saved.readAll()), tape(*window));
        QCOMPARE(m_store->read("Configura", "UltimoArq"), std::optional<std::string>("saved.txt"));

        // Editing waits until the running total is struck.
        trigger(*window, "mnuEditar");
        QCOMPARE(m_dialogs.messages.last(),
                 QString::fromStdString(common::GetText(common::Language::Portuguese, 12)));
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
        QCOMPARE(m_store->read("Configura", "Porta"), std::nullopt);
        m_dialogs.answers = {QStringLiteral("com4")};
        trigger(*window, "mnuMatricial");
        QCOMPARE(m_store->read("Configura", "Porta"), std::optional<std::string>("COM4"));
        QCOMPARE(m_dialogs.prompts.last(),
                 QString::fromStdString(common::GetText(common::Language::Portuguese, 176)));
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
