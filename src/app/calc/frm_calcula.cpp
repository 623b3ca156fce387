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
#include <QScreen>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/calc/tape_printer.h"
#include "app/calc/tape_view.h"
#include "app/common/dialogs.h"
#include "app/common/menu_look.h"
#include "core/calc/clipboard_numbers.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/settings_keys.h"
#include "core/common/text_file.h"
#include "core/common/text_table.h"
#include "core/words/amount_in_words.h"
#include "platform/roll_port.h"

#ifndef ZV_BUILD_NUMBER
#define ZV_BUILD_NUMBER 1
#endif

namespace zv::app {
namespace {

namespace keys = common::settings;
using common::txt::kBackupOpenFailed;

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

// The colours of a scheme, as 0x00BBGGRR values; kButtonFace stands for the system's colour.
constexpr unsigned kButtonFace = 0x8000000F;
constexpr unsigned kUnchanged = 0xFFFFFFFF;
struct Scheme {
    unsigned window, keypad, tape, tapeText, operators, display;
};
constexpr Scheme kSchemes[] = {
    {kButtonFace, kButtonFace, 0xFFFFFF, 0x000000, kButtonFace, 0xFFFFC0},  // 0: as designed
    {kButtonFace, kButtonFace, 0xFFFFFF, 0xFF0000, 0xFFFFFF, 0xFFFFC0},     // 1 "Padrão"
    {0xFFFFFF, kUnchanged, 0xFFFFFF, 0x000000, 0x80C0FF, 0xFFFFC0},         // 2 "USA"
    {0x00FFFF, 0xC0FFC0, 0xC0FFC0, 0x000000, 0xFFFF80, 0x80FF80},           // 3 "Verde"
    {0xFFC0FF, 0xFF80FF, 0xC0FFFF, 0x000000, 0x80C0FF, 0xFFFFFF},           // 4 "Rosa"
};

QColor fromBgr(unsigned bgr, const QColor& system) {
    if (bgr == kButtonFace) {
        return system;
    }
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

void paintBackground(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

QString plainCaption(QString caption) {
    return caption.remove(QLatin1Char('&'));
}

}  // namespace

FrmCalcula::FrmCalcula(CalcWindowContext context, QWidget* parent)
    : QMainWindow(parent),
      m_ctx(std::move(context)),
      m_settings(calc::loadCalcSettings(*m_ctx.store)),
      m_language(m_settings.language >= 1 && m_settings.language <= 3
                     ? static_cast<common::Language>(m_settings.language)
                     : m_ctx.regional.language),
      m_backup(m_ctx.dataFolder / std::string(calc::kBackupFileName)),
      m_calc(m_ctx.regional, calc::engineOptions(m_settings, m_ctx.timeMode),
             calc::CalculatorServices{m_ctx.clock, &m_backup}),
      m_sounds(m_ctx.makeMidi,
               m_ctx.beep ? m_ctx.beep : std::function<void()>([] { QApplication::beep(); })) {
    setObjectName(QStringLiteral("frmCalcula"));
    setFocusPolicy(Qt::StrongFocus);
    buildWidgets();
    buildMenus();

    // The tape of the last session, kept as it grows; a file that cannot be read is left alone.
    const std::filesystem::path tapePath = calc::tapeFilePath(m_ctx.dataFolder, m_ctx.tapeSuffix);
    const std::optional<std::string> saved = calc::loadTape(tapePath);
    m_calc.loadTape(saved.value_or(std::string()));
    txtFita->reset(m_calc.tape().text());
    m_tapeFile = std::make_unique<calc::TapeFile>(tapePath);
    const bool fileOpen = saved.has_value() && m_tapeFile->open(m_calc.tape().text());
    m_fanOut = std::make_unique<FanOutSink>(txtFita, fileOpen ? m_tapeFile.get() : nullptr);
    m_calc.setTapeSink(m_fanOut.get());

    applySettings();
    applyLanguage();
    restoreGeometry();
    refresh();

    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &FrmCalcula::clipboardChanged);
    m_sounds.choose(m_settings.sound, m_settings.instrument);
    if (m_settings.sound == calc::KeySound::Musical) {
        // After the window is up: the synthesizer takes a moment to load its sounds.
        QTimer::singleShot(300, this, &FrmCalcula::openMidi);
    }
}

FrmCalcula::~FrmCalcula() {
    m_calc.setTapeSink(nullptr);
}

bool FrmCalcula::tapeFileHealthy() const {
    return m_tapeFile && m_tapeFile->healthy();
}

QString FrmCalcula::text(int code, const QString& arg1, const QString& arg2) const {
    return QString::fromStdString(common::GetText(m_language, code, arg1.toStdString(), arg2.toStdString()));
}

// ---- widgets ---------------------------------------------------------------------------------

void FrmCalcula::buildWidgets() {
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("fraJanela"));
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(6, 6, 6, 6);
    column->setSpacing(4);

