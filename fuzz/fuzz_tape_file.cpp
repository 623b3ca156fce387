// Any bytes as a tape file: a crash-cut file, an old Windows-1252 tape, a mix of both, or junk.
// Whatever it holds, it reads as whole UTF-8 lines ended by CR LF; the program writes that back
// and reads the same; and the calculator takes it to a state the tape reads back to.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/calc/calculator.h"
#include "core/calc/tape_file.h"
#include "core/calc/tape_line.h"
#include "core/common/text_encoding.h"
#include "fuzz_support.h"

namespace {

namespace fs = std::filesystem;
using namespace zv;

const fs::path& scratchFile() {
    static const fs::path path =
        fs::temp_directory_path() / ("zv-fuzz-tape-" + std::to_string(::getpid()) + ".fita");
    return path;
}

void writeBytes(const fs::path& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ZV_FUZZ_CHECK(file != nullptr);
    ZV_FUZZ_CHECK(size == 0 || std::fwrite(data, 1, size, file) == size);
    ZV_FUZZ_CHECK(std::fclose(file) == 0);
}

void checkWholeLines(std::string_view text) {
    ZV_FUZZ_CHECK(common::isValidUtf8(text));
    ZV_FUZZ_CHECK(text.empty() || text.ends_with(calc::kLineEnd));
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            ZV_FUZZ_CHECK(i + 1 < text.size() && text[i + 1] == '\n');
        } else if (text[i] == '\n') {
            ZV_FUZZ_CHECK(i > 0 && text[i - 1] == '\r');
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fs::path& path = scratchFile();
    writeBytes(path, data, size);
    const auto text = calc::loadTape(path);
    ZV_FUZZ_CHECK(text.has_value());
    checkWholeLines(*text);

    // What the program keeps in the file from now on reads back as the same tape.
    {
        calc::TapeFile file(path);
        ZV_FUZZ_CHECK(file.open(*text));
    }
    const auto again = calc::loadTape(path);
    ZV_FUZZ_CHECK(again.has_value() && *again == *text);

    // The calculator takes the tape as it is, in either regional style, and goes on from it.
    const common::Regional regional{common::Language::Portuguese,
                                    fuzz::separatorsFrom(size > 0 ? data[0] : 0)};
    calc::CalculatorOptions options;
    options.format = static_cast<calc::NumberFormat>(size % 3);
    calc::Calculator calc(regional, options);
    calc.loadTape(*text);
    ZV_FUZZ_CHECK(calc.tape().text() == *text);
    fuzz::checkReadsBack(calc, regional);
    calc.type("7+");
    fuzz::checkReadsBack(calc, regional);
    const std::string typed = calc.tape().text();
    if (calc.undo()) {
        ZV_FUZZ_CHECK(calc.redo());
        ZV_FUZZ_CHECK(calc.tape().text() == typed);
    }
    return 0;
}
