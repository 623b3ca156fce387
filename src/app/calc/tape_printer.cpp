#include "app/calc/tape_printer.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QStringList>

#include <optional>

namespace zv::app {

namespace {

const QString kPreferredFamily = QStringLiteral("Courier New");

// The installed family that `requested` really resolves to, when that family is fixed-pitch. Generic
// names ("monospace") and fontconfig aliases ("Courier New" standing in for something else) resolve
// to whatever the system substitutes, which need not be fixed-pitch.
std::optional<QString> fixedPitchFamilyFor(const QString& requested) {
    QFont font(requested);
    font.setStyleHint(QFont::TypeWriter);
    const QString family = QFontInfo(font).family();
    if (QFontDatabase::families().contains(family, Qt::CaseInsensitive) &&
        QFontDatabase::isFixedPitch(family)) {
        return family;
    }
    return std::nullopt;
}

// "Courier New" where it is installed as itself, else the system's fixed-pitch font, else the
// first installed family that is fixed-pitch.
QString fixedPitchFamily() {
    if (const auto family = fixedPitchFamilyFor(kPreferredFamily);
        family && family->compare(kPreferredFamily, Qt::CaseInsensitive) == 0) {
        return *family;
    }
    const QFont systemFixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (const auto family = fixedPitchFamilyFor(systemFixed.family())) {
        return *family;
    }
    const QStringList families = QFontDatabase::families();
    for (const QString& candidate : families) {
        if (QFontDatabase::isFixedPitch(candidate) && QFontDatabase::isSmoothlyScalable(candidate)) {
            if (const auto family = fixedPitchFamilyFor(candidate)) {
                return *family;
            }
        }
    }
    return systemFixed.family();
}

QFont tapeFont(PrintSize size) {
    QFont font(fixedPitchFamily());
    font.setPointSize(printPointSize(size));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

// Tape lines end with CR LF; a bare LF is accepted too. The break after the last line opens no
// extra printed line.
QStringList tapeLines(const QString& tapeText) {
    QString text = tapeText;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QStringList lines = text.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

}  // namespace

int printPointSize(PrintSize size) {
    switch (size) {
        case PrintSize::Small:
            return 8;
        case PrintSize::Medium:
            return 10;
        case PrintSize::Large:
            return 14;
    }
    return 10;
}

TapePages::TapePages(const QString& tapeText, PrintSize size, QString day,
                     std::function<QString(int, int)> pageLabel)
    : m_lines(tapeLines(tapeText)),
      m_font(tapeFont(size)),
      m_headingFont(tapeFont(PrintSize::Small)),
      m_day(std::move(day)),
      m_pageLabel(std::move(pageLabel)) {}

int TapePages::layOut(QPaintDevice& device) {
    m_width = device.width();
    m_height = device.height();
    const QFontMetricsF metrics(m_font, &device);
    const QFontMetricsF heading(m_headingFont, &device);
    m_lineHeight = metrics.lineSpacing();
    m_ascent = metrics.ascent();
    m_headingAscent = heading.ascent();
    // The heading line, then half a line of space under its rule.
    m_bodyTop = heading.lineSpacing() + m_lineHeight / 2;
    m_linesPerPage = qMax(1, static_cast<int>((m_height - m_bodyTop) / m_lineHeight));
    return pageCount();
}

int TapePages::pageCount() const {
    return qMax(1, static_cast<int>((m_lines.size() + m_linesPerPage - 1) / m_linesPerPage));
}

void TapePages::paintPage(QPainter& painter, int page) const {
    const QRectF area(0, 0, m_width, m_height);
    painter.save();
    painter.setClipRect(area);
    painter.setPen(QPen(Qt::black, 0));
    painter.setFont(m_headingFont);
    const QString label = m_pageLabel ? m_pageLabel(page + 1, pageCount()) : QString();
    painter.drawText(QPointF(0, m_headingAscent), m_day);
    const qreal labelWidth = QFontMetricsF(m_headingFont, painter.device()).horizontalAdvance(label);
    painter.drawText(QPointF(m_width - labelWidth, m_headingAscent), label);
    const qreal rule = m_bodyTop - m_lineHeight / 4;
    painter.drawLine(QPointF(0, rule), QPointF(m_width, rule));

    painter.setFont(m_font);
    const qsizetype first = static_cast<qsizetype>(page) * m_linesPerPage;
    const qsizetype last = qMin(m_lines.size(), first + m_linesPerPage);
    for (qsizetype i = first; i < last; ++i) {
        // One drawText per line, unwrapped: the PDF keeps the line as searchable text and anything
        // past the right edge falls outside the clip.
        const qreal baseline = m_bodyTop + static_cast<qreal>(i - first) * m_lineHeight + m_ascent;
        painter.drawText(QPointF(0, baseline), m_lines[i]);
    }
    painter.restore();
}

void keepClearOfPaperEdges(QPrinter& printer) {
    QMarginsF margins = printer.pageLayout().margins(QPageLayout::Millimeter);
    margins = QMarginsF(qMax(margins.left(), kLeastMarginMm), qMax(margins.top(), kLeastMarginMm),
                        qMax(margins.right(), kLeastMarginMm), qMax(margins.bottom(), kLeastMarginMm));
    printer.setPageMargins(margins, QPageLayout::Millimeter);
}

bool printTape(QPrinter& printer, TapePages& pages) {
    // Again here: choosing another printer or a PDF file in the print dialog resets the margins.
    keepClearOfPaperEdges(printer);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const int count = pages.layOut(printer);
    bool ok = true;
    for (int page = 0; page < count && ok; ++page) {
        ok = (page == 0 || printer.newPage());
        if (ok) {
            pages.paintPage(painter, page);
        }
    }
    return painter.end() && ok;
}

}  // namespace zv::app
