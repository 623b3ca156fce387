#include "core/tray/schedule.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zv::tray {
namespace {

constexpr int at(int h, int m, int s) {
    return h * 3600 + m * 60 + s;
}

constexpr int kT = at(10, 30, 0);

// One one-second step of both timers, as the tray window runs them: the watch, then the blink
// while it runs. Marks per step: "a" alarm shown, "b" beep, "s" shut down, "." none of these.
std::string step(Schedule& schedule, int now) {
    std::string marks;
    if (schedule.tickWatch(now)) {
        marks += 'a';
    }
    if (schedule.blinkRunning()) {
        const Schedule::TrayTick tick = schedule.tickBlink(now);
        marks += tick.beep ? "b" : "";
        marks += tick.shutdownNow ? "s" : "";
    }
    return marks.empty() ? "." : marks;
}

std::vector<std::string> run(Schedule& schedule, const std::vector<int>& samples) {
    std::vector<std::string> marks;
    for (int now : samples) {
        marks.push_back(step(schedule, now));
    }
    return marks;
}

TEST(TimeOfDay, AcceptsHoursMinutesAndSecondsOnly) {
    struct Case {
        const char* label;
        const char* text;
        std::optional<int> seconds;
    };
    const Case cases[] = {
        {"hour only", "7", at(7, 0, 0)},
        {"hour and minutes", "7:30", at(7, 30, 0)},
        {"all three, blanks around", " \t07:30:15 ", at(7, 30, 15)},
        {"last second", "23:59:59", at(23, 59, 59)},
        {"hour 24", "24:00", std::nullopt},
        {"minute 60", "7:60", std::nullopt},
        {"one-digit minutes", "7:5", std::nullopt},
        {"three-digit hour", "007:30", std::nullopt},
        {"trailing colon", "7:", std::nullopt},
        {"letters after", "7:30pm", std::nullopt},
        {"empty", "  ", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(parseTimeOfDay(c.text), c.seconds);
    }
}

TEST(TimeOfDay, FormatsAsTwoDigitFields) {
    EXPECT_EQ(formatTimeOfDay(at(7, 5, 9)), "07:05:09");
    EXPECT_EQ(formatTimeOfDay(at(23, 59, 59)), "23:59:59");
}

TEST(Alarm, FiresOnlyInTheFiveSecondsAfterItsTime) {
    struct Case {
        const char* label;
        int alarm;
        std::vector<int> samples;
        std::vector<std::string> marks;
    };
    const Case cases[] = {
        {"at its time", kT, {kT}, {"."}},
        {"first second after", kT, {kT + 1}, {"ab"}},
        {"last second of the window", kT, {kT + 4}, {"ab"}},
        {"five seconds after", kT, {kT + 5}, {"."}},
        {"shown once while its message is open", kT, {kT + 1, kT + 2}, {"ab", "b"}},
        {"missed when not sampled, kept for the next day", kT, {kT - 1, kT + 5, kT + 1}, {".", ".", "ab"}},
        {"already past, waits for the next day", kT, {kT + 3600, kT + 2}, {".", "ab"}},
        {"across midnight", at(23, 59, 58), {at(0, 0, 1)}, {"ab"}},
        {"across midnight, too late", at(23, 59, 58), {at(0, 0, 3)}, {"."}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Schedule schedule;
        schedule.scheduleAlarm(c.alarm, "x");
        EXPECT_EQ(run(schedule, c.samples), c.marks);
        EXPECT_TRUE(schedule.alarmScheduled());
    }
}

TEST(Alarm, KeepsItsReasonInUpperCase) {
    Schedule schedule;
    schedule.scheduleAlarm(kT, "ligar para a Conceição às 3");
    EXPECT_EQ(schedule.alarmReason(), "LIGAR PARA A CONCEIÇÃO ÀS 3");
}

TEST(Alarm, BlinksUntilItsMessageIsClosed) {
    Schedule schedule;
    schedule.scheduleAlarm(kT, "x");
    ASSERT_TRUE(schedule.tickWatch(kT + 1));
    std::vector<int> icons;
    for (int now = kT + 1; now < kT + 3; ++now) {
        icons.push_back(schedule.tickBlink(now).icon);
    }
    EXPECT_EQ(icons, (std::vector<int>{2, 0}));

    schedule.alarmMessageClosed();
    const Schedule::TrayTick last = schedule.tickBlink(kT + 3);
    EXPECT_FALSE(last.beep);
    EXPECT_EQ(last.icon, 0);
    EXPECT_FALSE(schedule.blinkRunning());
    EXPECT_FALSE(schedule.alarmScheduled());
    EXPECT_FALSE(schedule.watchRunning());
}

TEST(Shutdown, BeepsTwentySecondsBeforeAndShutsDownInTheFiveAfter) {
    struct Case {
        const char* label;
        int shutdown;
        std::vector<int> samples;
        std::vector<std::string> marks;
    };
    const Case cases[] = {
        {"warning starts at nineteen seconds before", kT, {kT - 20, kT - 19}, {".", "b"}},
        {"not at its time, then at once", kT, {kT - 1, kT, kT + 1}, {"b", "b", "bs"}},
        {"last second of the window", kT, {kT + 4}, {"bs"}},
        {"window missed", kT, {kT + 5}, {"."}},
        {"across midnight", at(0, 0, 2), {at(23, 59, 50), at(0, 0, 3)}, {"b", "bs"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Schedule schedule;
        schedule.scheduleShutdown(c.shutdown);
        EXPECT_EQ(run(schedule, c.samples), c.marks);
    }
}

TEST(Schedule, AlarmAndShutdownRunTogether) {
    {
        SCOPED_TRACE("same time");
        Schedule schedule;
        schedule.scheduleAlarm(kT, "x");
        schedule.scheduleShutdown(kT);
        EXPECT_EQ(step(schedule, kT + 1), "abs");
    }
    {
        SCOPED_TRACE("alarm beeps on after the shutdown is cancelled, until its message closes");
        Schedule schedule;
        schedule.scheduleAlarm(kT, "x");
        schedule.scheduleShutdown(kT + 3600);
        EXPECT_EQ(step(schedule, kT + 1), "ab");
        schedule.cancelShutdown();
        EXPECT_EQ(step(schedule, kT + 2), "b");
        schedule.alarmMessageClosed();
        EXPECT_EQ(step(schedule, kT + 3), ".");
        EXPECT_FALSE(schedule.blinkRunning());
    }
}

TEST(Schedule, CancellingStopsTheEvent) {
    struct Case {
        const char* label;
        bool alarm;
        std::vector<int> samplesBeforeCancel;
    };
    const Case cases[] = {
        {"alarm", true, {}},
        {"shutdown", false, {}},
        {"shutdown during its warning", false, {kT - 10}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Schedule schedule;
        if (c.alarm) {
            schedule.scheduleAlarm(kT, "x");
        } else {
            schedule.scheduleShutdown(kT);
        }
        run(schedule, c.samplesBeforeCancel);
        if (c.alarm) {
            schedule.cancelAlarm();
        } else {
            schedule.cancelShutdown();
        }
        EXPECT_FALSE(schedule.watchRunning());
        EXPECT_EQ(run(schedule, {kT + 1, kT + 2}), (std::vector<std::string>{".", "."}));
        EXPECT_FALSE(schedule.blinkRunning());
    }
}

}  // namespace
}  // namespace zv::tray
