#include "core/calc/calculator.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <unordered_map>

#include "core/common/number_format.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::calc {
namespace {

constexpr std::size_t kDisplayColumns = 22;
// Beyond 15 digits a double no longer holds what was typed.
constexpr std::size_t kMaxDigits = 15;
// A duration's hhmmss digits beyond 15 no longer hold whole seconds.
constexpr double kMaxDurationDigits = 1e15;
// The tape shows at most six decimals; more would make the tape disagree with the total.
constexpr std::size_t kMaxDecimals = 6;
using common::isDigit;
using common::padLeft;
constexpr auto trim = common::trimSpaces;

// The lines of a tape's text, without their CR LF.
std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = std::min(text.find(kLineEnd, pos), text.size());
        lines.push_back(text.substr(pos, end - pos));
        pos = end + kLineEnd.size();
    }
    return lines;
}

// Figures and nothing else: what the user meant as an amount, whether or not it reads as one.
bool looksLikeFigures(std::string_view text, const common::NumberSeparators& seps) {
    bool digit = false;
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view rest = text.substr(i);
        if (!seps.decimal.empty() && rest.starts_with(seps.decimal)) {
            i += seps.decimal.size();
        } else if (!seps.group.empty() && rest.starts_with(seps.group)) {
            i += seps.group.size();
        } else if (isDigit(text[i]) || std::string_view(" -:.,()").find(text[i]) != std::string_view::npos) {
            digit = digit || isDigit(text[i]);
            ++i;
        } else {
            return false;
        }
    }
    return digit;
}

// Digits grouped by three from the right, leading zeros dropped ("0" stays).
std::string groupDigits(std::string_view digits, std::string_view group) {
    while (digits.size() > 1 && digits.front() == '0') {
        digits.remove_prefix(1);
    }
    if (digits.empty()) {
        return "0";
    }
    std::string out;
    out.reserve(digits.size() + digits.size() / 3 * group.size());
    const std::size_t lead = digits.size() % 3 == 0 ? 3 : digits.size() % 3;
    out.append(digits.substr(0, lead));
    for (std::size_t i = lead; i < digits.size(); i += 3) {
        out.append(group).append(digits.substr(i, 3));
    }
    return out;
}

// "hhmmss" digits with ':' before the minutes and the seconds ("13000" -> "01:30:00").
std::string timeDigits(std::string_view digits) {
    std::string padded(digits.size() < 6 ? 6 - digits.size() : 0, '0');
    padded.append(digits);
    std::string out = padded.substr(0, padded.size() - 4);
    out.append(":").append(padded.substr(padded.size() - 4, 2));
    out.append(":").append(padded.substr(padded.size() - 2));
    return out;
}

// Seconds as the hhmmss number a duration is shown with (5400 -> 13000), sign dropped.
double secondsToHhmmss(double value) {
    const double seconds = std::round(std::fabs(value));
    const double hours = std::floor(seconds / 3600);
    const double minutes = std::floor(std::fmod(seconds, 3600) / 60);
    return hours * 10000 + minutes * 100 + std::fmod(seconds, 60);
}

// A duration typed as hhmmss digits, in seconds.
double hhmmssToSeconds(double hhmmss) {
    const double n = std::round(std::fabs(hhmmss));
    const double hours = std::floor(n / 10000);
    const double minutes = std::fmod(std::floor(n / 100), 100);
    const double seconds = std::fmod(n, 100);
    const double total = hours * 3600 + minutes * 60 + seconds;
    return hhmmss < 0 ? -total : total;
}

double parseDigits(std::string_view intDigits, std::string_view decDigits) {
    std::string ascii(intDigits.empty() ? "0" : intDigits);
    if (!decDigits.empty()) {
        ascii.append(".").append(decDigits);
    }
    double value = 0;
    std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    return value;
}

}  // namespace

Calculator::Calculator(common::Regional regional, CalculatorOptions options, CalculatorServices services)
    : m_regional(std::move(regional)), m_options(options), m_services(services) {
    refreshDisplay();
}

