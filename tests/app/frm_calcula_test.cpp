#include <QtTest>
class Placeholder : public QObject {
    Q_OBJECT
};
QTEST_MAIN(Placeholder)
#include "frm_calcula_test.moc"
