#pragma once

#include <string>
#include <vector>

#include "cli/cli.h"

namespace zv::app {

// The command line's PDF writer (a cli::DocumentPdfWriter): the pages through the windows' own
// painter, writeDocumentsPdf. A process without a Qt application gets one for the call, on the
// offscreen platform unless QT_QPA_PLATFORM names another, so no display is needed.
bool writeCommandLinePdf(const std::string& path, const std::vector<cli::PdfPage>& pages,
                         const std::string& title);

}  // namespace zv::app
