#pragma once

#include <QObject>
#include <QString>
#include <map>
#include <memory>

class QSocketNotifier;
class QLocalServer;
class QLocalSocket;

namespace zv::app {

// One running copy per user. The running copy listens on a local channel named "Stiopreig"
// (on Linux a socket in the user's runtime folder that only the user can open; on Windows a
// pipe of the user's own); a later start finds it there and hands over. Only two messages are
// acted on: one beginning "max" (show the calculator) and "fechar" (end the program).
class SingleCopy final : public QObject {
    Q_OBJECT
public:
    static QString channelName();

    explicit SingleCopy(QString name = channelName(), QObject* parent = nullptr);
    ~SingleCopy() override;

    // Becomes the running copy. False while another copy runs; a channel left behind by a copy
    // that crashed is taken over.
    bool listen();

    // Delivers `message` to the running copy; false when none is there to take it.
    static bool send(const QString& name, const QByteArray& message, int timeoutMs = 2000);

signals:
    void showRequested();
    void closeRequested();

private:
    // A whole line from a later copy; anything but our two messages is ignored.
    void received(const QByteArray& line);

    QString m_name;
#ifdef _WIN32
    void readFrom(QLocalSocket* socket);
    QLocalServer* m_server;
#else
    // On Linux the channel is a plain Unix socket watched by the event loop: the program then
    // needs no network library at all, which start-up and memory would pay for.
    struct Peer;
    void accept();
    void readFrom(int fd);
    int m_lock = -1;
    int m_listener = -1;
    QSocketNotifier* m_accepting = nullptr;
    std::map<int, std::unique_ptr<Peer> > m_peers;
#endif
};

}  // namespace zv::app