    // A notice the user reads and dismisses when it suits them: it never takes the keyboard.
    fraAviso = new QFrame(central);
    fraAviso->setObjectName(QStringLiteral("fraAviso"));
    fraAviso->setFrameShape(QFrame::StyledPanel);
    paintBackground(fraAviso, QPalette::Window, QColor(0xFF, 0xF4, 0xC0));
    auto* noticeRow = new QHBoxLayout(fraAviso);
    noticeRow->setContentsMargins(6, 2, 2, 2);
    lblAviso = new QLabel(fraAviso);
    lblAviso->setObjectName(QStringLiteral("lblAviso"));
    lblAviso->setWordWrap(true);
    lblAviso->setTextInteractionFlags(Qt::NoTextInteraction);
    noticeRow->addWidget(lblAviso, 1);
    auto* dismiss = new QToolButton(fraAviso);
    dismiss->setObjectName(QStringLiteral("cmdFecharAviso"));
    dismiss->setText(QStringLiteral("\u00D7"));
    dismiss->setAutoRaise(true);
    dismiss->setFocusPolicy(Qt::NoFocus);
    connect(dismiss, &QToolButton::clicked, this, [this] {
        m_noticeCode = 0;
        fraAviso->hide();
    });
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

    lblTotal = new QLabel(central);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));
    lblTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    column->addWidget(lblTotal);

    fraTeclado = new QFrame(central);
    fraTeclado->setObjectName(QStringLiteral("fraTeclado"));
    auto* grid = new QGridLayout(fraTeclado);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(3);
    auto button = [&](const char* name, const QString& caption, int row, int col) {
        auto* b = new QPushButton(caption, fraTeclado);
        b->setObjectName(QLatin1String(name));
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        grid->addWidget(b, row, col);
        return b;
    };
    chkCE = button("chkCE", QStringLiteral("CE"), 0, 0);
    chkBack = button("chkBack", QStringLiteral("\u2190"), 0, 1);
    chkNeg = button("chkNeg", QStringLiteral("\u00B1"), 0, 2);
    chkDividir = button("chkDividir", QStringLiteral("\u00F7"), 0, 3);
    const int digitCells[10][2] = {{4, 0}, {3, 0}, {3, 1}, {3, 2}, {2, 0},
                                   {2, 1}, {2, 2}, {1, 0}, {1, 1}, {1, 2}};
    for (int d = 0; d < 10; ++d) {
        const QByteArray name = "chkNum" + QByteArray::number(d);
        chkNum[d] = button(name.constData(), QString::number(d), digitCells[d][0], digitCells[d][1]);
        connect(chkNum[d], &QPushButton::clicked, this, [this, d] { Form_KeyPress('0' + d); });
    }
    chkVezes = button("chkVezes", QStringLiteral("\u00D7"), 1, 3);
    chkMenos = button("chkMenos", QStringLiteral("\u2212"), 2, 3);
    chkMais = button("chkMais", QStringLiteral("+"), 3, 3);
    chkVirgula = button("chkVirgula", QString::fromStdString(m_ctx.regional.separators.decimal), 4, 1);
    chkPercent = button("chkPercent", QStringLiteral("%"), 4, 2);
    chkIgual = button("chkIgual", QStringLiteral("="), 4, 3);
    column->addWidget(fraTeclado);

    connect(chkVirgula, &QPushButton::clicked, this, [this] { Form_KeyPress(','); });
    connect(chkNeg, &QPushButton::clicked, this, [this] {
        m_calc.changeSign();
        afterKey(0);
    });
    connect(chkBack, &QPushButton::clicked, this, [this] { Form_KeyPress(calc::key::kBackspace); });
    connect(chkCE, &QPushButton::clicked, this, &FrmCalcula::clearEntryKey);
    connect(chkMais, &QPushButton::clicked, this,
            [this] { Form_KeyPress(m_settings.enter == calc::EnterAction::Plus ? calc::key::kEnter : '+'); });
    connect(chkMenos, &QPushButton::clicked, this, [this] { Form_KeyPress('-'); });
    connect(chkVezes, &QPushButton::clicked, this, [this] { Form_KeyPress('*'); });
    connect(chkDividir, &QPushButton::clicked, this, [this] { Form_KeyPress('/'); });
    connect(chkPercent, &QPushButton::clicked, this, [this] { Form_KeyPress('%'); });
    connect(chkIgual, &QPushButton::clicked, this, [this] { Form_KeyPress('='); });
    // A right click on + or = offers the function of the Enter key.
    for (QPushButton* b : {chkMais, chkIgual}) {
        b->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(b, &QWidget::customContextMenuRequested, this,
                [this, b](const QPoint& at) { mnu4->popup(b->mapToGlobal(at)); });
    }

    txtFita = new TapeView(central);
    column->addWidget(txtFita, 1);
    connect(txtFita, &TapeView::lineActivated, this, [this](const QString& line) {
        // The amount field of a tape line: its first 24 columns.
        if (m_calc.enterAmount(line.left(static_cast<int>(calc::kAmountColumns)).toStdString())) {
            refresh();
        }
        setFocus();
    });
    txtFita->installEventFilter(this);

    setCentralWidget(central);
}

