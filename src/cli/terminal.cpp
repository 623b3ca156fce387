#include "cli/terminal.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "core/calc/backup_file.h"
#include "core/calc/tape_file.h"
#include "core/common/clock.h"
#include "core/common/text_table.h"
#include "platform/copy_lock.h"
#include "platform/data_folder.h"

#ifndef _WIN32
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace zv::cli {
namespace {

constexpr int kCtrlD = 4;
constexpr int kCtrlL = 12;
constexpr int kCtrlN = 14;
constexpr int kCtrlY = 25;
constexpr int kCtrlZ = 26;
constexpr int kEscape = 27;
constexpr int kDelete = 127;

#ifndef _WIN32
// Puts the terminal in character-at-a-time mode for as long as it lives.
class RawTerminal {
public:
    RawTerminal() {
        if (tcgetattr(STDIN_FILENO, &m_saved) == 0) {
            termios raw = m_saved;
            raw.c_lflag &= static_cast<tcflag_t>(~(ICANON | ECHO | ISIG));
            raw.c_iflag &= static_cast<tcflag_t>(~(ICRNL | IXON));
            raw.c_cc[VMIN] = 1;
            raw.c_cc[VTIME] = 0;
            m_active = tcsetattr(STDIN_FILENO, TCSAFLUSH, &raw) == 0;
        }
    }
    ~RawTerminal() {
        if (m_active) {
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_saved);
        }
    }
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

private:
    termios m_saved{};
    bool m_active = false;
};

int terminalRows() {
    winsize ws{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &ws) == 0 && ws.ws_row > 4 ? ws.ws_row : 24;
}

int readKey() {
    unsigned char c = 0;
    return read(STDIN_FILENO, &c, 1) == 1 ? c : -1;
}
#else
int terminalRows() {
    return 24;
}
int readKey() {
    return std::getchar();
}
#endif

// The last `rows` lines of the tape, with LF line ends.
std::string tail(std::string_view tape, int rows) {
    std::size_t start = tape.size();
    for (int seen = 0; start > 0 && seen <= rows;) {
        --start;
        if (tape[start] == '\n') {
            ++seen;
        }
    }
    if (start > 0 || (start == 0 && !tape.empty() && tape[0] == '\n')) {
        ++start;
    }
    std::string out;
    for (const char c : tape.substr(start)) {
        if (c != '\r') {
            out += c;
        }
    }
    return out;
}

void draw(const calc::Calculator& calc, std::string_view message) {
    const int rows = terminalRows() - 3;
    std::string screen = "\x1b[H\x1b[2J";
    screen += tail(calc.tape().text(), rows);
    const std::string_view state = calc.state() == calc::TotalState::Struck  ? " T"
                                   : calc.state() == calc::TotalState::Error ? " E"
                                                                             : "  ";
    screen += "------------------------------------------\n";
    screen += "[" + calc.counterText() + "] " + calc.display() + "    Total: " + calc.totalText();
    screen += state;
    screen += "\n";
    screen += message.empty() ? std::string_view("Del: CE  ^N: +/-  ^Z/^Y: undo/redo  ^L: clear  Esc: quit")
                              : message;
    std::cout << screen << std::flush;
}

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

#ifndef _WIN32
    RawTerminal raw;
#endif
    std::string message;
    draw(calc, message);
    for (;;) {
        int key = readKey();
        message.clear();
        if (key < 0 || key == kCtrlD || key == 'q' || key == 'Q') {
            break;
        }
        if (key == kEscape) {
            // A lone Esc quits; "Esc [ 3 ~" is the Delete key.
#ifndef _WIN32
            termios t{};
            tcgetattr(STDIN_FILENO, &t);
            termios quick = t;
            quick.c_cc[VMIN] = 0;
            quick.c_cc[VTIME] = 1;
            tcsetattr(STDIN_FILENO, TCSANOW, &quick);
            std::string seq;
            for (int c = readKey(); c >= 0 && seq.size() < 8; c = readKey()) {
                seq += static_cast<char>(c);
                if (c == '~' || (c >= 'A' && c <= 'Z' && c != '[')) {
                    break;
                }
            }
            tcsetattr(STDIN_FILENO, TCSANOW, &t);
            if (seq.empty()) {
                break;
            }
            if (seq == "[3~") {
                key = 0;
                if (const auto report = calc.clearEntry()) {
                    message = clearMessage(*report, regional.language);
                }
            }
            draw(calc, message);
            continue;
#else
            break;
#endif
        }
        switch (key) {
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
        draw(calc, message);
    }
    std::cout << "\n";
    return file.healthy() ? 0 : 1;
}

}  // namespace zv::cli
