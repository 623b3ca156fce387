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
        QTest::newRow("inside stays")
            << QRect(100, 50, 340, 560) << both << QRect(100, 50, 340, 560) << QMargins();
        QTest::newRow("over the right edge of the last screen")
            << QRect(3200, 0, 340, 560) << both << QRect(3286 - 340, 0, 340, 560) << QMargins();
        QTest::newRow("above the top")
            << QRect(100, -30, 340, 560) << both << QRect(100, 0, 340, 560) << QMargins();
        QTest::newRow("taller than its screen")
            << QRect(100, 50, 340, 900) << both << QRect(100, 0, 340, 740) << QMargins();
        QTest::newRow("on the second screen stays there")
            << QRect(2000, -150, 340, 560) << both << QRect(2000, -150, 340, 560) << QMargins();
        QTest::newRow("across two screens goes to the first it touches")
            << QRect(1200, 100, 340, 560) << both << QRect(1366 - 340, 100, 340, 560) << QMargins();
        QTest::newRow("on a screen no longer there: centred on the primary")
            << QRect(5000, 3000, 340, 560) << both << QRect(513, 90, 340, 560) << QMargins();
        QTest::newRow("no screens: as wanted")
            << QRect(5000, 3000, 340, 560) << QList<QRect>{} << QRect(5000, 3000, 340, 560) << QMargins();
        // A title bar of 30 and borders of 4: the framed window is what must fit.
        QTest::newRow("the frame is kept on the screen too")
            << QRect(100, 10, 340, 720) << both << QRect(100, 30, 340, 740 - 34) << QMargins(4, 30, 4, 4);
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