int Calculator::Form_KeyPress(int key) {
    if (m_options.numLock) {
        // The embedded keypad of a laptop: U I O / J K L / M.
        switch (key | 0x20) {
            case 'u':
                key = '4';
                break;
            case 'i':
                key = '5';
                break;
            case 'o':
                key = '6';
                break;
            case 'j':
                key = '1';
                break;
            case 'k':
                key = '2';
                break;
            case 'l':
                key = '3';
                break;
            case 'm':
                key = '0';
                break;
            default:
                break;
        }
    }
    if (key >= '0' && key <= '9') {
        typeDigit(static_cast<char>(key));
        return key;
    }
    if (key == key::kBackspace) {
        backspace();
        return key;
    }
    if (key == key::kEnter) {
        key = m_options.enter == EnterAction::Plus ? key::kEnterPlus : '=';
    }
    if (key == ',' || key == '.') {
        if (m_options.timeMode) {
            return 0;
        }
        typeSeparator();
        return key;
    }
    const std::optional<Operator> op = key == key::kEnterPlus ? Operator::Plus : operatorOfKey(key);
    if (!op) {
        return 0;
    }
    if (*op == Operator::Equals) {
        strike();
    } else {
        operatorKey(*op);
    }
    return key;
}

void Calculator::type(std::string_view keys) {
    for (const char c : keys) {
        Form_KeyPress(static_cast<unsigned char>(c));
    }
}

bool Calculator::entryFits(std::string_view entry) const {
    const std::size_t sepAt = entry.find(seps().decimal);
    const std::size_t decimals =
        sepAt == std::string_view::npos ? 0 : entry.size() - sepAt - seps().decimal.size();
    return static_cast<std::size_t>(std::ranges::count_if(entry, isDigit)) <= kMaxDigits &&
           decimals <= kMaxDecimals;
}

void Calculator::typeDigit(char digit) {
    m_shownTotal.reset();
    if (m_entry == "0" || m_entry == "-0") {
        m_entry.pop_back();
    }
    if (!entryFits(m_entry + digit)) {
        refreshDisplay();
        return;
    }
    m_entry += digit;
    refreshDisplay();
}

void Calculator::typeSeparator() {
    m_shownTotal.reset();
    if (m_entry.find(seps().decimal) != std::string::npos) {
        return;
    }
    if (m_entry.empty() || m_entry == "-") {
        m_entry += '0';
    }
    m_entry += seps().decimal;
    refreshDisplay();
}

void Calculator::backspace() {
    if (m_entry.empty()) {
        return;
    }
    // Drop one whole character: the separator may take several bytes.
    std::size_t cut = m_entry.size() - 1;
    while (cut > 0 && (static_cast<unsigned char>(m_entry[cut]) & 0xC0) == 0x80) {
        --cut;
    }
    m_entry.resize(cut);
    refreshDisplay();
}

void Calculator::changeSign() {
    if (m_entry.empty()) {
        // Right after a struck total the sign key takes the total, negated, as the next amount
        // (when it fits an entry); otherwise it starts a negative amount.
        const double shown = m_shownTotal.value_or(m_total);
        const std::string negated =
            (m_newTotalNext || m_shownTotal) && !m_options.timeMode && std::isfinite(shown) && shown != 0
                ? entryFromValue(-shown)
                : std::string();
        m_entry = !negated.empty() && entryFits(negated) ? negated : "-";
        m_shownTotal.reset();
    } else if (m_entry.front() == '-') {
        m_entry.erase(0, 1);
    } else {
        m_entry = "-" + m_entry;
    }
    refreshDisplay();
}

bool Calculator::hasEntryToClear() const {
    const std::optional<double> shown = displayValue();
    return !m_entry.empty() || (shown && *shown != 0);
}

double Calculator::wordsAmount() const {
    const std::optional<double> shown = displayValue();
    return shown && *shown != 0 ? *shown : m_total;
}

std::optional<ClearReport> Calculator::clearEntry() {
    if (hasEntryToClear()) {
        m_entry.clear();
        m_shownTotal.reset();
        refreshDisplay();
        return std::nullopt;
    }
    return clearTape();
}

