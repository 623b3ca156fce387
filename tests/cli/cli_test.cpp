// What a golden line cannot say: the separators the program takes from the locale it runs in.
// Everything else about the command line is in golden/*.txt.
#include <gtest/gtest.h>

#include "cli/run_cli.h"

namespace zv::cli {
namespace {

TEST(CliLocale, SeparatorsComeFromTheLocaleWithAGroupFallback) {
    struct Case {
        const char* label;
        const char* locale;
        const char* out;
    };
    // Only the C locales can be counted on to be installed; both group with nothing, so the
    // formats fall back to ",".
    const Case cases[] = {
        {"C", "C", "1,234.50\n"},
        {"C with UTF-8", "C.UTF-8", "1,234.50\n"},
        {"a locale that is not installed is C", "xx_XX.UTF-8", "1,234.50\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const CliResult r = runCli({"money", "1234.5"}, "", c.locale);
        EXPECT_EQ(r.code, 0);
        EXPECT_EQ(r.out, c.out);
        EXPECT_EQ(r.err, "");
    }
}

}  // namespace
}  // namespace zv::cli
