// The tape's files: reading and writing a very long tape whole, and the cost of one line
// reaching the disk, which must not grow with the tape.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "core/calc/tape_file.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMillion = 1'000'000;

class TempFolder {
public:
    TempFolder()
        : m_path(fs::temp_directory_path() / ("zv-bench-" + std::to_string(std::random_device{}()))) {
        fs::create_directories(m_path);
    }
    ~TempFolder() {
        std::error_code ec;
        fs::remove_all(m_path, ec);
    }
    const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

// `lines` amount lines as the calculator writes them, with every operator, "×" and "÷" included.
std::string tapeOf(int lines) {
    static constexpr const char* kOperators[] = {" +", " -", " ×", " ÷"};
    std::string text;
    text.reserve(static_cast<std::size_t>(lines) * 29);
    char line[64];
    for (int i = 0; i < lines; ++i) {
        std::snprintf(line, sizeof line, "%21d,%02d%s\r\n", i, i % 100, kOperators[i % 4]);
        text.append(line);
    }
    return text;
}

void BM_LoadMillionLineTape(benchmark::State& state) {
    const TempFolder folder;
    const fs::path path = zv::calc::tapeFilePath(folder.path(), "");
    const std::string tape = tapeOf(kMillion);
    if (!zv::common::writeFileAtomically(path, tape)) {
        state.SkipWithError("cannot write the tape file");
        return;
    }
    for (auto _ : state) {
        std::optional<std::string> loaded = zv::calc::loadTape(path);
        benchmark::DoNotOptimize(loaded);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(tape.size()));
}
BENCHMARK(BM_LoadMillionLineTape)->Unit(benchmark::kMillisecond);

// The same, from a Windows-1252 file, which is converted as it is read.
void BM_LoadMillionLineTapeCp1252(benchmark::State& state) {
    const TempFolder folder;
    const fs::path path = zv::calc::tapeFilePath(folder.path(), "");
    const std::string tape = zv::common::utf8ToCp1252(tapeOf(kMillion));
    if (!zv::common::writeFileAtomically(path, tape)) {
        state.SkipWithError("cannot write the tape file");
        return;
    }
    for (auto _ : state) {
        std::optional<std::string> loaded = zv::calc::loadTape(path);
        benchmark::DoNotOptimize(loaded);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(tape.size()));
}
BENCHMARK(BM_LoadMillionLineTapeCp1252)->Unit(benchmark::kMillisecond);

void BM_SaveMillionLineTape(benchmark::State& state) {
    const TempFolder folder;
    const fs::path path = folder.path() / "Zavrello.txt";
    const std::string tape = tapeOf(kMillion);
    for (auto _ : state) {
        if (!zv::common::writeFileAtomically(path, tape)) {
            state.SkipWithError("cannot write the file");
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(tape.size()));
}
BENCHMARK(BM_SaveMillionLineTape)->Unit(benchmark::kMillisecond);

// One amount line appended to a tape file that already holds `range(0)` lines.
void BM_AppendLineToTapeFileOf(benchmark::State& state) {
    const TempFolder folder;
    const std::string tape = tapeOf(static_cast<int>(state.range(0)));
    zv::calc::TapeFile file(zv::calc::tapeFilePath(folder.path(), ""));
    if (!file.open(tape)) {
        state.SkipWithError("cannot open the tape file");
        return;
    }
    constexpr std::string_view kLine = "                  250,00 +\r\n";
    std::size_t size = tape.size();
    for (auto _ : state) {
        file.replaceTail(size, kLine);
        size += kLine.size();
    }
    if (!file.healthy()) {
        state.SkipWithError("a write failed");
    }
    state.counters["lines"] = static_cast<double>(state.range(0));
}
BENCHMARK(BM_AppendLineToTapeFileOf)->Arg(10)->Arg(kMillion)->Unit(benchmark::kMicrosecond);

// The last line's operator pressed again as another: a rewrite in place, then a cut.
void BM_RewriteLastOperatorOnTapeFileOf(benchmark::State& state) {
    const TempFolder folder;
    const std::string tape = tapeOf(static_cast<int>(state.range(0)));
    zv::calc::TapeFile file(zv::calc::tapeFilePath(folder.path(), ""));
    if (!file.open(tape)) {
        state.SkipWithError("cannot open the tape file");
        return;
    }
    constexpr std::string_view kPlus = "                  250,00 +\r\n";
    constexpr std::string_view kTimes = "                  250,00 ×\r\n";
    file.replaceTail(tape.size(), kPlus);
    bool times = false;
    for (auto _ : state) {
        times = !times;
        file.replaceTail(tape.size(), times ? kTimes : kPlus);
    }
    if (!file.healthy()) {
        state.SkipWithError("a write failed");
    }
    state.counters["lines"] = static_cast<double>(state.range(0));
}
BENCHMARK(BM_RewriteLastOperatorOnTapeFileOf)->Arg(10)->Arg(kMillion)->Unit(benchmark::kMicrosecond);

}  // namespace