QAction* FrmCalcula::addAction(QMenu* menu, const char* name, int textCode, void (FrmCalcula::*slot)()) {
    auto* action = menu->addAction(QString());
    action->setObjectName(QLatin1String(name));
    m_captions[action] = textCode;
    if (slot != nullptr) {
        connect(action, &QAction::triggered, this, slot);
    }
    return action;
}

QAction* FrmCalcula::addOption(QMenu* menu, const char* name, int textCode, void (FrmCalcula::*slot)()) {
    QAction* action = addAction(menu, name, textCode, slot);
    action->setCheckable(true);
    return action;
}

void FrmCalcula::buildMenus() {
    auto submenu = [this](QWidget* parent, const char* name, int code) {
        auto* m = new QMenu(parent);
        m->setObjectName(QLatin1String(name));
        m_captions[m] = code;
        if (auto* bar = qobject_cast<QMenuBar*>(parent)) {
            bar->addMenu(m);
        } else if (auto* owner = qobject_cast<QMenu*>(parent)) {
            owner->addMenu(m);
        }
        return m;
    };
    QMenuBar* bar = menuBar();

    QMenu* opcoes = submenu(bar, "mnuOpcoes", 88);
    addAction(opcoes, "mnuOutra", 89, &FrmCalcula::mnuOutra_Click);
    addAction(opcoes, "mnuWindows", 90, &FrmCalcula::mnuWindows_Click);
    opcoes->addSeparator();
    addAction(opcoes, "mnuData", 91, nullptr)->setEnabled(false);
    mnuTempo = addOption(opcoes, "mnuTempo", 92, &FrmCalcula::mnuTempo_Click);
    addAction(opcoes, "mnuJuro", 93, nullptr)->setEnabled(false);
    addAction(opcoes, "mnuRegra", 177, nullptr)->setEnabled(false);
    opcoes->addSeparator();
    addAction(opcoes, "mnuCopiar", 94, &FrmCalcula::mnuCopiar_Click)->setShortcut(QKeySequence::Copy);
    mnuUndo = addAction(opcoes, "mnuUndo", 217, &FrmCalcula::mnuUndo_Click);
    mnuUndo->setShortcut(QKeySequence::Undo);
    mnuRedo = addAction(opcoes, "mnuRedo", 219, &FrmCalcula::mnuRedo_Click);
    mnuRedo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y));
    opcoes->addSeparator();
    addAction(opcoes, "mnuExtenso", common::txt::kMnuExtenso, &FrmCalcula::mnuExtenso_Click);
    // The document fillers and the converter arrive with their own windows.
    addAction(opcoes, "mnuCheque", common::txt::kMnuCheque, nullptr)->setEnabled(false);
    addAction(opcoes, "mnuPromissoria", common::txt::kMnuPromissoria, nullptr)->setEnabled(false);
    addAction(opcoes, "mnuConverte", common::txt::kMnuConverte, nullptr)->setEnabled(false);
    // The utilities belong to the tray program; a copy without one has none to offer.
    QAction* util = addAction(opcoes, "mnuUtil", common::txt::kMnuUtil, nullptr);
    if (m_ctx.utilities != nullptr) {
        util->setMenu(m_ctx.utilities);
    } else {
        util->setEnabled(false);
    }

    QMenu* fita = submenu(bar, "mnuFita", 96);
    mnuEditar = addOption(fita, "mnuEditar", 97, &FrmCalcula::mnuEditar_Click);
    addAction(fita, "mnuLocalizar", 98, &FrmCalcula::mnuLocalizar_Click)->setShortcut(QKeySequence::Find);
    addAction(fita, "mnuAgrupar", 174, nullptr)->setEnabled(false);
    fita->addSeparator();
    addAction(fita, "mnuLimpar", 99, &FrmCalcula::mnuLimpar_Click);
    mnuBackup = addOption(fita, "mnuBackup", 170, &FrmCalcula::mnuBackup_Click);
    addAction(fita, "mnuMostraBack", 169, &FrmCalcula::mnuMostraBack_Click);
    fita->addSeparator();
    for (int i = 0; i < 3; ++i) {
        const QByteArray name = "mnuImprimir" + QByteArray::number(i);
        QAction* print = addAction(fita, name.constData(), 100 + i, nullptr);
        connect(print, &QAction::triggered, this, [this, i] { mnuImprimir_Click(i); });
    }
    addAction(fita, "mnuMatricial", 175, &FrmCalcula::mnuMatricial_Click);
    fita->addSeparator();
    addAction(fita, "mnuSalvar", common::txt::kMnuSalvar, &FrmCalcula::mnuSalvar_Click);

    QMenu* form = submenu(bar, "mnuForm", 103);
    mnuOcultar = addOption(form, "mnuOcultar", 104, &FrmCalcula::mnuOcultar_Click);
    mnuFicar = addOption(form, "mnuFicar", 105, &FrmCalcula::mnuFicar_Click);
    mnuMonit = addOption(form, "mnuMonit", 106, &FrmCalcula::mnuMonit_Click);
    mnuVisivel = addOption(form, "mnuVisivel", 107, &FrmCalcula::mnuVisivel_Click);
    mnuGrande = addOption(form, "mnuGrande", 214, &FrmCalcula::mnuGrande_Click);
    mnuNumLock = addOption(form, "mnuNumLock", 216, &FrmCalcula::mnuNumLock_Click);
    form->addSeparator();
    QMenu* numeral = submenu(form, "mnuNumeral", 108);
    auto* numerals = new QActionGroup(this);
    for (int i = 0; i < 3; ++i) {
        const QByteArray name = "mnuNumeral" + QByteArray::number(i);
        mnuNumeral[i] = addOption(numeral, name.constData(), 109 + i, nullptr);
        numerals->addAction(mnuNumeral[i]);
        connect(mnuNumeral[i], &QAction::triggered, this, [this, i] { mnuNumeral_Click(i); });
    }
    QMenu* esquema = submenu(form, "mnuEsquema", 112);
    auto* schemes = new QActionGroup(this);
    for (int i = 0; i < 4; ++i) {
        const QByteArray name = "mnuCor" + QByteArray::number(i + 1);
        mnuCor[i] = addOption(esquema, name.constData(), 113 + i, nullptr);
        schemes->addAction(mnuCor[i]);
        connect(mnuCor[i], &QAction::triggered, this, [this, i] { mnuCor_Click(i + 1); });
    }
    QMenu* sons = submenu(form, "mnuSomEscolher", 117);
    auto* sounds = new QActionGroup(this);
    mnuSemSom = addOption(sons, "mnuSemSom", 118, nullptr);
    mnuBeep = addOption(sons, "mnuBeep", common::txt::kBeep, nullptr);
    mnuSom = addOption(sons, "mnuSom", 120, nullptr);
    for (QAction* a : {mnuSemSom, mnuBeep, mnuSom}) {
        sounds->addAction(a);
    }
    connect(mnuSemSom, &QAction::triggered, this, [this] { mnuSom_Click(calc::KeySound::None); });
    connect(mnuBeep, &QAction::triggered, this, [this] { mnuSom_Click(calc::KeySound::Beep); });
    connect(mnuSom, &QAction::triggered, this, [this] { mnuSom_Click(calc::KeySound::Musical); });
    QMenu* idioma = submenu(form, "mnuIdioma", 121);
    auto* languages = new QActionGroup(this);
    mnuPortuguese = addOption(idioma, "mnuPortuguese", common::txt::kMnuPortuguese, nullptr);
    mnuEnglish = addOption(idioma, "mnuEnglish", common::txt::kMnuEnglish, nullptr);
    mnuSpanish = addOption(idioma, "mnuSpanish", common::txt::kMnuSpanish, nullptr);
    int language = 1;
    for (QAction* a : {mnuPortuguese, mnuEnglish, mnuSpanish}) {
        languages->addAction(a);
        connect(a, &QAction::triggered, this, [this, language] { mnuIdioma_Click(language); });
        ++language;
    }
    mnuXP = addOption(form, "mnuXP", common::txt::kMnuXP, &FrmCalcula::mnuXP_Click);
    mnu4 = submenu(form, "mnu4", 122);
    auto* enterGroup = new QActionGroup(this);
    mnuEnter = addOption(mnu4, "mnuEnter", 123, nullptr);
    mnuIgual = addOption(mnu4, "mnuIgual", 124, nullptr);
    enterGroup->addAction(mnuEnter);
    enterGroup->addAction(mnuIgual);
    connect(mnuEnter, &QAction::triggered, this, [this] { mnuEnter_Click(calc::EnterAction::Plus); });
    connect(mnuIgual, &QAction::triggered, this, [this] { mnuEnter_Click(calc::EnterAction::Equals); });

    QMenu* ajuda = submenu(bar, "mnuAjuda", 125);
    addAction(ajuda, "mnuCalc", 126, &FrmCalcula::mnuCalc_Click);
    addAction(ajuda, "mnuEmail", 128, &FrmCalcula::mnuEmail_Click);

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