void Calculator::LimpaTudo() {
    m_entry.clear();
    m_shownTotal.reset();
    m_total = 0;
    m_counter = 0;
    m_state = TotalState::None;
    m_pending = Operator::Plus;
    m_newTotalNext = false;
    m_history.clear();
    m_redo.reset();
    forgetEdits();
    refreshDisplay();
}

ClearReport Calculator::clearTape() {
    ClearReport report;
    const common::DateTime now = m_services.clock != nullptr ? m_services.clock->now() : common::DateTime{};
    if (m_options.backup && !m_tape.empty() && m_services.backup != nullptr) {
        const std::optional<std::uintmax_t> size =
            m_services.backup->append(backupRecord(m_tape.text(), now));
        if (!size) {
            // Without its backup the tape would be lost for good: keep it.
            report.backupFailed = true;
            return report;
        }
        report.backedUp = true;
        report.backupTooLarge = *size >= kBackupWarningSize;
    }
    LimpaTudo();
    m_tape.reset(headingLine(now, m_regional.dateOrder, m_regional.dateSeparator));
    report.cleared = true;
    return report;
}

void Calculator::operatorKey(Operator op) {
    const std::optional<double> value = entryValue();
    if (!value || *value == 0) {
        // No amount: correct the operator of the last line instead. A percent needs an amount
        // of its own, and a percent line keeps its sign.
        const std::optional<Operator> last = lastAmountOperator();
        if (op != Operator::Percent && last && *last != Operator::Percent) {
            rewriteLastOperator(op);
            m_pending = op;
        }
        m_entry.clear();
        m_shownTotal.reset();
        refreshDisplay();
        return;
    }
    writeAmountLine(*value, op);
}

void Calculator::strike() {
    const std::optional<double> value = entryValue();
    if (value && *value != 0) {
        writeAmountLine(*value, Operator::Equals);
    } else {
        if (tapeEndsInTotal()) {
            // "=" again: close the block and start afresh.
            appendEngineText(std::string(kSeparatorLine).append(kLineEnd));
            LimpaTudo();
            return;
        }
        const std::optional<Operator> last = lastAmountOperator();
        m_entry.clear();
        m_shownTotal.reset();
        refreshDisplay();
        if (!last) {
            return;
        }
        if (*last != Operator::Percent) {
            rewriteLastOperator(Operator::Equals);
        }
        m_pending = Operator::Equals;
    }
    writeTotalBlock();
}

Calculator::Snapshot Calculator::snapshot(std::size_t tapeOffset) const {
    return {tapeOffset, m_total, m_counter, m_state, m_pending, m_newTotalNext};
}

void Calculator::restore(const Snapshot& snap) {
    m_total = snap.total;
    m_counter = snap.counter;
    m_state = snap.state;
    m_pending = snap.pending;
    m_newTotalNext = snap.newTotalNext;
}

void Calculator::writeAmountLine(double amount, Operator op) {
    m_history.push_back(snapshot(m_tape.size()));
    appendEngineText(amountLine(amountText(amount), op));
    applyLine(amount, op, m_options.timeMode);
    m_entry.clear();
    m_shownTotal.reset();
    refreshDisplay();
}

