// The calculator window driven as a user drives it: keys, buttons and menu commands.
#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QtTest>

#include "app/calc/backup_viewer.h"
#include "app/calc/frm_calcula.h"
#include "app/calc/tape_view.h"
#include "app/window_services.h"
#include "fakes/fake_midi_out.h"
#include "fakes/sample_text.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
namespace txt = common::txt;

class FrmCalculaTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    fakes::FakeSynth m_synth;
    int m_beeps = 0;
    std::unique_ptr<app::FrmCalcula> m_w;

    void open() {
        app::CalcWindowContext context;
        context.makeMidi = [this] { return m_synth.make(); };
        context.beep = [this] { ++m_beeps; };
        m_w = std::make_unique<app::FrmCalcula>(m_s->context(), std::move(context));
        m_w->show();
    }
    void type(const QString& keys) { QTest::keyClicks(m_w.get(), keys); }
    void trigger(const char* name) { child<QAction>(*m_w, name)->trigger(); }
    void click(const char* name) { QTest::mouseClick(child<QWidget>(*m_w, name), Qt::LeftButton); }
    QString label(const char* name) const { return child<QLabel>(*m_w, name)->text(); }
    QString tape() const { return QString::fromStdString(m_w->calculator().tape().text()); }
    static QString line(const char* a, const char* s) {
        return QString::fromStdString(fakes::tapeLine(a, s));
    }
    QString setting(const char* key) const {
        return QString::fromStdString(m_s->store.read("Configura", key).value_or("(none)"));
    }
    QStringList& messages() { return m_s->dialogs.messages; }
    static QString fileText(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"(unreadable)"_s;
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_synth = fakes::FakeSynth{};
        m_beeps = 0;
        open();
    }
    void cleanup() { m_w.reset(); }

    void soundThatCannotStartCostsNoKey() {
        m_w.reset();
        m_synth.opens = false;
        open();
        type(u"12+"_s);
        QTRY_VERIFY(child<QLabel>(*m_w, "lblAviso")->isVisible());
        QCOMPARE(m_beeps, 1);  // for the keys held while the synthesizer was tried
        type(u"3+"_s);
        QCOMPARE(tape(), line("12,00", "+") + line("3,00", "+"));
        QCOMPARE(messages(), QStringList());
        QCOMPARE(label("lblAviso"), pt(txt::kMidiError));
        QCOMPARE(m_beeps, 3);
        // Dismissed, it stays away while the keys go on beeping.
        click("cmdFecharAviso");
        type(u"4"_s);
        QVERIFY(!child<QLabel>(*m_w, "lblAviso")->isVisible());
        QCOMPARE(m_beeps, 4);
    }

    void keysMakeTapeLinesAndTotals() {
        type(u"250+1234,5-3*"_s);
        QTest::keyClick(m_w.get(), Qt::Key_Return);
        QCOMPARE(tape(), line("250,00", "+") + line("1.234,50", "-") + line("3,00", "=") +
                             line("1.481,50", "T") + QString::fromStdString(fakes::kStrikeLine));
        QCOMPARE(label("lblTotal"), u"1.481,50"_s);
        QCOMPARE(child<QLabel>(*m_w, "lblTotal")->property("tag").toString(), u"T"_s);
        QCOMPARE(label("lblVisor1"), u"003"_s);
        QCOMPARE(child<app::TapeView>(*m_w, "txtFita")->toPlainText() + u"\n"_s, tape().remove(u'\r'));
        QCOMPARE(fileText(m_s->data.filePath(u"calc.fita"_s)), tape());
    }

    void keypadButtonsTypeAndPlayTheirNotes() {
        // The first key opens the synthesizer and sounds when it is ready.
        click("chkNum7");
        QTRY_COMPARE(m_synth.notes, std::vector<int>{'7' + 36});
        for (const char* button : {"chkVirgula", "chkNum5", "chkNeg", "chkVezes"}) {
            click(button);
        }
        QCOMPARE(tape(), line("-7,50", "\u00D7"));
        QCOMPARE(m_synth.notes, (std::vector<int>{'7' + 36, ',' + 36, '5' + 36, '*' + 36}));
        QCOMPARE(m_beeps, 0);
        QVERIFY(!child<QLabel>(*m_w, "lblAviso")->isVisible());
        // With Enter adding, the + key sends Enter, as its note tells.
        trigger("mnuEnter");
        QVERIFY(messages().last().startsWith(u"Voc\u00EA acabou de configurar"_s));
        type(u"2"_s);
        click("chkMais");
        QCOMPARE(m_synth.notes.back(), calc::key::kEnterPlus + 36);
        QCOMPARE(setting("CalcEnter"), u"ok"_s);
        // A number out of range is named and asked for again.
        m_s->dialogs.answers = {u"abc"_s, u"128"_s, u"19"_s};
        trigger("mnuSom");
        QCOMPARE(m_s->dialogs.prompts.size(), 3);
        QCOMPARE(messages().mid(messages().size() - 2), QStringList(2, pt(txt::kInstrumentRange)));
        QCOMPARE(setting("Instrumento"), u"19"_s);
    }

    void undoRedoAndDeleteTwice() {
        type(u"100+50+"_s);
        trigger("mnuUndo");
        QCOMPARE(tape(), line("100,00", "+"));
        QCOMPARE(label("lblVisor0"), u"100,00"_s);
        trigger("mnuRedo");
        type(u"7"_s);
        QTest::keyClick(m_w.get(), Qt::Key_Delete);
        QCOMPARE(label("lblVisor0"), u"0"_s);
        QCOMPARE(tape(), line("100,00", "+") + line("50,00", "+"));
        QTest::keyClick(m_w.get(), Qt::Key_Delete);
        QCOMPARE(tape(), u"21/11/2026 ==============\r\n"_s);
        QVERIFY(fileText(m_s->data.filePath(u"calcula.txt"_s)).contains(u"BKP = 14:05:09 hs."_s));

        // Shown by the desktop, or by the program itself where the desktop has no viewer for it.
        trigger("mnuMostraBack");
        QCOMPARE(m_s->dialogs.opened, QStringList{m_s->data.filePath(u"calcula.txt"_s)});
        m_s->dialogs.desktopOpens = false;
        trigger("mnuMostraBack");
        auto* viewer = m_w->findChild<app::BackupViewer*>();
        QVERIFY(viewer != nullptr && viewer->isVisible());
        child<QLineEdit>(*viewer, "txtProcura")->setText(u"bkp ="_s);
        QVERIFY(viewer->findNext());
        QCOMPARE(child<QPlainTextEdit>(*viewer, "txtBackup")->textCursor().selectedText(), u"BKP ="_s);
        child<QLineEdit>(*viewer, "txtProcura")->setText(u"nada"_s);
        QVERIFY(!viewer->findNext());
        QCOMPARE(child<QLabel>(*viewer, "lblProcura")->text(), pt(txt::kFindEnd));
        viewer->close();
        // A file that cannot be read is named as it is on this machine.
        QFile::remove(m_s->data.filePath(u"calcula.txt"_s));
        QDir(m_s->data.path()).mkdir(u"calcula.txt"_s);
        trigger("mnuMostraBack");
        QCOMPARE(messages().last(),
                 pt(txt::kBackupOpenFailed, m_s->data.filePath(u"calcula.txt"_s).toUtf8().constData()));
    }

    void languageRelabelsEveryMenuItem() {
        const auto items = m_w->findChildren<QObject*>(QRegularExpression(u"^mnu"_s));
        const auto caption = [](const QObject* item) {
            return item->property(qobject_cast<const QMenu*>(item) != nullptr ? "title" : "text").toString();
        };
        QStringList portuguese;
        for (const QObject* item : items) {
            portuguese << caption(item);
        }
        QVERIFY(items.size() >= 58);
        using L = common::Language;
        for (const auto& [command, language] : {std::pair{"mnuEnglish", L::English},
                                                {"mnuSpanish", L::Spanish},
                                                {"mnuPortuguese", L::Portuguese}}) {
            trigger(command);
            // Some text code gives each item both its Portuguese caption and the one it shows now.
            for (qsizetype i = 0; i < items.size(); ++i) {
                bool found = false;
                for (int code = 1; code < 1000 && !found; ++code) {
                    found = !portuguese[i].isEmpty() && pt(code) == portuguese[i] &&
                            fakes::text(language, code) == caption(items[i]);
                }
                QVERIFY2(found, qPrintable(items[i]->objectName() + u": "_s + caption(items[i])));
            }
            QCOMPARE(child<QWidget>(*m_w, "chkNeg")->toolTip(), fakes::text(language, txt::kSignTooltip));
        }
    }

    // A wide window keeps the keys their size and the tape's amounts under the display's.
    void aWideWindowKeepsTheKeysAndTheTapeUnderTheDisplay() {
        type(u"100+"_s);
        auto* key = child<QPushButton>(*m_w, "chkNum7");
        QTRY_VERIFY(key->width() > 0);
        const int keyWidth = key->width();
        m_w->resize(900, 900);
        QTRY_COMPARE(m_w->width(), 900);
        QVERIFY2(key->width() <= keyWidth + 2, qPrintable(QString::number(key->width())));
        auto* view = child<app::TapeView>(*m_w, "txtFita");
        const QRect end = view->cellRect(0, static_cast<int>(view->lineText(0).size()));
        const int lineEnd = view->viewport()->mapTo(m_w.get(), end.topLeft()).x();
        auto* display = child<QLabel>(*m_w, "lblVisor0");
        const int displayEnd = display->mapTo(m_w.get(), display->rect().topRight()).x();
        const int slack =
            view->verticalScrollBar()->sizeHint().width() + 4 * view->fontMetrics().averageCharWidth();
        QVERIFY2(std::abs(displayEnd - lineEnd) < slack, qPrintable(u"%1 %2"_s.arg(lineEnd).arg(displayEnd)));
    }

    void largeLettersKeepTheNewestLinesInView() {
        for (int i = 0; i < 120; ++i) {
            type(u"1+"_s);
        }
        auto* bar = child<app::TapeView>(*m_w, "txtFita")->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0 && bar->value() == bar->maximum());
        for (const bool large : {true, false}) {
            const int before = bar->maximum();
            trigger("mnuGrande");
            QTRY_VERIFY(bar->maximum() != before);  // the tape laid out again in the new letters
            QCOMPARE(bar->value(), bar->maximum());
            QCOMPARE(m_w->settings().largeLetters, large);
        }
    }

    void closedWindowComesBackAsItWasLeft() {
        for (const char* command :
             {"mnuGrande", "mnuNumeral2", "mnuCor3", "mnuNumLock", "mnuOcultar", "mnuEnglish"}) {
            trigger(command);
        }
        type(u"7+8+"_s);
        QTest::keyClick(m_w.get(), Qt::Key_Escape);
        QVERIFY(!m_w->isVisible());
        m_w.reset();
        QVERIFY(m_s->store.read("Configura", "CalcHeight").has_value());
        m_s->language.set(common::Language::Portuguese);  // as the program starts
        open();
        for (const char* command : {"mnuGrande", "mnuNumeral2", "mnuCor3"}) {
            QVERIFY(child<QAction>(*m_w, command)->isChecked());
        }
        QVERIFY(!child<QAction>(*m_w, "mnuNumLock")->isChecked());
        QVERIFY(!child<QWidget>(*m_w, "fraTeclado")->isVisible());
        QCOMPARE(child<QMenu>(*m_w, "mnuFita")->title(), u"Calculation &List"_s);
        QCOMPARE(child<QWidget>(*m_w, "fraVisor")->palette().color(QPalette::Window),
                 QColor(0x80, 0xFF, 0x80));
        // Colours are stored blue-green-red: the scheme's 0xFFFF80 is light cyan.
        QVERIFY(child<QWidget>(*m_w, "chkMais")->styleSheet().contains(u"#80ffff"_s));
        QCOMPARE(tape(), line("7", "+") + line("8", "+"));  // numerals: no forced decimals
        auto* picture = child<QLabel>(*m_w, "imgUSA");
        QVERIFY(!picture->isVisible());
        trigger("mnuCor2");
        QVERIFY(picture->isVisible());
        // Its red, white and blue, each over a good part of it.
        const QImage image = picture->pixmap().toImage();
        int red = 0, white = 0, blue = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                red += c.red() > 150 && c.green() < 80 ? 1 : 0;
                white += c.red() > 230 && c.green() > 230 && c.blue() > 230 ? 1 : 0;
                blue += c.blue() > 90 && c.red() < 90 ? 1 : 0;
            }
        }
        const int area = image.width() * image.height();
        QVERIFY2(red > area / 6 && white > area / 6 && blue > area / 10,
                 qPrintable(u"%1 %2 %3 of %4"_s.arg(red).arg(white).arg(blue).arg(area)));
        trigger("mnuCor1");
        QVERIFY(!picture->isVisible());
        // Colours are stored blue-green-red: 0xFF0000 is blue.
        QCOMPARE(child<QWidget>(*m_w, "txtFita")->palette().color(QPalette::Text), QColor(0, 0, 0xFF));
    }

    void clipboardMonitorTakesCopiedNumbers() {
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->setText(u"1.234,56"_s);
        QTRY_COMPARE(tape(), line("1.234,56", "+"));
        clipboard->setText(u"just words"_s);
        // Two columns: each row multiplied, the products added and put back on the clipboard.
        clipboard->setText(u"2\t3\r\n4\t5\r\n"_s);
        QTRY_COMPARE(m_w->calculator().total(), 1234.56 + 6 + 20);
        QCOMPARE(m_w->calculator().counter(), 3);
        QCOMPARE(clipboard->text(), u"6,00\r\n20,00"_s);
        clipboard->setText(u"1\t2\t3\n4\t5\t6\n"_s);
        QTRY_COMPARE(messages(), QStringList{pt(txt::kInvalidSelection)});
        // Off, copies are left alone.
        trigger("mnuMonit");
        clipboard->setText(u"99"_s);
        trigger("mnuMonit");
        clipboard->setText(u"1"_s);
        QTRY_COMPARE(m_w->calculator().counter(), 4);
        QCOMPARE(m_w->calculator().total(), 1234.56 + 6 + 20 + 1);
    }

    // The tape's copy keys copy the tape, and the monitor does not take that copy as numbers.
    void copyFromTheTapeIsNotTakenByTheMonitor() {
        type(u"10+20+"_s);
        auto* view = child<app::TapeView>(*m_w, "txtFita");
        QClipboard* clipboard = QGuiApplication::clipboard();
        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard->text(), tape().replace(u"\r\n"_s, u"\n"_s).chopped(1));
        view->selectBytes(static_cast<std::size_t>(tape().indexOf(u"20,00"_s)), 5);  // an amount alone
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard->text(), u"20,00"_s);
        clipboard->setText(u"1"_s);
        QTRY_COMPARE(m_w->calculator().counter(), 3);
        QCOMPARE(m_w->calculator().total(), 31.0);
        QCOMPARE(messages(), QStringList());
    }

    void amountInWordsGoesToTheClipboard() {
        type(u"1234"_s);
        trigger("mnuExtenso");
        const QString copied = u"$ 1.234,00 (UM MIL E DUZENTOS E TRINTA E QUATRO REAIS)"_s;
        QCOMPARE(QGuiApplication::clipboard()->text(), copied);
        QVERIFY(messages().last().startsWith(copied + u"\n"_s));
        QTest::keyClick(m_w.get(), Qt::Key_Delete);
        trigger("mnuExtenso");
        QCOMPARE(messages().last(), pt(txt::kWordsInvalid));
    }

    void printingToPdfHoldsTheTape() {
        type(u"12,5*4="_s);
        m_s->dialogs.pdfPath = m_s->data.filePath(u"tape.pdf"_s);
        trigger("mnuImprimir1");
        QProcess text;
        text.start(u"pdftotext"_s, {u"-bbox"_s, m_s->dialogs.pdfPath, u"-"_s});
        QVERIFY(text.waitForFinished(10000));
        const QString words = QString::fromUtf8(text.readAllStandardOutput());
        QVERIFY(words.contains(u">50,00</word>"_s) && words.contains(u">21/11/2026</word>"_s));
        QVERIFY(words.contains(u">Página</word>"_s) && words.contains(u">1</word>"_s));
        // Clear of the paper's edges by 10 mm (28.3 points) at least, wherever the printer allows less.
        for (const auto& m :
             QRegularExpression(u"xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\""_s).globalMatch(words)) {
            QVERIFY(m.captured(1).toDouble() > 28 && m.captured(2).toDouble() > 28);
        }
        QCOMPARE(messages(), QStringList());
    }

    void tapeCommandsFindSaveAndEdit() {
        auto* view = child<app::TapeView>(*m_w, "txtFita");
        type(u"10+20+"_s);
        m_s->dialogs.answers = {u"20,00"_s, u"nada"_s};
        trigger("mnuLocalizar");
        QCOMPARE(view->selectedText(), u"20,00"_s);
        trigger("mnuLocalizar");
        QCOMPARE(messages().last(), pt(txt::kFindEnd));

        m_s->dialogs.saveAs = m_s->data.filePath(u"saved.txt"_s);
        trigger("mnuSalvar");
        QCOMPARE(fileText(m_s->dialogs.saveAs), tape());
        QCOMPARE(setting("UltimoArq"), u"saved.txt"_s);

        // Editing waits until the running total is struck.
        trigger("mnuEditar");
        QCOMPARE(messages().last(), pt(txt::kEditWhileCalculating));
        QTest::keyClick(m_w.get(), Qt::Key_Return);
        trigger("mnuEditar");
        const QString before = tape();
        view->editor()->setPlainText(
            view->toPlainText().replace(u"   10,00 +"_s, u"   1O,00 +"_s));  // a letter O
        trigger("mnuEditar");
        QVERIFY(view->editing());  // pointed out, nothing taken
        QCOMPARE(view->selectedText(), u"                   1O,00 +"_s);
        QCOMPARE(messages().last(), pt(txt::kEditNotAmount));
        QCOMPARE(tape(), before);
        view->editor()->setPlainText(view->toPlainText().replace(u"1O,00 +"_s, u"15 +"_s));
        trigger("mnuEditar");
        QVERIFY(!view->editing());
        QCOMPARE(m_w->calculator().total(), 35.0);
        QVERIFY(tape().contains(u"                      15 +\r\n"_s) && tape().contains(u"   35,00 T\r\n"_s));
        QCOMPARE(view->toPlainText() + u"\n"_s, QString(tape()).replace(u"\r\n"_s, u"\n"_s));
        QCOMPARE(fileText(m_s->data.filePath(u"calc.fita"_s)), tape());
        trigger("mnuUndo");
        QCOMPARE(tape(), before);
        QCOMPARE(fileText(m_s->data.filePath(u"calc.fita"_s)), before);
    }

    void rollPrinterTakesOnlyKnownPorts() {
        type(u"5+"_s);
        m_s->dialogs.answers = {u"LPT3"_s};
        trigger("mnuMatricial");
        QCOMPARE(setting("Porta"), u"(none)"_s);
        m_s->dialogs.answers = {u"com4"_s};
        trigger("mnuMatricial");
        QCOMPARE(setting("Porta"), u"COM4"_s);
        QCOMPARE(m_s->dialogs.prompts.last(), pt(txt::kPortPrompt));
        QCOMPARE(messages().size(), 1);  // written, or a clear message about the port
    }
};

QTEST_MAIN(FrmCalculaTest)
#include "frm_calcula_test.moc"
