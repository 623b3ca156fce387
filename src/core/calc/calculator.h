#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calc/backup_file.h"
#include "core/calc/tape.h"
#include "core/calc/tape_block.h"
#include "core/calc/tape_line.h"
#include "core/common/clock.h"
#include "core/common/regional.h"

namespace zv::calc {

// Keys outside the printable range that Form_KeyPress understands.
namespace key {
inline constexpr int kEnterPlus = 2;  // Enter while it acts as plus
inline constexpr int kBackspace = 8;
inline constexpr int kEnter = 13;
}  // namespace key

enum class NumberFormat { Floating = 0, Fixed = 1, Numeral = 2 };
enum class EnterAction { Plus, Equals };
enum class TotalState : std::uint8_t { None, Struck, Error };  // the total label's tag: "", "T", "E"

struct CalculatorOptions {
    NumberFormat format = NumberFormat::Floating;
    EnterAction enter = EnterAction::Equals;
    bool numLock = false;   // laptop keypad letters act as digits
    bool timeMode = false;  // amounts are durations typed as hhmmss
    bool backup = true;     // clearing the tape appends it to the backup store
};

// What a clear of the tape did.
struct ClearReport {
    bool cleared = false;         // false only when the backup failed: the tape was kept
    bool backedUp = false;        // a record was appended to the backup store
    bool backupFailed = false;    // the backup store could not be written
    bool backupTooLarge = false;  // the store reached kBackupWarningSize: warn and show it
};

// Services the calculator reaches outside itself; both may be null (no backup, fixed clock).
struct CalculatorServices {
    const common::Clock* clock = nullptr;
    BackupStore* backup = nullptr;
};

// The printing adding machine: entry, display, running total, item counter and the tape.
// Every key goes through Form_KeyPress; each operator appends one tape line (or rewrites the
// last line's operator) and the total follows the lines strictly from left to right.
class Calculator {
public:
    explicit Calculator(common::Regional regional, CalculatorOptions options = {},
                        CalculatorServices services = {});

    // One keystroke (a character code, or a code of namespace key). Returns the key as it was
    // understood after mapping (a laptop letter becomes its digit, Enter becomes kEnterPlus or
    // '='), or 0 when the key was swallowed.
    int Form_KeyPress(int key);
    // Types every character of `keys` in turn.
    void type(std::string_view keys);

    // The keypad's keys that are not characters.
    void changeSign();
    // Clears the entry; on a display that already shows zero clears the tape and everything.
    std::optional<ClearReport> clearEntry();
    void backspace();

    // Clears entry, display, counter and total; the tape keeps its lines.
    void LimpaTudo();
    // Clears the tape (with a backup record when the option is on) and starts it anew with
    // its heading line.
    ClearReport clearTape();

    bool canUndo() const { return !m_history.empty() || m_editUndo.has_value(); }
    bool canRedo() const { return m_redo.has_value() || m_editRedo.has_value(); }
    // Removes the last amount line (a struck total goes with its "=" line) or the last block of
    // another tool, and restores the state that stood before it.
    bool undo();
    // Puts back what the last undo removed, exactly as it was written (in the number format and
    // time mode it was written in), with the state that followed it. Any later change of the
    // tape forgets it.
    bool redo();

    // Puts an amount as shown on the tape ("1.234,50", or "01:30:00" in time mode) into the
    // entry, as if typed, so the next operator registers it again. False when the text is not an
    // amount of the current mode or holds more than an entry can (15 digits, 6 decimals).
    bool enterAmount(std::string_view field);
    // True while an amount is typed or a total runs that has not been struck yet.
    bool calculationInProgress() const;
    // Something typed, or a non-zero amount on the display: clear entry clears that and not the tape.
    bool hasEntryToClear() const;
    // The amount "in words" converts: what the display shows, or the running total when it shows zero.
    double wordsAmount() const;