// ---- options and looks -----------------------------------------------------------------------

void FrmCalcula::applySettings() {
    mnuTempo->setChecked(m_ctx.timeMode);
    mnuBackup->setChecked(m_settings.backup);
    mnuOcultar->setChecked(m_settings.keypadHidden);
    mnuFicar->setChecked(m_settings.stayInTray);
    mnuMonit->setChecked(m_settings.monitor);
    mnuVisivel->setChecked(m_settings.alwaysOnTop);
    mnuGrande->setChecked(m_settings.largeLetters);
    mnuNumLock->setChecked(m_settings.numLock);
    mnuXP->setChecked(m_settings.menuXP);
    mnuNumeral[static_cast<int>(m_settings.format)]->setChecked(true);
    if (m_settings.colourScheme >= 1) {
        mnuCor[m_settings.colourScheme - 1]->setChecked(true);
    }
    mnuSemSom->setChecked(m_settings.sound == calc::KeySound::None);
    mnuBeep->setChecked(m_settings.sound == calc::KeySound::Beep);
    mnuSom->setChecked(m_settings.sound == calc::KeySound::Musical);
    mnuEnter->setChecked(m_settings.enter == calc::EnterAction::Plus);
    mnuIgual->setChecked(m_settings.enter == calc::EnterAction::Equals);
    setWindowFlag(Qt::WindowStaysOnTopHint, m_settings.alwaysOnTop);
    Arrange();
    applyColours();
}

