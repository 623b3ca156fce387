#pragma once

#include <QMainWindow>
#include <QPointer>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "app/calc/key_sounds.h"
#include "core/calc/backup_file.h"
#include "core/calc/calc_settings.h"
#include "core/calc/calculator.h"
#include "core/calc/tape_file.h"
#include "core/common/clock.h"
#include "core/common/regional.h"
#include "core/common/settings_store.h"
#include "platform/midi_out.h"

class QAction;
class QActionGroup;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;

namespace zv::app {

class Dialogs;
class TapeView;

// What the calculator window is given from outside: the settings store, the folder of its files,
// the user's regional values, and the doors to the desktop. Tests pass their own.
struct CalcWindowContext {
    common::SettingsStore* store = nullptr;
    std::filesystem::path dataFolder;
    std::string tapeSuffix;  // "" for the first running copy
    common::Regional regional;
    const common::Clock* clock = nullptr;
    Dialogs* dialogs = nullptr;
    std::function<std::unique_ptr<platform::MidiOut>()> makeMidi;  // none: no synthesizer
    std::function<void()> beep;                                    // none: the system beep
    // Registers the program to start in the tray at logon, or not; none: leave the system alone.
    std::function<void(bool)> setStartWithSystem;
    // The tray program's utilities (alarm, shutdown, restrictions, shortcut), offered as mnuUtil.
    QMenu* utilities = nullptr;
    // Told when the window has closed, with the "stay in the tray" option in force then.
    std::function<void(bool stayInTray)> onClosed;
    std::function<void(common::Language)> languageChanged;
    // Keeps NumLock switched on while the option is checked; true when that took a synthetic
    // NumLock key press, which the window must then not take for the user's.
    std::function<bool(bool optionChecked)> keepNumLockOn;
    bool auxiliary = false;  // a copy opened from another one: " Zavrello [Aux]"
    bool timeMode = false;
};

// frmCalcula: display, item counter, running total, keypad and paper tape, and the menu bar
// that reaches every option and tool. The arithmetic and the tape live in calc::Calculator; this
// class reads keys and menus, calls it, and shows what it says.
class FrmCalcula final : public QMainWindow {
    Q_OBJECT
public:
    explicit FrmCalcula(CalcWindowContext context, QWidget* parent = nullptr);
    ~FrmCalcula() override;

    // The single entry point of every key: keyboard, keypad and menu commands alike.
    void Form_KeyPress(int key);
    void LimpaTudo();
    // Whether the tape file could be opened for writing as lines arrive.
    bool tapeFileHealthy() const;

    const calc::Calculator& calculator() const { return m_calc; }
    const calc::CalcSettings& settings() const { return m_settings; }
    common::Language language() const { return m_language; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildWidgets();
    void buildMenus();
    QAction* addAction(QMenu* menu, const char* name, int textCode, void (FrmCalcula::*slot)());
    QAction* addOption(QMenu* menu, const char* name, int textCode, void (FrmCalcula::*slot)());
    void applySettings();
    void Arrange();
    void applyColours();
    void fitWidth();
    void applyLanguage();
    void restoreGeometry();
    void refresh();
    void afterKey(int acceptedKey);
    void saveOption(std::string_view key, std::string_view value);
    QString text(int code, const QString& arg1 = {}, const QString& arg2 = {}) const;
    void showClearReport(const calc::ClearReport& report);
    void clearEntryKey();
    void deleteKey();
    void typeAmount(double value);

    // Menu commands.
    void mnuOutra_Click();
    void mnuWindows_Click();
    void mnuTempo_Click();
    void mnuCopiar_Click();
    void mnuUndo_Click();
    void mnuRedo_Click();
    void mnuExtenso_Click();
    void mnuEditar_Click();
    void mnuLocalizar_Click();
    void mnuLimpar_Click();
    void mnuBackup_Click();
    void mnuMostraBack_Click();
    void mnuImprimir_Click(int size);
    void mnuMatricial_Click();
    void mnuSalvar_Click();
    void mnuOcultar_Click();
    void mnuFicar_Click();
    void mnuMonit_Click();
    void mnuVisivel_Click();
    void mnuGrande_Click();
    void mnuNumLock_Click();
    void mnuNumeral_Click(int index);
    void mnuCor_Click(int scheme);
    void mnuSom_Click(calc::KeySound sound);
    void chooseSound(calc::KeySound sound, bool askInstrument);
    void mnuIdioma_Click(int language);
    void mnuXP_Click();
    void mnuEnter_Click(calc::EnterAction enter);
    void mnuCalc_Click();
    void mnuEmail_Click();
    void clipboardChanged();
    void openMidi();
    void showNotice(int textCode);
    void keepNumLockOn();

    CalcWindowContext m_ctx;
    calc::CalcSettings m_settings;
    common::Language m_language;
    calc::BackupFile m_backup;
    calc::Calculator m_calc;
    std::unique_ptr<calc::TapeFile> m_tapeFile;
    calc::TapeSink* m_viewSink = nullptr;
    std::unique_ptr<calc::TapeSink> m_fanOut;
    KeySounds m_sounds;
    int m_noticeCode = 0;  // the text of the notice shown, 0: none
    bool m_deleteArmed = false;
    bool m_syntheticNumLock = false;
    int m_tapeWidth = 0;
    QString m_ownClipboardText;

    // Widgets, named as the system names them (each is also its objectName).
    QFrame* fraTeclado = nullptr;
    QFrame* fraAviso = nullptr;
    QLabel* lblAviso = nullptr;
    QLabel* lblVisor0 = nullptr;
    QLabel* lblVisor1 = nullptr;
    QLabel* lblTotal = nullptr;
    TapeView* txtFita = nullptr;
    QPushButton* chkNum[10] = {};
    QPushButton* chkVirgula = nullptr;
    QPushButton* chkNeg = nullptr;
    QPushButton* chkBack = nullptr;
    QPushButton* chkCE = nullptr;
    QPushButton* chkMais = nullptr;
    QPushButton* chkMenos = nullptr;
    QPushButton* chkVezes = nullptr;
    QPushButton* chkDividir = nullptr;
    QPushButton* chkPercent = nullptr;
    QPushButton* chkIgual = nullptr;

    // Every captioned menu item and submenu with its text code, for relabelling.
    std::map<QObject*, int> m_captions;
    QMenu* mnu4 = nullptr;
    QAction* mnuUndo = nullptr;
    QAction* mnuRedo = nullptr;
    QAction* mnuEditar = nullptr;
    QAction* mnuTempo = nullptr;
    QAction* mnuBackup = nullptr;
    QAction* mnuOcultar = nullptr;
    QAction* mnuFicar = nullptr;
    QAction* mnuMonit = nullptr;
    QAction* mnuVisivel = nullptr;
    QAction* mnuGrande = nullptr;
    QAction* mnuNumLock = nullptr;
    QAction* mnuXP = nullptr;
    QAction* mnuNumeral[3] = {};
    QAction* mnuCor[4] = {};
    QAction* mnuSemSom = nullptr;
    QAction* mnuBeep = nullptr;
    QAction* mnuSom = nullptr;
    QAction* mnuPortuguese = nullptr;
    QAction* mnuEnglish = nullptr;
    QAction* mnuSpanish = nullptr;
    QAction* mnuEnter = nullptr;
    QAction* mnuIgual = nullptr;
};

}  // namespace zv::app