void Calculator::applyLine(double amount, Operator op, bool duration) {
    if (m_newTotalNext) {
        // A new total starts, except that a percentage right after a total is that total's share.
        if (op != Operator::Percent || !std::isfinite(m_total)) {
            m_total = 0;
            m_pending = Operator::Plus;
        }
        m_counter = 0;
        m_state = TotalState::None;
        m_newTotalNext = false;
    }
    const bool counted = m_state != TotalState::Error;
    // Durations add and subtract as seconds; a factor or a percentage is the number as written.
    const double addend = duration ? hhmmssToSeconds(amount) : amount;
    const double t = m_total;
    if (op == Operator::Percent) {
        switch (m_pending) {
            case Operator::Plus:
                m_total = t * (1 + amount / 100);
                break;
            case Operator::Minus:
                m_total = t * ((100 - amount) / 100);
                break;
            default:
                m_total = t * (amount / 100);
                break;
        }
        m_newTotalNext = true;
    } else {
        switch (m_pending) {
            case Operator::Plus:
                m_total = t + addend;
                break;
            case Operator::Minus:
                m_total = t - addend;
                break;
            case Operator::Times:
                m_total = t * amount;
                break;
            case Operator::Divide:
                m_total = t / amount;
                break;
            default:
                break;
        }
    }
    if (counted) {
        ++m_counter;
    }
    m_pending = op;
    if (overflowed(duration)) {
        m_state = TotalState::Error;
    } else {
        m_state = op == Operator::Percent ? TotalState::Struck : TotalState::None;
    }
}

void Calculator::writeTotalBlock() {
    // The running total's state already says whether its text needs 22 columns or more.
    const bool overflow = m_state == TotalState::Error;
    std::string block = totalLine(common::utf8Left(formatTotal(m_total), kDisplayColumns), overflow);
    block.append(kSeparatorLine).append(kLineEnd);
    appendEngineText(block);
    m_state = overflow ? TotalState::Error : TotalState::Struck;
    m_newTotalNext = true;
}

bool Calculator::undo() {
    if (m_editUndo) {
        const WholeTape edited = wholeTape();
        const WholeTape before = std::move(*m_editUndo);
        restoreWholeTape(before);
        m_editRedo = edited;
        return true;
    }
    if (m_history.empty()) {
        return false;
    }
    const Snapshot before = m_history.back();
    m_history.pop_back();
    RedoStep step{m_tape.text().substr(before.tapeOffset), before, snapshot(before.tapeOffset)};
    forgetEdits();
    m_tape.replaceTail(before.tapeOffset, {});
    restore(before);
    m_redo = std::move(step);
    m_entry.clear();
    m_shownTotal = m_total;
    refreshDisplay();
    return true;
}

bool Calculator::redo() {
    if (m_editRedo) {
        const WholeTape before = wholeTape();
        const WholeTape edited = std::move(*m_editRedo);
        restoreWholeTape(edited);
        m_editUndo = before;
        return true;
    }
    if (!m_redo) {
        return false;
    }
    const RedoStep step = std::move(*m_redo);
    m_redo.reset();
    m_tape.append(step.text);
    m_history.push_back(step.before);
    restore(step.after);
    m_entry.clear();
    m_shownTotal.reset();
    refreshDisplay();
    return true;
}

bool Calculator::enterAmount(std::string_view field) {
    field = trim(field);
    const bool duration = field.find(':') != std::string_view::npos;
    if (field.empty() || duration != m_options.timeMode || !fieldValue(field)) {
        return false;
    }
    std::string entry;
    if (duration) {
        for (const char c : field) {
            if (isDigit(c) || c == '-') {
                entry += c;
            }
        }
    } else {
        const std::string& group = seps().group;
        while (!field.empty()) {
            if (!group.empty() && field.starts_with(group)) {
                field.remove_prefix(group.size());
            } else {
                entry += field.front();
                field.remove_prefix(1);
            }
        }
        if (m_options.format == NumberFormat::Fixed && entry.find(seps().decimal) == std::string::npos) {
            // Digits without a separator are cents in this format; an amount is not.
            entry.append(seps().decimal).append("00");
        }
    }
    if (!entryFits(entry)) {
        return false;
    }
    m_entry = entry;
    m_shownTotal.reset();
    refreshDisplay();
    return true;
}

bool Calculator::calculationInProgress() const {
    return !m_entry.empty() || (m_counter > 0 && !m_newTotalNext);
}