void FrmCalcula::Arrange() {
    // One routine lays the window out: at load, after a resize of the letters, keypad shown or not.
    const bool large = m_settings.largeLetters;
    QFont displayFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    displayFont.setPointSizeF(large ? 26 : 18);
    displayFont.setBold(true);
    lblVisor0->setFont(displayFont);
    QFont small = font();
    small.setPointSizeF(large ? 12 : 9);
    lblVisor1->setFont(small);
    QFont totalFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    totalFont.setPointSizeF(large ? 16 : 12);
    totalFont.setBold(true);
    lblTotal->setFont(totalFont);
    QFont keyFont = font();
    keyFont.setPointSizeF(large ? 16 : 11);
    keyFont.setBold(true);
    const int keyHeight = QFontMetrics(keyFont).height() * 2;
    for (QPushButton* b : fraTeclado->findChildren<QPushButton*>()) {
        b->setFont(keyFont);
        b->setMinimumHeight(keyHeight);
    }
    QFont tapeFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    tapeFont.setPointSizeF(large ? 13 : 10);
    txtFita->setFont(tapeFont);
    // The tape is 26 columns wide; the window is never narrower than that.
    const int tapeWidth = QFontMetrics(tapeFont).horizontalAdvance(QString(28, QLatin1Char('0'))) +
                          txtFita->verticalScrollBar()->sizeHint().width() + 16;
    m_tapeWidth = tapeWidth + 12;
    fitWidth();
    fraTeclado->setVisible(!m_settings.keypadHidden);
}

void FrmCalcula::fitWidth() {
    // Never narrower than the tape, nor than the menu bar in the language shown.
    setMinimumWidth(std::max(m_tapeWidth, menuBar()->sizeHint().width()));
}

void FrmCalcula::applyColours() {
    const Scheme& scheme = kSchemes[std::clamp(m_settings.colourScheme, 0, 4)];
    const QColor face = QApplication::palette().color(QPalette::Window);
    paintBackground(centralWidget(), QPalette::Window, fromBgr(scheme.window, face));
    if (scheme.keypad != kUnchanged) {
        paintBackground(fraTeclado, QPalette::Window, fromBgr(scheme.keypad, face));
    }
    QPalette tape = txtFita->palette();
    tape.setColor(QPalette::Base, fromBgr(scheme.tape, face));
    tape.setColor(QPalette::Text, fromBgr(scheme.tapeText, face));
    txtFita->setPalette(tape);
    paintBackground(findChild<QFrame*>(QStringLiteral("fraVisor")), QPalette::Window,
                    fromBgr(scheme.display, face));
    const QString operatorStyle = scheme.operators == kButtonFace
                                      ? QString()
                                      : QStringLiteral("QPushButton { background-color: %1; }")
                                            .arg(fromBgr(scheme.operators, face).name());
    for (QPushButton* b : {chkDividir, chkVezes, chkMenos, chkMais}) {
        b->setStyleSheet(operatorStyle);
    }
}

void FrmCalcula::applyLanguage() {
    for (const auto& [object, code] : m_captions) {
        if (auto* action = qobject_cast<QAction*>(object)) {
            action->setText(text(code));
        } else if (auto* menu = qobject_cast<QMenu*>(object)) {
            menu->setTitle(text(code));
        }
    }
    mnuPortuguese->setChecked(m_language == common::Language::Portuguese);
    mnuEnglish->setChecked(m_language == common::Language::English);
    mnuSpanish->setChecked(m_language == common::Language::Spanish);
    chkNeg->setToolTip(text(common::txt::kSignTooltip));
    chkNeg->setAccessibleName(text(common::txt::kSignTooltip).trimmed());
    lblVisor0->setAccessibleName(text(common::txt::kDisplayName));
    lblTotal->setAccessibleName(text(common::txt::kTotalName));
    lblVisor1->setAccessibleName(text(common::txt::kCounterName));
    fraTeclado->setAccessibleName(text(common::txt::kKeypadName));
    txtFita->setAccessibleName(plainCaption(text(96)));
    chkCE->setAccessibleName(plainCaption(text(161)).trimmed());
    chkBack->setAccessibleName(text(common::txt::kBackspaceName));
    if (m_noticeCode != 0) {
        lblAviso->setText(text(m_noticeCode));
    }
    setWindowTitle(m_ctx.auxiliary ? QStringLiteral(" Zavrello [Aux]") : QStringLiteral(" Zavrello"));
    fitWidth();
}

