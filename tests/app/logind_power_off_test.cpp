#include "app/tray/logind_power_off.h"

#include <QDBusContext>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QtTest>
#include <atomic>

namespace zv::app {
namespace {

// Stands in for the login manager on a private bus. It only hears a call with the right path,
// interface, method and one boolean argument, and answers on a thread of its own because the
// request blocks the test's thread until the reply comes.
class FakeLogind : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    std::atomic<int> calls{0};
    std::atomic<bool> interactive{false};
    std::atomic<bool> refuse{false};

public slots:
    void PowerOff(bool interactiveFlag) {
        ++calls;
        interactive = interactiveFlag;
        if (refuse) {
            sendErrorReply(QDBusError::AccessDenied, QStringLiteral("Access denied"));
        }
    }
};

}  // namespace

// Only ever a private bus started here: the real system bus is never asked to power off.
class LogindPowerOffTest : public QObject {
    Q_OBJECT

    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    FakeLogind m_fake;

private slots:
    void initTestCase() {
        const QString daemon = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (daemon.isEmpty()) {
            QSKIP("dbus-daemon is not installed");
        }
        m_daemon.start(daemon, {"--session", "--nofork", "--print-address"});
        QVERIFY(m_daemon.waitForReadyRead(10'000));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        m_thread.start();
        m_fake.moveToThread(&m_thread);
        QDBusConnection logind = QDBusConnection::connectToBus(m_address, QStringLiteral("logind-side"));
        QVERIFY(logind.registerObject(QStringLiteral("/org/freedesktop/login1"), &m_fake,
                                      QDBusConnection::ExportAllSlots));
        QVERIFY(logind.registerService(QStringLiteral("org.freedesktop.login1")));
    }

    void cleanupTestCase() {
        QDBusConnection::disconnectFromBus(QStringLiteral("logind-side"));
        QDBusConnection::disconnectFromBus(QStringLiteral("caller"));
        m_thread.quit();
        m_thread.wait();
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    void asksTheLoginManagerToAskTheUser() {
        for (const bool refuses : {false, true}) {
            m_fake.calls = 0;
            m_fake.interactive = false;
            m_fake.refuse = refuses;
            LogindPowerOff powerOff(QDBusConnection::connectToBus(m_address, QStringLiteral("caller")));
            QVERIFY2(powerOff.powerOff() == !refuses, refuses ? "refused" : "accepted");
            QCOMPARE(m_fake.calls.load(), 1);
            QVERIFY(m_fake.interactive.load());
        }
    }

    void failsWithoutABus() {
        QVERIFY(!LogindPowerOff(QDBusConnection(QStringLiteral("unconnected"))).powerOff());
    }
};

}  // namespace zv::app

QTEST_GUILESS_MAIN(zv::app::LogindPowerOffTest)
#include "logind_power_off_test.moc"
