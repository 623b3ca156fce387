// The date calculator opened from the calculator's menu and driven as a user drives it.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/tools/frm_data.h"
#include "app/window_services.h"
#include "core/tools/date_calculator.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;

class FrmDataTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    app::FrmData* m_w = nullptr;

    QLineEdit* field(const char* name) const { return child<QLineEdit>(*m_w, name); }
    // Types the fields as the user does: the initial date, the final date, years, months, weeks, days.
    void fill(const QStringList& values) {
        const char* names[] = {"txtData0", "txtData1", "txtAnos", "txtMeses", "txtSemanas", "txtDias"};
        for (int i = 0; i < 6; ++i) {
            field(names[i])->clear();
            field(names[i])->setCursorPosition(0);
            QTest::keyClicks(field(names[i]), values.value(i));
        }
    }
    QString tape() const { return QString::fromStdString(m_calc->calculator().tape().text()); }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_calc = std::make_unique<app::FrmCalcula>(m_s->context(), app::CalcWindowContext{});
        m_calc->show();
        QTest::keyClicks(m_calc.get(), u"5+"_s);
        // The menu strikes the pending amount first, then opens the window.
        m_w = fakes::openTool<app::FrmData>(*m_calc, "mnuData");
        QVERIFY(!m_calc->calculator().calculationInProgress());
        QVERIFY(m_w != nullptr && m_w->isVisible());
        QCOMPARE(m_w->windowTitle(), pt(136));
    }
    void cleanup() { m_calc.reset(); }

    void aSpanAddedGoesOnTheTape() {
        fill({u"10052003"_s, u""_s, u"1"_s});
        QCOMPARE(child<QLabel>(*m_w, "lblSemana0")->text(), u"s\u00E1bado"_s);  // as soon as it is a date
        const std::string before = m_calc->calculator().tape().text();
        child<QPushButton>(*m_w, "cmdCalcula")->click();
        QCOMPARE(field("txtData1")->text(), u"10/05/2004"_s);
        QCOMPARE(child<QLabel>(*m_w, "lblSemana1")->text(), u"segunda-feira"_s);
        QCOMPARE(child<QLabel>(*m_w, "lblBissextos")->text(), u"1"_s);
        const QString block = tape().mid(static_cast<qsizetype>(QString::fromStdString(before).size()));
        QVERIFY2(block.contains(u"[10/05/2003] -"_s) && block.contains(u"[10/05/2004] ="_s),
                 qPrintable(block));
        QVERIFY(block.contains(u"anos: 1\r\n"_s));
        QCOMPARE(m_calc->calculator().total(), 5.0);  // a block never changes the total
    }

    void twoDatesAreBrokenDownAndBadFieldsAreNamed() {
        fill({u"10052003"_s, u"25122026"_s});
        child<QPushButton>(*m_w, "cmdCalcula")->click();
        QCOMPARE(QStringList({field("txtAnos")->text(), field("txtMeses")->text(),
                              field("txtSemanas")->text(), field("txtDias")->text()}),
                 QStringList({u"23"_s, u"7"_s, u"2"_s, u"5"_s}));
        const struct {
            QStringList fields;
            int code;
            const char* focused;
        } refused[] = {
            {{u"31022004"_s, u""_s, u"1"_s}, 32, "txtData0"},
            {{u"25122026"_s, u"10052003"_s}, 33, "txtData0"},
            {{u"10052003"_s, u""_s, u"1a"_s}, 34, "txtAnos"},
        };
        for (const auto& r : refused) {
            fill(r.fields);
            const QString before = tape();
            child<QPushButton>(*m_w, "cmdCalcula")->click();
            QCOMPARE(m_s->dialogs.messages.last(), pt(r.code));
            QCOMPARE(tape(), before);
            QVERIFY2(field(r.focused)->hasFocus() || QApplication::focusWidget() == field(r.focused),
                     r.focused);
        }
    }

    void enterWalksTheFieldsAndTheLastCalculates() {
        fill({u"01012004"_s});
        field("txtData0")->setFocus();
        for (const char* next : {"txtData1", "txtAnos", "txtMeses", "txtSemanas", "txtDias"}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), field(next));
        }
        QTest::keyClicks(field("txtDias"), u"60"_s);
        QTest::keyClick(field("txtDias"), Qt::Key_Return);
        QCOMPARE(field("txtData1")->text(), u"01/03/2004"_s);
        // A field reached again is typed over, the date's mask included.
        field("txtData0")->setFocus();
        QCoreApplication::processEvents();
        QTest::keyClicks(field("txtData0"), u"02012004"_s);
        QCOMPARE(field("txtData0")->text(), u"02/01/2004"_s);
    }
};

QTEST_MAIN(FrmDataTest)
#include "frm_data_test.moc"
