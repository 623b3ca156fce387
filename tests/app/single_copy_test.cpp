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
        QTest::addColumn<QString>("heard");  // the second copy's exit code, shows, closes
        QTest::newRow("show, with the time it was asked") << u"max14:05:09"_s << u"0 1 0"_s;
        QTest::newRow("close") << u"fechar"_s << u"0 0 1"_s;
        QTest::newRow("close with more after it") << u"fechar now"_s << u"0 0 0"_s;
        QTest::newRow("show in capitals") << u"MAX"_s << u"0 0 0"_s;
        QTest::newRow("longer than a message") << QString(300, u'm') << u"0 0 0"_s;
    }
    void messageFromASecondCopy() {
        QFETCH(QString, message);
        QFETCH(QString, heard);
        SingleCopy first(m_name);
        QVERIFY(first.listen());
        QSignalSpy shown(&first, &SingleCopy::showRequested);
        QSignalSpy closed(&first, &SingleCopy::closeRequested);
        QProcess second;
        second.start(QStringLiteral(ZV_PEER), {u"send"_s, m_name, message});
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, 10000);
        QCOMPARE(u"%1 %2 %3"_s.arg(second.exitCode()).arg(shown.count()).arg(closed.count()), heard);
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

    void nobodyToHandOverTo() { QVERIFY(!SingleCopy::send(m_name, "max", 500)); }
};

QTEST_MAIN(SingleCopyTest)
#include "single_copy_test.moc"
