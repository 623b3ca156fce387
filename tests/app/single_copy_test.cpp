// One running copy per user: a second process hands over through the channel and ends.
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "app/tray/single_copy.h"

using zv::app::SingleCopy;
using namespace Qt::StringLiterals;

class SingleCopyTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_name;

private slots:
    void init() { m_name = m_dir.filePath(u"Stiopreig"_s); }

    void messageFromASecondCopy_data() {
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("shows");
        QTest::addColumn<int>("closes");
        QTest::newRow("show, with the time it was asked") << u"max14:05:09"_s << 1 << 0;
        QTest::newRow("close") << u"fechar"_s << 0 << 1;
        QTest::newRow("close with more after it") << u"fechar now"_s << 0 << 0;
        QTest::newRow("show in capitals") << u"MAX"_s << 0 << 0;
        QTest::newRow("longer than a message") << QString(300, u'm') << 0 << 0;
    }
    void messageFromASecondCopy() {
        QFETCH(QString, message);
        QFETCH(int, shows);
        QFETCH(int, closes);
        SingleCopy first(m_name);
        QVERIFY(first.listen());
        QSignalSpy shown(&first, &SingleCopy::showRequested);
        QSignalSpy closed(&first, &SingleCopy::closeRequested);
        QProcess second;
        second.start(QStringLiteral(ZV_PEER), {u"send"_s, m_name, message});
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 10000);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(shown.count(), shows);
        QCOMPARE(closed.count(), closes);
    }

    void channelIsTakenOverOnlyFromAnEndedCopy() {
        QProcess running;
        running.start(QStringLiteral(ZV_PEER), {u"listen"_s, m_name});
        QVERIFY(running.waitForReadyRead(5000));
        QVERIFY(!SingleCopy(m_name).listen());
        running.kill();  // SIGKILL: the socket file stays behind
        QVERIFY(running.waitForFinished(5000));
        QVERIFY(QFile::exists(m_name));
        QVERIFY(SingleCopy(m_name).listen());
    }

    void nobodyToHandOverTo() {
        QProcess second;
        second.start(QStringLiteral(ZV_PEER), {u"send"_s, m_name, u"max"_s});
        QVERIFY(second.waitForFinished(10000));
        QCOMPARE(second.exitCode(), 3);
    }
};

QTEST_MAIN(SingleCopyTest)
#include "single_copy_test.moc"
