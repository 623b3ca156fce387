// Where a window goes when the screens are not those it was last shown on.
#include <QtTest>

#include "app/common/window_placement.h"

Q_DECLARE_METATYPE(QList<QRect>)

namespace {

const QRect kLaptop(0, 0, 1366, 740);          // the primary screen, less its panel
const QRect kMonitor(1366, -200, 1920, 1050);  // a second screen to its right, higher up

}  // namespace

class WindowPlacementTest : public QObject {
    Q_OBJECT

private slots:
    void keptWholeOnAScreen_data() {
        QTest::addColumn<QRect>("wanted");
        QTest::addColumn<QList<QRect>>("areas");
        QTest::addColumn<QRect>("placed");
        QTest::addColumn<QMargins>("frame");
        const QList<QRect> both{kLaptop, kMonitor};
        const auto at = [](int x, int y, int height = 560) { return QRect(x, y, 340, height); };
        QTest::newRow("inside stays") << at(100, 50) << both << at(100, 50) << QMargins();
        QTest::newRow("over the right edge of the last screen")
            << at(3200, 0) << both << at(3286 - 340, 0) << QMargins();
        QTest::newRow("above the top") << at(100, -30) << both << at(100, 0) << QMargins();
        QTest::newRow("taller than its screen") << at(100, 50, 900) << both << at(100, 0, 740) << QMargins();
        QTest::newRow("on the second screen stays there")
            << at(2000, -150) << both << at(2000, -150) << QMargins();
        QTest::newRow("across two screens: the first it touches")
            << at(1200, 100) << both << at(1026, 100) << QMargins();
        QTest::newRow("screen gone: centred on the primary")
            << at(5000, 3000) << both << at(513, 90) << QMargins();
        QTest::newRow("no screens: as wanted")
            << at(5000, 3000) << QList<QRect>{} << at(5000, 3000) << QMargins();
        // A title bar of 30 and borders of 4: the framed window is what must fit.
        QTest::newRow("the frame is kept on the screen too")
            << at(100, 10, 720) << both << at(100, 30, 740 - 34) << QMargins(4, 30, 4, 4);
    }
    void keptWholeOnAScreen() {
        QFETCH(QRect, wanted);
        QFETCH(QList<QRect>, areas);
        QFETCH(QRect, placed);
        QFETCH(QMargins, frame);
        QCOMPARE(zv::app::keepOnScreen(wanted, areas, frame), placed);
    }
};

QTEST_APPLESS_MAIN(WindowPlacementTest)
#include "window_placement_test.moc"
