// The cheque window opened from the calculator's menu and driven as a user drives it: moving the
// fields and keeping them, the close question, the payee list, and the printed page read back.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/documents/frm_cheque.h"
#include "app/documents/frm_promissoria.h"
#include "app/pdf_words.h"
#include "app/window_services.h"
#include "core/documents/amount_words.h"
#include "fakes/qt_scoped_trace.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
using Answer = app::Dialogs::Answer;
namespace txt = common::txt;

namespace {

// Points per layout unit (1/96 inch), and the letters' pitch: 10 points of Courier's metrics.
constexpr qreal kPt = 72.0 / 96.0;
constexpr qreal kPitch = 8;

}  // namespace

class FrmChequeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    QPointer<app::FrmCheque> m_w;

    // The amount typed on the calculator, then the menu item.
    app::FrmCheque* open(const QString& amount = u"1234,56"_s) {
        QTest::keyClick(m_calc.get(), Qt::Key_Delete);
        QTest::keyClicks(m_calc.get(), amount);
        child<QAction>(*m_calc, "mnuCheque")->trigger();
        m_w = m_calc->findChild<app::FrmCheque*>();
        if (m_w != nullptr && !QTest::qWaitForWindowExposed(m_w)) {
            return nullptr;
        }
        return m_w;
    }
    QLineEdit* field(const char* name) const { return child<QLineEdit>(*m_w, name); }
    void click(const char* button) { QTest::mouseClick(child<QPushButton>(*m_w, button), Qt::LeftButton); }
    // Presses the left button on `from` and moves the cursor by `by` screen pixels in two steps;
    // the events keep going to `from` as it moves under the cursor.
    static void drag(QWidget* from, QPoint start, QPoint by) {
        const QPoint origin = from->mapToGlobal(start);
        QTest::mousePress(from, Qt::LeftButton, {}, start);
        QTest::mouseMove(from, from->mapFromGlobal(origin + QPoint(by.x() / 2, by.y() / 2)));
        QTest::mouseMove(from, from->mapFromGlobal(origin + by));
        QTest::mouseRelease(from, Qt::LeftButton, {}, from->mapFromGlobal(origin + by));
    }
    std::string setting(const std::string& section, const char* key) const {
        return m_s->store.read(section, key).value_or("(none)");
    }
    void close() {
        m_w->close();
        QTRY_VERIFY(m_w.isNull());
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_calc = std::make_unique<app::FrmCalcula>(m_s->context(), app::CalcWindowContext{});
        m_calc->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_calc.get()));
    }
    void cleanup() {
        m_calc.reset();
        QTRY_VERIFY(m_w.isNull());
    }

    void menuOpensNoDocumentWithoutAnAmountInRange() {
        struct Case {
            const char* label;
            QString typed;
            const char* menu;
        };
        const Case cases[] = {
            {"nothing typed, cheque", u""_s, "mnuCheque"},
            {"nothing typed, note", u""_s, "mnuPromissoria"},
            {"a trillion, cheque", u"1000000000000"_s, "mnuCheque"},
            {"half a cent, note", u"0,004"_s, "mnuPromissoria"},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(c.label);
            m_s->dialogs.messages.clear();
            QTest::keyClick(m_calc.get(), Qt::Key_Delete);
            QTest::keyClick(m_calc.get(), Qt::Key_Delete);
            QTest::keyClicks(m_calc.get(), c.typed);
            child<QAction>(*m_calc, c.menu)->trigger();
            QVERIFY2(m_calc->findChild<app::FrmDocumento*>() == nullptr, c.label);
            QCOMPARE(m_s->dialogs.messages,
                     QStringList{pt(txt::kAmountOutOfRange, "0,01", "999999999999,99")});
        }
    }

    void menuFillsTheAmountAndItsWordsOverTwoLines() {
        QVERIFY(open(u"1234,56"_s));
        QVERIFY(m_w->isModal());
        QCOMPARE(field("txtValor")->text(), u"***1.234,56 "_s);
        QCOMPARE(field("txtExtenso1")->text(),
                 u"(UM MIL E DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA E SEIS "_s +
                     QString::fromLatin1(documents::kFill1.data(), 69));
        QCOMPARE(field("txtExtenso2")->text(),
                 u"CENTAVOS)"_s + QString::fromLatin1(documents::kFill2.data(), 74));
        QCOMPARE(field("txtDia")->text(), u"21"_s);
        QCOMPARE(field("txtMês")->text(), u"NOVEMBRO"_s);
        QCOMPARE(field("txtAno")->text(), u"26"_s);
        QTest::mouseClick(child<QCheckBox>(*m_w, "chkAno"), Qt::LeftButton);
        QCOMPARE(field("txtAno")->text(), u"2026"_s);
        QVERIFY(child<QPushButton>(*m_w, "cmdSalvar")->isEnabled());  // the year's format is the layout's
    }

    void fieldDraggedInMoveModeIsSavedAndFoundThereOnReopening() {
        QVERIFY(open());
        QLineEdit* valor = field("txtValor");
        const QPoint before = valor->pos();
        drag(valor, QPoint(5, 5), QPoint(30, 12));
        QCOMPARE(valor->pos(), before);  // nothing moves outside the move mode
        QVERIFY(!child<QPushButton>(*m_w, "cmdSalvar")->isEnabled());

        child<QCheckBox>(*m_w, "Check2")->setChecked(true);
        QVERIFY(child<QLabel>(*m_w, "lblLocal")->isVisible());
        QVERIFY(!child<QLabel>(*m_w, "lblAviso")->isVisible());
        drag(valor, QPoint(5, 5), QPoint(30, 12));
        QCOMPARE(valor->pos(), before + QPoint(30, 12));
        QCOMPARE(child<QLabel>(*m_w, "lblLocal")->text(), u" Posição:  484 / 022"_s);
        // The date stays on the city's line: moving the city down takes it along.
        drag(field("txtCidade"), QPoint(5, 5), QPoint(0, 10));
        QCOMPARE(field("txtDia")->y(), field("txtCidade")->y());

        m_s->dialogs.answers << u"  banco do povo "_s;
        click("cmdSalvar");
        QCOMPARE(m_s->dialogs.prompts, QStringList{pt(txt::kChequeModelPrompt)});
        QVERIFY(!child<QCheckBox>(*m_w, "Check2")->isChecked());
        QVERIFY(!child<QPushButton>(*m_w, "cmdSalvar")->isEnabled());
        QCOMPARE(setting("Cheque", "lblValorL"), "484");
        QCOMPARE(setting("Cheque", "lblValorT"), "22");
        QCOMPARE(setting("Cheque", "txtCidadeT"), "122");
        QCOMPARE(setting("Cheque", "Banco"), "BANCO DO POVO");
        close();

        QVERIFY(open());
        QCOMPARE(field("txtValor")->pos(), before + QPoint(30, 12));
        QCOMPARE(field("txtDia")->y(), field("txtCidade")->y());
        QCOMPARE(child<QComboBox>(*m_w, "cbModelo")->currentText(), u"BANCO DO POVO"_s);
        QVERIFY(m_s->dialogs.messages.isEmpty());  // nothing was left to ask about
    }

    void sweptFieldsAreHighlightedAndDoNotMoveOnTheirOwn() {
        QVERIFY(open());
        child<QCheckBox>(*m_w, "Check2")->setChecked(true);
        QLineEdit* cidade = field("txtCidade");
        QWidget* paper = cidade->parentWidget();
        // From the empty paper left of the city, across it.
        const QPoint start(cidade->x() - 20, cidade->y() + 4);
        QTest::mousePress(paper, Qt::LeftButton, {}, start);
        QTest::mouseMove(paper, start + QPoint(30, 0));
        QTest::mouseMove(paper, start + QPoint(40, 0));
        QTest::mouseRelease(paper, Qt::LeftButton, {}, start + QPoint(40, 0));
        QCOMPARE(cidade->palette().color(QPalette::Base), QColor(192, 255, 255));
        const int picked = cidade->x();
        QCOMPARE(picked, 262 + 10);  // it travelled with the sweep once picked up

        drag(cidade, QPoint(5, 5), QPoint(25, 0));
        QCOMPARE(cidade->x(), picked);
        child<QCheckBox>(*m_w, "Check2")->setChecked(false);
        QCOMPARE(cidade->palette().color(QPalette::Base), QColor(Qt::white));
    }

    void closingWithMovedFieldsAsksWhetherToSave() {
        struct Case {
            const char* label;
            Answer reply;
            QStringList answers;
            const char* saved;
        };
        const Case cases[] = {
            {"no keeps the model as it was", Answer::No, {}, "(none)"},
            {"yes saves under the name given", Answer::Yes, {u"caixa"_s}, "CAIXA"},
            {"yes with a blank name saves nothing", Answer::Yes, {u"  "_s}, "(none)"},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(c.label);
            m_s->store.values.clear();
            m_s->dialogs.messages.clear();
            m_s->dialogs.defaults.clear();
            QVERIFY(open());
            child<QCheckBox>(*m_w, "Check2")->setChecked(true);
            drag(field("txtFavorecido"), QPoint(5, 5), QPoint(10, 0));
            m_s->dialogs.reply = c.reply;
            m_s->dialogs.answers = c.answers;
            close();
            QCOMPARE(m_s->dialogs.messages.value(0), pt(txt::kSaveChangesQuestion, "Modelo 1"));
            QVERIFY(m_s->dialogs.defaults.value(0, Answer::Yes) == Answer::No);  // Enter keeps the model
            QCOMPARE(setting("Cheque", "Banco"), c.saved);
            QCOMPARE(setting("Cheque", "txtFavorecidoL"), std::string(c.saved) == "(none)" ? "(none)" : "28");
            if (c.answers.value(0).trimmed().isEmpty() && c.reply == Answer::Yes) {
                QCOMPARE(m_s->dialogs.messages.value(1), pt(txt::kChangesCancelled));
            }
            QVERIFY(m_s->store.read("Cheque", "Width").has_value());  // the size is kept either way
        }
    }

    void printedPageHasEveryFieldAtItsLayoutPositionLifeSize() {
        QVERIFY(open(u"1234,56"_s));
        field("txtFavorecido")->setText(u"  josé da silva "_s);
        field("txtCidade")->setText(u"curitiba"_s);
        child<QComboBox>(*m_w, "lstCopias")->setCurrentIndex(1);
        const QTemporaryDir dir;
        m_s->dialogs.pdfPath = dir.filePath(u"cheque.pdf"_s);
        app::PrintedDocument shown = m_w->shownDocument();
        // Payee and city are printed in upper case, without the blanks around.
        shown.fields[3].text = "JOSÉ DA SILVA";
        shown.fields[4].text = "CURITIBA";
        click("cmdImprimir");
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kSentToPrinter)});
        QTRY_VERIFY(m_w.isNull());  // printing closes the window

        QCOMPARE(fakes::pdfPages(m_s->dialogs.pdfPath), 2);  // the second entry of the list: two copies
        const std::vector<fakes::PdfWord> words = fakes::pdfWords(m_s->dialogs.pdfPath);
        for (const documents::FilledField& f : shown.fields) {
            const QString text = QString::fromStdString(f.text);
            SCOPED_TRACE(f.control.data());
            // What fits in the field, in whole letters: the star fills run out at its right end.
            const QString fitting = text.left(static_cast<qsizetype>(f.width / kPitch));
            int offset = 0;
            for (const QString& token : fitting.split(u' ')) {
                if (!token.isEmpty()) {
                    const auto found = std::ranges::find_if(words, [&](const fakes::PdfWord& w) {
                        return w.page == 1 && w.text == token &&
                               qAbs(w.box.left() - (f.left + offset * kPitch) * kPt) < 1.5 &&
                               qAbs(w.box.top() - f.top * kPt) < 1.5;
                    });
                    QVERIFY2(found != words.end(), qPrintable(u"%1 at letter %2"_s.arg(token).arg(offset)));
                }
                offset += static_cast<int>(token.size()) + 1;
            }
        }
        // Nothing on the page outside the fields: a text longer than its field stops at its end.
        for (const fakes::PdfWord& w : words) {
            const bool inside = std::ranges::any_of(shown.fields, [&](const documents::FilledField& f) {
                return qAbs(w.box.top() - f.top * kPt) < 1.5 && w.box.left() >= f.left * kPt - 1 &&
                       w.box.right() <= (f.left + f.width) * kPt + 1;
            });
            QVERIFY2(inside, qPrintable(u"%1 at %2, %3"_s.arg(w.text).arg(w.box.left()).arg(w.box.top())));
        }
        QFile payees(m_s->data.filePath(u"favorecidos.txt"_s));
        QVERIFY(payees.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(payees.readAll()), u"JOSÉ DA SILVA\r\n"_s);
        QCOMPARE(setting("Cheque", "Favorecido"), "JOSÉ DA SILVA");
        QCOMPARE(setting("Cheque", "Cidade"), "CURITIBA");
    }

    void printingGoesToTheDocumentsPrinterOrTheDefault() {
        struct Case {
            const char* label;
            const char* impDispo;
            QString printer;
        };
        const Case cases[] = {
            {"the named printer", "Cheques", u"Cheques"_s},
            {"nothing saved: the default", "", u""_s},
            {"a stale name: the default", "Removida", u""_s},
        };
        QVERIFY(open());
        m_w->setPrinterList([] {
            return std::vector<documents::PrinterInfo>{{"Laser", "usb://1"}, {"Cheques", "lpt1"}};
        });
        for (const Case& c : cases) {
            SCOPED_TRACE(c.label);
            m_s->store.write("Configura", "ImpDispo", c.impDispo);
            QCOMPARE(m_w->chosenPrinter(), c.printer);
        }
    }

    void printerFailureIsToldAndKeepsEverything() {
        QVERIFY(open());
        field("txtFavorecido")->setText(u"MARIA"_s);
        m_s->dialogs.pdfPath = u"/no/such/folder/x.pdf"_s;
        click("cmdImprimir");
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kPrinterFailed)});
        QVERIFY(!m_w.isNull() && m_w->isVisible());
        QCOMPARE(field("txtFavorecido")->text(), u"MARIA"_s);
        QVERIFY(!QFile::exists(m_s->data.filePath(u"favorecidos.txt"_s)));
    }

    void payeeListFillsThePayeeAndDeleteTellsWhereTheFileIs() {
        QFile file(m_s->data.filePath(u"favorecidos.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("ACME LTDA\r\nJOÃO\r\n");
        file.close();
        QVERIFY(open());
        auto* list = child<QListWidget>(*m_w, "lstFavorecido");
        QCOMPARE(list->count(), 2);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        QCOMPARE(field("txtFavorecido")->text(), u"JOÃO"_s);
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(
            m_s->dialogs.messages,
            QStringList{pt(txt::kPayeeDeleteHint,
                           qPrintable(QDir::toNativeSeparators(m_s->data.filePath(u"favorecidos.txt"_s))))});
        QCOMPARE(list->count(), 2);
    }

    void layoutsBackupAsksUnderItsTitleAndWritesTheFile() {
        QVERIFY(open());
        m_s->dialogs.saveAs = m_s->data.filePath(u"BackupCheques.reg"_s);
        click("cmdBackup");
        QCOMPARE(m_s->dialogs.saveTitles, QStringList{pt(txt::kBackupDialogTitle)});
        QFile backup(m_s->dialogs.saveAs);
        QVERIFY(backup.open(QIODevice::ReadOnly));
        QVERIFY(backup.readAll().startsWith("REGEDIT4\r\n"));
    }

    void enterMovesToTheNextFieldAndEscapeCloses() {
        QVERIFY(open());
        field("txtFavorecido")->setFocus();
        QTest::keyClick(field("txtFavorecido"), Qt::Key_Return);
        QVERIFY(!field("txtFavorecido")->hasFocus());
        QVERIFY(m_w->focusWidget() != nullptr);
        QTest::keyClick(m_w->focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(m_w.isNull());
    }
};

QTEST_MAIN(FrmChequeTest)
#include "frm_cheque_test.moc"
