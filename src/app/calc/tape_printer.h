#pragma once

#include <QString>

class QPrinter;

namespace zv::app {

enum class PrintSize { Small = 0, Medium = 1, Large = 2 };

// Prints the tape text on `printer` in a fixed-pitch font ("Courier New" where the system has
// it, otherwise its own fixed-pitch font) of the chosen size, as many pages as it takes, one
// tape line per printed line. False when the printer could not be used.
bool printTape(QPrinter& printer, const QString& tapeText, PrintSize size);

// The point size of each print size.
int printPointSize(PrintSize size);

}  // namespace zv::app
