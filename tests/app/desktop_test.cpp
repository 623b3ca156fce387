// What the desktop shows of the program: its icon at every size the icon theme gets, and the
// autostart entry it writes, which must look like the installed menu entry.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "app/common/app_icon.h"
#include "app/common/startup_entry.h"
#include "fakes/desktop_entry.h"

using namespace zv;

namespace {

std::map<std::string, std::string> keysOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return fakes::desktopEntryKeys(file.readAll().toStdString());
}

}  // namespace

class DesktopTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_config;

private slots:
    void initTestCase() {
        QVERIFY(m_config.isValid());
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path()));
    }

    void iconHasAPictureForEverySizeOfTheTheme() {
        for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
            const QImage picture(app::applicationIconFile(size));
            QCOMPARE(picture.size(), QSize(size, size));
            // Drawn to the edges: a smaller picture scaled up would leave a transparent border.
            QVERIFY(picture.pixelColor(size / 2, 0).alpha() == 255);
            QVERIFY(picture.pixelColor(size / 2, size - 1).alpha() == 255);
        }
    }

    void autostartEntryStartsInTheTrayAndLooksLikeTheMenuEntry() {
        const QString path = m_config.filePath(QStringLiteral("autostart/zavrello.desktop"));
        app::setStartWithSystem(true);
        auto written = keysOf(path);
        QVERIFY2(!written.empty(), qPrintable(path));
        QVERIFY(QString::fromStdString(written["Exec"]).endsWith(QStringLiteral("\" systray")));
        // Skipped by the session once the program is no longer there.
        QCOMPARE(QString::fromStdString(written["TryExec"]), QCoreApplication::applicationFilePath());
        auto installed = keysOf(QStringLiteral(ZV_DATA_DIR "/%1.desktop").arg(app::applicationId()));
        for (const char* key : {"Type", "Name", "Icon", "StartupWMClass"}) {
            QVERIFY2(!installed[key].empty(), key);
            QCOMPARE(QString::fromStdString(written[key]), QString::fromStdString(installed[key]));
        }
        app::setStartWithSystem(false);
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_MAIN(DesktopTest)
#include "desktop_test.moc"
