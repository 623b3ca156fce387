// Kills a forked copy of this process while it types into a tape file, at random moments and many
// times over, and checks that the file always reads back as the tape the copy had confirmed, give or
// take the one change it was making. POSIX only: fork, a pipe and SIGKILL.
#include <gtest/gtest.h>

#if defined(_WIN32)
TEST(TapeCrash, EveryConfirmedChangeSurvivesAKillAtAnyMoment) {
    GTEST_SKIP() << "the crash test drives its typist with POSIX calls";
}
#else

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>

#include "core/calc/tape.h"
#include "core/calc/tape_file.h"
#include "core/common/text_file.h"
#include "fakes/sample_text.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

constexpr int kRounds = 3000;
constexpr int kMostConfirmationsPerRound = 20;

// Makes on `tape` the next change a user at the keys might make: the same seed gives the same
// changes to the same tape, so the test knows what its typist typed from how many it confirmed.
void typeNext(Tape& tape, std::mt19937& rng) {
    auto roll = [&](int most) { return std::uniform_int_distribution<int>(0, most)(rng); };
    constexpr std::string_view kOperators[] = {"+", "-", "×", "÷"};  // "×" and "÷" are a byte longer
    const std::string_view last = tape.lastLine();
    const bool amountLast =
        std::any_of(std::begin(kOperators), std::end(kOperators), [&](std::string_view op) {
            return last.size() == kAmountColumns + 1 + op.size() && last.ends_with(op);
        });
    const int kind = roll(99);
    if (kind < 27 && amountLast) {  // the last operator pressed again as another, or undone
        const std::string amount(last.substr(0, kAmountColumns));
        tape.replaceTail(tape.lastLineStart(), kind < 15 ? fakes::tapeLine(amount, kOperators[roll(3)]) : "");
    } else if (kind < 35) {  // another tool's block
        tape.append(" =============== CÁLCULO =\r\n            VALOR INICIAL                   1.000,00\r\n" +
                    fakes::kStrikeLine);
    } else if (kind == 35) {  // cleared
        tape.reset("01/01/2000 ==============\r\n");
    } else {
        const int cents = roll(99'999'999);
        tape.append(
            fakes::tapeLine(std::to_string(cents / 100) + "," + std::to_string(100 + cents % 100).substr(1),
                            kOperators[roll(3)]));
    }
}

// Loads the tape file and types into it for ever, writing one byte to `confirmations` each time a
// change has returned, and so is on disk. Stops at the first failure.
[[noreturn]] void typeUntilKilled(const std::filesystem::path& path, unsigned seed, int confirmations) {
    std::mt19937 rng(seed);
    const std::optional<std::string> loaded = loadTape(path);
    Tape tape;
    tape.reset(loaded.value_or(""));
    TapeFile file(path);
    if (!loaded || !file.open(tape.text())) {
        ::_exit(3);
    }
    tape.setSink(&file);
    for (;;) {
        typeNext(tape, rng);
        if (!file.healthy() || ::write(confirmations, "d", 1) != 1) {
            ::_exit(4);
        }
    }
}

// A forked typist and the reading end of its confirmations; killed and reaped when it goes.
struct Typist {
    Typist(const std::filesystem::path& path, unsigned seed) {
        int ends[2];
        if (::pipe(ends) != 0) {
            return;
        }
        pid = ::fork();
        if (pid == 0) {
            ::close(ends[0]);
            typeUntilKilled(path, seed, ends[1]);
        }
        ::close(ends[1]);
        confirmations = ends[0];
    }
    ~Typist() {
        kill();
        ::close(confirmations);
    }
    void kill() {
        if (pid > 0) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, nullptr, 0);
        }
        pid = 0;
    }
    // Whether one more change was confirmed; false once the typist has ended.
    bool confirmed() {
        char byte = 0;
        return ::read(confirmations, &byte, 1) == 1;
    }

    pid_t pid = -1;
    int confirmations = -1;
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
    int changes = 0, notStarted = 0, done = 0, cutAtPage = 0;  // rounds by the change in flight

    for (int round = 0; round < kRounds; ++round) {
        const unsigned seed = rng();
        SCOPED_TRACE("round " + std::to_string(round) + ", typist seed " + std::to_string(seed));
        Typist typist(path, seed);
        ASSERT_GT(typist.pid, 0);
        Tape confirmed;  // what the typist has typed, replayed here
        confirmed.reset(tape);
        std::mt19937 typed(seed);
        const int killAfter = std::uniform_int_distribution<int>(1, kMostConfirmationsPerRound)(rng);
        for (int n = 0; n < killAfter; ++n, ++changes) {
            ASSERT_TRUE(typist.confirmed()) << "the typist stopped by itself";
            typeNext(confirmed, typed);
        }
        typist.kill();
        for (; typist.confirmed(); ++changes) {  // confirmed before it died
            typeNext(confirmed, typed);
        }
        Tape inFlight = confirmed;  // and the change it was making
        typeNext(inFlight, typed);

        const std::optional<std::string> bytes = common::readFileBytes(path);
        const std::optional<std::string> loaded = loadTape(path);
        ASSERT_TRUE(bytes && loaded);
        const std::string& before = confirmed.text();
        const std::string& after = inFlight.text();
        // How far the change in flight had got, judged from the raw file.
        std::string padded = after;  // before a shorter tail is cut, the old end is blanks
        padded.resize(std::max(after.size(), before.size()), ' ');
        if (*bytes == before) {
            ++notStarted;
            EXPECT_EQ(*loaded, before);
        } else if (*bytes == after || *bytes == padded) {
            ++done;
            EXPECT_EQ(*loaded, after);
        } else {
            const std::size_t offset =
                std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first -
                before.begin();
            ASSERT_TRUE(cutAtDiskPage(*bytes, before, padded, offset))
                << "torn file of " << bytes->size() << " bytes, confirmed tape of " << before.size();
            ++cutAtPage;
            // Only the change in flight may be damaged; every line before it reads back as it was.
            EXPECT_EQ(loaded->substr(0, offset), before.substr(0, offset));
        }
        tape = *loaded;
    }
    std::printf(
        "%d rounds, %d confirmed changes; the change in flight when killed: not started %d, done %d, "
        "cut at a disk page %d\n",
        kRounds, changes, notStarted, done, cutAtPage);
}

}  // namespace
}  // namespace zv::calc

#endif  // _WIN32
