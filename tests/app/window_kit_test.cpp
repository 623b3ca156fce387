// What every tool window gets from the kit, checked on a small window of the test's own, and the
// question box's buttons.
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/calc/tape_view.h"
#include "app/common/dialogs.h"
#include "app/common/tool_window.h"
#include "app/common/ui_language.h"
#include "core/common/text_table.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_settings_store.h"
#include "fakes/scripted_dialogs.h"

using namespace zv;
namespace txt = common::txt;

namespace {

QString textIn(common::Language language, int code) {
    return QString::fromStdString(common::GetText(language, code));
}

// Built on the kit as the real tools are: a title, a captioned label, a field, a result for the tape.
class SampleTool final : public app::ToolWindow {
public:
    SampleTool(const app::AppContext& app, QWidget* parent)
        : ToolWindow(app, "frmAmostra", txt::kMnuJuro, parent) {
        auto* column = new QVBoxLayout(this);
        auto* caption = new QLabel(this);
        caption->setObjectName(QStringLiteral("lblAmostra"));
        captions().add(caption, txt::kMnuRegra);
        column->addWidget(caption);
        auto* field = new QLineEdit(this);
        field->setObjectName(QStringLiteral("txtAmostra"));
        column->addWidget(field);
        ++built;
    }
    void writeResult(std::string_view block) const { app().appendToTape(block); }

    static inline int built = 0;
};

}  // namespace

class WindowKitTest : public QObject {
    Q_OBJECT

    fakes::MemorySettingsStore m_store;
    fakes::FakeClock m_clock;
    fakes::ScriptedDialogs m_dialogs;
    std::unique_ptr<app::UiLanguage> m_language;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QWidget> m_owner;
    app::AppContext m_app;

private slots:
    void init() {
        m_store = fakes::MemorySettingsStore{};
        m_language = std::make_unique<app::UiLanguage>(common::Language::Portuguese);
        m_dir = std::make_unique<QTemporaryDir>();
        m_owner = std::make_unique<QWidget>();
        m_app = app::AppContext{};
        m_app.store = &m_store;
        m_app.clock = &m_clock;
        m_app.dialogs = &m_dialogs;
        m_app.dataFolder = m_dir->path().toStdString();
        m_app.language = m_language.get();
        SampleTool::built = 0;
    }

    void aToolIsOpenedOnceAndBroughtBack() {
        app::ToolWindows tools(m_app, m_owner.get());
        SampleTool* first = tools.open<SampleTool>();
        QCOMPARE(tools.open<SampleTool>(), first);
        QVERIFY(first->isVisible());
        // Esc closes it, wherever the focus is; opened again it is the same window as it was left.
        auto* field = first->findChild<QLineEdit*>(QStringLiteral("txtAmostra"));
        field->setText(QStringLiteral("12,5"));
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(!first->isVisible());
        QCOMPARE(tools.open<SampleTool>(), first);
        QVERIFY(first->isVisible());
        QCOMPARE(field->text(), QStringLiteral("12,5"));
        QCOMPARE(SampleTool::built, 1);
    }

    void captionsFollowTheLanguage() {
        app::ToolWindows tools(m_app, m_owner.get());
        SampleTool* tool = tools.open<SampleTool>();
        auto* caption = tool->findChild<QLabel*>(QStringLiteral("lblAmostra"));
        QCOMPARE(tool->windowTitle(), textIn(common::Language::Portuguese, txt::kMnuJuro));
        QCOMPARE(caption->text(), textIn(common::Language::Portuguese, txt::kMnuRegra));
        m_language->set(common::Language::Spanish);
        QCOMPARE(tool->windowTitle(), textIn(common::Language::Spanish, txt::kMnuJuro));
        QCOMPARE(caption->text(), textIn(common::Language::Spanish, txt::kMnuRegra));
        QVERIFY(caption->text() != textIn(common::Language::Portuguese, txt::kMnuRegra));
    }

    void aToolIsShownWholeOnTheScreen() {
        app::ToolWindows tools(m_app, m_owner.get());
        SampleTool* tool = tools.open<SampleTool>();
        tool->close();
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        tool->setGeometry(area.right() + 500, area.bottom() + 500, area.width() + 200, 200);
        tools.open<SampleTool>();
        QVERIFY2(area.contains(tool->geometry()), qPrintable(QStringLiteral("%1,%2 %3x%4")
                                                                 .arg(tool->x())
                                                                 .arg(tool->y())
                                                                 .arg(tool->width())
                                                                 .arg(tool->height())));
    }

    void aToolsResultGoesOnTheCalculatorsTape() {
        app::FrmCalcula calculator(m_app, app::CalcWindowContext{});
        QTest::keyClicks(&calculator, QStringLiteral("5+"));
        const std::string block = " === BLOCO ===\r\n       1,00\r\n";
        calculator.tools().open<SampleTool>()->writeResult(block);
        const std::string& tape = calculator.calculator().tape().text();
        QVERIFY(tape.size() > block.size());
        QCOMPARE(tape.substr(tape.size() - block.size()), block);
        QVERIFY(
            calculator.findChild<app::TapeView*>()->toPlainText().endsWith(QStringLiteral("       1,00")));
        QFile file(m_dir->filePath(QStringLiteral("calc.fita")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().endsWith(QByteArray::fromStdString(block)));
    }

    void questionButtonsSpeakTheLanguageAndCancelIsAnAnswer() {
        struct Case {
            const char* label;
            common::Language language;
            app::Dialogs::Buttons buttons;
            QStringList words;
            int press;  // the button pressed, or -1 for Esc
            app::Dialogs::Answer answer;
        };
        using B = app::Dialogs::Buttons;
        using A = app::Dialogs::Answer;
        const Case cases[] = {
            {"Portuguese, yes", common::Language::Portuguese, B::YesNo, {"&Sim", "&Não"}, 0, A::Yes},
            {"English, cancel",
             common::Language::English,
             B::YesNoCancel,
             {"&Yes", "&No", "&Cancel"},
             2,
             A::Cancel},
            {"Spanish, no", common::Language::Spanish, B::YesNoCancel, {"&Sí", "&No", "&Cancelar"}, 1, A::No},
            {"Esc with cancel offered",
             common::Language::Portuguese,
             B::YesNoCancel,
             {"&Sim", "&Não", "&Cancelar"},
             -1,
             A::Cancel},
            {"Esc without cancel", common::Language::English, B::YesNo, {"&Yes", "&No"}, -1, A::No},
        };
        for (const Case& c : cases) {
            m_language->set(c.language);
            app::DesktopDialogs dialogs(*m_language);
            QStringList shown;
            QTimer::singleShot(0, this, [&] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                QVERIFY(box != nullptr);
                const QMessageBox::StandardButton standards[] = {QMessageBox::Yes, QMessageBox::No,
                                                                 QMessageBox::Cancel};
                for (const QMessageBox::StandardButton standard : standards) {
                    if (QAbstractButton* button = box->button(standard)) {
                        shown << button->text();
                    }
                }
                if (c.press < 0) {
                    QTest::keyClick(box, Qt::Key_Escape);
                } else {
                    box->button(standards[c.press])->click();
                }
            });
            const A answer = dialogs.question(m_owner.get(), QStringLiteral("?"), c.buttons);
            QVERIFY2(shown == c.words, c.label);
            QVERIFY2(answer == c.answer, c.label);
        }
    }
};

QTEST_MAIN(WindowKitTest)
#include "window_kit_test.moc"
