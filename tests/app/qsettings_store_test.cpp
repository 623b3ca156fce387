#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "app/common/qsettings_store.h"
#include "core/common/settings_keys.h"

using zv::app::QSettingsStore;
namespace keys = zv::common::settings;

namespace {

bool writeFile(const QString& path, const QByteArray& contents) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

}  // namespace

class QSettingsStoreTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_config;

private slots:
    void initTestCase() {
        QVERIFY(m_config.isValid());
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path()));
    }

    void userStoreLivesInTheConfigFolder() {
        QSettingsStore store;
        const QString expected = m_config.path() + QStringLiteral("/Zavrello/Quorvati.ini");
        QCOMPARE(store.location(), expected);
        QVERIFY(store.write(keys::kConfigura, keys::kPorta, "COM2"));
        QCOMPARE(store.read(keys::kConfigura, keys::kMonitor), std::nullopt);

        QFile file(expected);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray contents = file.readAll();
        QVERIFY2(contents.contains("[Configura]\nPorta=COM2\n"), contents.constData());
    }

    void valuesRoundTripThroughANewStore() {
        struct Value {
            const char* section;
            const char* key;
            const char* value;
        };
        const Value values[] = {
            {"Promissoria", "Endereço", "Rua São João, 12"},  // non-ASCII key
            {"Cheque1", "lblMêsL", "3120"},                   // in a numbered section
            {"Configura", "UltimoPath", "@C:\\Relatórios"},   // like a settings marker
            {"Configura", "ImpDispo", ""},
            {"Configura", "Visivel", "True"},  // booleans are kept as they are written
            {"Configura", "Backup", "-1"},
        };
        for (const Value& v : values) {
            QVERIFY(QSettingsStore().write(v.section, v.key, v.value));
            QCOMPARE(QSettingsStore().read(v.section, v.key), std::optional<std::string>(v.value));
        }
    }

    void writeReportsEachOutcome() {
        // A file where the folder should be: no user, root included, can create the store there.
        const QString folder = m_config.filePath(QStringLiteral("blocked"));
        QVERIFY(writeFile(folder, {}));
        QSettingsStore store(folder + QStringLiteral("/Quorvati.ini"));
        QCOMPARE(store.location(), folder + QStringLiteral("/Quorvati.ini"));
        QVERIFY(!store.write(keys::kConfigura, keys::kPorta, "LPT2"));

        QVERIFY(QFile::remove(folder));
        QVERIFY(QDir().mkdir(folder));
        QVERIFY2(store.write(keys::kConfigura, keys::kSons, "1"), "a failure must not stick to the store");
        QCOMPARE(QSettingsStore(store.location()).read(keys::kConfigura, keys::kSons),
                 std::optional<std::string>("1"));
    }

    void fileEditedByHandStillTakesWrites() {
        const QString path = m_config.filePath(QStringLiteral("edited.ini"));
        QVERIFY(writeFile(path, "[Cheque]\nBanco=Modelo 1\n[Configura\n"));  // a section never closed
        QVERIFY(QSettingsStore(path).write(keys::kConfigura, keys::kBackup, "False"));
        QCOMPARE(QSettingsStore(path).read(keys::kConfigura, keys::kBackup),
                 std::optional<std::string>("False"));
        QCOMPARE(QSettingsStore(path).read("Cheque", "Banco"), std::optional<std::string>("Modelo 1"));
    }
};

QTEST_MAIN(QSettingsStoreTest)
#include "qsettings_store_test.moc"
