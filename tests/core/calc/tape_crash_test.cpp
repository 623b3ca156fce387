// Kills a process that is typing into a tape file at random moments and checks that the file
// always reads back as the tape the process had confirmed, give or take the one change it was
// making. Linux only: it drives the writer through posix_spawn and a pipe.
#include <gtest/gtest.h>

#if defined(_WIN32)
TEST(TapeCrash, EveryConfirmedChangeSurvivesAKillAtAnyMoment) {
    GTEST_SKIP() << "the crash test drives its writer with POSIX calls";
}
#else

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "calc/tape_file.h"
#include "common/text_encoding.h"
#include "common/text_file.h"
#include "fakes/temp_folder.h"

extern char** environ;

namespace zv::calc {
namespace {

using fakes::TempFolder;

namespace fs = std::filesystem;

constexpr int kRounds = 400;
constexpr int kMostConfirmationsPerRound = 400;
constexpr std::mt19937::result_type kSeed = 20240611;

// The tape_writer child with its stdout on a pipe; killed and reaped on destruction.
class Writer {
public:
    Writer(const fs::path& tapePath, unsigned seed) {
        int fds[2];
        if (::pipe(fds) != 0) {
            return;
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclose(&actions, fds[0]);
        posix_spawn_file_actions_addclose(&actions, fds[1]);
        std::vector<std::string> args = {ZV_TAPE_WRITER, tapePath.string(), std::to_string(seed)};
        std::vector<char*> argv;
        for (std::string& a : args) {
            argv.push_back(a.data());
        }
        argv.push_back(nullptr);
        if (posix_spawn(&m_pid, ZV_TAPE_WRITER, &actions, nullptr, argv.data(), environ) != 0) {
            m_pid = -1;
        }
        posix_spawn_file_actions_destroy(&actions);
        ::close(fds[1]);
        m_fd = fds[0];
    }
    ~Writer() {
        kill();
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    bool started() const { return m_pid > 0; }

    // The next whole line the writer printed; nullopt at its end (a line cut by the kill is
    // dropped) or when it has been silent for far too long.
    std::optional<std::string> readLine() {
        for (;;) {
            const std::size_t end = m_buffer.find('\n', m_scanned);
            if (end != std::string::npos) {
                std::string line = m_buffer.substr(0, end);
                m_buffer.erase(0, end + 1);
                m_scanned = 0;
                return line;
            }
            m_scanned = m_buffer.size();
            pollfd p{m_fd, POLLIN, 0};
            if (::poll(&p, 1, 10'000) <= 0) {
                return std::nullopt;
            }
            char chunk[4096];
            const ssize_t n = ::read(m_fd, chunk, sizeof chunk);
            if (n <= 0) {
                return std::nullopt;
            }
            m_buffer.append(chunk, static_cast<std::size_t>(n));
        }
    }

    void kill() {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            int status = 0;
            ::waitpid(m_pid, &status, 0);
            m_pid = -1;
        }
    }

private:
    pid_t m_pid = -1;
    int m_fd = -1;
    std::string m_buffer;
    std::size_t m_scanned = 0;
};

struct Change {
    unsigned long seq = 0;
    std::size_t offset = 0;
    std::string tail;
};

std::string applied(std::string text, const Change& change) {
    text.resize(change.offset);
    text += change.tail;
    return text;
}

// Replays the writer's announcements onto its own copy of the tape.
class Follower {
public:
    explicit Follower(std::string confirmed) : m_confirmed(std::move(confirmed)) {}

    // Empty, or what is wrong with the line.
    std::string take(std::string_view line) {
        if (line.starts_with("will ")) {
            Change change;
            const std::size_t seqEnd = line.find(' ', 5);
            const std::size_t offsetEnd = line.find(' ', seqEnd + 1);
            if (seqEnd == std::string_view::npos || offsetEnd == std::string_view::npos) {
                return "malformed: " + std::string(line);
            }
            change.seq = std::stoul(std::string(line.substr(5, seqEnd - 5)));
            change.offset = std::stoul(std::string(line.substr(seqEnd + 1, offsetEnd - seqEnd - 1)));
            for (const char c : line.substr(offsetEnd + 1)) {
                change.tail += c == '|' ? std::string("\r\n") : std::string(1, c);
            }
            if (m_pending || change.offset > m_confirmed.size()) {
                return "announcement out of order: " + std::string(line);
            }
            m_pending = std::move(change);
            return {};
        }
        if (line.starts_with("done ")) {
            if (!m_pending || std::stoul(std::string(line.substr(5))) != m_pending->seq) {
                return "confirmation of nothing announced: " + std::string(line);
            }
            m_confirmed = applied(std::move(m_confirmed), *m_pending);
            m_pending.reset();
            ++m_confirmations;
            return {};
        }
        return "writer says: " + std::string(line);
    }

    const std::string& confirmed() const { return m_confirmed; }
    // The change announced but not confirmed when the writer died.
    const std::optional<Change>& pending() const { return m_pending; }
    int confirmations() const { return m_confirmations; }

private:
    std::string m_confirmed;
    std::optional<Change> m_pending;
    int m_confirmations = 0;
};

bool onlyCrLfLineEnds(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool crWithoutLf = bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n');
        const bool lfWithoutCr = bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r');
        if (crWithoutLf || lfWithoutCr) {
            return false;
        }
    }
    return true;
}

std::size_t firstDifference(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) {
        ++i;
    }
    return i;
}

// How far the change in flight had got when the writer was killed, judged from the raw file.
enum class Progress { Unexplained, NotStarted, Done, WrittenNotCut, CutAtDiskPage };

// The kernel copies a write page by page and a kill may stop it between two pages, so the file can
// hold the new bytes up to a multiple of the page size and the old ones after it. Any other mix
// of old and new is a torn file.
constexpr std::size_t kPageSize = 4096;

Progress progressOf(std::string_view raw, const std::string& confirmed, const Change& change) {
    const std::string after = applied(confirmed, change);
    std::string padded = after;  // before a shorter tail is cut, the old end is blanks
    if (padded.size() < confirmed.size()) {
        padded.append(confirmed.size() - padded.size(), ' ');
    }
    if (raw == confirmed) {
        return Progress::NotStarted;
    }
    if (raw == after) {
        return Progress::Done;
    }
    if (raw == padded) {
        return Progress::WrittenNotCut;
    }
    for (std::size_t page = (change.offset / kPageSize + 1) * kPageSize; page < padded.size();
         page += kPageSize) {
        const std::string mix =
            padded.substr(0, page) + (page < confirmed.size() ? confirmed.substr(page) : std::string());
        if (raw == mix) {
            return Progress::CutAtDiskPage;
        }
    }
    return Progress::Unexplained;
}

TEST(TapeCrash, EveryConfirmedChangeSurvivesAKillAtAnyMoment) {
    const TempFolder folder;
    const fs::path path = tapeFilePath(folder.path(), "");

    std::mt19937 rng(kSeed);
    std::uniform_int_distribution<int> confirmationsBeforeKill(1, kMostConfirmationsPerRound);
    std::string tape;  // what the file held after the last kill, as loadTape reads it
    int totalConfirmations = 0;
    int seen[5] = {};  // rounds by Progress

    for (int round = 0; round < kRounds; ++round) {
        const unsigned seed = rng();
        SCOPED_TRACE("round " + std::to_string(round) + ", writer seed " + std::to_string(seed));
        Writer writer(path, seed);
        ASSERT_TRUE(writer.started());
        ASSERT_EQ(writer.readLine(), "ready " + std::to_string(tape.size()));

        Follower follower(tape);
        const int killAfter = confirmationsBeforeKill(rng);
        while (follower.confirmations() < killAfter) {
            const std::optional<std::string> line = writer.readLine();
            ASSERT_TRUE(line.has_value()) << "the writer stopped by itself";
            ASSERT_EQ(follower.take(*line), "");
        }
        writer.kill();
        // What the writer printed before it died is confirmed too.
        while (const std::optional<std::string> line = writer.readLine()) {
            ASSERT_EQ(follower.take(*line), "");
        }
        totalConfirmations += follower.confirmations();

        const std::optional<std::string> bytes = common::readFileBytes(path);
        ASSERT_TRUE(bytes.has_value());
        const std::optional<std::string> loaded = loadTape(path);
        ASSERT_TRUE(loaded.has_value());
        const std::string& confirmed = follower.confirmed();
        const std::optional<Change>& change = follower.pending();
        const Progress progress = change
                                      ? progressOf(*bytes, confirmed, *change)
                                      : (*bytes == confirmed ? Progress::NotStarted : Progress::Unexplained);
        ASSERT_NE(progress, Progress::Unexplained)
            << "file of " << bytes->size() << " bytes, confirmed tape of " << confirmed.size()
            << ", first difference at " << firstDifference(*bytes, confirmed);
        ++seen[static_cast<int>(progress)];

        if (progress == Progress::NotStarted) {
            EXPECT_EQ(*loaded, confirmed);
        } else if (progress != Progress::CutAtDiskPage) {
            EXPECT_EQ(*loaded, applied(confirmed, *change));
        } else {
            // Only the change in flight may be damaged; every line before it reads back as it was.
            EXPECT_EQ(loaded->substr(0, change->offset), confirmed.substr(0, change->offset));
        }
        if (progress != Progress::CutAtDiskPage) {
            EXPECT_TRUE(common::isValidUtf8(*bytes));
            EXPECT_TRUE(onlyCrLfLineEnds(*bytes));
        }
        EXPECT_TRUE(common::isValidUtf8(*loaded));
        EXPECT_TRUE(onlyCrLfLineEnds(*loaded));
        tape = *loaded;
    }
    std::printf(
        "%d rounds, %d confirmed changes; the change in flight when killed: not started %d, done %d, "
        "written but not cut %d, cut at a disk page %d\n",
        kRounds, totalConfirmations, seen[1], seen[2], seen[3], seen[4]);
}

}  // namespace
}  // namespace zv::calc

#endif  // _WIN32