void FrmCalcula::restoreGeometry() {
    const QSize design = sizeHint().expandedTo(QSize(minimumWidth(), 560));
    QRect wanted(m_settings.left.value_or(0), m_settings.top, design.width(),
                 m_settings.height.value_or(design.height()));
    const QScreen* home = nullptr;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().intersects(wanted)) {
            home = screen;
            break;
        }
    }
    if (home == nullptr) {
        home = QGuiApplication::primaryScreen();
        if (home != nullptr) {
            wanted.moveCenter(home->availableGeometry().center());
        }
    }
    if (home != nullptr) {
        // Keep the whole window on the screen it is found on.
        const QRect area = home->availableGeometry();
        wanted.setHeight(std::min(wanted.height(), area.height()));
        wanted.moveLeft(
            std::clamp(wanted.left(), area.left(), std::max(area.left(), area.right() - wanted.width())));
        wanted.moveTop(
            std::clamp(wanted.top(), area.top(), std::max(area.top(), area.bottom() - wanted.height())));
    }
    if (m_settings.left.has_value() || m_settings.height.has_value()) {
        move(wanted.topLeft());
    }
    resize(wanted.size());
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
    common::SaveSetting(*m_ctx.store, keys::kConfigura, key, value);
}

// ---- keys ------------------------------------------------------------------------------------

void FrmCalcula::Form_KeyPress(int key) {
    m_deleteArmed = false;
    const int accepted = m_calc.Form_KeyPress(key);
    QPushButton* pressed = nullptr;
    if (accepted >= '0' && accepted <= '9') {
        pressed = chkNum[accepted - '0'];
    } else if (accepted == ',' || accepted == '.') {
        pressed = chkVirgula;
    }
    if (pressed != nullptr && !pressed->isDown()) {
        pressed->setDown(true);
        QTimer::singleShot(90, pressed, [pressed] { pressed->setDown(false); });
    }
    afterKey(accepted);
}

void FrmCalcula::afterKey(int acceptedKey) {
    m_sounds.strike(acceptedKey);
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
        const std::optional<double> shown = m_calc.displayValue();
        if (!m_calc.entry().empty() || (shown && *shown != 0)) {
            m_calc.clearEntry();
        }
        m_deleteArmed = true;
    }
    refresh();
}

void FrmCalcula::keyPressEvent(QKeyEvent* event) {
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
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
        case Qt::Key_Up:
            txtFita->scrollLines(-1);
            return;
        case Qt::Key_Down:
            txtFita->scrollLines(1);
            return;
        case Qt::Key_PageUp:
            txtFita->scrollLines(-10);
            return;
        case Qt::Key_PageDown:
            txtFita->scrollLines(10);
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
    // The tape takes the keyboard only while it is being edited; otherwise keys are the calculator's.
    if (watched == txtFita && event->type() == QEvent::KeyPress && !txtFita->editing()) {
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
    }
    m_settings.height = height();
    m_settings.top = y();
    m_settings.left = x();
    calc::saveOnClose(*m_ctx.store, m_settings);
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
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(common::txt::kBackupWriteFailed));
    } else if (report.backupTooLarge) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Warning, text(common::txt::kBackupTooLarge));
        mnuMostraBack_Click();
    }
}

void FrmCalcula::typeAmount(double value) {
    const std::string field = common::formatNumber(
        value, m_calc.options().timeMode ? common::pattern::kTime : "0.######", m_ctx.regional.separators);
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
    m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(19));
}

void FrmCalcula::mnuTempo_Click() {
    m_calc.setOptions(calc::engineOptions(m_settings, mnuTempo->isChecked()));
    refresh();
}

void FrmCalcula::mnuCopiar_Click() {
    m_ownClipboardText = QString::fromStdString(m_calc.display());
    QGuiApplication::clipboard()->setText(m_ownClipboardText);
}

void FrmCalcula::mnuUndo_Click() {
    m_calc.undo();
    refresh();
}

void FrmCalcula::mnuRedo_Click() {
    m_calc.redo();
    refresh();
}

void FrmCalcula::mnuExtenso_Click() {
    // What the display shows, or when it shows nothing the running total.
    const std::optional<double> shown = m_calc.displayValue();
    const double value = shown && *shown != 0 ? *shown : m_calc.total();
    const std::optional<std::string> words = words::ConverterExtenso(value, true);
    if (!words) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Warning, text(common::txt::kWordsInvalid));
        return;
    }
    m_ownClipboardText = QStringLiteral("(%1)").arg(QString::fromStdString(*words));
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(m_ownClipboardText);
    const QString money = QString::fromStdString(common::FormatMoney(value, m_ctx.regional.separators));
    m_ctx.dialogs->message(this, Dialogs::Icon::Information,
                           QStringLiteral("$ %1\n%2\n%3\n%4")
                               .arg(money, QString::fromStdString(*words),
                                    text(common::txt::kWordsOnClipboard), text(common::txt::kPasteHint)));
}

