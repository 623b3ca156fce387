// Kills a process that is typing into a tape file at random moments, many times over, and checks
// that the file always reads back as the tape the process had confirmed, give or take the one
// change it was making. POSIX only: it drives the writer through a pipe and SIGKILL.
#include <gtest/gtest.h>

#if defined(_WIN32)
TEST(TapeCrash, EveryConfirmedChangeSurvivesAKillAtAnyMoment) {
    GTEST_SKIP() << "the crash test drives its writer with POSIX calls";
}
#else

#include <signal.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <random>
#include <string>

#include "core/calc/tape.h"
#include "core/calc/tape_file.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

constexpr int kRounds = 400;
constexpr int kMostConfirmationsPerRound = 400;

// The tape_writer child with its stdout on a pipe; killed and reaped on destruction.
class Writer {
public:
    Writer(const std::filesystem::path& tape, unsigned seed)
        : m_pipe(::popen(
              ("exec '" ZV_TAPE_WRITER "' '" + tape.string() + "' " + std::to_string(seed)).c_str(), "r")) {}
    ~Writer() {
        kill();
        if (m_pipe != nullptr) {
            ::pclose(m_pipe);
        }
    }

    // The next whole line the writer printed; nullopt at its end (a line cut by the kill is dropped).
    std::optional<std::string> readLine() {
        std::string line;
        for (int c; m_pipe != nullptr && (c = std::fgetc(m_pipe)) != EOF;) {
            if (c == '\n') {
                return line;
            }
            line += static_cast<char>(c);
        }
        return std::nullopt;
    }
    void kill() {
        if (pid > 0) {
            ::kill(pid, SIGKILL);
            pid = 0;
        }
    }
    long pid = 0;  // from the writer's "ready" line

private:
    std::FILE* m_pipe;
};

struct Change {
    std::size_t offset = 0;
    std::string tail;
    std::string appliedTo(std::string text) const { return text.substr(0, offset) + tail; }
};

// True when `raw` holds `padded` up to a page boundary past `offset` and `old` after it. The kernel
// copies a write page by page and a kill may stop it between two pages; any other mix of old and
// new is a torn file.
bool cutAtDiskPage(const std::string& raw, const std::string& old, const std::string& padded,
                   std::size_t offset) {
    constexpr std::size_t kPageSize = 4096;
    for (std::size_t page = (offset / kPageSize + 1) * kPageSize; page < padded.size(); page += kPageSize) {
        if (raw == padded.substr(0, page) + old.substr(std::min(page, old.size()))) {
            return true;
        }
    }
    return false;
}

TEST(TapeCrash, EveryConfirmedChangeSurvivesAKillAtAnyMoment) {
    const fakes::TempFolder folder;
    const std::filesystem::path path = tapeFilePath(folder.path(), "");
    std::mt19937 rng(20240611);
    std::string tape;  // what the file held after the last kill, as loadTape reads it
    int totalConfirmations = 0, notStarted = 0, done = 0, cutAtPage = 0;  // rounds by the change in flight

    for (int round = 0; round < kRounds; ++round) {
        const unsigned seed = rng();
        SCOPED_TRACE("round " + std::to_string(round) + ", writer seed " + std::to_string(seed));
        Writer writer(path, seed);
        std::optional<std::string> line = writer.readLine();
        std::size_t loadedSize = 0;
        ASSERT_TRUE(line && std::sscanf(line->c_str(), "ready %ld %zu", &writer.pid, &loadedSize) == 2);
        ASSERT_EQ(loadedSize, tape.size());

        // Replays the writer's announcements onto a copy of the tape.
        std::string confirmed = tape;
        std::optional<Change> pending;
        int confirmations = 0;
        auto take = [&](const std::string& said) {
            if (said.starts_with("will ") && !pending) {
                const std::size_t tailAt = said.find(' ', 5) + 1;
                pending = Change{std::stoul(said.substr(5, tailAt - 6)), {}};
                for (const char c : said.substr(tailAt)) {
                    pending->tail += c == '|' ? std::string("\r\n") : std::string(1, c);
                }
                return pending->offset <= confirmed.size();
            }
            if (said == "done" && pending) {
                confirmed = pending->appliedTo(confirmed);
                pending.reset();
                ++confirmations;
                return true;
            }
            return false;
        };
        const int killAfter = std::uniform_int_distribution<int>(1, kMostConfirmationsPerRound)(rng);
        while (confirmations < killAfter) {
            line = writer.readLine();
            ASSERT_TRUE(line.has_value()) << "the writer stopped by itself";
            ASSERT_TRUE(take(*line)) << *line;
        }
        writer.kill();
        // What the writer printed before it died is confirmed too.
        while ((line = writer.readLine())) {
            ASSERT_TRUE(take(*line)) << *line;
        }
        totalConfirmations += confirmations;

        const std::optional<std::string> bytes = common::readFileBytes(path);
        const std::optional<std::string> loaded = loadTape(path);
        ASSERT_TRUE(bytes && loaded);
        // How far the change in flight had got, judged from the raw file.
        const std::string after = pending ? pending->appliedTo(confirmed) : confirmed;
        std::string padded = after;  // before a shorter tail is cut, the old end is blanks
        padded.resize(std::max(after.size(), confirmed.size()), ' ');
        if (*bytes == confirmed) {
            ++notStarted;
            EXPECT_EQ(*loaded, confirmed);
        } else if (*bytes == after || *bytes == padded) {
            ++done;
            EXPECT_EQ(*loaded, after);
        } else {
            ASSERT_TRUE(pending && cutAtDiskPage(*bytes, confirmed, padded, pending->offset))
                << "torn file of " << bytes->size() << " bytes, confirmed tape of " << confirmed.size();
            ++cutAtPage;
            // Only the change in flight may be damaged; every line before it reads back as it was.
            EXPECT_EQ(loaded->substr(0, pending->offset), confirmed.substr(0, pending->offset));
        }
        EXPECT_TRUE(common::isValidUtf8(*loaded));
        Tape normalised;  // every line ends in CR LF, and no CR or LF stands alone
        normalised.reset(*loaded);
        EXPECT_EQ(normalised.text(), *loaded);
        tape = *loaded;
    }
    std::printf(
        "%d rounds, %d confirmed changes; the change in flight when killed: not started %d, done %d, "
        "cut at a disk page %d\n",
        kRounds, totalConfirmations, notStarted, done, cutAtPage);
}

}  // namespace
}  // namespace zv::calc

#endif  // _WIN32
