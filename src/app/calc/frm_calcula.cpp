#include "app/calc/frm_calcula.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/calc/backup_viewer.h"
#include "app/calc/colour_schemes.h"
#include "app/calc/tape_printer.h"
#include "app/calc/tape_view.h"
#include "app/common/captions.h"
#include "app/common/dialogs.h"
#include "app/common/menu_look.h"
#include "app/common/ui_language.h"
#include "app/common/window_placement.h"
#include "app/documents/frm_cheque.h"
#include "app/documents/frm_promissoria.h"
#include "app/tools/frm_converte.h"
#include "app/tools/frm_data.h"
#include "app/tools/frm_juro.h"
#include "app/tools/frm_regra.h"
#include "core/calc/clipboard_numbers.h"
#include "core/calc/roll_printer.h"
#include "core/common/date.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/settings_keys.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "core/common/text_table.h"
#include "core/documents/amount_words.h"
#include "core/tools/interest_tape.h"
#include "core/words/amount_in_words.h"
#include "platform/roll_port.h"

#ifndef ZV_BUILD_NUMBER
#define ZV_BUILD_NUMBER 1
#endif

namespace zv::app {
namespace {

namespace keys = common::settings;
namespace txt = common::txt;

constexpr int kBuildNumber = ZV_BUILD_NUMBER;
constexpr const char* kSupportAddress = "suporte@zavrello.com.br";
constexpr const char* kWebPage = "https://www.zavrello.com.br";

// Passes every change of the tape to the view and, when it is open, the tape file.
class FanOutSink final : public calc::TapeSink {
public:
    FanOutSink(calc::TapeSink* view, calc::TapeSink* file) : m_view(view), m_file(file) {}
    void replaceTail(std::size_t offset, std::string_view text) override {
        if (m_file != nullptr) {
            m_file->replaceTail(offset, text);
        }
        m_view->replaceTail(offset, text);
    }
    void reset(std::string_view wholeText) override {
        if (m_file != nullptr) {
            m_file->reset(wholeText);
        }
        m_view->reset(wholeText);
    }

private:
    calc::TapeSink* m_view;
    calc::TapeSink* m_file;
};

}  // namespace

FrmCalcula::FrmCalcula(const AppContext& app, CalcWindowContext context, QWidget* parent)
    : QMainWindow(parent),
      m_app(app),
      m_ctx(std::move(context)),
      m_settings(calc::loadCalcSettings(*m_app.store)),
      m_backup(m_app.dataFolder / std::string(calc::kBackupFileName)),
      m_calc(m_app.regional, calc::engineOptions(m_settings, m_ctx.timeMode),
             calc::CalculatorServices{m_app.clock, &m_backup}),
      m_keySounds(m_ctx.makeMidi,
                  m_ctx.beep ? m_ctx.beep : std::function<void()>([] { QApplication::beep(); }), this,
                  [this] { midiFailed(); }),
      m_tools(m_app, this) {
    setObjectName(QStringLiteral("frmCalcula"));
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(m_ctx.auxiliary ? QStringLiteral(" Zavrello [Aux]") : QStringLiteral(" Zavrello"));
    // The tools this window opens add their results to its tape.
    m_app.appendToTape = [this](std::string_view block) { appendBlock(block); };
    // A language chosen in this window before wins over the one the program started with.
    if (m_settings.language >= 1 && m_settings.language <= 3) {
        m_app.language->set(static_cast<common::Language>(m_settings.language));
    }
    m_captions = new Captions(*m_app.language, this);
    connect(m_captions, &Captions::relabelled, this, &FrmCalcula::languageShown);
    buildWidgets();
    buildMenus();

    // The tape of the last session, kept as it grows; a file that cannot be read is left alone.
    const std::filesystem::path tapePath = calc::tapeFilePath(m_app.dataFolder, m_ctx.tapeSuffix);
    std::optional<std::string> saved = calc::loadTape(tapePath);
    const bool readable = saved.has_value();
    m_calc.loadTape(saved ? std::move(*saved) : std::string());
    txtFita->reset(m_calc.tape().text());
    m_tapeFile = std::make_unique<calc::TapeFile>(tapePath);
    const bool fileOpen = readable && m_tapeFile->open(m_calc.tape().text());
    m_fanOut = std::make_unique<FanOutSink>(txtFita, fileOpen ? m_tapeFile.get() : nullptr);
    m_calc.setTapeSink(m_fanOut.get());

    setWindowFlag(Qt::WindowStaysOnTopHint, m_settings.alwaysOnTop);
    Arrange();
    applyColours();
    languageShown();
    restoreGeometry();
    refresh();

    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &FrmCalcula::clipboardChanged);
    // The synthesizer opens with the first key that wants a note, not before.
    m_keySounds.choose(m_settings.sound, m_settings.instrument);
}

FrmCalcula::~FrmCalcula() {
    m_calc.setTapeSink(nullptr);
}

common::Language FrmCalcula::language() const {
    return m_app.language->current();
}

bool FrmCalcula::tapeFileHealthy() const {
    return m_tapeFile && m_tapeFile->healthy();
}

void FrmCalcula::appendBlock(std::string_view block) {
    // A long tape: the user may start a fresh one (with its backup) before the block goes on it.
    if (m_calc.tape().size() >= calc::kTapeFullLength &&
        m_app.dialogs->question(this, text(txt::kTapeFull), Dialogs::Buttons::YesNo) ==
            Dialogs::Answer::Yes) {
        showClearReport(m_calc.clearTape());
    }
    m_calc.appendBlock(block);
    refresh();
}

void FrmCalcula::mnuAgrupar_Click() {
    const std::optional<std::string> totals =
        tools::capitalisationTotals(m_calc.tape().text(), language(), m_app.regional.separators);
    if (!totals) {
        m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kNothingToGroup));
        return;
    }
    appendBlock(*totals);
}

QString FrmCalcula::text(int code, const QString& arg1, const QString& arg2) const {
    return m_captions->text(code, arg1, arg2);
}

// ---- widgets ---------------------------------------------------------------------------------

