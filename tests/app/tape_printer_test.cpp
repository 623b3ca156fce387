#include <QPageLayout>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include "app/calc/tape_printer.h"
#include "app/common/print_preview.h"

using zv::app::PrintSize;
using zv::app::TapePages;
using namespace Qt::StringLiterals;

namespace {

const QStringList kLines = {u"21/11/2026 =============="_s,  u"                1.234,56 +"_s,
                            u"                   12,00 ×"_s, u"                    4,00 ÷"_s,
                            u"                  246,00 T"_s, u" ========================="_s};
constexpr qreal kMm = 72 / 25.4;  // points

TapePages pagesOf(const QStringList& lines, PrintSize size) {
    return TapePages(lines.join(u"\r\n"_s) + u"\r\n"_s, size, u"21/11/2026"_s,
                     [](int page, int count) { return u"Pg %1/%2"_s.arg(page).arg(count); });
}

// A PDF printer on A4 with margins of 30 mm left, 20 mm top and 15 mm bottom.
void toPdf(QPrinter& printer, const QString& path) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(30, 20, 10, 15), QPageLayout::Millimeter));
}

bool printToPdf(const QString& path, const QStringList& lines, PrintSize size) {
    QPrinter printer;
    toPdf(printer, path);
    TapePages pages = pagesOf(lines, size);
    return zv::app::printTape(printer, pages);
}

QStringList numberedLines(int count) {
    QStringList lines;
    for (int i = 1; i <= count; ++i) {
        lines << u"L%1 +"_s.arg(i, 3, 10, QChar(u'0'));
    }
    return lines;
}

QString run(const QString& tool, const QStringList& args) {
    QProcess process;
    process.start(tool, args);
    return process.waitForFinished(30000) && process.exitCode() == 0
               ? QString::fromUtf8(process.readAllStandardOutput())
               : QString();
}

int pageCount(const QString& pdf) {
    return QRegularExpression(u"Pages:\\s+(\\d+)"_s).match(run(u"pdfinfo"_s, {pdf})).captured(1).toInt();
}

// Each printed word with its box on its page, in points from the page's top left.
QList<std::pair<QRectF, QString>> words(const QString& pdf) {
    const QRegularExpression word(
        u"<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]+)</word>"_s);
    QList<std::pair<QRectF, QString>> found;
    for (const auto& m : word.globalMatch(run(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}))) {
        const QPointF topLeft(m.captured(1).toDouble(), m.captured(2).toDouble());
        found.append(
            {QRectF(topLeft, QPointF(m.captured(3).toDouble(), m.captured(4).toDouble())), m.captured(5)});
    }
    return found;
}

}  // namespace

class TapePrinterTest : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;
    QString pdf(const QString& name) const { return m_dir.filePath(name + u".pdf"_s); }

