// The printer choice window over a printer list of the test's own.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "app/documents/frm_impressora.h"
#include "app/window_services.h"
#include "fakes/qt_scoped_trace.h"

using namespace zv;
using namespace Qt::StringLiterals;
using fakes::child;
using fakes::pt;
namespace txt = common::txt;

namespace {

const std::vector<documents::PrinterInfo> kPrinters = {
    {"Laser", "usb://laser"}, {"Matricial", "parallel:/dev/lp0"}, {"Matricial", "serial:/dev/ttyS0"}};

}  // namespace

class FrmImpressoraTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    std::unique_ptr<app::FrmImpressora> m_w;

    void open(const std::vector<documents::PrinterInfo>& printers) {
        m_w = std::make_unique<app::FrmImpressora>(m_s->context(), printers, nullptr);
        m_w->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_w.get()));
    }
    QComboBox* list() const { return child<QComboBox>(*m_w, "cbImpressora"); }
    QCheckBox* useDefault() const { return child<QCheckBox>(*m_w, "optPadrão"); }
    QString port() const { return child<QLineEdit>(*m_w, "txtEndereco")->text(); }
    void choose(int index) {
        list()->setCurrentIndex(index);
        emit list()->textActivated(list()->itemText(index));
    }
    void confirm() { QTest::mouseClick(child<QPushButton>(*m_w, "cmdOK"), Qt::LeftButton); }
    std::string saved() const { return m_s->store.read("Configura", "ImpDispo").value_or("(none)"); }

private slots:
    void init() { m_s = std::make_unique<fakes::WindowServices>(); }
    void cleanup() { m_w.reset(); }

    void opensOnTheSavedNameEvenWhenNoPrinterHasItAnyLonger() {
        struct Case {
            const char* label;
            const char* impDispo;
            QString shown;
            bool useDefault;
        };
        const Case cases[] = {
            {"nothing saved: the default printer", "", u""_s, true},
            {"an installed printer", "Laser", u"Laser"_s, false},
            {"a printer since removed", "Antiga", u"Antiga"_s, false},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(c.label);
            m_s->store.write("Configura", "ImpDispo", c.impDispo);
            open(kPrinters);
            QCOMPARE(list()->count(), 3);
            QCOMPARE(list()->currentText(), c.shown);
            QCOMPARE(useDefault()->isChecked(), c.useDefault);
        }
    }

    void choosingShowsThePortOfTheFirstPrinterOfThatName() {
        m_s->store.write("Configura", "ImpDispo", "");
        open(kPrinters);
        choose(2);
        QCOMPARE(port(), u"parallel:/dev/lp0"_s);
        QVERIFY(!useDefault()->isChecked());
        confirm();
        QCOMPARE(saved(), "Matricial");
        QVERIFY(!m_w->isVisible());
    }

    void tickingTheDefaultAfterChoosingSavesNoName() {
        open(kPrinters);
        choose(0);
        QCOMPARE(port(), u"usb://laser"_s);
        useDefault()->setChecked(true);
        QCOMPARE(list()->currentText(), u""_s);
        QCOMPARE(port(), u""_s);
        confirm();
        QCOMPARE(saved(), "");
    }

    void withNoPrinterOnlyTheDefaultCanBeConfirmed() {
        open({});
        useDefault()->setChecked(false);
        confirm();
        QCOMPARE(m_s->dialogs.messages, QStringList{pt(txt::kNoPrinterChosen)});
        QVERIFY(m_w->isVisible());
        QCOMPARE(saved(), "(none)");
        useDefault()->setChecked(true);
        confirm();
        QCOMPARE(saved(), "");
        QVERIFY(!m_w->isVisible());
    }

    void escapeClosesWithoutSaving() {
        open(kPrinters);
        choose(0);
        QTest::keyClick(m_w.get(), Qt::Key_Escape);
        QVERIFY(!m_w->isVisible());
        QCOMPARE(saved(), "(none)");
    }
};

QTEST_MAIN(FrmImpressoraTest)
#include "frm_impressora_test.moc"