void FrmCalcula::buildWidgets() {
    using Part = Captions::Part;
    // The calculator is one column as wide as its tape, centred in a wider window: the keys keep
    // their size and the tape's amounts end under the display's.
    auto* window = new QWidget(this);
    window->setObjectName(QStringLiteral("fraJanela"));
    auto* centring = new QHBoxLayout(window);
    centring->setContentsMargins(0, 0, 0, 0);
    centring->setSpacing(0);
    auto* central = new QWidget(window);
    central->setObjectName(QStringLiteral("fraCorpo"));
    centring->addStretch(0);
    centring->addWidget(central, 1);
    centring->addStretch(0);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(6, 6, 6, 6);
    column->setSpacing(4);

    // A notice the user reads and dismisses when it suits them: it never takes the keyboard.
    auto* fraAviso = new QFrame(central);
    fraAviso->setObjectName(QStringLiteral("fraAviso"));
    fraAviso->setFrameShape(QFrame::StyledPanel);
    paintBackground(fraAviso, QColor(0xFF, 0xF4, 0xC0));
    auto* noticeRow = new QHBoxLayout(fraAviso);
    noticeRow->setContentsMargins(6, 2, 2, 2);
    auto* notice = new QLabel(fraAviso);
    notice->setObjectName(QStringLiteral("lblAviso"));
    notice->setWordWrap(true);
    notice->setTextInteractionFlags(Qt::NoTextInteraction);
    m_captions->add(notice, txt::kMidiError);  // the one notice there is
    noticeRow->addWidget(notice, 1);
    auto* dismiss = new QToolButton(fraAviso);
    dismiss->setObjectName(QStringLiteral("cmdFecharAviso"));
    dismiss->setText(QStringLiteral("\u00D7"));
    dismiss->setAutoRaise(true);
    dismiss->setFocusPolicy(Qt::NoFocus);
    connect(dismiss, &QToolButton::clicked, fraAviso, &QWidget::hide);
    noticeRow->addWidget(dismiss, 0, Qt::AlignTop);
    fraAviso->hide();
    column->addWidget(fraAviso);

    auto* display = new QFrame(central);
    display->setObjectName(QStringLiteral("fraVisor"));
    display->setFrameShape(QFrame::StyledPanel);
    auto* displayRow = new QHBoxLayout(display);
    displayRow->setContentsMargins(6, 2, 6, 2);
    lblVisor1 = new QLabel(display);
    lblVisor1->setObjectName(QStringLiteral("lblVisor1"));
    lblVisor1->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    lblVisor0 = new QLabel(display);
    lblVisor0->setObjectName(QStringLiteral("lblVisor0"));
    lblVisor0->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblVisor0->setTextInteractionFlags(Qt::NoTextInteraction);
    displayRow->addWidget(lblVisor1);
    displayRow->addWidget(lblVisor0, 1);
    column->addWidget(display);

    // The total's row; on its left the picture of the "USA" colour scheme, when that is chosen.
    auto* totalRow = new QHBoxLayout;
    auto* imgUSA = new QLabel(central);
    imgUSA->setObjectName(QStringLiteral("imgUSA"));
    imgUSA->hide();
    lblTotal = new QLabel(central);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));
    lblTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    totalRow->addWidget(imgUSA);
    totalRow->addWidget(lblTotal, 1);
    column->addLayout(totalRow);

    fraTeclado = new QFrame(central);
    fraTeclado->setObjectName(QStringLiteral("fraTeclado"));
    auto* grid = new QGridLayout(fraTeclado);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(3);
    struct Key {
        const char* name;
        QString caption;
        int row, column;
        std::function<void()> press;
    };
    const auto typing = [this](int key) { return [this, key] { Form_KeyPress(key); }; };
    const Key keys[] = {
        {"chkCE", QStringLiteral("CE"), 0, 0, [this] { clearEntryKey(); }},
        {"chkBack", QStringLiteral("\u2190"), 0, 1, typing(calc::key::kBackspace)},
        {"chkNeg", QStringLiteral("\u00B1"), 0, 2,
         [this] {
             m_calc.changeSign();
             afterKey(0);
         }},
        {"chkDividir", QStringLiteral("\u00F7"), 0, 3, typing('/')},
        {"chkVezes", QStringLiteral("\u00D7"), 1, 3, typing('*')},
        {"chkMenos", QStringLiteral("\u2212"), 2, 3, typing('-')},
        // With Enter adding, + sends Enter.
        {"chkMais", QStringLiteral("+"), 3, 3,
         [this] { Form_KeyPress(m_settings.enter == calc::EnterAction::Plus ? calc::key::kEnter : '+'); }},
        {"chkVirgula", QString::fromStdString(m_app.regional.separators.decimal), 4, 1, typing(',')},
        {"chkPercent", QStringLiteral("%"), 4, 2, typing('%')},
        {"chkIgual", QStringLiteral("="), 4, 3, typing('=')},
    };
    const auto addKey = [&](const char* name, const QString& caption, int row, int col,
                            const std::function<void()>& press) {
        auto* b = new QPushButton(caption, fraTeclado);
        b->setObjectName(QLatin1String(name));
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        grid->addWidget(b, row, col);
        connect(b, &QPushButton::clicked, this, press);
        return b;
    };
    for (const Key& key : keys) {
        addKey(key.name, key.caption, key.row, key.column, key.press);
    }
    const int digitCells[10][2] = {{4, 0}, {3, 0}, {3, 1}, {3, 2}, {2, 0},
                                   {2, 1}, {2, 2}, {1, 0}, {1, 1}, {1, 2}};
    for (int d = 0; d < 10; ++d) {
        const QByteArray name = "chkNum" + QByteArray::number(d);
        m_typedKeys[d] =
            addKey(name.constData(), QString::number(d), digitCells[d][0], digitCells[d][1], typing('0' + d));
    }
    const auto key = [this](const char* name) {
        return fraTeclado->findChild<QPushButton*>(QLatin1String(name));
    };
    m_typedKeys[10] = key("chkVirgula");
    m_operatorKeys = {key("chkDividir"), key("chkVezes"), key("chkMenos"), key("chkMais")};
    m_captions->add(key("chkNeg"), txt::kSignTooltip, Part::ToolTip);
    m_captions->add(key("chkNeg"), txt::kSignTooltip, Part::AccessibleName);
    m_captions->add(key("chkCE"), txt::kClearCaption, Part::AccessibleName);
    m_captions->add(key("chkBack"), txt::kBackspaceName, Part::AccessibleName);
    // A right click on + or = offers the function of the Enter key.
    for (QPushButton* b : {key("chkMais"), key("chkIgual")}) {
        b->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(b, &QWidget::customContextMenuRequested, this, [this, b](const QPoint& at) {
            findChild<QMenu*>(QStringLiteral("mnu4"))->popup(b->mapToGlobal(at));
        });
    }
    column->addWidget(fraTeclado);

    txtFita = new TapeView(central);
    column->addWidget(txtFita, 1);
    connect(txtFita, &TapeView::lineActivated, this, [this](const QString& line) {
        // The amount field of a tape line: its first 24 columns.
        if (m_calc.enterAmount(line.left(static_cast<int>(calc::kAmountColumns)).toStdString())) {
            refresh();
        }
        setFocus();
    });
    // What the tape copies is the user's own tape, not numbers brought in for the monitor to add.
    connect(txtFita, &TapeView::copying, this,
            [this](const QString& copied) { m_ownClipboardText = copied; });
    txtFita->installEventFilter(this);

    const std::pair<QWidget*, int> accessibleNames[] = {{lblVisor0, txt::kDisplayName},
                                                        {lblTotal, txt::kTotalName},
                                                        {lblVisor1, txt::kCounterName},
                                                        {fraTeclado, txt::kKeypadName},
                                                        {txtFita, txt::kMnuFita}};
    for (const auto& [widget, code] : accessibleNames) {
        m_captions->add(widget, code, Part::AccessibleName);
    }
    setCentralWidget(window);
}

