#include <QtTest>
class Placeholder : public QObject {
    Q_OBJECT
};
QTEST_MAIN(Placeholder)
#include "qsettings_store_test.moc"
