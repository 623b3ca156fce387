#include <QPageLayout>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include "app/calc/tape_printer.h"

using zv::app::PrintSize;

namespace {

const QString kTape = QStringLiteral(
    "21/11/2026 ==============\r\n"
    "                1.234,56 +\r\n"
    "                   12,00 ×\r\n"
    "                    4,00 ÷\r\n"
    "                  246,00 T\r\n"
    " =========================\r\n");

// Prints `tape` to a PDF on A4 with 30 mm left and 20 mm top margins; the file's path, or empty.
QString printToPdf(const QString& path, const QString& tape, PrintSize size) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(30, 20, 10, 15), QPageLayout::Millimeter));
    return zv::app::printTape(printer, tape, size) ? path : QString();
}

QString run(const QString& tool, const QStringList& args) {
    QProcess process;
    process.start(tool, args);
    if (!process.waitForFinished(30000) || process.exitCode() != 0) {
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

int pageCount(const QString& pdf) {
    const auto match = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(run("pdfinfo", {pdf}));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

}  // namespace

class TapePrinterTest : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;
    QString pdfPath(const QString& name) const { return m_dir.filePath(name + QStringLiteral(".pdf")); }

private slots:
    void printsEveryLineAsTextInOrderInEachSize() {
        for (const PrintSize size : {PrintSize::Small, PrintSize::Medium, PrintSize::Large}) {
            const QString pdf = printToPdf(pdfPath(QString::number(int(size))), kTape, size);
            QVERIFY(!pdf.isEmpty());
            const QString text = run("pdftotext", {"-layout", "-enc", "UTF-8", pdf, "-"});
            qsizetype from = 0;
            for (const char* expected : {"21/11/2026 ==============", "1.234,56 +", "12,00 ×", "4,00 ÷",
                                         "246,00 T", "========================="}) {
                const qsizetype at = text.indexOf(QString::fromUtf8(expected), from);
                QVERIFY2(at >= 0, expected);
                from = at + 1;
            }
            QCOMPARE(pageCount(pdf), 1);
        }
    }

    void longTapeBreaksIntoPagesByLetterSize() {
        QString tape;
        for (int i = 1; i <= 200; ++i) {
            tape += QStringLiteral("%1 +\r\n").arg(QStringLiteral("L%1").arg(i, 3, 10, QLatin1Char('0')), 24);
        }
        const QString small = printToPdf(pdfPath("long-small"), tape, PrintSize::Small);
        const QString large = printToPdf(pdfPath("long-large"), tape, PrintSize::Large);
        QVERIFY(pageCount(small) >= 2);
        QVERIFY(pageCount(large) > pageCount(small));
        // No line may be lost or repeated at a page break.
        const QString text = run("pdftotext", {"-layout", small, "-"});
        for (int i = 1; i <= 200; ++i) {
            QCOMPARE(text.count(QStringLiteral("L%1 +").arg(i, 3, 10, QLatin1Char('0'))), 1);
        }
    }

    void everyCharacterTakesTheSameWidthInsideTheMargins() {
        const QString pdf = printToPdf(pdfPath("font"), kTape, PrintSize::Medium);
        // Every printed character takes the same width, and the text starts at the margins.
        const QString boxes = run("pdftotext", {"-bbox", pdf, "-"});
        QRegularExpression word(
            QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" "
                           "yMax=\"[\\d.]+\">([^<]+)</word>"));
        qreal pitch = 0, left = 1e9, top = 1e9;
        int words = 0;
        for (const auto& m : word.globalMatch(boxes)) {
            ++words;
            const qreal width = m.captured(3).toDouble() - m.captured(1).toDouble();
            const qreal perChar = width / m.captured(4).size();
            if (pitch == 0) {
                pitch = perChar;
            }
            QVERIFY2(qAbs(perChar - pitch) < 0.01 * pitch, qPrintable(m.captured(4)));
            left = qMin(left, m.captured(1).toDouble());
            top = qMin(top, m.captured(2).toDouble());
        }
        QVERIFY(words >= 11);  // the proportional signs and digits of every line compared
        const qreal mm = 72 / 25.4;
        QVERIFY2(left >= 30 * mm - 1 && left < 30 * mm + 2, qPrintable(QString::number(left)));
        QVERIFY2(top >= 20 * mm - 1 && top < 20 * mm + 6, qPrintable(QString::number(top)));
    }

    void unusablePrinterFailsWithoutOutput() {
        const QString missing = m_dir.filePath(QStringLiteral("no-such-folder/tape.pdf"));
        QVERIFY(printToPdf(missing, kTape, PrintSize::Small).isEmpty());
        QVERIFY(!QFile::exists(missing));
    }
};

QTEST_MAIN(TapePrinterTest)
#include "tape_printer_test.moc"
