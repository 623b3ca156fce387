#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include "platform/power_off.h"

namespace zv::app {

// Switches the computer off through the login manager (logind), as the desktop's own power-off
// does: PowerOff(interactive = true) on the system bus, so the system may ask the user to
// authenticate when policy wants it.
class LogindPowerOff final : public platform::PowerOff {
public:
    // The system bus in the program; tests hand in a private bus.
    explicit LogindPowerOff(QDBusConnection bus = QDBusConnection::systemBus());

    // False when the bus is not there, nobody owns the login manager's name, or it refuses.
    bool powerOff() override;

    static QDBusMessage powerOffRequest();

private:
    QDBusConnection m_bus;
};

}  // namespace zv::app