private slots:
    void longTapeBreaksIntoPagesByLetterSizeLosingNoLine() {
        const QStringList lines = numberedLines(200);
        QVERIFY(printToPdf(pdf(u"small"_s), lines, PrintSize::Small));
        QVERIFY(printToPdf(pdf(u"large"_s), lines, PrintSize::Large));
        QVERIFY(pageCount(pdf(u"small"_s)) >= 2);
        QVERIFY(pageCount(pdf(u"large"_s)) > pageCount(pdf(u"small"_s)));
        // Every line once, in order, and nothing else but each page's heading.
        QString printed = run(u"pdftotext"_s, {pdf(u"small"_s), u"-"_s});
        const int pages = pageCount(pdf(u"small"_s));
        for (int page = 1; page <= pages; ++page) {
            QCOMPARE(printed.count(u"Pg %1/%2"_s.arg(page).arg(pages)), 1);
        }
        printed.remove(QRegularExpression(u"21/11/2026|Pg \\d+/\\d+"_s));
        QCOMPARE(printed.simplified(), lines.join(u' '));
        for (const auto& [box, word] : words(pdf(u"small"_s))) {
            QVERIFY2(box.bottom() < 297 * kMm - 15 * kMm + 1, qPrintable(word));  // above the bottom margin
        }
    }

    void everyWordIsPrintedInTheSameWidthPerCharacterInsideTheMargins() {
        QVERIFY(printToPdf(pdf(u"font"_s), kLines, PrintSize::Medium));
        QCOMPARE(pageCount(pdf(u"font"_s)), 1);
        auto printed = words(pdf(u"font"_s));
        QCOMPARE(printed.size(), 3 + 11);  // the heading's, then every word of every line
        std::sort(printed.begin(), printed.end(), [](const auto& a, const auto& b) {
            return std::pair(qRound(a.first.top()), a.first.left()) <
                   std::pair(qRound(b.first.top()), b.first.left());
        });
        const auto heading = printed.mid(0, 3);
        QCOMPARE(heading[0].second + heading[1].second + heading[2].second, u"21/11/2026Pg1/1"_s);
        QVERIFY(heading[2].first.right() > 200 * kMm - 2);  // page number at the right margin
        printed = printed.mid(3);
        const qreal pitch = printed[0].first.width() / printed[0].second.size();
        qreal left = 1e9, top = 1e9;
        for (const auto& [box, word] : printed) {
            QVERIFY2(qAbs(box.width() / word.size() - pitch) < 0.01 * pitch, qPrintable(word));
            left = qMin(left, box.left());
            top = qMin(top, box.top());
        }
        QVERIFY2(left >= 30 * kMm - 1 && left < 30 * kMm + 2, qPrintable(QString::number(left)));
        QVERIFY2(heading[0].first.top() >= 20 * kMm - 1, qPrintable(QString::number(heading[0].first.top())));
        QVERIFY2(top >= heading[0].first.bottom() && top < 20 * kMm + 20, qPrintable(QString::number(top)));
    }

    // The preview paints its pages again whenever it is redrawn, and a page may be asked for on its
    // own: each page must come out the same whatever was painted before it.
    void anyPageIsPaintedAloneAndAgainTheSame() {
        const QStringList lines = numberedLines(120);
        TapePages pages = pagesOf(lines, PrintSize::Large);
        QPrinter printer;
        toPdf(printer, pdf(u"order"_s));
        QCOMPARE(pages.layOut(printer), 3);
        QPainter painter(&printer);
        const int order[] = {2, 1, 2, 1};
        for (int i = 0; i < 4; ++i) {
            QVERIFY(i == 0 || printer.newPage());
            pages.paintPage(painter, order[i]);
        }
        QVERIFY(painter.end());
        QStringList printed;
        for (int page = 1; page <= 4; ++page) {
            const QString p = QString::number(page);
            printed << run(u"pdftotext"_s, {u"-f"_s, p, u"-l"_s, p, u"-layout"_s, pdf(u"order"_s), u"-"_s});
        }
        QCOMPARE(printed[2], printed[0]);
        QCOMPARE(printed[3], printed[1]);
        QVERIFY(printed[0].contains(u"Pg 3/3"_s) && printed[1].contains(u"Pg 2/3"_s));
        // Page 3 ends the tape and page 2 runs up to its first line, with no line left out.
        const QRegularExpression line(u"L(\\d{3}) \\+"_s);
        QList<int> numbers;
        for (const QString& page : {printed[1], printed[0]}) {
            for (const auto& m : line.globalMatch(page)) {
                numbers << m.captured(1).toInt();
            }
        }
        QVERIFY(numbers.size() > 60);
        for (int i = 0; i < numbers.size(); ++i) {
            QCOMPARE(numbers[i], 120 - numbers.size() + 1 + i);
        }
    }

    // What the user sees: every page of the preview shows its lines, and Print prints them all on
    // the printer already chosen.
    void previewShowsEveryPageAndPrintsWithoutAskingAgain() {
        const QStringList lines = numberedLines(120);
        TapePages pages = pagesOf(lines, PrintSize::Large);
        QPrinter printer;
        toPdf(printer, pdf(u"preview"_s));
        auto darkPixels = [](zv::app::PrintPreview& preview, int page) {
            preview.view()->setViewMode(QPrintPreviewWidget::SinglePageView);
            preview.view()->setCurrentPage(page);
            QCoreApplication::processEvents();
            const QImage image = preview.view()->grab().toImage();
            int dark = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
                }
            }
            return dark;
        };
        zv::app::PrintPreview blank(
            printer,
            [](QPrinter& target) {
                QPainter painter(&target);
                return target.newPage() && target.newPage();
            },
            zv::common::Language::Portuguese);
        blank.show();
        blank.view()->updatePreview();
        int empty = 0;  // the page's frame and shadow, once the view shows them
        QTRY_VERIFY_WITH_TIMEOUT((empty = darkPixels(blank, 3)) > 1000, 3000);
        blank.close();

        zv::app::PrintPreview preview(
            printer, [&](QPrinter& target) { return zv::app::printTape(target, pages); },
            zv::common::Language::Portuguese);
        preview.show();
        preview.view()->updatePreview();
        QCOMPARE(preview.view()->pageCount(), 3);
        for (int page : {3, 2, 1, 2, 3}) {
            // The view lays its pages out as events arrive: wait for it, not for a time.
            QTRY_VERIFY2_WITH_TIMEOUT(darkPixels(preview, page) > empty + 1000,
                                      qPrintable(QString::number(page)), 3000);
        }
        QTimer::singleShot(0, [] {  // a printer dialog opened now would wait for the user for ever
            if (QWidget* modal = QApplication::activeModalWidget()) {
                modal->close();
            }
        });
        QVERIFY(preview.printNow());
        QCOMPARE(pageCount(pdf(u"preview"_s)), 3);
    }

    void unusablePrinterFailsWithoutOutput() {
        const QString missing = m_dir.filePath(u"no-such-folder/tape.pdf"_s);
        QVERIFY(!printToPdf(missing, kLines, PrintSize::Small));
        QVERIFY(!QFile::exists(missing));
    }
};

QTEST_MAIN(TapePrinterTest)
#include "tape_printer_test.moc"
