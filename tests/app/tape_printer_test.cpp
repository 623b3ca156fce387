#include <QPageLayout>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include "app/calc/tape_printer.h"

using zv::app::PrintSize;
using namespace Qt::StringLiterals;

namespace {

const QStringList kLines = {u"21/11/2026 =============="_s,  u"                1.234,56 +"_s,
                            u"                   12,00 ×"_s, u"                    4,00 ÷"_s,
                            u"                  246,00 T"_s, u" ========================="_s};
constexpr qreal kMm = 72 / 25.4;  // points

// Prints the lines to a PDF on A4 with margins of 30 mm left, 20 mm top and 15 mm bottom.
bool printToPdf(const QString& path, const QStringList& lines, PrintSize size) {
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(30, 20, 10, 15), QPageLayout::Millimeter));
    return zv::app::printTape(printer, lines.join(u"\r\n"_s) + u"\r\n"_s, size);
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
        QStringList lines;
        for (int i = 1; i <= 200; ++i) {
            lines << u"L%1 +"_s.arg(i, 3, 10, QChar(u'0'));
        }
        QVERIFY(printToPdf(pdf(u"small"_s), lines, PrintSize::Small));
        QVERIFY(printToPdf(pdf(u"large"_s), lines, PrintSize::Large));
        QVERIFY(pageCount(pdf(u"small"_s)) >= 2);
        QVERIFY(pageCount(pdf(u"large"_s)) > pageCount(pdf(u"small"_s)));
        // Every line once, in order, and nothing else.
        QCOMPARE(run(u"pdftotext"_s, {pdf(u"small"_s), u"-"_s}).simplified(), lines.join(u' '));
        for (const auto& [box, word] : words(pdf(u"small"_s))) {
            QVERIFY2(box.bottom() < 297 * kMm - 15 * kMm + 1, qPrintable(word));  // above the bottom margin
        }
    }

    void everyWordIsPrintedInTheSameWidthPerCharacterInsideTheMargins() {
        QVERIFY(printToPdf(pdf(u"font"_s), kLines, PrintSize::Medium));
        QCOMPARE(pageCount(pdf(u"font"_s)), 1);
        const auto printed = words(pdf(u"font"_s));
        QCOMPARE(printed.size(), 11);  // every word of every line, its signs and digits compared
        const qreal pitch = printed[0].first.width() / printed[0].second.size();
        qreal left = 1e9, top = 1e9;
        for (const auto& [box, word] : printed) {
            QVERIFY2(qAbs(box.width() / word.size() - pitch) < 0.01 * pitch, qPrintable(word));
            left = qMin(left, box.left());
            top = qMin(top, box.top());
        }
        QVERIFY2(left >= 30 * kMm - 1 && left < 30 * kMm + 2, qPrintable(QString::number(left)));
        QVERIFY2(top >= 20 * kMm - 1 && top < 20 * kMm + 6, qPrintable(QString::number(top)));
    }

    void unusablePrinterFailsWithoutOutput() {
        const QString missing = m_dir.filePath(u"no-such-folder/tape.pdf"_s);
        QVERIFY(!printToPdf(missing, kLines, PrintSize::Small));
        QVERIFY(!QFile::exists(missing));
    }
};

QTEST_MAIN(TapePrinterTest)
#include "tape_printer_test.moc"
