// The promissory-note window opened from the calculator's menu: the due date and its words, the
// number counting up from one note to the next, a saved layout on the printed page.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/documents/frm_promissoria.h"
#include "app/pdf_words.h"
#include "app/window_services.h"
#include "fakes/qt_scoped_trace.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
namespace txt = common::txt;

class FrmPromissoriaTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    QPointer<app::FrmPromissoria> m_w;
    QTemporaryDir m_dir;

    app::FrmPromissoria* open() {
        QTest::keyClick(m_calc.get(), Qt::Key_Delete);
        QTest::keyClicks(m_calc.get(), u"150"_s);
        child<QAction>(*m_calc, "mnuPromissoria")->trigger();
        m_w = m_calc->findChild<app::FrmPromissoria*>();
        if (m_w != nullptr && !QTest::qWaitForWindowExposed(m_w)) {
            return nullptr;
        }
        return m_w;
    }
    QLineEdit* field(const char* name) const { return child<QLineEdit>(*m_w, name); }
    void typeDueDate(const QString& date) {
        QLineEdit* due = field("txtVencimento");
        due->setFocus();
        due->selectAll();
        QTest::keyClick(due, Qt::Key_Delete);
        QTest::keyClick(due, Qt::Key_Home);
        QTest::keyClicks(due, date);
    }
    // Prints through the preview into a PDF of the test's own.
    QString print(const char* name) {
        m_s->dialogs.pdfPath = m_dir.filePath(QLatin1String(name));
        QTest::mouseClick(child<QPushButton>(*m_w, "cmdImprimir"), Qt::LeftButton);
        return m_s->dialogs.pdfPath;
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

    void dueDateTypedPutsItsDayMonthYearAndWordsOnTheNote() {
        QVERIFY(open());
        QCOMPARE(field("txtVencimento")->text(), u"21/11/2026"_s);  // today until the user types
        struct Case {
            const char* label;
            QString typed;
            QString day, month, words;
        };
        const Case cases[] = {
            {"first of the month", u"01032027"_s, u"01"_s, u"MARÇO"_s,
             u"PRIMEIRO DIA DO MÊS DE MARÇO DO ANO DE DOIS MIL E VINTE E SETE "_s},
            {"any other day", u"10032004"_s, u"10"_s, u"MARÇO"_s,
             u"DEZ DIAS DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO "_s},
            {"half a date leaves the last whole one", u"3112"_s, u"10"_s, u"MARÇO"_s,
             u"DEZ DIAS DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO "_s},
            {"a day the month lacks leaves it too", u"31022005"_s, u"10"_s, u"MARÇO"_s,
             u"DEZ DIAS DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO "_s},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(c.label);
            typeDueDate(c.typed);
            QCOMPARE(field("txtDia")->text(), c.day);
            QCOMPARE(field("txtMês")->text(), c.month);
            QCOMPARE(field("txtAosDias")->text(), c.words);
        }
    }

    void numberCountsUpFromOneNoteToTheNext() {
        QVERIFY(open());
        QCOMPARE(field("txtNumero")->text(), u"00001"_s);
        field("txtCredor")->setText(u"loja central"_s);
        print("first.pdf");
        QTRY_VERIFY(m_w.isNull());
        QVERIFY(open());
        QCOMPARE(field("txtNumero")->text(), u"00002"_s);
        QCOMPARE(field("txtCredor")->text(), u"LOJA CENTRAL"_s);  // the parties are kept, as printed
        m_w->close();
        QTRY_VERIFY(m_w.isNull());
        QVERIFY(open());
        QCOMPARE(field("txtNumero")->text(), u"00002"_s);  // closing without printing uses no number
    }

    // The program runs on the usual offscreen screen (800 pixels wide), and once more as
    // app_note_narrow_screen_tests on a 640-pixel one (narrow_screen.json).
    void aScreenNarrowerThanTheNoteIsTold() {
        const std::pair<int, QStringList> cases[] = {{800, {}}, {640, {pt(txt::kScreenTooSmall)}}};
        const int width = QGuiApplication::primaryScreen()->geometry().width();
        const auto row = std::ranges::find(cases, width, [](const auto& c) { return c.first; });
        if (row == std::end(cases)) {
            QSKIP("a screen width without an expected outcome");
        }
        m_s->dialogs.messages.clear();
        QVERIFY(open());
        QCOMPARE(m_s->dialogs.messages, row->second);
    }

    void savedLayoutIsWhereThePageIsPrinted() {
        m_s->store.write("Promissoria", "lblValorL", "600");
        m_s->store.write("Promissoria", "lblValorT", "40");
        m_s->store.write("Promissoria", "txtDiaT", "90");
        QVERIFY(open());
        typeDueDate(u"05042027"_s);
        const QString pdf = print("note.pdf");
        QTRY_VERIFY(m_w.isNull());
        constexpr qreal kPt = 0.75;
        const auto at = [&](const QString& text, qreal left, qreal top) {
            const std::vector<fakes::PdfWord> words = fakes::pdfWords(pdf);
            return std::ranges::any_of(words, [&](const fakes::PdfWord& w) {
                return w.text == text && qAbs(w.box.left() - left * kPt) < 1.5 &&
                       qAbs(w.box.top() - top * kPt) < 1.5;
            });
        };
        QVERIFY(at(u"***150,00"_s, 600, 40));
        // Month and year keep their distance from the day, on the day's line.
        QVERIFY(at(u"05"_s, 372, 90));
        QVERIFY(at(u"ABRIL"_s, 406, 90));
        QVERIFY(at(u"2027"_s, 512, 90));
        QVERIFY(at(u"00001"_s, 80, 20));
        QVERIFY(at(u"CINCO"_s, 24, 52));
    }
};

QTEST_MAIN(FrmPromissoriaTest)
#include "frm_promissoria_test.moc"
