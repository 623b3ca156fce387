#include "roll_port.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>

#include "fakes/temp_folder.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#endif

namespace zv::platform {
namespace {

std::string readAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(RollPort, DeviceOfEachAcceptedPort) {
    struct Case {
        const char* port;
        const char* device;
    };
#ifdef _WIN32
    const Case cases[] = {{"LPT1", R"(\\.\LPT1)"},
                          {"LPT2", R"(\\.\LPT2)"},
                          {"COM1", R"(\\.\COM1)"},
                          {"COM4", R"(\\.\COM4)"},
                          {"LPT3", ""},
                          {"COM5", ""},
                          {"lpt1", ""},
                          {"", ""}};
#else
    const Case cases[] = {{"LPT1", "/dev/lp0"},   {"LPT2", "/dev/lp1"},
                          {"COM1", "/dev/ttyS0"}, {"COM2", "/dev/ttyS1"},
                          {"COM3", "/dev/ttyS2"}, {"COM4", "/dev/ttyS3"},
                          {"LPT3", ""},           {"COM5", ""},
                          {"lpt1", ""},           {"", ""}};
#endif
    for (const Case& c : cases) {
        SCOPED_TRACE(c.port);
        EXPECT_EQ(rollPortDevice(c.port), c.device);
    }
}

TEST(RollPort, WritesEveryByteToTheDevice) {
    const fakes::TempFolder folder;
    const auto device = folder / "roll";
    fakes::writeRaw(device, "");
    std::string tape = "17/05/2024 ==============\r\n";
    while (tape.size() < 20000) {  // several pieces
        tape += "                  250,00 +\r\n";
    }
    EXPECT_EQ(writeToPort(device.string(), tape, 1000), PortResult::Written);
    EXPECT_EQ(readAll(device), tape);
}

TEST(RollPort, MissingDeviceCannotBeOpened) {
    const fakes::TempFolder folder;
    EXPECT_EQ(writeToPort((folder / "lp9").string(), "x\r\n", 200), PortResult::CannotOpen);
    EXPECT_EQ(writeToPort(folder.path().string(), "x\r\n", 200), PortResult::CannotOpen);
}

#ifndef _WIN32

class Fd {
public:
    explicit Fd(int fd) : m_fd(fd) {}
    ~Fd() {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

TEST(RollPort, GivesUpOnADeviceThatTakesNothing) {
    const fakes::TempFolder folder;
    const auto fifo = folder / "stalled";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);

    // Nobody at the other end: like a parallel port with no printer.
    EXPECT_EQ(writeToPort(fifo.string(), "x\r\n", 200), PortResult::CannotOpen);

    // Someone there who never reads: like a printer that is off-line.
    const Fd reader{::open(fifo.c_str(), O_RDONLY | O_NONBLOCK)};
    ASSERT_GE(reader.get(), 0);
    const std::string tape(1 << 20, '=');
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(writeToPort(fifo.string(), tape, 200), PortResult::TimedOut);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(RollPort, SerialLineGetsTheTapeAsItStands) {
    const Fd master{::posix_openpt(O_RDWR | O_NOCTTY)};
    ASSERT_GE(master.get(), 0);
    ASSERT_EQ(::grantpt(master.get()), 0);
    ASSERT_EQ(::unlockpt(master.get()), 0);
    const std::string line = "                  250,00 *\r\n                  100,00 /\r\n";
    // Held open so the line keeps its settings and the master keeps what was sent.
    const Fd slave{::open(::ptsname(master.get()), O_RDWR | O_NOCTTY)};
    ASSERT_GE(slave.get(), 0);
    EXPECT_EQ(writeToPort(::ptsname(master.get()), line, 1000), PortResult::Written);
    std::string received(256, '\0');
    const ssize_t got = ::read(master.get(), received.data(), received.size());
    ASSERT_GT(got, 0);
    received.resize(static_cast<std::size_t>(got));
    EXPECT_EQ(received, line);
}

#endif

}  // namespace
}  // namespace zv::platform
