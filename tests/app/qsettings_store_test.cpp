#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "app/common/qsettings_store.h"

using zv::app::QSettingsStore;
using namespace Qt::StringLiterals;
using Value = std::optional<std::string>;

namespace {

bool writeFile(const QString& path, const QByteArray& contents) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

}  // namespace

class QSettingsStoreTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_config;

private slots:
    void initTestCase() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path())); }

    void userStoreLivesInTheConfigFolder() {
        QSettingsStore store;
        QCOMPARE(store.location(), m_config.path() + u"/Zavrello/Quorvati.ini"_s);
        QVERIFY(store.write("Configura", "Porta", "COM2"));
        QCOMPARE(store.read("Configura", "Monitor"), std::nullopt);
        QFile file(store.location());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("[Configura]\nPorta=COM2\n"));
    }

    void valuesRoundTripThroughANewStore() {
        const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
            {"non-ASCII key and value", "Promissoria", "Endereço", "Rua São João, 12"},
            {"numbered section", "Cheque1", "lblMêsL", "3120"},
            {"like a settings marker", "Configura", "UltimoPath", "@C:\\Relatórios"},
            {"empty", "Configura", "ImpDispo", ""},
            {"a boolean kept as written", "Configura", "Visivel", "True"},
        };
        for (const auto& [label, section, key, value] : cases) {
            QVERIFY2(QSettingsStore().write(section, key, value), label);
            QVERIFY2(QSettingsStore().read(section, key) == Value(value), label);
        }
    }

    void aFailedWriteSaysSoAndDoesNotStick() {
        // A file where the folder should be: no user, root included, can create the store there.
        const QString folder = m_config.filePath(u"blocked"_s);
        QVERIFY(writeFile(folder, {}));
        QSettingsStore store(folder + u"/Quorvati.ini"_s);
        QVERIFY(!store.write("Configura", "Porta", "LPT2"));
        QVERIFY(QFile::remove(folder) && QDir().mkdir(folder));
        QVERIFY(store.write("Configura", "Sons", "1"));
        QCOMPARE(QSettingsStore(store.location()).read("Configura", "Sons"), Value("1"));
    }

    void fileEditedByHandIsReadAndTakesWrites() {
        const QString path = m_config.filePath(u"edited.ini"_s);
        QVERIFY(writeFile(path, "[Cheque]\nBanco=Modelo 1,2\n[Configura\n"));  // a section never closed
        QVERIFY(QSettingsStore(path).write("Configura", "Backup", "False"));
        QCOMPARE(QSettingsStore(path).read("Configura", "Backup"), Value("False"));
        QCOMPARE(QSettingsStore(path).read("Cheque", "Banco"), Value("Modelo 1,2"));
    }
};

QTEST_MAIN(QSettingsStoreTest)
#include "qsettings_store_test.moc"
