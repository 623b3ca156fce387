#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "app/calc/key_sounds.h"
#include "app/common/app_context.h"
#include "app/common/tool_window.h"
#include "core/calc/backup_file.h"
#include "core/calc/calc_settings.h"
#include "core/calc/calculator.h"
#include "core/calc/tape_file.h"
#include "platform/midi_out.h"

class QAction;
class QActionGroup;
class QFrame;
class QLabel;
class QMenu;
class QPushButton;

namespace zv::app {

class Captions;
class TapeView;

// What only the calculator window is given, beside the program's shared services.
struct CalcWindowContext {
    std::string tapeSuffix;                                        // "" for the first running copy
    std::function<std::unique_ptr<platform::MidiOut>()> makeMidi;  // none: no synthesizer
    std::function<void()> beep;                                    // none: the system beep
    // Registers the program to start in the tray at logon, or not; none: leave the system alone.
    std::function<void(bool)> setStartWithSystem;
    // The tray program's utilities (alarm, shutdown, restrictions, shortcut), offered as mnuUtil.
    QMenu* utilities = nullptr;
    // Told when the window has closed, with the "stay in the tray" option in force then.
    std::function<void(bool stayInTray)> onClosed;
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
    FrmCalcula(const AppContext& app, CalcWindowContext context, QWidget* parent = nullptr);
    ~FrmCalcula() override;

    // The single entry point of every key: keyboard, keypad and menu commands alike.
    void Form_KeyPress(int key);
    void LimpaTudo();
    // A finished block of text from a tool, appended to the tape as whole lines.
    void appendBlock(std::string_view block);
    // The tool windows opened from this window's menus; their results go to its tape.
    ToolWindows& tools() { return m_tools; }
    // Whether the tape file could be opened for writing as lines arrive.
    bool tapeFileHealthy() const;

    const calc::Calculator& calculator() const { return m_calc; }
    const calc::CalcSettings& settings() const { return m_settings; }
    common::Language language() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    // An option that is on or off: its menu item's check mark is the setting.
    struct OnOffOption {
        const char* name;
        int textCode;
        bool calc::CalcSettings::*setting;
        std::string_view key;          // stored at once under this key; empty: when the window closes
        void (FrmCalcula::*follow)();  // what the window does after a change; null: nothing
    };
    static std::span<const OnOffOption> onOffOptions();

    void buildWidgets();
    void buildMenus();
    QAction* makeAction(QMenu* menu, const char* name, int textCode);
    QAction* addAction(QMenu* menu, const char* name, int textCode, std::function<void()> slot);
    QAction* addOnOff(QMenu* menu, const char* name);
    QActionGroup* addChoices(QMenu* menu, std::initializer_list<const char*> names, int firstCode,
                             std::function<void(int index)> chosen);
    QMenu* addSubmenu(QWidget* parent, const char* name, int textCode);
    void showChoices();
    void addChoiceMenus(QMenu* form);
    void Arrange();
    void applyColours();
    void applyEngineOptions();
    void applyOnTop();
    void numLockOptionChanged();
    void tellRestartNeeded();
    void fitWidth();
    void languageShown();
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
    void mnuCopiar_Click();
    // mnuCheque, mnuPromissoria: the document with the display's amount, or text 900.
    template <class Document>
    void openDocument();
    void mnuExtenso_Click();
    void mnuEditar_Click();
    void mnuLocalizar_Click();
    // Adds up the capitalisations on the tape into one block under them.
    void mnuAgrupar_Click();
    void mnuMostraBack_Click();
    void mnuImprimir_Click(int size);
    void mnuMatricial_Click();
    void mnuSalvar_Click();
    void mnuNumeral_Click(int index);
    void mnuCor_Click(int scheme);
    void chooseSound(calc::KeySound sound, bool askInstrument);
    void mnuIdioma_Click(int language);
    void mnuEnter_Click(calc::EnterAction enter);
    void mnuCalc_Click();
    void mnuEmail_Click();
    void clipboardChanged();
    void midiFailed();
    void keepNumLockOn();

    AppContext m_app;
    CalcWindowContext m_ctx;
    calc::CalcSettings m_settings;
    calc::BackupFile m_backup;
    calc::Calculator m_calc;
    std::unique_ptr<calc::TapeFile> m_tapeFile;
    std::unique_ptr<calc::TapeSink> m_fanOut;
    KeySounds m_keySounds;
    ToolWindows m_tools;
    Captions* m_captions = nullptr;
    bool m_deleteArmed = false;
    bool m_syntheticNumLock = false;
    bool m_frameKept = false;  // the window manager's frame was seen and the window fitted inside it
    int m_tapeWidth = 0;
    QString m_ownClipboardText;

    // Widgets, named as the system names them (each is also its objectName).
    QFrame* fraTeclado = nullptr;
    QLabel* lblVisor0 = nullptr;
    QLabel* lblVisor1 = nullptr;
    QLabel* lblTotal = nullptr;
    TapeView* txtFita = nullptr;
    // The keys shown pressed when typed: chkNum(0) to chkNum(9), then chkVirgula.
    std::array<QPushButton*, 11> m_typedKeys = {};
    QList<QPushButton*> m_operatorKeys;  // ÷ × − +, painted by the colour schemes

    QAction* mnuUndo = nullptr;
    QAction* mnuRedo = nullptr;
    QAction* mnuEditar = nullptr;
    QAction* mnuTempo = nullptr;
    // The exclusive choices (number format, colour scheme, key sound, language, Enter key), each
    // group's items in menu order.
    enum Choice { kFormat, kScheme, kSound, kLanguage, kEnterKey };
    std::array<QActionGroup*, 5> m_choices = {};
};

}  // namespace zv::app