    // A block of text from another tool, appended as whole lines; one Undo takes it back. It
    // never changes the total: a line of it that would read as an amount, a total or a heading
    // when the tape is loaded again is written one column further right, so that it cannot.
    void appendBlock(std::string_view text);
    void appendBlock(const TapeBlock& block) { appendBlock(block.text()); }
    // Replaces the tape (loaded from its file) and works the total out from it.
    void loadTape(std::string text);
    // Takes the tape as the user edited it in place. Each amount line is aligned as the
    // calculator writes it, each total line is written again from the lines above it, and the
    // running total is worked out anew; one Undo takes the whole edit back. A line that looks
    // like an amount and does not read as one (figures without an operator, or an operator
    // after something that is no number) refuses the edit: nothing changes and the line's
    // index (0-based) is returned. Lines of other tools that the edit left as they were stay.
    std::optional<std::size_t> applyEdit(std::string_view edited);

    void setOptions(const CalculatorOptions& options);
    const CalculatorOptions& options() const { return m_options; }

    const Tape& tape() const { return m_tape; }
    // Every later change of the tape goes to the sink as well (the tape file).
    void setTapeSink(TapeSink* sink) { m_tape.setSink(sink); }
    const std::string& entry() const { return m_entry; }
    // lblVisor(0): the entry formatted for reading, cut to 22 characters.
    const std::string& display() const { return m_display; }
    // lblVisor(1): the item counter, "000".
    std::string counterText() const;
    int counter() const { return m_counter; }
    // lblTotal: the running total in the chosen format ("E" when it is not a number).
    std::string totalText() const;
    double total() const { return m_total; }
    TotalState state() const { return m_state; }
    // The value of the display: the entry's amount, or after undo the restored total.
    std::optional<double> displayValue() const;

private:
    // The engine's state at one moment; the history keeps the state just before each amount line
    // or block, and Undo goes back to it.
    struct Snapshot {
        std::size_t tapeOffset;  // where the line or block began
        double total;
        int counter;
        TotalState state;
        Operator pending;
        bool newTotalNext;
    };
    struct RedoStep {
        std::string text;  // what undo removed from the tape
        Snapshot before;
        Snapshot after;
    };

    // The whole tape and engine, kept across an edit of lines anywhere in the tape.
    struct WholeTape {
        std::string text;
        std::vector<Snapshot> history;
        Snapshot state;
    };

    Snapshot snapshot(std::size_t tapeOffset) const;
    WholeTape wholeTape() const;
    void restoreWholeTape(const WholeTape& saved);
    void forgetEdits();
    void restore(const Snapshot& snap);
    void operatorKey(Operator op);
    void strike();
    void typeDigit(char digit);
    void typeSeparator();
    void writeAmountLine(double amount, Operator op);
    void applyLine(double amount, Operator op, bool duration);
    void writeTotalBlock();
    void refreshDisplay();
    // The running total no longer fits: not a number, 22 columns or more, or a duration beyond
    // what 15 digits of hhmmss hold.
    bool overflowed(bool duration) const;
    bool entryFits(std::string_view entry) const;
    std::string amountText(double value) const;
    std::string formatTotal(double value) const { return formatTotal(value, m_options.timeMode); }
    std::string formatTotal(double value, bool duration) const;
    std::string entryFromValue(double value) const;
    std::optional<double> entryValue() const;
    std::optional<double> fieldValue(std::string_view field) const;
    // The operator of the last line when it is an amount line of this calculator.
    std::optional<Operator> lastAmountOperator() const;
    bool tapeEndsInTotal() const;
    void rewriteLastOperator(Operator op);
    void appendEngineText(std::string_view text);
    // Works the engine out from the tape; with `rewritten`, also writes there the tape with
    // every total line written again from the lines above it.
    void rebuildFromTape(std::string* rewritten = nullptr);
    const common::NumberSeparators& seps() const { return m_regional.separators; }

    common::Regional m_regional;
    CalculatorOptions m_options;
    CalculatorServices m_services;
    Tape m_tape;

    std::string m_entry;
    std::string m_display;
    std::optional<double> m_shownTotal;  // set when the display shows a total (after undo)
    double m_total = 0;
    int m_counter = 0;
    TotalState m_state = TotalState::None;
    Operator m_pending = Operator::Plus;  // the operator of the last line; "=" applies none
    bool m_newTotalNext = false;          // a total was struck: the next amount starts a new one

    std::vector<Snapshot> m_history;
    std::optional<RedoStep> m_redo;
    std::optional<WholeTape> m_editUndo;  // the tape before the last edit, while nothing followed it
    std::optional<WholeTape> m_editRedo;  // the edit that Undo took back
};

}  // namespace zv::calc
