// The rule-of-three window opened from the calculator's menu and driven as a user drives it.
#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/tools/frm_regra.h"
#include "app/window_services.h"
#include "core/tools/rule_of_three.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
using Answer = app::Dialogs::Answer;
namespace txt = common::txt;

class FrmRegraTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmCalcula> m_calc;
    app::FrmRegra* m_w = nullptr;

    QLineEdit* field(const char* name, int row) const {
        return child<QLineEdit>(*m_w, qPrintable(QString::fromLatin1(name) + QString::number(row)));
    }
    QImage picture(int row) const {
        return child<QLabel>(*m_w, qPrintable(u"imgVal%1"_s.arg(row)))->pixmap().toImage();
    }
    void click(const char* button) { QTest::mouseClick(child<QPushButton>(*m_w, button), Qt::LeftButton); }
    // One row of the grid as the user types it.
    void type(int row, const QString& base, const QString& description, const QString& newValue) {
        field("txtValor", row)->setText(base);
        field("txtCond", row)->setText(description);
        field("txtValor2", row)->setText(newValue);
    }
    void mark(int row) { child<QRadioButton>(*m_w, qPrintable(u"optInc%1"_s.arg(row)))->setChecked(true); }
    // The questions asked by Calculate, as the descriptions they name.
    QString question(const char* known, const char* unknown) const {
        return pt(txt::kRuleQuestion, known, unknown);
    }

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_calc = std::make_unique<app::FrmCalcula>(m_s->context(), app::CalcWindowContext{});
        m_calc->show();
        m_w = fakes::openTool<app::FrmRegra>(*m_calc, "mnuRegra");
        QVERIFY(m_w != nullptr && m_w->isVisible());
        QCOMPARE(m_w->windowTitle(), pt(txt::kRuleTitle));
    }
    void cleanup() { m_calc.reset(); }

    void firstExampleAnsweredYesThreeTimesGivesTwenty() {
        QVERIFY(!child<QPushButton>(*m_w, "cmdExemplo2")->isEnabled());
        m_s->dialogs.reply = Answer::Yes;
        click("cmdExemplo");
        QStringList guide;
        for (int code = 179; code <= 187; ++code) {
            guide << pt(code);
        }
        QCOMPARE(m_s->dialogs.messages, guide);
        QVERIFY(child<QRadioButton>(*m_w, "optInc3")->isChecked());
        QVERIFY(child<QPushButton>(*m_w, "cmdExemplo2")->isEnabled());
        m_s->dialogs.messages.clear();

        click("cmdCalcular");
        QCOMPARE(m_s->dialogs.messages,
                 QStringList({question("marceneiros", "armários"), question("dias trabalhados", "armários"),
                              question("horas diária trabalhada", "armários")}));
        QCOMPARE(field("txtValor2", 3)->text(), u"20"_s);
        // Three direct rows show one picture; the unknown's row shows none.
        QVERIFY(picture(0) == picture(1) && picture(1) == picture(2));
        QVERIFY(picture(0) != picture(3));
    }

    void secondExampleAnsweredNoNoYesGivesTen() {
        m_s->dialogs.reply = Answer::Yes;
        click("cmdExemplo");
        m_s->dialogs.messages.clear();
        // The example's own question, then carpenters and days inverse, closets direct.
        m_s->dialogs.replies = {Answer::Yes, Answer::No, Answer::No, Answer::Yes};
        click("cmdExemplo2");
        QCOMPARE(m_s->dialogs.messages, QStringList({pt(192), pt(193), pt(194), pt(195), pt(196)}));
        QCOMPARE(field("txtValor2", 2)->text(), QString());  // the first example's 8 is gone
        click("cmdCalcular");
        QCOMPARE(field("txtValor2", 2)->text(), u"10"_s);
        QVERIFY(m_s->dialogs.replies.isEmpty());
        QVERIFY(picture(0) == picture(1));
        QVERIFY(picture(0) != picture(3));
        QVERIFY(picture(2) != picture(3));
    }

    void aSimpleRuleIsShownGroupedWithUpToTenDecimals() {
        type(0, u"1000"_s, u"litros"_s, QString());
        type(1, u"3"_s, u"horas"_s, u"7"_s);
        mark(0);
        m_s->dialogs.reply = Answer::Yes;
        click("cmdCalcular");
        QCOMPARE(field("txtValor2", 0)->text(), u"2.333,3333333333"_s);
    }

    void aRefusedCalculationSaysWhyAndWritesNothing_data() {
        QTest::addColumn<QString>("row1Base");
        QTest::addColumn<QString>("row1New");
        QTest::addColumn<int>("code");
        QTest::newRow("one row in use")
            << QString() << QString() << tools::messageCode(tools::RuleError::TooFewRows);
        QTest::newRow("direct row with a zero base")
            << u"0"_s << u"4"_s << tools::messageCode(tools::RuleError::InvalidData);
    }
    void aRefusedCalculationSaysWhyAndWritesNothing() {
        QFETCH(QString, row1Base);
        QFETCH(QString, row1New);
        QFETCH(int, code);
        m_s->dialogs.reply = Answer::Yes;
        type(0, u"10"_s, u"a"_s, u"antes"_s);
        type(1, row1Base, u"b"_s, row1New);
        mark(0);
        click("cmdCalcular");
        QCOMPARE(m_s->dialogs.messages.last(), pt(code));
        QCOMPARE(field("txtValor2", 0)->text(), u"antes"_s);
    }

    void cancelEndsWithoutAResult() {
        type(0, u"10"_s, u"pães"_s, u"antes"_s);
        type(1, u"2"_s, u"quilos"_s, u"4"_s);
        type(2, u"3"_s, u"fornadas"_s, u"6"_s);
        mark(0);
        const QImage blank = picture(0);
        m_s->dialogs.replies = {Answer::Yes, Answer::Cancel};
        click("cmdCalcular");
        QCOMPARE(m_s->dialogs.messages,
                 QStringList({question("quilos", "pães"), question("fornadas", "pães")}));
        QCOMPARE(field("txtValor2", 0)->text(), u"antes"_s);
        QVERIFY(picture(1) == blank);  // the row answered before Cancel shows nothing either
    }

    void printingSendsTheWindowAndSaysSo() {
        QTemporaryDir folder;
        m_s->dialogs.pdfPath = folder.filePath(u"regra.pdf"_s);
        click("cmdImprimir");
        QVERIFY(QFileInfo(m_s->dialogs.pdfPath).size() > 0);
        QCOMPARE(m_s->dialogs.messages, QStringList({pt(txt::kSentToPrinter)}));
    }
};

QTEST_MAIN(FrmRegraTest)
#include "frm_regra_test.moc"
