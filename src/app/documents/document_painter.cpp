#include "app/documents/document_painter.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <filesystem>
#include <system_error>

namespace zv::app {
namespace {

// Painting units: so fine that the letters' size needs no rounding to whole pixels, which on a
// 1200 dpi printer would stretch a line of 73 letters by more than a unit.
constexpr qreal kFinePerInch = 7200;
constexpr qreal kFinePerUnit = kFinePerInch / 96;
constexpr qreal kPointSize = 10;
// A field sized in whole letters of 8 units takes them all, though the letters' advance is a
// hair over 0.6 em.
constexpr qreal kSlack = 0.25;

// The documents' letters in painting units.
QFont fineFont(bool bold) {
    QFont font = documentFont(bold);
    font.setPixelSize(qRound(kPointSize * kFinePerInch / 72));
    return font;
}

QString qText(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

QFont documentFont(bool bold) {
#ifdef Q_OS_WIN
    QFont font(QStringLiteral("Courier New"));
#else
    QFont font(QStringLiteral("Liberation Mono"));
#endif
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(kPointSize);
    font.setBold(bold);
    // Kerning or hinting must not shift a letter away from its column.
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QString fittingText(const QString& text, qreal width, bool bold) {
    const QFontMetricsF metrics(fineFont(bold));
    const qreal room = (width + kSlack) * kFinePerUnit;
    qreal used = 0;
    qsizetype taken = 0;
    while (taken < text.size()) {
        // A character outside the basic plane is two code units and one letter.
        const qsizetype length = text.at(taken).isHighSurrogate() && taken + 1 < text.size() ? 2 : 1;
        used += metrics.horizontalAdvance(text.mid(taken, length));
        if (used > room) {
            break;
        }
        taken += length;
    }
    return text.left(taken);
}

void paintDocument(QPainter& painter, const PrintedDocument& document) {
    const QPaintDevice* device = painter.device();
    const QFont font = fineFont(document.bold);
    const QFontMetricsF metrics(font);
    painter.save();
    painter.scale(device->logicalDpiX() / kFinePerInch, device->logicalDpiY() / kFinePerInch);
    painter.setFont(font);
    painter.setPen(Qt::black);
    for (const documents::FilledField& field : document.fields) {
        const QString shown = fittingText(qText(field.text), field.width, document.bold);
        if (!shown.isEmpty()) {
            painter.drawText(QPointF(field.left * kFinePerUnit, field.top * kFinePerUnit + metrics.ascent()),
                             shown);
        }
    }
    painter.restore();
}

bool printDocuments(QPrinter& printer, const std::vector<PrintedDocument>& documents) {
    // The layouts are measured from the paper's corner, not from the printable area's.
    printer.setFullPage(true);
    printer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    for (std::size_t page = 0; page < documents.size(); ++page) {
        if (page > 0 && !printer.newPage()) {
            painter.end();
            return false;
        }
        paintDocument(painter, documents[page]);
    }
    return painter.end();
}

bool writeDocumentsPdf(const QString& path, const std::vector<PrintedDocument>& documents,
                       const QString& title) {
    const QString partial = path + QStringLiteral(".part");
    bool written = false;
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(partial);
        printer.setDocName(title);
        // A file the printer cannot open shows only through the painter, and leaves no file.
        written = printDocuments(printer, documents) && QFileInfo::exists(partial);
    }
    std::error_code error;
    if (written) {
        std::filesystem::rename(std::filesystem::path(partial.toStdU16String()),
                                std::filesystem::path(path.toStdU16String()), error);
    }
    if (!written || error) {
        QFile::remove(partial);
        return false;
    }
    return true;
}

}  // namespace zv::app
