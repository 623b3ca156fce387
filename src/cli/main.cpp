#include <clocale>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#define ZV_ISATTY _isatty
#define ZV_FILENO _fileno
#else
#include <unistd.h>
#define ZV_ISATTY isatty
#define ZV_FILENO fileno
#endif

#include "cli/cli.h"
#include "platform/command_line.h"
#ifdef ZV_DOCUMENT_PDF
#include "app/documents/command_line_pdf.h"
#endif

namespace {

// The user's separators as the C library reports them for the environment's locale.
zv::common::NumberSeparators localeSeparators() {
    zv::common::NumberSeparators seps;
    if (std::setlocale(LC_NUMERIC, "") == nullptr) {
        std::setlocale(LC_NUMERIC, "C");
    }
    const std::lconv* lc = std::localeconv();
    seps.decimal = lc != nullptr && lc->decimal_point != nullptr ? lc->decimal_point : "";
    seps.group = lc != nullptr && lc->thousands_sep != nullptr ? lc->thousands_sep : "";
    seps = zv::common::withGroupFallback(seps);
    // Formatting is ours from here on; the C library goes back to its plain behaviour.
    std::setlocale(LC_NUMERIC, "C");
    return seps;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args = zv::platform::programArguments(argc, argv);
    zv::cli::Environment env;
    env.localeSeparators = localeSeparators();
    env.stdinIsTerminal = ZV_ISATTY(ZV_FILENO(stdin)) != 0;
#ifdef ZV_DOCUMENT_PDF
    env.writePdf = &zv::app::writeCommandLinePdf;
#endif
    return zv::cli::run(args, std::cin, std::cout, std::cerr, env);
}