// ---- menus ------------------------------------------------------------------------------------

std::span<const FrmCalcula::OnOffOption> FrmCalcula::onOffOptions() {
    using S = calc::CalcSettings;
    static const OnOffOption options[] = {
        {"mnuBackup", txt::kMnuBackup, &S::backup, keys::kBackup, &FrmCalcula::applyEngineOptions},
        {"mnuOcultar", txt::kMnuOcultar, &S::keypadHidden, {}, &FrmCalcula::Arrange},
        {"mnuFicar", txt::kMnuFicar, &S::stayInTray, keys::kFicarSystray, nullptr},
        {"mnuMonit", txt::kMnuMonit, &S::monitor, keys::kMonitor, nullptr},
        {"mnuVisivel", txt::kMnuVisivel, &S::alwaysOnTop, {}, &FrmCalcula::applyOnTop},
        {"mnuGrande", txt::kMnuGrande, &S::largeLetters, keys::kLetrona, &FrmCalcula::Arrange},
        {"mnuNumLock", txt::kMnuNumLock, &S::numLock, keys::kNumLock, &FrmCalcula::numLockOptionChanged},
        {"mnuXP", txt::kMnuXP, &S::menuXP, keys::kMenuXP, &FrmCalcula::tellRestartNeeded},
    };
    return options;
}

QAction* FrmCalcula::makeAction(QMenu* menu, const char* name, int textCode) {
    auto* action = menu->addAction(QString());
    action->setObjectName(QLatin1String(name));
    m_captions->add(action, textCode);
    return action;
}

QAction* FrmCalcula::addAction(QMenu* menu, const char* name, int textCode, std::function<void()> slot) {
    QAction* action = makeAction(menu, name, textCode);
    if (slot) {
        connect(action, &QAction::triggered, this, std::move(slot));
    } else {
        action->setEnabled(false);  // its window is not there yet
    }
    return action;
}

QAction* FrmCalcula::addOnOff(QMenu* menu, const char* name) {
    const auto options = onOffOptions();
    const auto option = std::find_if(options.begin(), options.end(),
                                     [&](const OnOffOption& o) { return std::string_view(o.name) == name; });
    QAction* action = makeAction(menu, name, option->textCode);
    action->setCheckable(true);
    action->setChecked(m_settings.*option->setting);
    connect(action, &QAction::triggered, this, [this, option](bool on) {
        m_settings.*option->setting = on;
        if (!option->key.empty()) {
            saveOption(option->key, common::boolText(on));
        }
        if (option->follow != nullptr) {
            (this->*option->follow)();
        }
    });
    return action;
}

QActionGroup* FrmCalcula::addChoices(QMenu* menu, std::initializer_list<const char*> names, int firstCode,
                                     std::function<void(int index)> chosen) {
    auto* group = new QActionGroup(this);
    int index = 0;
    for (const char* name : names) {
        QAction* action = makeAction(menu, name, firstCode + index);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [chosen, index] { chosen(index); });
        group->addAction(action);
        ++index;
    }
    return group;
}

QMenu* FrmCalcula::addSubmenu(QWidget* parent, const char* name, int textCode) {
    auto* menu = new QMenu(parent);
    menu->setObjectName(QLatin1String(name));
    m_captions->add(menu, textCode);
    if (auto* bar = qobject_cast<QMenuBar*>(parent)) {
        bar->addMenu(menu);
    } else if (auto* owner = qobject_cast<QMenu*>(parent)) {
        owner->addMenu(menu);
    }
    return menu;
}

