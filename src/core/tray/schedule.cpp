#include "core/tray/schedule.h"

#include <cstdio>

#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::tray {

namespace {

using common::isBlank;
using common::isDigit;

// Takes `minDigits` to `maxDigits` digits from the front of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t minDigits, std::size_t maxDigits) {
    std::size_t count = 0;
    int value = 0;
    while (count < text.size() && count < maxDigits && isDigit(text[count])) {
        value = value * 10 + (text[count] - '0');
        ++count;
    }
    if (count < minDigits) {
        return std::nullopt;
    }
    text.remove_prefix(count);
    return value;
}

// `now` minus `time` on the clock face, in (-half a day, half a day]: times of day only, so an
// event near midnight is still seen on the other side of it.
int secondsSince(int time, int now) {
    int difference = ((now - time) % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    if (difference > kSecondsPerDay / 2) {
        difference -= kSecondsPerDay;
    }
    return difference;
}

// Each event fires strictly after its time and strictly before five seconds after it.
constexpr int kFireWindow = 5;
constexpr int kShutdownWarning = 20;

bool inFireWindow(int time, int now) {
    const int since = secondsSince(time, now);
    return since > 0 && since < kFireWindow;
}

}  // namespace

std::optional<int> parseTimeOfDay(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    const auto hours = takeNumber(text, 1, 2);
    if (!hours || *hours > 23) {
        return std::nullopt;
    }
    int minutes = 0;
    int seconds = 0;
    if (text.starts_with(':')) {
        text.remove_prefix(1);
        const auto m = takeNumber(text, 2, 2);
        if (!m || *m > 59) {
            return std::nullopt;
        }
        minutes = *m;
        if (text.starts_with(':')) {
            text.remove_prefix(1);
            const auto s = takeNumber(text, 2, 2);
            if (!s || *s > 59) {
                return std::nullopt;
            }
            seconds = *s;
        }
    }
    if (!text.empty()) {
        return std::nullopt;
    }
    return *hours * 3600 + minutes * 60 + seconds;
}

std::string formatTimeOfDay(int seconds) {
    seconds = (seconds % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
    char text[9];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

void Schedule::scheduleAlarm(int seconds, std::string_view reason) {
    m_alarm = seconds;
    m_reason = common::utf8ToUpper(reason);
}

void Schedule::cancelAlarm() {
    m_alarm.reset();
    m_reason.clear();
}

void Schedule::scheduleShutdown(int seconds) {
    m_shutdown = seconds;
}

void Schedule::cancelShutdown() {
    m_shutdown.reset();
    // A shutdown cancelled during its warning would otherwise leave the icon blinking until the
    // program ends: nothing else clears the in-progress tag but closing an alarm message.
    if (!m_alarmShowing) {
        m_inProgress = false;
    }
}

bool Schedule::tickWatch(int now) {
    bool showAlarm = false;
    // While the alarm message is open the alarm is still scheduled; it must not be shown twice.
    if (m_alarm && !m_alarmShowing && inFireWindow(*m_alarm, now)) {
        m_blinking = true;
        m_inProgress = true;
        m_alarmShowing = true;
        showAlarm = true;
    }
    if (m_shutdown) {
        const int since = secondsSince(*m_shutdown, now);
        if (since > -kShutdownWarning && since < kFireWindow) {
            m_blinking = true;
            m_inProgress = true;
        }
    }
    return showAlarm;
}

void Schedule::alarmMessageClosed() {
    m_alarmShowing = false;
    m_inProgress = false;
    cancelAlarm();
}

Schedule::TrayTick Schedule::tickBlink(int now) {
    TrayTick tick;
    if (!m_blinking) {
        return tick;
    }
    if (m_shutdown && m_inProgress) {
        tick.beep = true;
        tick.shutdownNow = inFireWindow(*m_shutdown, now);
    }
    if (m_alarm && m_inProgress) {
        tick.beep = true;
    }
    // The phase is not reset when blinking stops, so the next blinking may start on either frame.
    tick.icon = m_blinkOn ? 0 : 2;
    m_blinkOn = !m_blinkOn;
    if (!m_inProgress) {
        m_blinking = false;
        tick.icon = 0;
    }
    return tick;
}

}  // namespace zv::tray
