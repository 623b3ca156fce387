#include "platform/roll_port.h"

#include <gtest/gtest.h>

#include <string>

#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#endif

namespace zv::platform {
namespace {

TEST(RollPort, DeviceOfEachAcceptedPort) {
#ifdef _WIN32
    EXPECT_EQ(rollPortDevice("LPT2"), R"(\\.\LPT2)");
    EXPECT_EQ(rollPortDevice("COM4"), R"(\\.\COM4)");
#else
    EXPECT_EQ(rollPortDevice("LPT1"), "/dev/lp0");
    EXPECT_EQ(rollPortDevice("LPT2"), "/dev/lp1");
    EXPECT_EQ(rollPortDevice("COM1"), "/dev/ttyS0");
    EXPECT_EQ(rollPortDevice("COM4"), "/dev/ttyS3");
#endif
    for (const char* port : {"LPT3", "COM5", "lpt1", ""}) {
        EXPECT_EQ(rollPortDevice(port), "") << port;
    }
}

TEST(RollPort, WritesEveryByteToTheDeviceOrCannotOpenIt) {
    const fakes::TempFolder folder;
    const auto device = folder / "roll";
    fakes::writeRaw(device, "");
    std::string tape = "17/05/2024 ==============\r\n";
    while (tape.size() < 20000) {  // several pieces
        tape += "                  250,00 +\r\n";
    }
    EXPECT_EQ(writeToPort(device.string(), tape, 1000), PortResult::Written);
    EXPECT_EQ(common::readFileBytes(device), tape);

    EXPECT_EQ(writeToPort((folder / "lp9").string(), "x\r\n", 200), PortResult::CannotOpen);
    EXPECT_EQ(writeToPort(folder.path().string(), "x\r\n", 200), PortResult::CannotOpen);
}

#ifndef _WIN32

struct Fd {
    int fd;
    ~Fd() { ::close(fd); }  // -1 when it failed: nothing to close
};

TEST(RollPort, GivesUpOnADeviceThatTakesNothing) {
    const fakes::TempFolder folder;
    const auto fifo = folder / "stalled";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);

    // Nobody at the other end: like a parallel port with no printer.
    EXPECT_EQ(writeToPort(fifo.string(), "x\r\n", 200), PortResult::CannotOpen);

    // Someone there who never reads: like a printer that is off-line.
    const Fd reader{::open(fifo.c_str(), O_RDONLY | O_NONBLOCK)};
    ASSERT_GE(reader.fd, 0);
    const std::string tape(1 << 20, '=');
    EXPECT_EQ(writeToPort(fifo.string(), tape, 200), PortResult::TimedOut);
}

TEST(RollPort, SerialLineGetsTheTapeAsItStands) {
    const Fd master{::posix_openpt(O_RDWR | O_NOCTTY)};
    ASSERT_GE(master.fd, 0);
    ASSERT_EQ(::grantpt(master.fd), 0);
    ASSERT_EQ(::unlockpt(master.fd), 0);
    const std::string line = "                  250,00 *\r\n                  100,00 /\r\n";
    // Held open so the line keeps its settings and the master keeps what was sent.
    const Fd slave{::open(::ptsname(master.fd), O_RDWR | O_NOCTTY)};
    ASSERT_GE(slave.fd, 0);
    EXPECT_EQ(writeToPort(::ptsname(master.fd), line, 1000), PortResult::Written);
    std::string received(256, '\0');
    const ssize_t got = ::read(master.fd, received.data(), received.size());
    ASSERT_GT(got, 0);
    received.resize(static_cast<std::size_t>(got));
    EXPECT_EQ(received, line);
}

#endif

}  // namespace
}  // namespace zv::platform