void FrmCalcula::buildMenus() {
    QMenuBar* bar = menuBar();

    QMenu* opcoes = addSubmenu(bar, "mnuOpcoes", txt::kMnuOpcoes);
    addAction(opcoes, "mnuOutra", txt::kMnuOutra, [this] { mnuOutra_Click(); });
    addAction(opcoes, "mnuWindows", txt::kMnuWindows, [this] { mnuWindows_Click(); });
    opcoes->addSeparator();
    addAction(opcoes, "mnuData", txt::kMnuData, [this] {
        // A pending amount is struck first, as "=" would, so the tape is whole before the block.
        if (m_calc.calculationInProgress()) {
            Form_KeyPress('=');
        }
        m_tools.open<FrmData>();
    });
    mnuTempo = addAction(opcoes, "mnuTempo", txt::kMnuTempo, [this] {
        applyEngineOptions();
        refresh();
    });
    mnuTempo->setCheckable(true);
    mnuTempo->setChecked(m_ctx.timeMode);
    addAction(opcoes, "mnuJuro", txt::kMnuJuro, [this] {
        if (m_calc.calculationInProgress()) {
            Form_KeyPress('=');
        }
        m_tools.open<FrmJuro>();
    });
    addAction(opcoes, "mnuRegra", txt::kMnuRegra, [this] { m_tools.open<FrmRegra>(); });
    opcoes->addSeparator();
    addAction(opcoes, "mnuCopiar", txt::kMnuCopiar, [this] {
        mnuCopiar_Click();
    })->setShortcut(QKeySequence::Copy);
    mnuUndo = addAction(opcoes, "mnuUndo", txt::kMnuUndo, [this] {
        m_calc.undo();
        refresh();
    });
    mnuUndo->setShortcut(QKeySequence::Undo);
    mnuRedo = addAction(opcoes, "mnuRedo", txt::kMnuRedo, [this] {
        m_calc.redo();
        refresh();
    });
    mnuRedo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y));
    opcoes->addSeparator();
    addAction(opcoes, "mnuExtenso", txt::kMnuExtenso, [this] { mnuExtenso_Click(); });
    addAction(opcoes, "mnuCheque", txt::kMnuCheque, [this] { openDocument<FrmCheque>(); });
    addAction(opcoes, "mnuPromissoria", txt::kMnuPromissoria, [this] { openDocument<FrmPromissoria>(); });
    addAction(opcoes, "mnuConverte", txt::kMnuConverte, [this] { m_tools.open<FrmConverte>(); });
    // The utilities belong to the tray program; a copy without one has none to offer.
    QAction* util = addAction(opcoes, "mnuUtil", txt::kMnuUtil, nullptr);
    if (m_ctx.utilities != nullptr) {
        // A menu of its own holding the tray's actions: handing over the tray's menu itself would
        // make this item the menu's title holder, and the tray's entry would keep its old caption.
        auto* own = new QMenu(this);
        own->setObjectName(QStringLiteral("mnuUtilCalc"));
        own->addActions(m_ctx.utilities->actions());
        util->setMenu(own);
        util->setEnabled(true);
    }

    QMenu* fita = addSubmenu(bar, "mnuFita", txt::kMnuFita);
    mnuEditar = addAction(fita, "mnuEditar", txt::kMnuEditar, [this] { mnuEditar_Click(); });
    mnuEditar->setCheckable(true);
    addAction(fita, "mnuLocalizar", txt::kMnuLocalizar, [this] {
        mnuLocalizar_Click();
    })->setShortcut(QKeySequence::Find);
    addAction(fita, "mnuAgrupar", txt::kMnuAgrupar, [this] { mnuAgrupar_Click(); });
    fita->addSeparator();
    addAction(fita, "mnuLimpar", txt::kMnuLimpar, [this] {
        showClearReport(m_calc.clearTape());
        refresh();
    });
    addOnOff(fita, "mnuBackup");
    addAction(fita, "mnuMostraBack", txt::kMnuMostraBack, [this] { mnuMostraBack_Click(); });
    fita->addSeparator();
    for (int i = 0; i < 3; ++i) {
        const QByteArray name = "mnuImprimir" + QByteArray::number(i);
        addAction(fita, name.constData(), txt::kMnuImprimir + i, [this, i] { mnuImprimir_Click(i); });
    }
    addAction(fita, "mnuMatricial", txt::kMnuMatricial, [this] { mnuMatricial_Click(); });
    fita->addSeparator();
    addAction(fita, "mnuSalvar", txt::kMnuSalvar, [this] { mnuSalvar_Click(); });

    QMenu* form = addSubmenu(bar, "mnuForm", txt::kMnuForm);
    for (const char* option :
         {"mnuOcultar", "mnuFicar", "mnuMonit", "mnuVisivel", "mnuGrande", "mnuNumLock"}) {
        addOnOff(form, option);
    }
    form->addSeparator();
    addChoiceMenus(form);
    showChoices();

    QMenu* ajuda = addSubmenu(bar, "mnuAjuda", txt::kMnuAjuda);
    addAction(ajuda, "mnuCalc", txt::kMnuCalc, [this] { mnuCalc_Click(); });
    addAction(ajuda, "mnuEmail", txt::kMnuEmail, [this] { mnuEmail_Click(); });

    if (m_settings.menuXP) {
        for (QMenu* menu : findChildren<QMenu*>()) {
            applyOfficeMenuLook(menu);
        }
        // The icons come from the icon theme, which is slow to read: they are looked up when the
        // menu bar is first opened, not while the window starts.
        connect(
            bar, &QMenuBar::hovered, this,
            [this] {
                const std::pair<const char*, QStyle::StandardPixmap> icons[] = {
                    {"mnuCopiar", QStyle::SP_FileDialogDetailedView},
                    {"mnuUndo", QStyle::SP_ArrowBack},
                    {"mnuRedo", QStyle::SP_ArrowForward},
                    {"mnuLocalizar", QStyle::SP_FileDialogContentsView},
                    {"mnuLimpar", QStyle::SP_TrashIcon},
                    {"mnuSalvar", QStyle::SP_DialogSaveButton},
                    {"mnuOutra", QStyle::SP_TitleBarNormalButton},
                    {"mnuCalc", QStyle::SP_MessageBoxInformation},
                    {"mnuEmail", QStyle::SP_DialogYesButton},
                    {"mnuMostraBack", QStyle::SP_FileIcon},
                };
                for (const auto& [name, pixmap] : icons) {
                    if (auto* action = findChild<QAction*>(QLatin1String(name));
                        action && action->icon().isNull()) {
                        action->setIcon(style()->standardIcon(pixmap));
                    }
                }
            },
            Qt::SingleShotConnection);
    }
}

