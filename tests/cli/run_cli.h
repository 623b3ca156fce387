#pragma once

// Runs zavrello-cli as a user does: its own process, standard input from a file, standard output
// and error captured, and nothing of the test's environment but what is passed here.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::cli {

struct CliResult {
    int code = -1;  // the exit code; -1 when the program did not exit by itself
    std::string out;
    std::string err;
};

inline CliResult runCli(const std::vector<std::string>& args, std::string_view input = {},
                        const std::string& locale = "C.UTF-8") {
    const fakes::TempFolder dir;
    fakes::writeRaw(dir / "in", input);
    const std::string in = (dir / "in").string();
    const std::string out = (dir / "out").string();
    const std::string err = (dir / "err").string();

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&files, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);

    std::string program = ZV_CLI;
    std::vector<char*> argv{program.data()};
    std::vector<std::string> argsCopy = args;
    for (std::string& arg : argsCopy) {
        argv.push_back(arg.data());
    }
    argv.push_back(nullptr);
    // The data folder points into the test's own folder, so nothing can touch the user's files.
    std::string lcAll = "LC_ALL=" + locale;
    std::string home = "ZAVRELLO_HOME=" + dir.path().string();
    std::vector<char*> envp{lcAll.data(), home.data(), nullptr};

    CliResult result;
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, program.c_str(), &files, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&files);
    if (spawned != 0) {
        ADD_FAILURE() << "cannot start " << program;
        return result;
    }
    int status = 0;
    waitpid(pid, &status, 0);
    result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = common::readFileBytes(out).value_or("?");
    result.err = common::readFileBytes(err).value_or("?");
    return result;
}

}  // namespace zv::cli
