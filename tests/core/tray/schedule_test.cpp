#include "core/tray/schedule.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace zv::tray {
namespace {

constexpr int at(int h, int m, int s) {
    return h * 3600 + m * 60 + s;
}

constexpr int kT = at(10, 30, 0);
// The user's actions, as steps between the seconds of a script.
constexpr int kCloseMessage = -1;
constexpr int kCancelAlarm = -2;
constexpr int kCancelShutdown = -3;

struct Script {
    const char* label;
    std::optional<int> alarm;
    std::optional<int> shutdown;
    std::vector<int> steps;  // a time of day (one second of both timers) or one of the user's actions
    const char* marks;       // per second: "a" alarm shown, "b" beep, "s" shut down, "." none of these
    const char* timersAfter = nullptr;  // "watch", "blink", "watch blink" or "none"; null: not checked
};

// Runs each script as the tray window runs the timers: each second the watch, then the blink while it runs.
void check(std::initializer_list<Script> scripts) {
    for (const Script& s : scripts) {
        SCOPED_TRACE(s.label);
        Schedule schedule;
        if (s.alarm) {
            schedule.scheduleAlarm(*s.alarm, "x");
        }
        if (s.shutdown) {
            schedule.scheduleShutdown(*s.shutdown);
        }
        std::string marks;
        for (const int step : s.steps) {
            if (step == kCloseMessage) {
                schedule.alarmMessageClosed();
            } else if (step == kCancelAlarm) {
                schedule.cancelAlarm();
            } else if (step == kCancelShutdown) {
                schedule.cancelShutdown();
            } else {
                std::string mark = schedule.tickWatch(step) ? "a" : "";
                if (schedule.blinkRunning()) {
                    const Schedule::TrayTick tick = schedule.tickBlink(step);
                    mark += std::string(tick.beep ? "b" : "") + (tick.shutdownNow ? "s" : "");
                }
                marks += (marks.empty() ? "" : " ") + (mark.empty() ? "." : mark);
            }
        }
        EXPECT_EQ(marks, s.marks);
        if (s.timersAfter != nullptr) {
            const std::string timers = std::string(schedule.watchRunning() ? "watch " : "") +
                                       (schedule.blinkRunning() ? "blink " : "");
            EXPECT_EQ(timers.empty() ? "none" : timers.substr(0, timers.size() - 1), s.timersAfter);
        }
    }
}

TEST(TimeOfDay, AcceptsHoursMinutesAndSecondsOnly) {
    const std::pair<const char*, int> times[] = {
        {"7", at(7, 0, 0)},
        {"7:30", at(7, 30, 0)},
        {" \t07:30:15 ", at(7, 30, 15)},
        {"23:59:59", at(23, 59, 59)},
    };
    for (const auto& [text, seconds] : times) {
        EXPECT_EQ(parseTimeOfDay(text), seconds) << text;
    }
    for (const char* text : {"24:00", "7:60", "7:5", "007:30", "7:", "7:30pm", "  "}) {
        EXPECT_EQ(parseTimeOfDay(text), std::nullopt) << text;
    }
    EXPECT_EQ(formatTimeOfDay(at(7, 5, 9)), "07:05:09");
}

TEST(Schedule, AlarmFiresAndShutdownBeepsThenShutsDownUntilClosedOrCancelled) {
    check({
        {"at its time", kT, {}, {kT}, ".", "watch"},
        {"first second after", kT, {}, {kT + 1}, "ab"},
        {"alarm's last second", kT, {}, {kT + 4}, "ab"},
        {"five seconds after", kT, {}, {kT + 5}, "."},
        {"shown once while its message is open", kT, {}, {kT + 1, kT + 2}, "ab b", "watch blink"},
        {"missed when not sampled, kept for the next day", kT, {}, {kT - 1, kT + 5, kT + 1}, ". . ab"},
        {"already past, waits for the next day", kT, {}, {kT + 3600, kT + 2}, ". ab"},
        {"alarm across midnight", at(23, 59, 58), {}, {at(0, 0, 1)}, "ab"},
        {"alarm across midnight, too late", at(23, 59, 58), {}, {at(0, 0, 3)}, "."},
        {"warning starts at nineteen seconds before", {}, kT, {kT - 20, kT - 19}, ". b"},
        {"not at its time, then at once", {}, kT, {kT - 1, kT, kT + 1}, "b b bs"},
        {"shutdown's last second", {}, kT, {kT + 4}, "bs"},
        {"shutdown window missed", {}, kT, {kT + 5}, "."},
        {"shutdown across midnight", {}, at(0, 0, 2), {at(23, 59, 50), at(0, 0, 3)}, "b bs"},
        {"together with an alarm", kT, kT, {kT + 1}, "abs"},
        {"alarm message closed", kT, {}, {kT + 1, kCloseMessage, kT + 2}, "ab .", "none"},
        // The alarm beeps on after the shutdown is cancelled, until its message closes.
        {"both", kT, kT + 3600, {kT + 1, kCancelShutdown, kT + 2, kCloseMessage, kT + 3}, "ab b .", "none"},
        {"alarm cancelled", kT, {}, {kCancelAlarm, kT + 1, kT + 2}, ". .", "none"},
        {"shutdown cancelled", {}, kT, {kCancelShutdown, kT + 1}, ".", "none"},
        {"shutdown cancelled during its warning", {}, kT, {kT - 10, kCancelShutdown, kT + 1}, "b .", "none"},
    });
}

TEST(Alarm, KeepsItsReasonInUpperCaseAndBlinksUntilItsMessageIsClosed) {
    Schedule schedule;
    schedule.scheduleAlarm(kT, "ligar para a Conceição às 3");
    EXPECT_EQ(schedule.alarmReason(), "LIGAR PARA A CONCEIÇÃO ÀS 3");
    ASSERT_TRUE(schedule.tickWatch(kT + 1));
    EXPECT_EQ(schedule.tickBlink(kT + 1).icon, 2);
    EXPECT_EQ(schedule.tickBlink(kT + 2).icon, 0);
    schedule.alarmMessageClosed();
    EXPECT_EQ(schedule.tickBlink(kT + 3).icon, 0);
}

}  // namespace
}  // namespace zv::tray
