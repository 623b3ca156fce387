// The unit converter opened from the calculator's menu and driven as a user drives it.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/tools/frm_converte.h"
#include "app/window_services.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
namespace txt = common::txt;

class FrmConverteTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    app::FrmConverte* m_w = nullptr;

    QLineEdit* value() const { return child<QLineEdit>(*m_w, "txtValor1"); }
    void choose(int source) { child<QListWidget>(*m_w, "lstTipo")->setCurrentRow(source); }
    // The four slots as "caption=value|...".
    QString shownSlots() const {
        QStringList shown;
        for (int i = 0; i < 4; ++i) {
            shown << child<QLabel>(*m_w, qPrintable(u"lblResult%1"_s.arg(i)))->text() + u"="_s +
                         child<QLineEdit>(*m_w, qPrintable(u"txtResult%1"_s.arg(i)))->text();
        }
        return shown.join(u'|');
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_calc = std::make_unique<app::FrmCalcula>(m_s->context(), app::CalcWindowContext{});
        m_calc->show();
        m_w = fakes::openTool<app::FrmConverte>(*m_calc, "mnuConverte");
        QVERIFY(m_w != nullptr && m_w->isVisible());
        QCOMPARE(m_w->windowTitle(), pt(txt::kConverterTitle));
    }
    void cleanup() { m_calc.reset(); }

    void slotsFollowTheSourceAndTheValue() {
        QTest::keyClicks(value(), u"1"_s);
        QCOMPARE(shownSlots(), u"=|=|=|="_s);  // no source yet
        choose(32);                            // Polegadas: the table's inch to metres, as it stands
        QVERIFY2(shownSlots().startsWith(u"&Metros (M)=254|&Centímetros (cm)=2,54"_s),
                 qPrintable(shownSlots()));
        choose(12);
        choose(27);  // Milhas after Kilos/Litro: nothing stale
        QCOMPARE(shownSlots(), u"&Quilômetros=1,609|=|=|="_s);
        value()->clear();
        choose(9);
        QTest::keyClicks(value(), u"3a2"_s);  // the letter is refused as it is typed
        QCOMPARE(value()->text(), u"32"_s);
        QCOMPARE(shownSlots(), u"&Graus Celsius=0|=|=|="_s);
    }

    void enterOnAResultCopiesItWithItsText() {
        choose(8);
        QTest::keyClicks(value(), u"1000,5"_s);
        QTest::keyClick(value(), Qt::Key_Return);  // moves on, and the value is shown grouped
        QCOMPARE(value()->text(), u"1.000,5"_s);
        auto* result = child<QLineEdit>(*m_w, "txtResult0");
        result->setFocus();
        QTest::keyClick(result, Qt::Key_Return);
        const QString copied = u"1.000,5 Graus Celsius = 1.832,9 Graus Fahrenheit"_s;
        QCOMPARE(QGuiApplication::clipboard()->text(), copied);
        QCOMPARE(m_s->dialogs.messages.last(), copied + u"\n\n"_s + pt(txt::kConverterCopied));
        const qsizetype said = m_s->dialogs.messages.size();
        QTest::keyClick(child<QLineEdit>(*m_w, "txtResult1"), Qt::Key_Return);  // an empty slot
        QCOMPARE(m_s->dialogs.messages.size(), said);
    }
};

QTEST_MAIN(FrmConverteTest)
#include "frm_converte_test.moc"
