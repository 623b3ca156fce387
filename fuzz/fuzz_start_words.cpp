// Any command line (arguments separated by NUL bytes, as the system hands them over), any stored
// language option and any locale name or language id: the start-up words and the language.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <fuzzer/FuzzedDataProvider.h>

#include "core/tray/start_words.h"
#include "fuzz_check.h"

namespace {

using namespace zv;

bool isLanguage(common::Language language) {
    return language == common::Language::Portuguese || language == common::Language::English ||
           language == common::Language::Spanish;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const unsigned langId = input.ConsumeIntegral<unsigned>();
    const std::string stored = input.ConsumeRandomLengthString(16);
    const std::string locale = input.ConsumeRandomLengthString(64);
    const std::string arguments = input.ConsumeRemainingBytesAsString();

    // The program joins its arguments with single spaces before it reads them.
    std::string commandLine = arguments;
    for (char& c : commandLine) {
        c = c == '\0' ? ' ' : c;
    }
    const tray::StartWords words = tray::parseStartWords(commandLine);
    // The whole-line words exclude each other and the words that are part of a line.
    ZV_FUZZ_CHECK(words.systray + words.atualiza + words.fechar <= 1);
    ZV_FUZZ_CHECK(!(words.outra && (words.systray || words.atualiza || words.fechar)));
    ZV_FUZZ_CHECK(!(words.tempo && (words.systray || words.atualiza || words.fechar)));

    const common::Language fromId = tray::languageFromLangId(langId);
    const common::Language fromName = tray::languageFromLocaleName(locale);
    ZV_FUZZ_CHECK(isLanguage(fromId));
    ZV_FUZZ_CHECK(isLanguage(fromName));
    // Only the last three hexadecimal digits of an id of three digits or more count.
    ZV_FUZZ_CHECK(langId < 0x1000u || tray::languageFromLangId(0x1000u | (langId & 0xFFFu)) == fromId);
    const common::Language start = tray::startLanguage(stored, fromName);
    ZV_FUZZ_CHECK(isLanguage(start));
    ZV_FUZZ_CHECK(start == fromName || stored == "1" || stored == "2" || stored == "3");
    return 0;
}
