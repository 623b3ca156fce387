#pragma once

#include <QObject>
#include <QString>

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
    void readFrom(QLocalSocket* socket);

    QString m_name;
    QLocalServer* m_server;
    int m_lock = -1;
};

}  // namespace zv::app
