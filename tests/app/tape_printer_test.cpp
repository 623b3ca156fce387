#include <QtTest>
class Placeholder : public QObject {
    Q_OBJECT
};
QTEST_MAIN(Placeholder)
#include "tape_printer_test.moc"
