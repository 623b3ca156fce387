#include "cli/terminal.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "core/calc/backup_file.h"
#include "core/calc/tape_file.h"
#include "core/common/clock.h"
#include "core/common/text_table.h"
#include "platform/copy_lock.h"
#include "platform/data_folder.h"

#ifndef _WIN32
#include <curses.h>

#include <clocale>
#include <csignal>
#endif

namespace zv::cli {
namespace {

constexpr int kCtrlC = 3;
constexpr int kCtrlD = 4;
constexpr int kCtrlL = 12;
constexpr int kCtrlN = 14;
constexpr int kCtrlY = 25;
constexpr int kCtrlZ = 26;
constexpr int kEscape = 27;
constexpr int kDelete = 127;
// What readKey gives for the Delete key (clear entry), whatever the terminal sends for it.
constexpr int kClearEntryKey = 0x10000;
// Nothing was typed: the wait ended to look for a signal.
constexpr int kNoKey = -2;
// The terminal changed size: the screen is laid out again.
constexpr int kResized = -3;

const std::string_view kHelpLine = "Del: CE  ^N: +/-  ^Z/^Y: undo/redo  ^L: clear  Esc: quit";

// The last `rows` lines of the tape, without their CR LF.
std::vector<std::string_view> tail(std::string_view tape, int rows) {
    std::vector<std::string_view> lines;
    std::size_t end = tape.size();
    if (tape.ends_with("\r\n")) {
        end -= 2;
    }
    while (rows-- > 0 && end > 0) {
        const std::size_t start = tape.rfind("\r\n", end - 1);
        const std::size_t from = start == std::string_view::npos ? 0 : start + 2;
        lines.insert(lines.begin(), tape.substr(from, end - from));
        if (start == std::string_view::npos) {
            break;
        }
        end = start;
    }
    return lines;
}

std::string statusLine(const calc::Calculator& calc) {
    const std::string_view state = calc.state() == calc::TotalState::Struck  ? " T"
                                   : calc.state() == calc::TotalState::Error ? " E"
                                                                             : "  ";
    return "[" + calc.counterText() + "] " + calc.display() + "    Total: " + calc.totalText() +
           std::string(state);
}

#ifndef _WIN32
volatile std::sig_atomic_t g_stop = 0;

extern "C" void stopOnSignal(int) {
    g_stop = 1;
}

// The terminal handed over to the curses library for as long as this lives: keys one by one,
// no echo, the screen redrawn in place. It is given back as it was on every way out: the end of
// the session, Ctrl+C (a key here), SIGTERM, SIGHUP and SIGINT from another process.
class Screen {
public:
    Screen() {
        struct sigaction action {};
        action.sa_handler = stopOnSignal;
        sigemptyset(&action.sa_mask);
        for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
            sigaction(signal, &action, nullptr);
        }
        // Tape lines hold "×", "÷" and accented letters: the curses library writes them in the
        // terminal's own character set.
        std::setlocale(LC_CTYPE, "");
        initscr();
        raw();
        noecho();
        nonl();
        keypad(stdscr, TRUE);
        // Waits a tenth of a second at most, so a signal is seen at once.
        timeout(100);
        set_escdelay(50);
    }
    ~Screen() { endwin(); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool stopped() const { return g_stop != 0; }

    int readKey() {
        const int key = getch();
        switch (key) {
            case ERR:
                return kNoKey;
            case KEY_RESIZE:
                return kResized;
            case KEY_DC:
                return kClearEntryKey;
            case KEY_BACKSPACE:
                return calc::key::kBackspace;
            case KEY_ENTER:
                return '\r';
            default:
                return key >= 0 && key < 256 ? key : kNoKey;
        }
    }

    // The newest lines of the tape that fit, a rule, the display and total, the help or a message.
    void draw(const calc::Calculator& calc, std::string_view message) {
        erase();
        const int rows = LINES - 3;
        int row = 0;
        for (const std::string_view line : tail(calc.tape().text(), rows)) {
            mvaddnstr(row++, 0, line.data(), static_cast<int>(line.size()));
        }
        row = rows < 0 ? 0 : rows;
        mvaddstr(row, 0, "------------------------------------------");
        const std::string status = statusLine(calc);
        mvaddnstr(row + 1, 0, status.data(), static_cast<int>(status.size()));
        const std::string_view bottom = message.empty() ? kHelpLine : message;
        mvaddnstr(row + 2, 0, bottom.data(), static_cast<int>(bottom.size()));
        move(row + 1, 0);
        refresh();
    }
};
#else
// A console without the curses library: the screen is written again after each key.
class Screen {
public:
    bool stopped() const { return false; }
    int readKey() {
        const int key = std::getchar();
        return key == EOF ? kCtrlD : key;
    }
    void draw(const calc::Calculator& calc, std::string_view message) {
        std::string screen = "\x1b[H\x1b[2J";
        for (const std::string_view line : tail(calc.tape().text(), 21)) {
            screen.append(line).append("\n");
        }
        screen += "------------------------------------------\n";
        screen += statusLine(calc) + "\n";
        screen += message.empty() ? kHelpLine : message;
        std::cout << screen << std::flush;
    }
};
#endif

std::string clearMessage(const calc::ClearReport& report, common::Language language) {
    if (report.backupFailed) {
        return common::GetText(language, common::txt::kBackupWriteFailed);
    }
    if (report.backupTooLarge) {
        return common::GetText(language, common::txt::kBackupTooLarge);
    }
    return {};
}

}  // namespace

int runTerminal(const common::Regional& regional, const calc::CalculatorOptions& options) {
    const std::filesystem::path folder = platform::dataFolder();
    const common::SystemClock clock;
    calc::BackupFile backup(folder / std::string(calc::kBackupFileName));
    calc::Calculator calc(regional, options, {&clock, &backup});

    // A second copy running at the same time keeps a tape file of its own.
    const std::optional<platform::CopyLock> lock = platform::CopyLock::acquire(folder);
    if (!lock) {
        std::cerr << "zavrello-cli: cannot lock a tape file in " << folder.string() << '\n';
        return 1;
    }
    const std::filesystem::path tapePath = calc::tapeFilePath(folder, lock->suffix());
    const std::optional<std::string> saved = calc::loadTape(tapePath);
    if (!saved) {
        std::cerr << "zavrello-cli: cannot read " << tapePath.string() << '\n';
        return 1;
    }
    calc.loadTape(*saved);
    calc::TapeFile file(tapePath);
    if (!file.open(calc.tape().text())) {
        std::cerr << "zavrello-cli: cannot write " << tapePath.string() << '\n';
        return 1;
    }
    calc.setTapeSink(&file);

    // The session keeps the tape file; the screen goes first, so the terminal is given back before
    // anything is reported on it.
    std::string message;
    {
        Screen screen;
        screen.draw(calc, message);
        while (!screen.stopped()) {
            const int key = screen.readKey();
            if (key == kNoKey) {
                continue;
            }
            if (key == kResized) {
                screen.draw(calc, message);
                continue;
            }
            message.clear();
            if (key == kCtrlC || key == kCtrlD || key == kEscape || key == 'q' || key == 'Q') {
                break;
            }
            switch (key) {
                case kClearEntryKey:
                    if (const auto report = calc.clearEntry()) {
                        message = clearMessage(*report, regional.language);
                    }
                    break;
                case kDelete:
                case calc::key::kBackspace:
                    calc.backspace();
                    break;
                case '\r':
                case '\n':
                    calc.Form_KeyPress(calc::key::kEnter);
                    break;
                case kCtrlN:
                    calc.changeSign();
                    break;
                case kCtrlZ:
                    calc.undo();
                    break;
                case kCtrlY:
                    calc.redo();
                    break;
                case kCtrlL:
                    message = clearMessage(calc.clearTape(), regional.language);
                    break;
                default:
                    calc.Form_KeyPress(key);
                    break;
            }
            if (!file.healthy()) {
                message = "zavrello-cli: cannot write " + tapePath.string();
            }
            screen.draw(calc, message);
        }
    }
    if (!file.healthy()) {
        std::cerr << "zavrello-cli: cannot write " << tapePath.string() << '\n';
    }
    return file.healthy() ? 0 : 1;
}

}  // namespace zv::cli
