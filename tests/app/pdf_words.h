#pragma once

#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <vector>

namespace zv::fakes {

// A word of a PDF page as pdftotext reads it back: its box in points from the page's top-left
// corner, and its page (1-based).
struct PdfWord {
    int page = 0;
    QRectF box;
    QString text;
};

inline QString runTool(const QString& tool, const QStringList& args) {
    QProcess process;
    process.start(tool, args);
    return process.waitForFinished(30000) && process.exitCode() == 0
               ? QString::fromUtf8(process.readAllStandardOutput())
               : QString();
}

inline std::vector<PdfWord> pdfWords(const QString& pdf) {
    const QRegularExpression item(
        QStringLiteral("<page |<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" "
                       "yMax=\"([\\d.]+)\">([^<]+)</word>"));
    std::vector<PdfWord> words;
    int page = 0;
    for (const auto& m : item.globalMatch(
             runTool(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")}))) {
        if (m.captured(5).isEmpty()) {
            ++page;
            continue;
        }
        words.push_back({page,
                         QRectF(QPointF(m.captured(1).toDouble(), m.captured(2).toDouble()),
                                QPointF(m.captured(3).toDouble(), m.captured(4).toDouble())),
                         m.captured(5)});
    }
    return words;
}

inline int pdfPages(const QString& pdf) {
    const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(runTool(QStringLiteral("pdfinfo"), {pdf})).captured(1).toInt();
}

}  // namespace zv::fakes
