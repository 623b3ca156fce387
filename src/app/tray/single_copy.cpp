#include "app/tray/single_copy.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

#include "core/tray/start_words.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace zv::app {
namespace {

// A message is one short line; anything longer is not one of ours.
constexpr qint64 kMaxMessage = 256;

}  // namespace

QString SingleCopy::channelName() {
    const QString name =
        QString::fromLatin1(tray::kCopyName.data(), static_cast<qsizetype>(tray::kCopyName.size()));
#ifdef _WIN32
    // Pipe names are seen by every session: the user's name keeps each user's copy apart.
    return name + QLatin1Char('-') + qEnvironmentVariable("USERNAME");
#else
    // The runtime folder belongs to the user alone (mode 0700).
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (folder.isEmpty() || !QDir(folder).exists()) {
        return QDir::tempPath() + QLatin1Char('/') + name + QLatin1Char('-') + QString::number(::getuid());
    }
    return folder + QLatin1Char('/') + name;
#endif
}

SingleCopy::SingleCopy(QString name, QObject* parent)
    : QObject(parent), m_name(std::move(name)), m_server(new QLocalServer(this)) {
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = m_server->nextPendingConnection()) {
            connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readFrom(socket); });
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            readFrom(socket);
        }
    });
}

SingleCopy::~SingleCopy() {
    m_server->close();
#ifndef _WIN32
    if (m_lock >= 0) {
        ::close(m_lock);
    }
#endif
}

bool SingleCopy::listen() {
#ifndef _WIN32
    // The running copy holds a lock beside its channel; the system drops it when the process
    // ends, however it ends, so a channel left by a crashed copy is recognised and taken over.
    if (m_lock < 0) {
        const QByteArray lockPath = QFile::encodeName(m_name + QStringLiteral(".lock"));
        m_lock = ::open(lockPath.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (m_lock < 0) {
            return false;
        }
    }
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0) {
        return false;
    }
    QLocalServer::removeServer(m_name);
    return m_server->listen(m_name);
#else
    // A pipe goes with the process that made it: a name in use means a copy is running.
    return m_server->listen(m_name);
#endif
}

void SingleCopy::readFrom(QLocalSocket* socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kMaxMessage) {
            socket->abort();
        }
        return;
    }
    const QByteArray line = socket->readLine(kMaxMessage).trimmed();
    socket->disconnectFromServer();
    if (line.startsWith(
            QByteArray(tray::kShowMessage.data(), static_cast<qsizetype>(tray::kShowMessage.size())))) {
        emit showRequested();
    } else if (line ==
               QByteArray(tray::kCloseMessage.data(), static_cast<qsizetype>(tray::kCloseMessage.size()))) {
        emit closeRequested();
    }
}

bool SingleCopy::send(const QString& name, const QByteArray& message, int timeoutMs) {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(timeoutMs)) {
        return false;
    }
    socket.write(message + '\n');
    if (!socket.waitForBytesWritten(timeoutMs)) {
        return false;
    }
    // The running copy hangs up once it has read the line.
    socket.waitForDisconnected(timeoutMs);
    return true;
}

}  // namespace zv::app