void FrmCalcula::mnuEditar_Click() {
    if (mnuEditar->isChecked()) {
        if (m_calc.calculationInProgress()) {
            mnuEditar->setChecked(false);
            m_ctx.dialogs->message(this, Dialogs::Icon::Information,
                                   text(common::txt::kEditWhileCalculating));
            return;
        }
        txtFita->setEditing(true);
        return;
    }
    const std::string edited = txtFita->editedText();
    txtFita->setEditing(false);
    m_calc.loadTape(edited);
    refresh();
    setFocus();
}

void FrmCalcula::mnuLocalizar_Click() {
    const std::optional<QString> answer =
        m_ctx.dialogs->ask(this, text(common::txt::kFindTitle), text(common::txt::kFindPrompt), QString());
    if (!answer || answer->trimmed().isEmpty()) {
        return;
    }
    const std::string needle = answer->trimmed().toStdString();
    const std::optional<std::size_t> at = m_calc.tape().find(needle);
    if (!at) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kFindEnd));
        return;
    }
    txtFita->selectBytes(*at, needle.size());
}

void FrmCalcula::mnuLimpar_Click() {
    showClearReport(m_calc.clearTape());
    refresh();
}

void FrmCalcula::mnuBackup_Click() {
    m_settings.backup = mnuBackup->isChecked();
    m_calc.setOptions(calc::engineOptions(m_settings, m_calc.options().timeMode));
    saveOption(keys::kBackup, common::boolText(m_settings.backup));
}

void FrmCalcula::mnuMostraBack_Click() {
    const std::filesystem::path path = m_ctx.dataFolder / std::string(calc::kBackupFileName);
    if (!std::filesystem::exists(path)) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kBackupMissing));
        return;
    }
    if (!m_ctx.dialogs->openUrl(QString::fromStdString(path.string()))) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(kBackupOpenFailed));
    }
}

void FrmCalcula::mnuImprimir_Click(int size) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Zavrello"));
    const QString tape = QString::fromStdString(m_calc.tape().text());
    bool failed = false;
    m_ctx.dialogs->print(this, printer, [&](QPrinter& target) {
        const bool ok = printTape(target, tape, static_cast<PrintSize>(size));
        failed = failed || !ok;
        return ok;
    });
    if (failed) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(17));
    }
}

void FrmCalcula::mnuMatricial_Click() {
    const std::optional<QString> answer =
        m_ctx.dialogs->ask(this, QStringLiteral(" Zavrello"), text(common::txt::kPortPrompt),
                           QString::fromStdString(m_settings.port));
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
        m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kWaitForPrinter));
    } else {
        m_ctx.dialogs->message(
            this, Dialogs::Icon::Critical,
            text(common::txt::kPortFailed, QString::fromStdString(*port), QString::fromStdString(device)));
    }
}

void FrmCalcula::mnuSalvar_Click() {
    const QString folder = m_settings.lastFolder.empty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                               : QString::fromStdString(m_settings.lastFolder);
    const QString initial = QDir(folder).filePath(QString::fromStdString(m_settings.lastFile));
    const QString chosen = m_ctx.dialogs->saveFileName(this, text(common::txt::kSaveFilterName), initial);
    if (chosen.isEmpty()) {
        return;
    }
    if (!common::writeFileAtomically(std::filesystem::path(chosen.toStdString()), m_calc.tape().text())) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(common::txt::kSaveFailed, chosen));
        return;
    }
    const QFileInfo info(chosen);
    m_settings.lastFile = info.fileName().toStdString();
    m_settings.lastFolder = info.absolutePath().toStdString();
    saveOption(keys::kUltimoArq, m_settings.lastFile);
    saveOption(keys::kUltimoPath, m_settings.lastFolder);
}

void FrmCalcula::mnuOcultar_Click() {
    m_settings.keypadHidden = mnuOcultar->isChecked();
    Arrange();
}

void FrmCalcula::mnuFicar_Click() {
    m_settings.stayInTray = mnuFicar->isChecked();
    saveOption(keys::kFicarSystray, common::boolText(m_settings.stayInTray));
}

void FrmCalcula::mnuMonit_Click() {
    m_settings.monitor = mnuMonit->isChecked();
    saveOption(keys::kMonitor, common::boolText(m_settings.monitor));
}

void FrmCalcula::mnuVisivel_Click() {
    m_settings.alwaysOnTop = mnuVisivel->isChecked();
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, m_settings.alwaysOnTop);
    if (shown) {
        show();
    }
}

void FrmCalcula::mnuGrande_Click() {
    m_settings.largeLetters = mnuGrande->isChecked();
    Arrange();
    saveOption(keys::kLetrona, common::boolText(m_settings.largeLetters));
}

