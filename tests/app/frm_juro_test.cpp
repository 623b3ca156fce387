// The instalment tool opened from the calculator's menu and driven as a user drives it.
#include <QAction>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStackedBarSeries>
#include <QTableWidget>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/tools/frm_juro.h"
#include "app/tools/frm_plano.h"
#include "app/window_services.h"
#include "core/calc/tape.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;

class FrmJuroTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    app::FrmJuro* m_w = nullptr;

    QLineEdit* field(const char* name) const { return child<QLineEdit>(*m_w, name); }
    QString tape() const { return QString::fromStdString(m_calc->calculator().tape().text()); }
    // The fields of the fixed instalments, typed as the user types them.
    void fill(const QString& initial, const QString& instalment, const QString& count, const QString& days,
              const QString& rate) {
        const std::pair<const char*, QString> fields[] = {{"txtValVista", initial},
                                                          {"txtValPrest", instalment},
                                                          {"txtParcelas", count},
                                                          {"txtDias", days},
                                                          {"txtJuroAp", rate}};
        for (const auto& [name, value] : fields) {
            field(name)->clear();
            QTest::keyClicks(field(name), value);
        }
    }
    // Calculates and waits for the search to end, keeping every value the rate field showed.
    QStringList calculate() {
        QStringList shown;
        const auto watch = connect(field("txtJuroAp"), &QLineEdit::textChanged,
                                   [&shown](const QString& text) { shown << text; });
        child<QPushButton>(*m_w, "cmdCalcular")->click();
        [&] { QTRY_VERIFY_WITH_TIMEOUT(!m_w->searching(), 10000); }();
        disconnect(watch);
        return shown;
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_calc = std::make_unique<app::FrmCalcula>(m_s->context(), app::CalcWindowContext{});
        m_calc->show();
        QTest::keyClicks(m_calc.get(), u"5+"_s);
        // The menu strikes the pending amount first, then opens the window.
        m_w = fakes::openTool<app::FrmJuro>(*m_calc, "mnuJuro");
        QVERIFY(!m_calc->calculator().calculationInProgress());
        QVERIFY(m_w != nullptr && m_w->isVisible());
        QCOMPARE(m_w->windowTitle(), pt(140));
    }
    void cleanup() { m_calc.reset(); }

    void theRateConvergesInItsFieldAndTheResultGoesOnTheTape() {
        fill(u"750,00"_s, u"86,00"_s, u"10"_s, u"30"_s, QString());
        const QString before = tape();
        child<QPushButton>(*m_w, "cmdCalcular")->click();
        // The window answers while the rate is being found.
        QVERIFY(m_w->searching());
        QVERIFY(!child<QPushButton>(*m_w, "cmdCalcular")->isEnabled());
        const QStringList shown = calculate();
        // The spreadsheet's RATE(10; -86; 750) is 2,5690244 %: the search settles on the millionth above.
        QCOMPARE(field("txtJuroAp")->text(), u"2,569025"_s);
        QVERIFY2(shown.size() > 20, qPrintable(shown.join(u' ')));
        QCOMPARE(child<QLabel>(*m_w, "lblJuroTotal")->text(), u"110,00"_s);
        QCOMPARE(field("txtValFinal")->text(), u"860,00"_s);
        const QString block = tape().mid(before.size());
        QVERIFY2(block.startsWith(pt(280) + u"\r\n"_s) && block.contains(pt(156).trimmed()) &&
                     block.contains(u"86,00"_s) && block.endsWith(u" =========================\r\n"_s),
                 qPrintable(block));
        QCOMPARE(m_calc->calculator().total(), 5.0);  // a block never changes the total
        // One Undo takes the whole block back.
        child<QAction>(*m_calc, "mnuUndo")->trigger();
        QCOMPARE(tape(), before);
    }

    void theInstalmentIsFoundToTheCentFromTheRate() {
        // PMT(1 %; 12; -1000) = 88,8488: the last cent at or below it.
        fill(u"1000"_s, QString(), u"12"_s, u"30"_s, u"1"_s);
        calculate();
        QCOMPARE(field("txtValPrest")->text(), u"88,84"_s);
        QCOMPARE(field("txtValFinal")->text(), u"1.066,08"_s);
        // With the first instalment paid on the day the same loan costs less a month.
        child<QCheckBox>(*m_w, "chkVista")->click();
        QCOMPARE(field("txtDias")->text(), u"0"_s);
        field("txtValPrest")->clear();
        calculate();
        // PMT(1 %; 12; -1000; 0; 1) = 87,9691.
        QCOMPARE(field("txtValPrest")->text(), u"87,96"_s);
        QVERIFY(tape().contains(pt(150)));
        child<QCheckBox>(*m_w, "chkVista")->click();
        QCOMPARE(field("txtDias")->text(), u"30"_s);
    }

    void theChecksComeInOrderAndNameTheirField() {
        const struct {
            QStringList fields;  // initial, instalment, count, days, rate
            int code;
            const char* focused;
        } refused[] = {
            {{u""_s, u"10"_s, u"5"_s, u"30"_s, u""_s}, 22, "txtValVista"},
            {{u"100"_s, u"10"_s, u"0"_s, u""_s, u""_s}, 23, "txtParcelas"},
            {{u"100"_s, u"10"_s, u"5"_s, u""_s, u""_s}, 24, "txtDias"},
            {{u"100"_s, u""_s, u"5"_s, u"30"_s, u""_s}, 25, "txtValPrest"},
            {{u"100"_s, u"100"_s, u"5"_s, u"30"_s, u"2"_s}, 26, "txtValPrest"},
            {{u"100"_s, u"x"_s, u"5"_s, u"30"_s, u""_s}, 27, "txtJuroAp"},
            // No rate pays 100 off with a single instalment of 1: the search gives up.
            {{u"100"_s, u"1"_s, u"1"_s, u"30"_s, u""_s}, 28, "txtValPrest"},
        };
        for (const auto& r : refused) {
            fill(r.fields[0], r.fields[1], r.fields[2], r.fields[3], r.fields[4]);
            const QString before = tape();
            m_s->dialogs.messages.clear();
            calculate();
            QVERIFY2(m_s->dialogs.messages == QStringList{pt(r.code)}, qPrintable(QString::number(r.code)));
            QCOMPARE(tape(), before);
            QCOMPARE(QApplication::focusWidget(), field(r.focused));
        }
        // One instalment is a loan too.
        fill(u"100"_s, QString(), u"1"_s, u"30"_s, u"2"_s);
        calculate();
        QCOMPARE(field("txtValPrest")->text(), u"102,00"_s);
    }

    void enterWalksTheFieldsAndTheRateCalculates() {
        field("txtValVista")->setFocus();
        for (const char* next : {"txtValPrest", "txtParcelas", "txtDias", "txtJuroAp"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), field(next));
        }
        // Paid at once, the days are passed by.
        child<QCheckBox>(*m_w, "chkVista")->click();
        field("txtParcelas")->setFocus();
        QTest::keyClick(field("txtParcelas"), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), field("txtJuroAp"));
        // A field reached again is typed over.
        field("txtValVista")->setText(u"750,00"_s);
        field("txtValVista")->setFocus();
        QCoreApplication::processEvents();
        QTest::keyClicks(field("txtValVista"), u"800"_s);
        QCOMPARE(field("txtValVista")->text(), u"800"_s);
        QTest::keyClicks(field("txtJuroAp"), u"2"_s);
        field("txtParcelas")->setText(u"4"_s);
        QTest::keyClick(field("txtJuroAp"), Qt::Key_Return);
        QVERIFY(m_w->searching());
    }

    void closingGivesUpTheSearchAndLeavesTheFormAsTyped() {
        fill(u"750,00"_s, u"86,00"_s, u"10"_s, u"30"_s, QString());
        const QString before = tape();
        child<QPushButton>(*m_w, "cmdCalcular")->click();
        QTest::keyClick(m_w, Qt::Key_Escape);
        QVERIFY(!m_w->isVisible());
        QVERIFY(!m_w->searching());
        QTest::qWait(3 * app::FrmJuro::kTrialIntervalMs);
        QCOMPARE(tape(), before);
        QVERIFY(!field("txtValVista")->isReadOnly());
    }

    void savingsAndChequeDialoguesAskInTurnAndWriteTheirBlock() {
        // 100,00 at 1 % over 45 days: one month compounded (101,00), then 15 days simple: 101,505.
        m_s->dialogs.answers = {u"100,00"_s, u"1"_s, u"10/01/2026"_s, u"45"_s};
        child<QPushButton>(*m_w, "cmdCapitalizar")->click();
        QCOMPARE(m_s->dialogs.prompts, QStringList({pt(59), pt(61), pt(62), pt(63, "1500")}));
        QVERIFY2(m_s->dialogs.messages.last().startsWith(pt(29, "101,51", "")),
                 qPrintable(m_s->dialogs.messages.last()));
        QVERIFY(m_s->dialogs.messages.last().contains(u"45 dias (1,00%)"_s));
        QVERIFY(tape().contains(pt(160).trimmed()));

        const struct {
            QStringList answers;
            bool refused;
        } cheques[] = {
            {{u"1000"_s, u"2"_s, u"23/11/2026"_s, u"731"_s}, true},  // over 730 days
            {{u"1000"_s, u"dois"_s}, true},                          // asked no further
            {{u"1000"_s, u"2"_s, u"31/02/2026"_s}, true},
            {{u"1000"_s}, false},  // cancelled: nothing said
        };
        for (const auto& c : cheques) {
            m_s->dialogs.answers = c.answers;
            m_s->dialogs.messages.clear();
            const QString before = tape();
            child<QPushButton>(*m_w, "cmdDescontar")->click();
            QCOMPARE(m_s->dialogs.answers, QStringList());
            QVERIFY2(m_s->dialogs.messages == (c.refused ? QStringList{pt(30)} : QStringList()),
                     qPrintable(c.answers.join(u' ')));
            QCOMPARE(tape(), before);
        }
        // A cheque of 1.020,00 due in 30 days at 2 %: worth 1.000,00 today.
        m_s->dialogs.answers = {u"1.020,00"_s, u"2"_s, u"23/11/2026"_s, u"23/12/2026"_s};
        child<QPushButton>(*m_w, "cmdDescontar")->click();
        QVERIFY2(m_s->dialogs.messages.last().startsWith(pt(31, "1.000,00", "")),
                 qPrintable(m_s->dialogs.messages.last()));
        QVERIFY(m_s->dialogs.messages.last().contains(u"23/11/2026 - 23/12/2026"_s));

        // Grouping adds both capitalisations up under them.
        child<QAction>(*m_calc, "mnuAgrupar")->trigger();
        const QString totals = tape().mid(tape().lastIndexOf(pt(210)));
        QVERIFY2(totals.contains(u"1.100,00"_s) && totals.contains(u"1.121,51"_s), qPrintable(totals));
    }

    void groupingWithNoCapitalisationSaysSo() {
        const QString before = tape();
        child<QAction>(*m_calc, "mnuAgrupar")->trigger();
        QCOMPARE(m_s->dialogs.messages.last(), pt(302));
        QCOMPARE(tape(), before);
    }

    void aLongTapeMayBeStartedAfreshBeforeTheBlock() {
        for (const auto reply : {app::Dialogs::Answer::No, app::Dialogs::Answer::Yes}) {
            while (m_calc->calculator().tape().size() < calc::kTapeFullLength) {
                QTest::keyClicks(m_calc.get(), u"123456+"_s);
            }
            const QString before = tape();
            m_s->dialogs.reply = reply;
            m_s->dialogs.messages.clear();
            m_s->dialogs.answers = {u"100"_s, u"1"_s, u"10/01/2026"_s, u"30"_s};
            child<QPushButton>(*m_w, "cmdCapitalizar")->click();
            QVERIFY(m_s->dialogs.messages.contains(pt(4)));
            if (reply == app::Dialogs::Answer::No) {
                QVERIFY(tape().startsWith(before));
            } else {
                QVERIFY(tape().size() < 2000);
            }
            QVERIFY(tape().contains(pt(160).trimmed()));
        }
    }

    void theScheduleIsCopiedPrintedAndCharted() {
        QVERIFY(!child<QPushButton>(*m_w, "cmdPlano")->isEnabled());
        fill(u"750,00"_s, u"86,00"_s, u"10"_s, u"30"_s, QString());
        calculate();
        child<QPushButton>(*m_w, "cmdPlano")->click();
        app::FrmPlano* plano = m_w->schedule();
        QVERIFY(plano != nullptr && plano->isVisible());
        auto* grid = child<QTableWidget>(*plano, "grdPlano");
        QCOMPARE(grid->rowCount(), 10);
        // Due 30 days after the loan and every 30 days after that.
        QCOMPARE(grid->item(0, 0)->text(), u"01/10"_s);
        QCOMPARE(grid->item(0, 1)->text(), u"21/12/2026"_s);
        QCOMPARE(grid->item(1, 1)->text(), u"20/01/2027"_s);
        QCOMPARE(grid->item(9, 5)->text(), u"0,00"_s);

        auto* chart = child<QChartView>(*plano, "chtPlano")->chart();
        const auto* series = qobject_cast<QStackedBarSeries*>(chart->series().value(0));
        QVERIFY(series != nullptr && series->count() == 2);
        QCOMPARE(series->barSets()[0]->count(), 10);
        // Interest falls and principal grows from one instalment to the next.
        QVERIFY(series->barSets()[0]->at(0) > series->barSets()[0]->at(9));
        QVERIFY(series->barSets()[1]->at(0) < series->barSets()[1]->at(9));

        child<QPushButton>(*plano, "cmdCopiar")->click();
        const QStringList lines = QGuiApplication::clipboard()->text().split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 11);
        QCOMPARE(lines[0].split(u'\t').size(), 6);
        QCOMPARE(lines[1].split(u'\t').value(2), u"86,00"_s);

        m_s->dialogs.saveAs = m_s->data.filePath(u"plano.pdf"_s);
        child<QPushButton>(*plano, "cmdPdf")->click();
        QProcess text;
        text.start(u"pdftotext"_s, {u"-layout"_s, m_s->dialogs.saveAs, u"-"_s});
        QVERIFY(text.waitForFinished());
        const QString printed = QString::fromUtf8(text.readAllStandardOutput());
        QVERIFY2(
            printed.contains(u"10/10"_s) && printed.contains(u"21/12/2026"_s) && printed.contains(pt(296)),
            qPrintable(printed));
        QVERIFY(!QFile::exists(m_s->dialogs.saveAs + u".part"_s));
        // A folder that cannot be written: the user is told, nothing is left behind.
        m_s->dialogs.saveAs = u"/nonexistent/plano.pdf"_s;
        child<QPushButton>(*plano, "cmdPdf")->click();
        QCOMPARE(m_s->dialogs.messages.last(), pt(369, "/nonexistent/plano.pdf"));
    }

    void thePlansNotesAndChequesPrintOnePerInstalment() {
        fill(u"750,00"_s, u"86,00"_s, u"10"_s, u"30"_s, QString());
        calculate();
        child<QPushButton>(*m_w, "cmdPlano")->click();
        app::FrmPlano* plano = m_w->schedule();
        m_s->store.write("Promissoria", "Numero", "41");
        m_s->store.write("Promissoria", "Credor", "Loja Central");
        const auto pages = [this] {
            QProcess text;
            text.start(u"pdftotext"_s, {u"-layout"_s, m_s->dialogs.pdfPath, u"-"_s});
            text.waitForFinished();
            return QString::fromUtf8(text.readAllStandardOutput()).split(u'\f', Qt::SkipEmptyParts);
        };

        m_s->dialogs.pdfPath = m_s->data.filePath(u"notas.pdf"_s);
        child<QPushButton>(*plano, "cmdPromissorias")->click();
        QStringList notes = pages();
        QCOMPARE(notes.size(), 10);
        // Numbered on from the last note, each due on its instalment's day, in words too.
        QVERIFY2(notes[0].contains(u"00042"_s) && notes[0].contains(u"LOJA CENTRAL"_s) &&
                     notes[0].contains(u"VINTE E UM DIAS DO M\u00CAS DE DEZEMBRO"_s),
                 qPrintable(notes[0]));
        QVERIFY2(notes[9].contains(u"00051"_s) && notes[9].contains(u"SETEMBRO"_s), qPrintable(notes[9]));
        QCOMPARE(m_s->store.read("Promissoria", "Numero").value_or(""), std::string("00051"));
        QCOMPARE(m_s->dialogs.messages.last(), pt(16));

        m_s->dialogs.pdfPath = m_s->data.filePath(u"cheques.pdf"_s);
        child<QPushButton>(*plano, "cmdCheques")->click();
        const QStringList cheques = pages();
        QCOMPARE(cheques.size(), 10);
        // Each dated on its due day: the second on 20 January 2027.
        QVERIFY2(cheques[1].contains(u"***86,00"_s) && cheques[1].contains(u"JANEIRO"_s) &&
                     cheques[1].contains(u"OITENTA E SEIS REAIS"_s),
                 qPrintable(cheques[1]));
    }
};

QTEST_MAIN(FrmJuroTest)
#include "frm_juro_test.moc"
