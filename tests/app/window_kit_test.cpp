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
using fakes::child;
using L = common::Language;
namespace txt = common::txt;

namespace {

// Built on the kit as the real tools are: a title, a captioned label, a field, a result for the tape.
class SampleTool final : public app::ToolWindow {
public:
    SampleTool(const app::AppContext& app, QWidget* parent)
        : ToolWindow(app, "frmAmostra", txt::kMnuJuro, parent) {
        auto* column = new QVBoxLayout(this);
        auto* caption = new QLabel(this);
        caption->setObjectName(u"lblAmostra"_s);
        captions().add(caption, txt::kMnuRegra);
        column->addWidget(caption);
        column->addWidget(new QLineEdit(this));
        ++built;
    }
    void writeResult(std::string_view block) const { app().appendToTape(block); }

    static inline int built = 0;
};

}  // namespace

class WindowKitTest : public QObject {
    Q_OBJECT

    std::unique_ptr<fakes::WindowServices> m_s;
    app::AppContext m_app;
    std::unique_ptr<QWidget> m_owner;
    std::unique_ptr<app::ToolWindows> m_tools;

private slots:
    void init() {
        m_s = std::make_unique<fakes::WindowServices>();
        m_app = m_s->context();
        m_owner = std::make_unique<QWidget>();
        m_tools = std::make_unique<app::ToolWindows>(m_app, m_owner.get());
        SampleTool::built = 0;
    }
    void cleanup() {
        m_tools.reset();
        m_owner.reset();
    }

    void aToolIsOpenedOnceAndBroughtBackAsItWasLeft() {
        SampleTool* tool = m_tools->open<SampleTool>();
        auto* field = tool->findChild<QLineEdit*>();
        field->setText(u"12,5"_s);
        QTest::keyClick(field, Qt::Key_Escape);  // Esc closes it, wherever the focus is
        QVERIFY(!tool->isVisible());
        QCOMPARE(m_tools->open<SampleTool>(), tool);
        QVERIFY(tool->isVisible());
        QCOMPARE(field->text(), u"12,5"_s);
        QCOMPARE(SampleTool::built, 1);
    }

    void captionsFollowTheLanguage() {
        SampleTool* tool = m_tools->open<SampleTool>();
        for (const L language : {L::Portuguese, L::Spanish}) {
            m_s->language.set(language);
            QCOMPARE(tool->windowTitle(), fakes::text(language, txt::kMnuJuro));
            QCOMPARE(child<QLabel>(*tool, "lblAmostra")->text(), fakes::text(language, txt::kMnuRegra));
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
        using B = app::Dialogs::Buttons;
        using A = app::Dialogs::Answer;
        using M = QMessageBox;
        struct Case {
            const char* label;
            L language;
            B buttons;
            QStringList words;
            M::StandardButton press;  // NoButton: Esc
            A answer;
        };
        const Case cases[] = {
            {"Portuguese, yes", L::Portuguese, B::YesNo, {"&Sim", "&Não"}, M::Yes, A::Yes},
            {"English, cancel", L::English, B::YesNoCancel, {"&Yes", "&No", "&Cancel"}, M::Cancel, A::Cancel},
            {"Spanish, no", L::Spanish, B::YesNoCancel, {"&Sí", "&No", "&Cancelar"}, M::No, A::No},
            {"Esc", L::Portuguese, B::YesNoCancel, {"&Sim", "&Não", "&Cancelar"}, M::NoButton, A::Cancel},
            {"Esc, no cancel button", L::English, B::YesNo, {"&Yes", "&No"}, M::NoButton, A::No},
        };
        for (const Case& c : cases) {
            m_s->language.set(c.language);
            QStringList shown;
            QTimer::singleShot(0, this, [&] {
                auto* box = qobject_cast<M*>(QApplication::activeModalWidget());
                QVERIFY(box != nullptr);
                for (const M::StandardButton standard : {M::Yes, M::No, M::Cancel}) {
                    if (QAbstractButton* button = box->button(standard)) {
                        shown << button->text();
                    }
                }
                if (c.press == M::NoButton) {
                    QTest::keyClick(box, Qt::Key_Escape);
                } else {
                    box->button(c.press)->click();
                }
            });
            const A answer = app::DesktopDialogs(m_s->language).question(m_owner.get(), u"?"_s, c.buttons);
            QVERIFY2(shown == c.words, c.label);
            QVERIFY2(answer == c.answer, c.label);
        }
    }

    // Qt's own buttons, dialogs and edit menus speak the language too, and follow its changes.
    void qtsOwnTextsFollowTheLanguage() {
        const app::QtTranslations qtTexts(m_s->language);
        const std::pair<L, QStringList> cases[] = {
            {L::Portuguese, {u"Salvar"_s, u"Selecionar tudo"_s}},
            {L::Spanish, {u"Guardar"_s, u"Seleccionar todo"_s}},
            {L::English, {u"Save"_s, u"Select All"_s}},
            {L::Portuguese, {u"Salvar"_s, u"Selecionar tudo"_s}},
        };
        for (const auto& [language, words] : cases) {
            m_s->language.set(language);
            QVERIFY(qtTexts.loaded());
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
        QVERIFY(!app::DesktopDialogs(m_s->language).ask(m_owner.get(), u"Zavrello"_s, prompt, u"LPT1"_s));
        QVERIFY2(size.width() <= 500, qPrintable(QString::number(size.width())));
        QVERIFY2(cancel.contains(u"&Cancelar|"_s), qPrintable(cancel));
    }
};

QTEST_MAIN(WindowKitTest)
#include "window_kit_test.moc"
