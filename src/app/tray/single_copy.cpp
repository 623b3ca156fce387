#include "app/tray/single_copy.h"

#include <QDir>
#include <QFile>

#include "core/tray/start_words.h"

#ifdef _WIN32
#include <QLocalServer>
#include <QLocalSocket>
#else
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <QSocketNotifier>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <optional>
#endif

namespace zv::app {
namespace {

// A message is one short line; anything longer is not one of ours.
constexpr qint64 kMaxMessage = 256;

#ifndef _WIN32
std::optional<sockaddr_un> socketAddress(const QString& name) {
    const QByteArray path = QFile::encodeName(name);
    sockaddr_un address{};
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path)) {
        return std::nullopt;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    return address;
}

// Waits for `events` on `fd` until `deadline`; false on time-out or error.
bool waitFor(int fd, short events, std::chrono::steady_clock::time_point deadline) {
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        pollfd watched{fd, events, 0};
        const int ready = ::poll(&watched, 1, static_cast<int>(left.count()));
        if (ready > 0) {
            return true;
        }
        if (ready < 0 && errno != EINTR) {
            return false;
        }
    }
}
#endif

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

void SingleCopy::received(const QByteArray& line) {
    if (line.startsWith(
            QByteArray(tray::kShowMessage.data(), static_cast<qsizetype>(tray::kShowMessage.size())))) {
        emit showRequested();
    } else if (line ==
               QByteArray(tray::kCloseMessage.data(), static_cast<qsizetype>(tray::kCloseMessage.size()))) {
        emit closeRequested();
    }
}

#ifdef _WIN32

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
}

bool SingleCopy::listen() {
    // A pipe goes with the process that made it: a name in use means a copy is running.
    return m_server->listen(m_name);
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
    received(line);
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

#else

struct SingleCopy::Peer {
    QSocketNotifier* notifier;
    QByteArray received;
};

SingleCopy::SingleCopy(QString name, QObject* parent) : QObject(parent), m_name(std::move(name)) {}

SingleCopy::~SingleCopy() {
    for (auto& [fd, peer] : m_peers) {
        delete peer->notifier;
        ::close(fd);
    }
    if (m_listener >= 0) {
        delete m_accepting;
        ::close(m_listener);
        ::unlink(QFile::encodeName(m_name).constData());
    }
    if (m_lock >= 0) {
        ::close(m_lock);
    }
}

bool SingleCopy::listen() {
    if (m_listener >= 0) {
        return true;
    }
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
    const std::optional<sockaddr_un> address = socketAddress(m_name);
    if (!address) {
        return false;
    }
    ::unlink(address->sun_path);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0) {
        return false;
    }
    // Only the user may connect; nobody can before listen(), so the mode is set in time.
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&*address), sizeof(*address)) != 0 ||
        ::chmod(address->sun_path, S_IRUSR | S_IWUSR) != 0 || ::listen(fd, 8) != 0) {
        ::close(fd);
        return false;
    }
    m_listener = fd;
    m_accepting = new QSocketNotifier(fd, QSocketNotifier::Read, this);
    connect(m_accepting, &QSocketNotifier::activated, this, &SingleCopy::accept);
    return true;
}

void SingleCopy::accept() {
    for (;;) {
        const int fd = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (fd < 0) {
            return;  // none left (EAGAIN), or the peer went before it was taken
        }
        auto* notifier = new QSocketNotifier(fd, QSocketNotifier::Read, this);
        m_peers.emplace(fd, std::make_unique<Peer>(Peer{notifier, {}}));
        connect(notifier, &QSocketNotifier::activated, this, [this, fd] { readFrom(fd); });
        readFrom(fd);
    }
}

void SingleCopy::readFrom(int fd) {
    const auto found = m_peers.find(fd);
    if (found == m_peers.end()) {
        return;
    }
    Peer& peer = *found->second;
    char buffer[kMaxMessage + 1];
    ssize_t got = 0;
    bool ended = false;
    while (peer.received.size() <= kMaxMessage && (got = ::read(fd, buffer, sizeof buffer)) > 0) {
        peer.received.append(buffer, got);
    }
    if (got == 0 || (got < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)) {
        ended = true;  // hung up, or failed: nothing more will come
    }
    const qsizetype lineEnd = peer.received.indexOf('\n');
    if (lineEnd < 0 && !ended && peer.received.size() <= kMaxMessage) {
        return;  // the rest of the line is still on its way
    }
    const QByteArray line =
        lineEnd >= 0 && lineEnd <= kMaxMessage ? peer.received.left(lineEnd).trimmed() : QByteArray();
    // Hanging up tells the sender its line was read.
    peer.notifier->setEnabled(false);
    peer.notifier->deleteLater();
    ::close(fd);
    m_peers.erase(found);
    if (!line.isEmpty()) {
        received(line);
    }
}

bool SingleCopy::send(const QString& name, const QByteArray& message, int timeoutMs) {
    const std::optional<sockaddr_un> address = socketAddress(name);
    if (!address) {
        return false;
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0) {
        return false;
    }
    const auto fail = [fd] {
        ::close(fd);
        return false;
    };
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&*address), sizeof(*address)) != 0) {
        // A full backlog makes a Unix socket answer EAGAIN; anything else means nobody listens.
        if (errno != EAGAIN && errno != EINPROGRESS) {
            return fail();
        }
        if (!waitFor(fd, POLLOUT, deadline)) {
            return fail();
        }
        int error = 0;
        socklen_t length = sizeof error;
        if (::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length) != 0 || error != 0) {
            return fail();
        }
    }
    const QByteArray line = message + '\n';
    qsizetype written = 0;
    while (written < line.size()) {
        const ssize_t n = ::send(fd, line.constData() + written,
                                 static_cast<std::size_t>(line.size() - written), MSG_NOSIGNAL);
        if (n > 0) {
            written += n;
        } else if (n < 0 && (errno == EAGAIN || errno == EINTR)) {
            if (!waitFor(fd, POLLOUT, deadline)) {
                return fail();
            }
        } else {
            return fail();
        }
    }
    // The running copy hangs up once it has read the line.
    char ignored[64];
    while (waitFor(fd, POLLIN, deadline)) {
        const ssize_t n = ::read(fd, ignored, sizeof ignored);
        if (n == 0 || (n < 0 && errno != EAGAIN && errno != EINTR)) {
            break;
        }
    }
    ::close(fd);
    return true;
}

#endif

}  // namespace zv::app
