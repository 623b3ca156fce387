#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "core/common/regional.h"
#include "core/documents/document_fill.h"

namespace zv::cli {

// A document as it goes on a page: its filled fields and whether they are printed in bold.
struct PdfPage {
    std::vector<documents::FilledField> fields;
    bool bold = true;
};

// Paints the pages life-size, one document a page, into a PDF file at `path` (UTF-8) titled
// `title`; false when the file could not be written, and then nothing is left at `path` or
// beside it. The program that can paint provides one; without it --pdf is refused.
using DocumentPdfWriter =
    std::function<bool(const std::string& path, const std::vector<PdfPage>& pages, const std::string& title)>;

// What the command line takes from the process it runs in.
struct Environment {
    common::NumberSeparators localeSeparators;  // the user's locale, the default for --decimal/--group
    bool stdinIsTerminal = false;
    DocumentPdfWriter writePdf;  // empty in a build without the painter
};

// Runs one command line (without the program name). Output is UTF-8 with LF line ends.
// Returns 0 on success, 1 when the input was rejected (message on `err`), 2 on a usage error.
int run(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
        const Environment& env);

}  // namespace zv::cli
