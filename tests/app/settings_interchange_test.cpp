// The command line's settings file store and the windows' store (Qt) on one file: what either
// writes, the other reads back unchanged, and neither loses what the other wrote.
#include <QTemporaryDir>
#include <QtTest>

#include "app/common/qsettings_store.h"
#include "platform/ini_settings_store.h"

using zv::app::QSettingsStore;
using zv::platform::IniSettingsStore;
using namespace Qt::StringLiterals;
using Value = std::optional<std::string>;

namespace {

struct Entry {
    const char* section;
    const char* key;
    const char* value;
};

// What the documents keep: keys and values beyond ASCII, a bank name with quotes, backslashes,
// list separators and a comment sign, blanks around, a leading "@", a line break.
const Entry kEntries[] = {
    {"Cheque", "lblMêsL", "480"},
    {"Cheque3", "Banco", R"(BANCO "SÃO JOÃO" C:\X\ ; a=b # c, d)"},
    {"Promissoria", "Endereço", "  Rua da Conceição, 12  "},
    {"Promissoria8", "Modelo", "@FORMULÁRIO"},
    {"Cheque1", "Banco", "@ByteArray(BANCO)"},
    {"Promissoria", "Credor", "SILVA, JOÃO"},
    {"Promissoria", "Pagarei", "linha 1\nlinha 2\tfim"},
    {"Configura", "ImpDispo", ""},
    {"Configura", "Cor",
     "€ \x01"
     "a"},
};

}  // namespace

class SettingsInterchangeTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void whatTheCommandLineWritesTheWindowsRead() {
        const QString path = m_dir.filePath(u"from-cli.ini"_s);
        IniSettingsStore cli(path.toStdString());
        for (const Entry& e : kEntries) {
            QVERIFY2(cli.write(e.section, e.key, e.value), e.key);
        }
        QSettingsStore windows(path);
        for (const Entry& e : kEntries) {
            QVERIFY2(windows.read(e.section, e.key) == Value(e.value), e.key);
        }
    }

    void whatTheWindowsWriteTheCommandLineReads() {
        const QString path = m_dir.filePath(u"from-windows.ini"_s);
        {
            QSettingsStore windows(path);
            for (const Entry& e : kEntries) {
                QVERIFY2(windows.write(e.section, e.key, e.value), e.key);
            }
        }
        const IniSettingsStore cli(path.toStdString());
        for (const Entry& e : kEntries) {
            QVERIFY2(cli.read(e.section, e.key) == Value(e.value), e.key);
        }
        QCOMPARE(cli.read("Cheque", "Banco"), std::nullopt);
    }

    void aWriteByOneKeepsEverythingTheOtherWrote() {
        const QString path = m_dir.filePath(u"shared.ini"_s);
        {
            QSettings qt(path, QSettings::IniFormat);
            qt.setValue(u"Configura/Geometry"_s, QByteArray("\x01\xd9\xd0\xcb", 4));
            qt.setValue(u"Configura/Lista"_s, QStringList{u"a"_s, u"b"_s});
        }
        IniSettingsStore cli(path.toStdString());
        QVERIFY(cli.write("Configura", "ImpDispo", "HP"));
        QVERIFY(cli.write("Cheque", "Banco", "X"));
        QSettings qt(path, QSettings::IniFormat);
        QCOMPARE(qt.value(u"Configura/Geometry"_s).toByteArray(), QByteArray("\x01\xd9\xd0\xcb", 4));
        QCOMPARE(qt.value(u"Configura/Lista"_s).toStringList(), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(qt.value(u"Configura/ImpDispo"_s).toString(), u"HP"_s);
        QCOMPARE(qt.value(u"Cheque/Banco"_s).toString(), u"X"_s);
    }
};

QTEST_MAIN(SettingsInterchangeTest)
#include "settings_interchange_test.moc"