void FrmCalcula::addChoiceMenus(QMenu* form) {
    m_choices[kFormat] = addChoices(addSubmenu(form, "mnuNumeral", txt::kMnuNumeralMenu),
                                    {"mnuNumeral0", "mnuNumeral1", "mnuNumeral2"}, txt::kMnuNumeral,
                                    [this](int index) { mnuNumeral_Click(index); });
    m_choices[kScheme] = addChoices(addSubmenu(form, "mnuEsquema", txt::kMnuEsquema),
                                    {"mnuCor1", "mnuCor2", "mnuCor3", "mnuCor4"}, txt::kMnuCor,
                                    [this](int index) { mnuCor_Click(index + 1); });
    m_choices[kSound] = addChoices(addSubmenu(form, "mnuSomEscolher", txt::kMnuSomEscolher),
                                   {"mnuSemSom", "mnuBeep", "mnuSom"}, txt::kMnuSemSom, [this](int index) {
                                       const auto sound = static_cast<calc::KeySound>(index + 1);
                                       chooseSound(sound, sound == calc::KeySound::Musical);
                                   });
    m_choices[kLanguage] = addChoices(addSubmenu(form, "mnuIdioma", txt::kMnuIdioma),
                                      {"mnuPortuguese", "mnuEnglish", "mnuSpanish"}, txt::kMnuPortuguese,
                                      [this](int index) { mnuIdioma_Click(index + 1); });
    addOnOff(form, "mnuXP");
    m_choices[kEnterKey] = addChoices(
        addSubmenu(form, "mnu4", txt::kMnu4), {"mnuEnter", "mnuIgual"}, txt::kMnuEnter, [this](int index) {
            mnuEnter_Click(index == 0 ? calc::EnterAction::Plus : calc::EnterAction::Equals);
        });
}

// ---- options and looks -----------------------------------------------------------------------

void FrmCalcula::showChoices() {
    // A scheme of 0 (none chosen yet) has no menu item.
    const auto check = [](QActionGroup* group, int index) {
        if (index >= 0 && index < group->actions().size()) {
            group->actions().at(index)->setChecked(true);
        }
    };
    check(m_choices[kFormat], static_cast<int>(m_settings.format));
    check(m_choices[kScheme], m_settings.colourScheme - 1);
    check(m_choices[kSound], static_cast<int>(m_settings.sound) - 1);
    check(m_choices[kLanguage], static_cast<int>(language()) - 1);
    check(m_choices[kEnterKey], m_settings.enter == calc::EnterAction::Plus ? 0 : 1);
}

void FrmCalcula::applyEngineOptions() {
    m_calc.setOptions(calc::engineOptions(m_settings, mnuTempo->isChecked()));
}

void FrmCalcula::applyOnTop() {
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, m_settings.alwaysOnTop);
    if (shown) {
        show();
    }
}

void FrmCalcula::numLockOptionChanged() {
    applyEngineOptions();
    keepNumLockOn();
}

void FrmCalcula::tellRestartNeeded() {
    m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kRestartNeeded));
}

void FrmCalcula::Arrange() {
    // One routine lays the window out: at load, after a resize of the letters, keypad shown or not.
    const bool large = m_settings.largeLetters;
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const auto sized = [large](QFont font, double normalSize, double largeSize, bool bold) {
        font.setPointSizeF(large ? largeSize : normalSize);
        font.setBold(bold);
        return font;
    };
    lblVisor0->setFont(sized(fixed, 18, 26, true));
    lblVisor1->setFont(sized(font(), 9, 12, false));
    lblTotal->setFont(sized(fixed, 12, 16, true));
    const QFont keyFont = sized(font(), 11, 16, true);
    const int keyHeight = QFontMetrics(keyFont).height() * 2;
    for (QPushButton* b : fraTeclado->findChildren<QPushButton*>()) {
        b->setFont(keyFont);
        b->setMinimumHeight(keyHeight);
    }
    const QFont tapeFont = sized(fixed, 10, 13, false);
    txtFita->setFont(tapeFont);
    // The tape is 26 columns wide; the window is never narrower than that.
    const int tapeWidth = QFontMetrics(tapeFont).horizontalAdvance(QString(28, QLatin1Char('0'))) +
                          txtFita->verticalScrollBar()->sizeHint().width() + 16;
    m_tapeWidth = tapeWidth + 12;
    findChild<QWidget*>(QStringLiteral("fraCorpo"))->setMaximumWidth(m_tapeWidth);
    fitWidth();
    fraTeclado->setVisible(!m_settings.keypadHidden);
}

void FrmCalcula::fitWidth() {
    // Never narrower than the tape, nor than the menu bar in the language shown.
    setMinimumWidth(std::max(m_tapeWidth, menuBar()->sizeHint().width()));
}

void FrmCalcula::applyColours() {
    applyColourScheme(
        m_settings.colourScheme,
        SchemeTargets{centralWidget(), fraTeclado, txtFita, findChild<QFrame*>(QStringLiteral("fraVisor")),
                      m_operatorKeys, findChild<QLabel*>(QStringLiteral("imgUSA"))});
}

void FrmCalcula::languageShown() {
    showChoices();
    fitWidth();
}

bool FrmCalcula::event(QEvent* event) {
    // The frame the window manager adds (title bar, borders) is known only once it has framed the
    // window: the first time it is, the framed window is fitted onto the screen again.
    if (!m_frameKept && (event->type() == QEvent::Move || event->type() == QEvent::Resize) && isVisible()) {
        const QRect inner = geometry();
        const QRect outer = frameGeometry();
        const QMargins frame(inner.left() - outer.left(), inner.top() - outer.top(),
                             outer.right() - inner.right(), outer.bottom() - inner.bottom());
        if (!frame.isNull()) {
            m_frameKept = true;
            const QRect placed = keepOnScreen(inner, screenAreas(), frame);
            if (placed != inner) {
                QTimer::singleShot(0, this, [this, placed] { setGeometry(placed); });
            }
        }
    }
    return QMainWindow::event(event);
}

void FrmCalcula::restoreGeometry() {
    const QSize design = sizeHint().expandedTo(QSize(minimumWidth(), 560));
    const QRect wanted(m_settings.left.value_or(0), m_settings.top, design.width(),
                       m_settings.height.value_or(design.height()));
    const QRect placed = keepOnScreen(wanted, screenAreas());
    if (m_settings.left.has_value() || m_settings.height.has_value()) {
        move(placed.topLeft());
    }
    resize(placed.size());
}

