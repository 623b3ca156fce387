// What every tool window gets from the kit, checked on a small window of the test's own, and the
// question box's buttons.
#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include "app/calc/frm_calcula.h"
#include "app/common/qt_translations.h"
#include "app/common/tool_window.h"
#include "app/common/ui_text.h"
#include "app/window_services.h"

using namespace zv;
using namespace Qt::StringLiterals;
using L = common::Language;
namespace txt = common::txt;

namespace {

// Built on the kit as the real tools are: a title, a captioned label, a field, a result for the tape.
class SampleTool final : public app::ToolWindow {
public:
    SampleTool(const app::AppContext& app, QWidget* parent)
        : ToolWindow(app, "frmAmostra", txt::kMnuJuro, parent) {
        auto* column = new QVBoxLayout(this);
        captions().add(caption, txt::kMnuRegra);
        column->addWidget(caption);
        column->addWidget(field);
        ++built;
    }
    void writeResult(std::string_view block) const { app().appendToTape(block); }

    QLabel* caption = new QLabel(this);
    QLineEdit* field = new QLineEdit(this);
    static inline int built = 0;
};

}  // namespace

class WindowKitTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    app::AppContext m_app;
    QWidget m_owner;
    std::optional<app::ToolWindows> m_tools;

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_app = m_s->context();
        m_tools.emplace(m_app, &m_owner);
        SampleTool::built = 0;
    }
    void cleanup() { m_tools.reset(); }

    void aToolIsOpenedOnceAndBroughtBackAsItWasLeft() {
        SampleTool* tool = m_tools->open<SampleTool>();
        tool->field->setText(u"12,5"_s);
        QTest::keyClick(tool->field, Qt::Key_Escape);  // Esc closes it, wherever the focus is
        QVERIFY(!tool->isVisible());
        QCOMPARE(m_tools->open<SampleTool>(), tool);
        QVERIFY(tool->isVisible());
        QCOMPARE(tool->field->text(), u"12,5"_s);
        QCOMPARE(SampleTool::built, 1);
    }

    void captionsFollowTheLanguage() {
        SampleTool* tool = m_tools->open<SampleTool>();
        for (const L language : {L::Portuguese, L::Spanish}) {
            m_s->language.set(language);
            QCOMPARE(tool->windowTitle(), fakes::text(language, txt::kMnuJuro));
            QCOMPARE(tool->caption->text(), fakes::text(language, txt::kMnuRegra));
        }
    }

    void aToolIsShownWholeOnTheScreen() {
        SampleTool* tool = m_tools->open<SampleTool>();
        tool->close();
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        tool->setGeometry(area.right() + 500, area.bottom() + 500, area.width() + 200, 200);
        m_tools->open<SampleTool>();
        QVERIFY(area.contains(tool->geometry()));
    }

    void aToolsResultGoesOnTheCalculatorsTape() {
        app::FrmCalcula calculator(m_app, app::CalcWindowContext{});
        QTest::keyClicks(&calculator, u"5+"_s);
        const std::string block = " === BLOCO ===\r\n       1,00\r\n";
        calculator.tools().open<SampleTool>()->writeResult(block);
        const std::string& tape = calculator.calculator().tape().text();
        QVERIFY(tape.size() > block.size() && tape.ends_with(block));
    }

    void questionButtonsSpeakTheLanguageAndCancelIsAnAnswer() {
        using A = app::Dialogs::Answer;
        using B = app::Dialogs::Buttons;
        using M = QMessageBox;
        const char* const answers[] = {"Yes", "No", "Cancel"};
        // Pressing NoButton presses Esc, Ok presses Enter. Expected: the buttons' words, then the answer.
        const std::tuple<const char*, L, B, A, M::StandardButton, QString> cases[] = {
            {"Portuguese, yes", L::Portuguese, B::YesNo, A::Yes, M::Yes, u"&Sim &Não: Yes"_s},
            {"English, cancel", L::English, B::YesNoCancel, A::Yes, M::Cancel, u"&Yes &No &Cancel: Cancel"_s},
            {"Spanish, no", L::Spanish, B::YesNoCancel, A::Yes, M::No, u"&Sí &No &Cancelar: No"_s},
            {"Esc", L::Portuguese, B::YesNoCancel, A::Yes, M::NoButton, u"&Sim &Não &Cancelar: Cancel"_s},
            {"Esc, no cancel button", L::English, B::YesNo, A::Yes, M::NoButton, u"&Yes &No: No"_s},
            {"Enter, yes by default", L::English, B::YesNo, A::Yes, M::Ok, u"&Yes &No: Yes"_s},
            {"Enter, no by default", L::English, B::YesNo, A::No, M::Ok, u"&Yes &No: No"_s},
        };
        for (const auto& [label, language, buttons, byDefault, press, expected] : cases) {
            m_s->language.set(language);
            QStringList shown;
            QTimer::singleShot(0, this, [&shown, press = press] {
                auto* box = qobject_cast<M*>(QApplication::activeModalWidget());
                for (const M::StandardButton standard : {M::Yes, M::No, M::Cancel}) {
                    if (QAbstractButton* button = box->button(standard)) {
                        shown << button->text();
                    }
                }
                if (press == M::NoButton || press == M::Ok) {
                    QTest::keyClick(box, press == M::Ok ? Qt::Key_Return : Qt::Key_Escape);
                } else {
                    box->button(press)->click();
                }
            });
            const auto answer =
                app::DesktopDialogs(m_s->language).question(&m_owner, u"?"_s, buttons, byDefault);
            const QString got = shown.join(u' ') + u": "_s + QLatin1String(answers[static_cast<int>(answer)]);
            QVERIFY2(got == expected, qPrintable(label + u" gave "_s + got));
        }
    }

    // Qt's own buttons, dialogs and edit menus speak the language too, and follow its changes.
    void qtsOwnTextsFollowTheLanguage() {
        std::optional<app::QtTranslations> qtTexts(std::in_place, m_s->language);
        const std::pair<L, QStringList> cases[] = {
            {L::Portuguese, {u"Salvar"_s, u"Selecionar tudo"_s}},
            {L::Spanish, {u"Guardar"_s, u"Seleccionar todo"_s}},
            {L::English, {u"Save"_s, u"Select All"_s}},
            {L::Portuguese, {u"Salvar"_s, u"Selecionar tudo"_s}},
        };
        for (const auto& [language, words] : cases) {
            m_s->language.set(language);
            QVERIFY(qtTexts->loaded());
            QDialogButtonBox box(QDialogButtonBox::Save);
            QPlainTextEdit edit;
            edit.setPlainText(u"1"_s);
            std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
            QString selectAll;
            for (QAction* item : menu->actions()) {
                selectAll = item->objectName() == u"select-all"_s
                                ? item->text().remove(u'&').section(u'\t', 0, 0)
                                : selectAll;
            }
            QCOMPARE(QStringList({box.button(QDialogButtonBox::Save)->text().remove(u'&'), selectAll}),
                     words);
        }
        // Qt tells every window of the change by a posted event: let it arrive now, not in the
        // next test's windows.
        qtTexts.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    }

    // The roll printer's prompt opens with a long warning: it wraps, and Cancel speaks the language.
    void aLongPromptWrapsAndCancelIsInTheLanguage() {
        m_s->language.set(L::Spanish);
        const QString prompt = app::uiText(L::Spanish, txt::kPortPrompt);
        QSize size;
        QString cancel;
        QTimer::singleShot(0, this, [&] {
            auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            size = box->size();
            for (QAbstractButton* button : box->findChildren<QAbstractButton*>()) {
                cancel += button->text() + u"|"_s;
            }
            box->reject();
        });
        QVERIFY(!app::DesktopDialogs(m_s->language).ask(&m_owner, u"Zavrello"_s, prompt, u"LPT1"_s));
        QVERIFY2(size.width() <= 500, qPrintable(QString::number(size.width())));
        QVERIFY2(cancel.contains(u"&Cancelar|"_s), qPrintable(cancel));
    }
};

QTEST_MAIN(WindowKitTest)
#include "window_kit_test.moc"