void FrmCalcula::mnuNumLock_Click() {
    m_settings.numLock = mnuNumLock->isChecked();
    m_calc.setOptions(calc::engineOptions(m_settings, m_calc.options().timeMode));
    saveOption(keys::kNumLock, common::boolText(m_settings.numLock));
    keepNumLockOn();
}

void FrmCalcula::mnuNumeral_Click(int index) {
    m_settings.format = static_cast<calc::NumberFormat>(index);
    m_calc.setOptions(calc::engineOptions(m_settings, m_calc.options().timeMode));
    saveOption(keys::kFormato, std::to_string(index));
    refresh();
}

void FrmCalcula::mnuCor_Click(int scheme) {
    m_settings.colourScheme = scheme;
    applyColours();
    saveOption(keys::kCor, std::to_string(scheme));
}

void FrmCalcula::mnuSom_Click(calc::KeySound sound) {
    chooseSound(sound, sound == calc::KeySound::Musical);
}

void FrmCalcula::chooseSound(calc::KeySound sound, bool askInstrument) {
    if (askInstrument) {
        const std::optional<QString> answer =
            m_ctx.dialogs->ask(this, text(58), text(common::txt::kInstrumentPrompt),
                               QStringLiteral("%1").arg(m_settings.instrument, 3, 10, QLatin1Char('0')));
        bool ok = false;
        const int instrument = answer ? answer->trimmed().toInt(&ok) : -1;
        if (!ok || instrument < 0 || instrument > 127) {
            applySettings();  // the check mark goes back to the sound in force
            return;
        }
        m_settings.instrument = instrument;
        saveOption(keys::kInstrumento, std::to_string(instrument));
    }
    m_settings.sound = sound;
    mnuSemSom->setChecked(sound == calc::KeySound::None);
    mnuBeep->setChecked(sound == calc::KeySound::Beep);
    mnuSom->setChecked(sound == calc::KeySound::Musical);
    saveOption(keys::kSons, std::to_string(static_cast<int>(sound)));
    m_sounds.choose(sound, m_settings.instrument);
    openMidi();
}

void FrmCalcula::openMidi() {
    // Keys typed meanwhile are not held up by a message: the notice waits in the window, and the
    // keys beep instead of playing.
    if (!m_sounds.startSynthesizer()) {
        showNotice(common::txt::kMidiError);
    }
}

void FrmCalcula::showNotice(int textCode) {
    m_noticeCode = textCode;
    lblAviso->setText(text(textCode));
    fraAviso->show();
}

void FrmCalcula::mnuIdioma_Click(int language) {
    m_language = static_cast<common::Language>(language);
    m_settings.language = language;
    applyLanguage();
    saveOption(keys::kIdiomas2, std::to_string(language));
    if (m_ctx.languageChanged) {
        m_ctx.languageChanged(m_language);
    }
}

void FrmCalcula::mnuXP_Click() {
    m_settings.menuXP = mnuXP->isChecked();
    saveOption(keys::kMenuXP, common::boolText(m_settings.menuXP));
    m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kRestartNeeded));
}

void FrmCalcula::mnuEnter_Click(calc::EnterAction enter) {
    m_settings.enter = enter;
    m_calc.setOptions(calc::engineOptions(m_settings, m_calc.options().timeMode));
    saveOption(keys::kCalcEnter, calc::storedEnter(enter));
    if (enter == calc::EnterAction::Plus) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Information, text(common::txt::kEnterAddsInfo));
    }
}

void FrmCalcula::mnuCalc_Click() {
    const QString title = QStringLiteral(" Zavrello  -  9.0.%1").arg(kBuildNumber);
    if (m_ctx.dialogs->question(this, title + QStringLiteral("\n\n") + text(common::txt::kTips)) &&
        !m_ctx.dialogs->openUrl(QString::fromLatin1(kWebPage))) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(8));
    }
}

void FrmCalcula::mnuEmail_Click() {
    const QString url = QStringLiteral("mailto:%1?subject=Zavrello 9.0.%2 (build %2)")
                            .arg(QString::fromLatin1(kSupportAddress))
                            .arg(kBuildNumber);
    if (!m_ctx.dialogs->openUrl(url)) {
        m_ctx.dialogs->message(this, Dialogs::Icon::Critical, text(13, QString::fromLatin1(kSupportAddress)));
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
        copied.toStdString(), m_ctx.regional.separators, m_calc.options().timeMode);
    switch (numbers.kind) {
        case calc::ClipboardNumbers::Kind::NotNumbers:
            return;
        case calc::ClipboardNumbers::Kind::InvalidSelection:
            m_ctx.dialogs->message(this, Dialogs::Icon::Warning, text(common::txt::kInvalidSelection));
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
                QString::fromStdString(calc::productsText(numbers.values, m_ctx.regional.separators));
            QGuiApplication::clipboard()->setText(m_ownClipboardText);
            return;
    }
}

}  // namespace zv::app
