#include "platform/roll_port.h"

#include <algorithm>
#include <cstddef>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#endif

namespace zv::platform {
namespace {

struct PortDevice {
    std::string_view port;
    const char* device;
};

#ifdef _WIN32
constexpr PortDevice kPortDevices[] = {
    {"LPT1", R"(\\.\LPT1)"}, {"LPT2", R"(\\.\LPT2)"}, {"COM1", R"(\\.\COM1)"},
    {"COM2", R"(\\.\COM2)"}, {"COM3", R"(\\.\COM3)"}, {"COM4", R"(\\.\COM4)"},
};
#else
constexpr PortDevice kPortDevices[] = {
    {"LPT1", "/dev/lp0"},   {"LPT2", "/dev/lp1"},   {"COM1", "/dev/ttyS0"},
    {"COM2", "/dev/ttyS1"}, {"COM3", "/dev/ttyS2"}, {"COM4", "/dev/ttyS3"},
};
#endif

// Larger tapes go out in pieces, so that a slow device takes what it can and the deadline is
// checked between pieces.
constexpr std::size_t kPiece = 4096;

#ifdef _WIN32

// Overlapped writes, so that a parallel port whose printer is off cannot hold the caller beyond the
// deadline: the wait is ours, and a request still pending then is cancelled.
PortResult writePieces(HANDLE port, HANDLE done, std::string_view bytes, ULONGLONG deadline) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) {
            return PortResult::TimedOut;
        }
        OVERLAPPED request{};
        request.hEvent = done;
        request.Offset = static_cast<DWORD>(sent);
        request.OffsetHigh = static_cast<DWORD>(static_cast<unsigned long long>(sent) >> 32);
        const auto piece = static_cast<DWORD>(std::min(kPiece, bytes.size() - sent));
        if (!WriteFile(port, bytes.data() + sent, piece, nullptr, &request) &&
            GetLastError() != ERROR_IO_PENDING) {
            return PortResult::WriteFailed;
        }
        DWORD written = 0;
        if (WaitForSingleObject(done, static_cast<DWORD>(deadline - now)) != WAIT_OBJECT_0) {
            CancelIo(port);
            // The request refers to `request`, so it must be over before this frame ends.
            GetOverlappedResult(port, &request, &written, TRUE);
            return PortResult::TimedOut;
        }
        if (!GetOverlappedResult(port, &request, &written, FALSE)) {
            const DWORD error = GetLastError();
            return error == ERROR_SEM_TIMEOUT || error == ERROR_TIMEOUT ? PortResult::TimedOut
                                                                        : PortResult::WriteFailed;
        }
        if (written == 0) {
            return PortResult::TimedOut;  // a serial port's write timeout ran out with nothing taken
        }
        sent += written;
    }
    return PortResult::Written;
}

#else

using Clock = std::chrono::steady_clock;

int millisecondsLeft(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

void pause(Clock::time_point deadline) {
    ::poll(nullptr, 0, std::min(10, millisecondsLeft(deadline)));
}

PortResult writePieces(int fd, std::string_view bytes, Clock::time_point deadline) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const int left = millisecondsLeft(deadline);
        if (left == 0) {
            return PortResult::TimedOut;
        }
        pollfd ready{fd, POLLOUT, 0};
        const int polled = ::poll(&ready, 1, left);
        if (polled < 0) {
            if (errno == EINTR) {
                continue;
            }
            return PortResult::WriteFailed;
        }
        if (polled == 0) {
            return PortResult::TimedOut;
        }
        if ((ready.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
            return PortResult::WriteFailed;  // the device went away, or nobody is reading
        }
        const ssize_t written = ::write(fd, bytes.data() + sent, std::min(kPiece, bytes.size() - sent));
        if (written > 0) {
            sent += static_cast<std::size_t>(written);
            continue;
        }
        if (written < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR) {
            return PortResult::WriteFailed;
        }
        // Drivers without poll support (the parallel port's) always say ready; a busy printer then
        // answers EAGAIN, and spinning on it would only burn the processor until the deadline.
        pause(deadline);
    }
    return PortResult::Written;
}

// Closing a serial line waits, in the kernel and for up to 30 seconds, until what is queued has
// been sent; waiting here instead keeps to the deadline.
bool drained(int fd, Clock::time_point deadline) {
    for (;;) {
        int queued = 0;
        if (::ioctl(fd, TIOCOUTQ, &queued) != 0 || queued == 0) {
            return true;
        }
        if (millisecondsLeft(deadline) == 0) {
            return false;
        }
        pause(deadline);
    }
}

#endif

}  // namespace

std::string rollPortDevice(std::string_view port) {
    const auto* found = std::find_if(std::begin(kPortDevices), std::end(kPortDevices),
                                     [port](const PortDevice& known) { return known.port == port; });
    return found == std::end(kPortDevices) ? std::string{} : std::string{found->device};
}

#ifdef _WIN32

PortResult writeToPort(const std::string& device, std::string_view bytes, int timeoutMs) {
    const DWORD timeout = static_cast<DWORD>(std::max(timeoutMs, 1));
    const ULONGLONG deadline = GetTickCount64() + timeout;
    const HANDLE port =
        CreateFileA(device.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (port == INVALID_HANDLE_VALUE) {
        return PortResult::CannotOpen;
    }
    // A serial printer holding the line back by flow control ends the write itself at the deadline;
    // on a parallel port this call fails and changes nothing.
    COMMTIMEOUTS limits{};
    limits.WriteTotalTimeoutConstant = timeout;
    SetCommTimeouts(port, &limits);
    PortResult result = PortResult::WriteFailed;
    if (const HANDLE done = CreateEventA(nullptr, TRUE, FALSE, nullptr)) {
        result = writePieces(port, done, bytes, deadline);
        CloseHandle(done);
    }
    CloseHandle(port);
    return result;
}

#else

PortResult writeToPort(const std::string& device, std::string_view bytes, int timeoutMs) {
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0));
    // Non-blocking: opening a serial line must not wait for a carrier, nor a write for a printer
    // that is off.
    const int fd = ::open(device.c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return PortResult::CannotOpen;
    }
    const bool serial = ::isatty(fd) != 0;
    if (serial) {
        // The tape's CR LF goes out as it stands, not with LF turned into another CR LF.
        termios line{};
        if (::tcgetattr(fd, &line) == 0) {
            line.c_oflag &= ~static_cast<tcflag_t>(OPOST);
            ::tcsetattr(fd, TCSANOW, &line);
        }
    }
    PortResult result = writePieces(fd, bytes, deadline);
    if (serial && result == PortResult::Written && !drained(fd, deadline)) {
        result = PortResult::TimedOut;
    }
    if (serial && result != PortResult::Written) {
        ::tcflush(fd, TCOFLUSH);  // what the printer did not take would otherwise hold up close()
    }
    ::close(fd);
    return result;
}

#endif

}  // namespace zv::platform