void Calculator::appendBlock(std::string_view text) {
    if (text.empty()) {
        return;
    }
    std::string block;
    bool afterSeparator = parseTapeLine(m_tape.lastLine()).kind == TapeLine::Kind::Separator;
    const std::string normalised = normaliseLineEnds(text);
    for (std::size_t pos = 0; pos < normalised.size();) {
        const std::size_t end = normalised.find(kLineEnd, pos);
        const std::string_view line = std::string_view(normalised).substr(pos, end - pos);
        const TapeLine parsed = parseTapeLine(line);
        // Only a separator may stand in a block as it is (one after another would clear the
        // calculator when the tape is read again); anything else the calculator reads is moved.
        const bool read = (parsed.kind == TapeLine::Kind::Amount && fieldValue(parsed.field)) ||
                          parsed.kind == TapeLine::Kind::Total || parsed.kind == TapeLine::Kind::Heading ||
                          (parsed.kind == TapeLine::Kind::Separator && afterSeparator);
        if (read) {
            block += ' ';
        }
        block.append(line).append(kLineEnd);
        afterSeparator = parsed.kind == TapeLine::Kind::Separator && !read;
        pos = end + kLineEnd.size();
    }
    m_history.push_back(snapshot(m_tape.size()));
    appendEngineText(block);
}

void Calculator::loadTape(std::string text) {
    m_tape.reset(std::move(text));
    rebuildFromTape();
}

std::optional<std::size_t> Calculator::applyEdit(std::string_view edited) {
    // Lines the engine does not read that were on the tape already (other tools' blocks, notes)
    // stay as they are, however they look; counted, since a block may repeat a line.
    std::unordered_map<std::string_view, std::size_t> untouched;
    for (const std::string_view line : splitLines(m_tape.text())) {
        const TapeLine parsed = parseTapeLine(line);
        if (parsed.kind == TapeLine::Kind::Other ||
            (parsed.kind == TapeLine::Kind::Amount && !fieldValue(parsed.field))) {
            ++untouched[line];
        }
    }
    const std::string text = normaliseLineEnds(edited);
    const std::vector<std::string_view> lines = splitLines(text);
    std::string tidy;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        const TapeLine parsed = parseTapeLine(line);
        const bool read = (parsed.kind == TapeLine::Kind::Amount && fieldValue(parsed.field)) ||
                          parsed.kind == TapeLine::Kind::Total || parsed.kind == TapeLine::Kind::Separator ||
                          parsed.kind == TapeLine::Kind::Heading;
        if (read) {
            tidy.append(line).append(kLineEnd);
            continue;
        }
        if (const auto kept = untouched.find(line); kept != untouched.end() && kept->second > 0) {
            --kept->second;
            tidy.append(line).append(kLineEnd);
            continue;
        }
        // A line the user changed or added: an amount and its operator however they are aligned,
        // or a note that holds no figures.
        const std::string_view trimmed = common::trimSpaces(line);
        const std::size_t space = trimmed.rfind(' ');
        const std::string_view symbol = space == std::string_view::npos ? trimmed : trimmed.substr(space + 1);
        const std::string_view field = space == std::string_view::npos
                                           ? std::string_view()
                                           : common::trimSpaces(trimmed.substr(0, space));
        const std::optional<Operator> op = operatorOfSymbol(symbol);
        if (op && fieldValue(field)) {
            tidy.append(amountLine(field, *op));
        } else if ((symbol == "T" || symbol == "E") && fieldValue(field)) {
            tidy.append(totalLine(field, false));
        } else if (op || symbol == "T" || symbol == "E" || looksLikeFigures(trimmed, seps())) {
            return i;
        } else {
            tidy.append(line).append(kLineEnd);
        }
    }
    WholeTape previous = wholeTape();
    m_tape.reset(tidy);
    std::string rewritten;
    rebuildFromTape(&rewritten);
    if (rewritten != m_tape.text()) {
        m_tape.reset(rewritten);
    }
    m_editUndo = std::move(previous);
    return std::nullopt;
}

Calculator::WholeTape Calculator::wholeTape() const {
    return {m_tape.text(), m_history, snapshot(m_tape.size())};
}

void Calculator::restoreWholeTape(const WholeTape& saved) {
    m_tape.reset(saved.text);
    m_history = saved.history;
    restore(saved.state);
    m_redo.reset();
    forgetEdits();
    m_entry.clear();
    m_shownTotal.reset();
    refreshDisplay();
}