void FrmCalcula::refresh() {
    lblVisor0->setText(QString::fromStdString(m_calc.display()));
    lblVisor1->setText(QString::fromStdString(m_calc.counterText()));
    lblTotal->setText(QString::fromStdString(m_calc.totalText()));
    const calc::TotalState state = m_calc.state();
    lblTotal->setProperty("tag", state == calc::TotalState::Struck  ? QStringLiteral("T")
                                 : state == calc::TotalState::Error ? QStringLiteral("E")
                                                                    : QString());
    lblVisor0->setAccessibleDescription(lblVisor0->text());
    lblTotal->setAccessibleDescription(lblTotal->text());
    mnuUndo->setEnabled(m_calc.canUndo());
    mnuRedo->setEnabled(m_calc.canRedo());
}

void FrmCalcula::saveOption(std::string_view key, std::string_view value) {
    common::SaveSetting(*m_app.store, keys::kConfigura, key, value);
}

// ---- keys ------------------------------------------------------------------------------------

void FrmCalcula::Form_KeyPress(int key) {
    m_deleteArmed = false;
    const int accepted = m_calc.Form_KeyPress(key);
    QPushButton* pressed = nullptr;
    if (accepted >= '0' && accepted <= '9') {
        pressed = m_typedKeys[accepted - '0'];
    } else if (accepted == ',' || accepted == '.') {
        pressed = m_typedKeys[10];
    }
    if (pressed != nullptr && !pressed->isDown()) {
        pressed->setDown(true);
        QTimer::singleShot(90, pressed, [pressed] { pressed->setDown(false); });
    }
    afterKey(accepted);
}

void FrmCalcula::afterKey(int acceptedKey) {
    m_keySounds.strike(acceptedKey);
    refresh();
    if (!txtFita->editing()) {
        setFocus();
    }
}

void FrmCalcula::LimpaTudo() {
    m_calc.LimpaTudo();
    refresh();
}

void FrmCalcula::clearEntryKey() {
    m_deleteArmed = false;
    if (const std::optional<calc::ClearReport> report = m_calc.clearEntry()) {
        showClearReport(*report);
    }
    afterKey(0);
}

void FrmCalcula::deleteKey() {
    // Delete once zeroes the display, a second time in a row clears the tape.
    if (m_deleteArmed) {
        m_deleteArmed = false;
        showClearReport(m_calc.clearTape());
    } else {
        if (m_calc.hasEntryToClear()) {
            m_calc.clearEntry();
        }
        m_deleteArmed = true;
    }
    refresh();
}

void FrmCalcula::keyPressEvent(QKeyEvent* event) {
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    // The arrows scroll the tape a line, the page keys ten.
    const std::pair<int, int> scrolls[] = {
        {Qt::Key_Up, -1}, {Qt::Key_Down, 1}, {Qt::Key_PageUp, -10}, {Qt::Key_PageDown, 10}};
    for (const auto& [scrollKey, lines] : scrolls) {
        if (event->key() == scrollKey) {
            txtFita->scrollLines(lines);
            return;
        }
    }
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            return;
        case Qt::Key_F6:
            mnuOutra_Click();
            return;
        case Qt::Key_Delete:
            deleteKey();
            return;
        case Qt::Key_Backspace:
            Form_KeyPress(calc::key::kBackspace);
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Form_KeyPress(calc::key::kEnter);
            return;
        case Qt::Key_NumLock:
            // With Enter adding, the keypad's NumLock strikes the total; the press made to keep
            // NumLock on is not the user's.
            if (m_syntheticNumLock) {
                m_syntheticNumLock = false;
            } else if (m_settings.enter == calc::EnterAction::Plus) {
                Form_KeyPress('=');
            }
            return;
        default:
            break;
    }
    if (ctrl && event->key() == Qt::Key_S) {
        const int next = static_cast<int>(m_settings.sound) % 3 + 1;
        chooseSound(static_cast<calc::KeySound>(next), false);
        return;
    }
    const QString typed = event->text();
    if (!ctrl && typed.size() == 1 && typed[0].unicode() >= 0x20 && typed[0].unicode() < 0x7F) {
        Form_KeyPress(typed[0].unicode());
        return;
    }
    QMainWindow::keyPressEvent(event);
}

bool FrmCalcula::eventFilter(QObject* watched, QEvent* event) {
    // The tape takes the keyboard while it is being edited, and its copy and select-all keys;
    // otherwise keys are the calculator's.
    if (watched == txtFita && event->type() == QEvent::KeyPress &&
        !txtFita->takesKey(*static_cast<QKeyEvent*>(event))) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void FrmCalcula::keepNumLockOn() {
    if (m_ctx.keepNumLockOn && m_ctx.keepNumLockOn(m_settings.numLock)) {
        m_syntheticNumLock = true;
    }
}

void FrmCalcula::changeEvent(QEvent* event) {
    // Whenever the window comes to the front the laptop keypad is made ready again.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        keepNumLockOn();
    }
    QMainWindow::changeEvent(event);
}

void FrmCalcula::closeEvent(QCloseEvent* event) {
    if (txtFita->editing()) {
        mnuEditar->setChecked(false);
        mnuEditar_Click();
        if (txtFita->editing()) {  // a line to correct first: the edit is not thrown away
            event->ignore();
            return;
        }
    }
    m_settings.height = height();
    m_settings.top = y();
    m_settings.left = x();
    calc::saveOnClose(*m_app.store, m_settings);
    if (!m_ctx.auxiliary && m_ctx.setStartWithSystem) {
        m_ctx.setStartWithSystem(m_settings.stayInTray);
    }
    event->accept();
    if (m_ctx.onClosed) {
        m_ctx.onClosed(m_settings.stayInTray);
    }
}

void FrmCalcula::showClearReport(const calc::ClearReport& report) {
    if (report.backupFailed) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical, text(txt::kBackupWriteFailed));
    } else if (report.backupTooLarge) {
        m_app.dialogs->message(this, Dialogs::Icon::Warning, text(txt::kBackupTooLarge));
        mnuMostraBack_Click();
    }
}

