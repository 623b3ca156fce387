#include "app/calc/tape_printer.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
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

bool printTape(QPrinter& printer, const QString& tapeText, PrintSize size) {
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    const QFont font = tapeFont(size);
    painter.setFont(font);
    painter.setPen(Qt::black);

    // The painter's origin is the top-left of the printable area, which the printer has already
    // inset by the page layout's margins; its size is the device's width and height.
    const QRectF area(0, 0, printer.width(), printer.height());
    const QFontMetricsF metrics(font, &printer);
    const qreal lineHeight = metrics.lineSpacing();
    const int linesPerPage = qMax(1, static_cast<int>(area.height() / lineHeight));
    painter.setClipRect(area);

    bool ok = true;
    int lineOnPage = 0;
    for (const QString& line : tapeLines(tapeText)) {
        if (lineOnPage == linesPerPage) {
            if (!printer.newPage()) {
                ok = false;
                break;
            }
            lineOnPage = 0;
        }
        // One drawText per line, unwrapped: the PDF keeps the line as searchable text and anything
        // past the right edge falls outside the clip.
        const qreal baseline = area.top() + lineOnPage * lineHeight + metrics.ascent();
        painter.drawText(QPointF(area.left(), baseline), line);
        ++lineOnPage;
    }
    return painter.end() && ok;
}

}  // namespace zv::app