void Calculator::forgetEdits() {
    m_editUndo.reset();
    m_editRedo.reset();
}

void Calculator::rebuildFromTape(std::string* rewritten) {
    LimpaTudo();
    const std::string_view text = m_tape.text();
    // About one amount line in every 28 bytes: grown once rather than copied over and over.
    m_history.reserve(m_history.size() + text.size() / 24);
    bool afterSeparator = false;
    bool duration = false;  // the kind of the last amount, which its total takes
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find(kLineEnd, pos);
        if (end == std::string_view::npos) {
            end = text.size();
        }
        const std::string_view raw = text.substr(pos, end - pos);
        const TapeLine line = parseTapeLine(raw);
        const std::optional<double> amount =
            line.kind == TapeLine::Kind::Amount ? fieldValue(line.field) : std::nullopt;
        const bool wasAfterSeparator = afterSeparator;
        afterSeparator = false;
        if (rewritten != nullptr && line.kind != TapeLine::Kind::Total) {
            rewritten->append(raw).append(kLineEnd);
        }
        if (amount) {
            m_history.push_back(
                snapshot(rewritten != nullptr ? rewritten->size() - raw.size() - kLineEnd.size() : pos));
            duration = line.field.find(':') != std::string_view::npos;
            applyLine(*amount, line.op, duration);
        } else if (line.kind == TapeLine::Kind::Total) {
            bool overflow = line.overflow;
            if (rewritten != nullptr) {
                // Written again from the lines above it, as the "=" key would write it now.
                overflow = m_state == TotalState::Error;
                rewritten->append(
                    totalLine(common::utf8Left(formatTotal(m_total, duration), kDisplayColumns), overflow));
            }
            m_state = overflow ? TotalState::Error : TotalState::Struck;
            m_newTotalNext = true;
        } else if (line.kind == TapeLine::Kind::Separator) {
            if (wasAfterSeparator) {
                LimpaTudo();
            }
            afterSeparator = true;
        } else if (line.kind == TapeLine::Kind::Heading) {
            LimpaTudo();
        } else {
            // Another tool's lines: Undo does not reach back across them.
            m_history.clear();
        }
        pos = end + kLineEnd.size();
    }
    refreshDisplay();
}

void Calculator::setOptions(const CalculatorOptions& options) {
    const bool modeChanged = options.timeMode != m_options.timeMode;
    m_options = options;
    if (modeChanged) {
        // What was typed for one mode means something else in the other.
        m_entry.clear();
    }
    refreshDisplay();
}

std::string Calculator::counterText() const {
    return common::formatNumber(m_counter, common::pattern::kCounter, seps());
}

std::string Calculator::totalText() const {
    return formatTotal(m_total);
}

std::optional<double> Calculator::displayValue() const {
    if (m_shownTotal) {
        return m_shownTotal;
    }
    return entryValue();
}

std::optional<double> Calculator::entryValue() const {
    std::string_view body = m_entry;
    const bool negative = body.starts_with("-");
    if (negative) {
        body.remove_prefix(1);
    }
    if (body.empty()) {
        return std::nullopt;
    }
    const std::size_t sepAt = body.find(seps().decimal);
    double value;
    if (sepAt != std::string_view::npos) {
        value = parseDigits(body.substr(0, sepAt), body.substr(sepAt + seps().decimal.size()));
    } else if (m_options.format == NumberFormat::Fixed && !m_options.timeMode) {
        value = parseDigits(body, {}) / 100;
    } else {
        value = parseDigits(body, {});
    }
    return negative ? -value : value;
}

std::optional<double> Calculator::fieldValue(std::string_view field) const {
    if (field.find(':') != std::string_view::npos) {
        std::string digits;
        for (const char c : field) {
            if (isDigit(c)) {
                digits += c;
            } else if (c != ':' && c != '-') {
                return std::nullopt;
            }
        }
        if (digits.empty()) {
            return std::nullopt;
        }
        const double value = parseDigits(digits, {});
        return field.starts_with("-") ? -value : value;
    }
    return common::parseNumber(field, seps());
}