void FrmCalcula::typeAmount(double value) {
    const std::string field = common::formatNumber(
        value, m_calc.options().timeMode ? common::pattern::kTime : "0.######", m_app.regional.separators);
    if (m_calc.enterAmount(field)) {
        Form_KeyPress('+');
    }
}

// ---- menu commands ---------------------------------------------------------------------------

void FrmCalcula::mnuOutra_Click() {
    QStringList words{QStringLiteral("outra")};
    if (mnuTempo->isChecked()) {
        words << QStringLiteral("tempo");
    }
    QProcess::startDetached(QCoreApplication::applicationFilePath(), words);
}

void FrmCalcula::mnuWindows_Click() {
#ifdef _WIN32
    const QStringList candidates{QStringLiteral("calc.exe")};
#else
    const QStringList candidates{QStringLiteral("gnome-calculator"), QStringLiteral("kcalc"),
                                 QStringLiteral("mate-calc"),        QStringLiteral("galculator"),
                                 QStringLiteral("qalculate-gtk"),    QStringLiteral("xcalc")};
#endif
    for (const QString& program : candidates) {
        const QString path = QStandardPaths::findExecutable(program);
        if (!path.isEmpty() && QProcess::startDetached(path, {})) {
            return;
        }
    }
    m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kSystemCalculatorMissing));
}

void FrmCalcula::mnuCopiar_Click() {
    m_ownClipboardText = QString::fromStdString(m_calc.display());
    QGuiApplication::clipboard()->setText(m_ownClipboardText);
}

template <class Document>
void FrmCalcula::openDocument() {
    const double amount = m_calc.wordsAmount();
    if (!documents::amountInRange(amount)) {
        m_app.dialogs->message(this, Dialogs::Icon::Warning,
                               QString::fromStdString(documents::amountRangeMessage(
                                   m_app.language->current(), m_app.regional.separators)));
        return;
    }
    // Modal to the calculator, and gone once closed: the next one starts from the display again.
    auto* document = new Document(m_app, amount, this);
    document->show();
}

void FrmCalcula::mnuExtenso_Click() {
    const double value = m_calc.wordsAmount();
    const std::optional<std::string> words = words::ConverterExtenso(value, true);
    if (!words) {
        m_app.dialogs->message(this, Dialogs::Icon::Warning, text(txt::kWordsInvalid));
        return;
    }
    // The figure and the words go together, as a cheque or a receipt writes them.
    const QString money = QString::fromStdString(common::FormatMoney(value, m_app.regional.separators));
    m_ownClipboardText = QStringLiteral("$ %1 (%2)").arg(money, QString::fromStdString(*words));
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(m_ownClipboardText);
    m_app.dialogs->message(this, Dialogs::Icon::Information,
                           QStringLiteral("%1\n\n%2\n%3")
                               .arg(m_ownClipboardText, text(txt::kWordsOnClipboard), text(txt::kPasteHint)));
}

void FrmCalcula::mnuEditar_Click() {
    if (mnuEditar->isChecked()) {
        if (m_calc.calculationInProgress()) {
            mnuEditar->setChecked(false);
            m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kEditWhileCalculating));
            return;
        }
        txtFita->setEditing(true);
        return;
    }
    if (const std::optional<std::size_t> bad = m_calc.applyEdit(txtFita->editedText())) {
        // The edit stays open on the line to correct; nothing of it is taken yet.
        mnuEditar->setChecked(true);
        txtFita->selectLine(static_cast<int>(*bad));
        m_app.dialogs->message(this, Dialogs::Icon::Warning, text(txt::kEditNotAmount));
        txtFita->setFocus();
        return;
    }
    txtFita->setEditing(false);
    refresh();
    setFocus();
}

void FrmCalcula::mnuLocalizar_Click() {
    const std::optional<QString> answer =
        m_app.dialogs->ask(this, text(txt::kFindTitle), text(txt::kFindPrompt), QString());
    if (!answer || answer->trimmed().isEmpty()) {
        return;
    }
    const std::string needle = answer->trimmed().toStdString();
    const std::optional<std::size_t> at = m_calc.tape().find(needle);
    if (!at) {
        m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kFindEnd));
        return;
    }
    txtFita->selectBytes(*at, needle.size());
}

void FrmCalcula::mnuMostraBack_Click() {
    const std::filesystem::path path = m_app.dataFolder / std::string(calc::kBackupFileName);
    if (!std::filesystem::exists(path)) {
        m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kBackupMissing));
        return;
    }
    const QString file = QString::fromStdString(path.string());
    if (m_app.dialogs->openUrl(file)) {
        return;
    }
    // No viewer on this desktop for the file: the program shows it itself.
    const std::optional<std::string> bytes = common::readFileBytes(path);
    if (!bytes) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical, text(txt::kBackupOpenFailed, file));
        return;
    }
    auto* viewer = new BackupViewer(QString::fromStdString(path.filename().string()),
                                    QString::fromStdString(common::decodeTextFile(*bytes)), language(), this);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->show();
}

void FrmCalcula::mnuImprimir_Click(int size) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Zavrello"));
    keepClearOfPaperEdges(printer);
    const std::optional<common::Date> today =
        m_app.clock != nullptr ? common::dateOf(m_app.clock->now()) : std::nullopt;
    const QString day = today ? QString::fromStdString(common::formatDate(*today, m_app.regional.dateOrder,
                                                                          m_app.regional.dateSeparator))
                              : QString();
    TapePages pages(QString::fromStdString(m_calc.tape().text()), static_cast<PrintSize>(size), day,
                    [this](int page, int count) {
                        return text(txt::kPageOfPages, QString::number(page), QString::number(count));
                    });
    bool failed = false;
    m_app.dialogs->print(this, printer, [&](QPrinter& target) {
        const bool ok = printTape(target, pages);
        failed = failed || !ok;
        return ok;
    });
    if (failed) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical, text(txt::kPrinterFailed));
    }
}

