#include "app/tray/logind_power_off.h"

#include <QVariant>
#include <utility>

namespace zv::app {
namespace {

// Long enough for the user to answer an authentication prompt, which the call waits for.
constexpr int kReplyTimeoutMs = 120'000;

}  // namespace

LogindPowerOff::LogindPowerOff(QDBusConnection bus) : m_bus(std::move(bus)) {}

QDBusMessage LogindPowerOff::powerOffRequest() {
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PowerOff"));
    request << QVariant(true);  // interactive
    return request;
}

bool LogindPowerOff::powerOff() {
    if (!m_bus.isConnected()) {
        return false;
    }
    const QDBusMessage reply = m_bus.call(powerOffRequest(), QDBus::Block, kReplyTimeoutMs);
    return reply.type() == QDBusMessage::ReplyMessage;
}

}  // namespace zv::app
