// One running copy per user: a second process hands over through the channel and ends.
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "app/tray/single_copy.h"

using zv::app::SingleCopy;

class SingleCopyTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_name;

    int peer(const QStringList& args) {
        QProcess process;
        process.start(QStringLiteral(ZV_PEER), args);
        if (!process.waitForFinished(10000)) {
            process.kill();
            return -1;
        }
        return process.exitCode();
    }

private slots:
    void init() { m_name = m_dir.filePath(QStringLiteral("Stiopreig")); }

    void secondCopyHandsOverAndEnds() {
        SingleCopy first(m_name);
        QVERIFY(first.listen());
        QSignalSpy shown(&first, &SingleCopy::showRequested);
        QSignalSpy closed(&first, &SingleCopy::closeRequested);
        QProcess second;
        second.start(QStringLiteral(ZV_PEER),
                     {QStringLiteral("send"), m_name, QStringLiteral("max14:05:09")});
        QTRY_COMPARE(shown.count(), 1);
        QTRY_COMPARE(second.state(), QProcess::NotRunning);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(closed.count(), 0);
        // A second copy cannot take the channel while the first runs.
        SingleCopy another(m_name);
        QVERIFY(!another.listen());
    }

    void fecharClosesTheRunningCopy() {
        SingleCopy first(m_name);
        QVERIFY(first.listen());
        QSignalSpy closed(&first, &SingleCopy::closeRequested);
        QProcess second;
        second.start(QStringLiteral(ZV_PEER), {QStringLiteral("send"), m_name, QStringLiteral("fechar")});
        QTRY_COMPARE(closed.count(), 1);
        QTRY_COMPARE(second.state(), QProcess::NotRunning);
    }

    void foreignMessagesAreIgnored() {
        SingleCopy first(m_name);
        QVERIFY(first.listen());
        QSignalSpy shown(&first, &SingleCopy::showRequested);
        QSignalSpy closed(&first, &SingleCopy::closeRequested);
        for (const QString& message : {QStringLiteral("hello"), QStringLiteral("fechar now"),
                                       QStringLiteral("MAX"), QString(300, QLatin1Char('m'))}) {
            QProcess other;
            other.start(QStringLiteral(ZV_PEER), {QStringLiteral("send"), m_name, message});
            QVERIFY(other.waitForFinished(5000));
        }
        QTest::qWait(50);
        QCOMPARE(shown.count(), 0);
        QCOMPARE(closed.count(), 0);
    }

    void staleChannelOfACrashedCopyIsTakenOver() {
        QProcess crashed;
        crashed.start(QStringLiteral(ZV_PEER), {QStringLiteral("listen"), m_name});
        QVERIFY(crashed.waitForReadyRead(5000));
        crashed.kill();  // SIGKILL: the socket file stays behind
        QVERIFY(crashed.waitForFinished(5000));
        QVERIFY(QFile::exists(m_name));
        SingleCopy next(m_name);
        QVERIFY(next.listen());
    }

    void nobodyToHandOverTo() { QCOMPARE(peer({QStringLiteral("send"), m_name, QStringLiteral("max")}), 3); }
};

QTEST_MAIN(SingleCopyTest)
#include "single_copy_test.moc"