void FrmCalcula::mnuMatricial_Click() {
    const std::optional<QString> answer = m_app.dialogs->ask(
        this, QStringLiteral(" Zavrello"), text(txt::kPortPrompt), QString::fromStdString(m_settings.port));
    if (!answer) {
        return;
    }
    const std::optional<std::string> port = calc::acceptRollPort(answer->toStdString());
    if (!port) {
        return;
    }
    m_settings.port = *port;
    saveOption(keys::kPorta, *port);
    const std::string device = platform::rollPortDevice(*port);
    const platform::PortResult result =
        platform::writeToPort(device, calc::rollPrinterText(m_calc.tape().text()));
    if (result == platform::PortResult::Written) {
        m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kWaitForPrinter));
    } else {
        m_app.dialogs->message(
            this, Dialogs::Icon::Critical,
            text(txt::kPortFailed, QString::fromStdString(*port), QString::fromStdString(device)));
    }
}

void FrmCalcula::mnuSalvar_Click() {
    const QString folder = m_settings.lastFolder.empty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : QString::fromStdString(m_settings.lastFolder);
    const QString initial = QDir(folder).filePath(QString::fromStdString(m_settings.lastFile));
    const QString chosen = m_app.dialogs->saveFileName(this, text(txt::kSaveFilterName), initial);
    if (chosen.isEmpty()) {
        return;
    }
    if (!common::writeFileAtomically(std::filesystem::path(chosen.toStdString()), m_calc.tape().text())) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical, text(txt::kSaveFailed, chosen));
        return;
    }
    const QFileInfo info(chosen);
    m_settings.lastFile = info.fileName().toStdString();
    m_settings.lastFolder = info.absolutePath().toStdString();
    saveOption(keys::kUltimoArq, m_settings.lastFile);
    saveOption(keys::kUltimoPath, m_settings.lastFolder);
}

void FrmCalcula::mnuNumeral_Click(int index) {
    m_settings.format = static_cast<calc::NumberFormat>(index);
    applyEngineOptions();
    saveOption(keys::kFormato, std::to_string(index));
    refresh();
}

void FrmCalcula::mnuCor_Click(int scheme) {
    m_settings.colourScheme = scheme;
    applyColours();
    saveOption(keys::kCor, std::to_string(scheme));
}

void FrmCalcula::chooseSound(calc::KeySound sound, bool askInstrument) {
    if (askInstrument) {
        QString offered = QStringLiteral("%1").arg(m_settings.instrument, 3, 10, QLatin1Char('0'));
        int instrument = -1;
        while (instrument < 0) {
            const std::optional<QString> answer =
                m_app.dialogs->ask(this, text(txt::kInstrumentTitle), text(txt::kInstrumentPrompt), offered);
            if (!answer) {
                showChoices();  // the check mark goes back to the sound in force
                return;
            }
            bool ok = false;
            const int number = answer->trimmed().toInt(&ok);
            if (ok && number >= 0 && number <= 127) {
                instrument = number;
            } else {
                m_app.dialogs->message(this, Dialogs::Icon::Warning, text(txt::kInstrumentRange));
                offered = *answer;
            }
        }
        m_settings.instrument = instrument;
        saveOption(keys::kInstrumento, std::to_string(instrument));
    }
    m_settings.sound = sound;
    showChoices();
    saveOption(keys::kSons, std::to_string(static_cast<int>(sound)));
    m_keySounds.choose(sound, m_settings.instrument);
    m_keySounds.prepare();
}

void FrmCalcula::midiFailed() {
    // Keys typed meanwhile are not held up by a message: the notice waits in the window, and the
    // keys beep instead of playing.
    findChild<QFrame*>(QStringLiteral("fraAviso"))->show();
}

void FrmCalcula::mnuIdioma_Click(int language) {
    m_settings.language = language;
    saveOption(keys::kIdiomas2, std::to_string(language));
    m_app.language->set(static_cast<common::Language>(language));
}

void FrmCalcula::mnuEnter_Click(calc::EnterAction enter) {
    m_settings.enter = enter;
    applyEngineOptions();
    saveOption(keys::kCalcEnter, calc::storedEnter(enter));
    if (enter == calc::EnterAction::Plus) {
        m_app.dialogs->message(this, Dialogs::Icon::Information, text(txt::kEnterAddsInfo));
    }
}

void FrmCalcula::mnuCalc_Click() {
    const QString title = QStringLiteral(" Zavrello  -  9.0.%1").arg(kBuildNumber);
    if (m_app.dialogs->question(this, title + QStringLiteral("\n\n") + text(txt::kTips),
                                Dialogs::Buttons::YesNo) == Dialogs::Answer::Yes &&
        !m_app.dialogs->openUrl(QString::fromLatin1(kWebPage))) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical, text(txt::kBrowserFailed));
    }
}

void FrmCalcula::mnuEmail_Click() {
    const QString url = QStringLiteral("mailto:%1?subject=Zavrello 9.0.%2 (build %2)")
                            .arg(QString::fromLatin1(kSupportAddress))
                            .arg(kBuildNumber);
    if (!m_app.dialogs->openUrl(url)) {
        m_app.dialogs->message(this, Dialogs::Icon::Critical,
                               text(txt::kMailFailed, QString::fromLatin1(kSupportAddress)));
    }
}

void FrmCalcula::clipboardChanged() {
    if (!m_settings.monitor || txtFita->editing()) {
        return;
    }
    const QString copied = QGuiApplication::clipboard()->text();
    if (copied.isEmpty() || copied == m_ownClipboardText) {
        return;
    }
    const calc::ClipboardNumbers numbers = calc::readClipboardNumbers(
        copied.toStdString(), m_app.regional.separators, m_calc.options().timeMode);
    switch (numbers.kind) {
        case calc::ClipboardNumbers::Kind::NotNumbers:
            return;
        case calc::ClipboardNumbers::Kind::InvalidSelection:
            m_app.dialogs->message(this, Dialogs::Icon::Warning, text(txt::kInvalidSelection));
            return;
        case calc::ClipboardNumbers::Kind::Amounts:
            for (const double value : numbers.values) {
                typeAmount(value);
            }
            return;
        case calc::ClipboardNumbers::Kind::Products:
            for (const double value : numbers.values) {
                typeAmount(value);
            }
            m_ownClipboardText =
                QString::fromStdString(calc::productsText(numbers.values, m_app.regional.separators));
            QGuiApplication::clipboard()->setText(m_ownClipboardText);
            return;
    }
}

}  // namespace zv::app