std::string Calculator::entryFromValue(double value) const {
    std::string entry = common::formatNumber(value, "0.######", seps());
    if (m_options.format == NumberFormat::Fixed && entry.find(seps().decimal) == std::string::npos) {
        entry.append(seps().decimal).append("00");
    }
    return entry;
}

void Calculator::refreshDisplay() {
    std::string text;
    if (m_shownTotal) {
        text = formatTotal(*m_shownTotal);
    } else {
        std::string_view body = m_entry;
        const bool negative = body.starts_with("-");
        if (negative) {
            body.remove_prefix(1);
        }
        const std::size_t sepAt = body.find(seps().decimal);
        if (m_options.timeMode) {
            text = timeDigits(body);
        } else if (sepAt == std::string_view::npos && m_options.format == NumberFormat::Fixed) {
            std::string digits(body.size() < 3 ? 3 - body.size() : 0, '0');
            digits.append(body);
            text = groupDigits(std::string_view(digits).substr(0, digits.size() - 2), seps().group);
            text.append(seps().decimal).append(digits.substr(digits.size() - 2));
        } else if (sepAt == std::string_view::npos) {
            text = groupDigits(body, seps().group);
        } else {
            text = groupDigits(body.substr(0, sepAt), seps().group);
            text.append(body.substr(sepAt));
        }
        if (negative) {
            text = "-" + text;
        }
    }
    m_display.assign(common::utf8Left(text, kDisplayColumns));
}

bool Calculator::overflowed(bool duration) const {
    if (!std::isfinite(m_total)) {
        return true;
    }
    if (duration) {
        return secondsToHhmmss(m_total) >= kMaxDurationDigits;
    }
    // The widest of the number formats decides, so that a tape reads back to the same state
    // whichever format is chosen when it is read. Below 1e10 even six decimals, the grouping
    // and a sign stay within 21 columns.
    return std::fabs(m_total) >= 1e10 && common::utf8Length(common::formatNumber(
                                             m_total, common::pattern::kCurrency, seps())) >= kDisplayColumns;
}

std::string Calculator::amountText(double value) const {
    if (m_options.timeMode) {
        return common::formatNumber(value, common::pattern::kTime, seps());
    }
    return common::formatNumber(
        value,
        m_options.format == NumberFormat::Numeral ? common::pattern::kNumeral : common::pattern::kCurrency,
        seps());
}

std::string Calculator::formatTotal(double value, bool duration) const {
    if (!std::isfinite(value)) {
        return "E";
    }
    if (duration) {
        const double hhmmss = secondsToHhmmss(value);
        if (hhmmss >= kMaxDurationDigits) {
            return "E";  // whole seconds no longer hold
        }
        std::string text = common::formatNumber(hhmmss, common::pattern::kTime, seps());
        if (value < 0 && hhmmss > 0) {
            text = "-" + text;
        }
        return text;
    }
    return amountText(value);
}

std::optional<Operator> Calculator::lastAmountOperator() const {
    const TapeLine line = parseTapeLine(m_tape.lastLine());
    if (line.kind != TapeLine::Kind::Amount || !fieldValue(line.field)) {
        return std::nullopt;
    }
    return line.op;
}

bool Calculator::tapeEndsInTotal() const {
    const TapeLine::Kind kind = parseTapeLine(m_tape.lastLine()).kind;
    return kind == TapeLine::Kind::Total || kind == TapeLine::Kind::Separator;
}

void Calculator::rewriteLastOperator(Operator op) {
    const std::size_t start = m_tape.lastLineStart();
    const std::string field(common::utf8Left(m_tape.lastLine(), kAmountColumns));
    m_redo.reset();
    forgetEdits();
    m_tape.replaceTail(start, amountLine(field, op));
}

void Calculator::appendEngineText(std::string_view text) {
    m_redo.reset();
    forgetEdits();
    m_tape.append(text);
}

}  // namespace zv::calc
