#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <functional>

class QPainter;
class QPaintDevice;
class QPrinter;

namespace zv::app {

enum class PrintSize { Small = 0, Medium = 1, Large = 2 };

// The printed tape laid out in pages: a heading on each page (the day on the left, "page n / N"
// on the right, a rule under them), then one tape line per printed line in a fixed-pitch font
// ("Courier New" where the system has it as itself, otherwise the system's fixed-pitch font).
// Once laid out, any page can be painted any number of times and in any order: the print
// preview repaints pages as the user scrolls and zooms, and printing paints them all.
class TapePages {
public:
    // `pageLabel(n, count)` names page n (1-based) of count in the heading.
    TapePages(const QString& tapeText, PrintSize size, QString day,
              std::function<QString(int, int)> pageLabel);

    // Lays the lines out on the printable area of `device` (the painter's origin is its top-left
    // corner); returns the number of pages, at least one.
    int layOut(QPaintDevice& device);
    int pageCount() const;
    // Paints page `page` (0-based) of the last layout. Sets every piece of painter state it uses.
    void paintPage(QPainter& painter, int page) const;

private:
    QStringList m_lines;
    QFont m_font;
    QFont m_headingFont;
    QString m_day;
    std::function<QString(int, int)> m_pageLabel;
    // The last layout, in the device's pixels.
    qreal m_width = 0;
    qreal m_height = 0;
    qreal m_lineHeight = 1;
    qreal m_ascent = 0;
    qreal m_headingAscent = 0;
    qreal m_bodyTop = 0;
    int m_linesPerPage = 1;
};

// Margins of at least this much on every side: many office printers cannot print nearer the edge.
inline constexpr qreal kLeastMarginMm = 10;
// Widens the printer's page margins to kLeastMarginMm where they are narrower.
void keepClearOfPaperEdges(QPrinter& printer);

// Lays out and prints every page on `printer`, its margins kept clear of the paper edges. False
// when the printer could not be used.
bool printTape(QPrinter& printer, TapePages& pages);

// The point size of each print size.
int printPointSize(PrintSize size);

}  // namespace zv::app
