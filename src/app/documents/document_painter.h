#pragma once

#include <QFont>
#include <QString>
#include <vector>

#include "core/documents/document_fill.h"

class QPainter;
class QPrinter;

namespace zv::app {

// One document as printed: its filled fields and whether they are printed in bold.
struct PrintedDocument {
    std::vector<documents::FilledField> fields;
    bool bold = true;
};

// The documents' fixed-pitch letters, metric-compatible with Courier New (Courier New itself on
// Windows, Liberation Mono elsewhere), 10 points: the size the layouts' field widths are made for.
QFont documentFont(bool bold);

// The longest start of `text`, in whole characters, that fits in `width` layout units in the
// documents' letters.
QString fittingText(const QString& text, qreal width, bool bold);

// Paints one document life-size on the painter's device: a layout unit is 1/96 inch from the
// device's origin, which for a printer set to full page is the paper's top-left corner. Each
// field's text has the top of its letters at the field's top and its first letter at its left.
void paintDocument(QPainter& painter, const PrintedDocument& document);

// Every document on a page of its own; false when the printer could not be painted on.
bool printDocuments(QPrinter& printer, const std::vector<PrintedDocument>& documents);

// The documents as a PDF file, written beside it and renamed over it once whole, so that a
// failure never leaves half a file under that name; false when it could not be written.
bool writeDocumentsPdf(const QString& path, const std::vector<PrintedDocument>& documents,
                       const QString& title);

}  // namespace zv::app
