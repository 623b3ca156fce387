#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::tray {

inline constexpr int kSecondsPerDay = 86400;

// A time of day typed by the user ("7:30", "07:30:15", "7"), in seconds after midnight;
// nullopt when it is not a time of day.
std::optional<int> parseTimeOfDay(std::string_view text);
// "hh:mm:ss".
std::string formatTimeOfDay(int seconds);

// The alarm and the timed shutdown of the tray window, driven by two one-second timers: the
// clock watch (tmrTempo) and the beeping and blinking (tmrTray). Times are times of day only;
// each event fires in the five seconds after its time (an alarm missed then waits for the next
// day), and a shutdown starts beeping twenty seconds before.
class Schedule {
public:
    bool alarmScheduled() const { return m_alarm.has_value(); }
    bool shutdownScheduled() const { return m_shutdown.has_value(); }
    std::optional<int> alarmTime() const { return m_alarm; }
    std::optional<int> shutdownTime() const { return m_shutdown; }
    const std::string& alarmReason() const { return m_reason; }

    // `reason` is kept in upper case.
    void scheduleAlarm(int seconds, std::string_view reason);
    void cancelAlarm();
    void scheduleShutdown(int seconds);
    void cancelShutdown();

    // Whether each timer should run now.
    bool watchRunning() const { return m_alarm.has_value() || m_shutdown.has_value(); }
    bool blinkRunning() const { return m_blinking; }
    // An alarm or a shutdown is in progress (the watch timer's tag "1").
    bool inProgress() const { return m_inProgress; }

    // One tick of the clock watch at `now` (seconds after midnight). True when the alarm
    // message must be shown now; the window calls alarmMessageClosed() when the user closes it.
    bool tickWatch(int now);
    void alarmMessageClosed();

    struct TrayTick {
        bool beep = false;
        int icon = 0;  // the tray icon to show: 0 normal, 2 the blink frame
        bool shutdownNow = false;
    };
    TrayTick tickBlink(int now);

private:
    std::optional<int> m_alarm;
    std::string m_reason;
    std::optional<int> m_shutdown;
    bool m_inProgress = false;
    bool m_blinking = false;
    bool m_blinkOn = false;
    bool m_alarmShowing = false;
};

}  // namespace zv::tray
