// startup-probe PROGRAM [ARGS...]
//
// Starts PROGRAM (with this process's environment) on the X display named by DISPLAY and
// prints one line, "<ms> <kib>": the milliseconds from just before the process was started
// to the first top-level window mapped on the display, and the program's peak resident set
// (VmHWM, in KiB) read 300 ms after that. The program is then stopped (SIGTERM, then
// SIGKILL) and reaped. The display is expected to be private to the measurement: any
// top-level window mapped after the launch is taken to be the program's.
//
// Exit status: 0 on success, 1 if no window was mapped within 10 s, 2 on any other failure
// (bad usage, no display, the program could not start or ended before mapping a window).
#include <X11/Xlib.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kMapTimeout = std::chrono::seconds(10);
constexpr auto kSettleDelay = std::chrono::milliseconds(300);
constexpr auto kTermGrace = std::chrono::seconds(2);

// Peak resident set of `pid` in KiB, or -1 if it cannot be read.
long peakResidentKib(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    }
    return -1;
}

// True once `pid` has ended (and has been reaped).
bool reaped(pid_t pid) {
    int status = 0;
    pid_t r = waitpid(pid, &status, WNOHANG);
    return r == pid || (r < 0 && errno == ECHILD);
}

void stopChild(pid_t pid) {
    if (reaped(pid)) return;
    kill(pid, SIGTERM);
    const auto deadline = Clock::now() + kTermGrace;
    while (Clock::now() < deadline) {
        if (reaped(pid)) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    kill(pid, SIGKILL);
    int status = 0;
    waitpid(pid, &status, 0);
}

// Waits for the first MapNotify of a top-level (not override-redirect) window. Returns
// 0 when one arrived, 1 on timeout, 2 if the child ended first.
int waitForFirstMap(Display* display, Window root, pid_t child, Clock::time_point deadline) {
    pollfd pfd{ConnectionNumber(display), POLLIN, 0};
    for (;;) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == MapNotify && event.xmap.event == root &&
                !event.xmap.override_redirect) {
                return 0;
            }
        }
        if (reaped(child)) return 2;
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) return 1;
        // Wake at least every 50 ms to notice a child that ended without mapping.
        poll(&pfd, 1, static_cast<int>(std::min<long>(left.count(), 50)));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s PROGRAM [ARGS...]\n", argv[0]);
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fprintf(stderr, "startup-probe: cannot open display \"%s\"\n", XDisplayName(nullptr));
        return 2;
    }
    // The program must not inherit the connection.
    fcntl(ConnectionNumber(display), F_SETFD, FD_CLOEXEC);
    const Window root = DefaultRootWindow(display);
    XSelectInput(display, root, SubstructureNotifyMask);
    XSync(display, False);

    const auto start = Clock::now();
    const pid_t child = fork();
    if (child < 0) {
        std::perror("startup-probe: fork");
        return 2;
    }
    if (child == 0) {
        execvp(argv[1], argv + 1);
        std::fprintf(stderr, "startup-probe: cannot run %s: %s\n", argv[1], std::strerror(errno));
        _exit(127);
    }

    const int waited = waitForFirstMap(display, root, child, start + kMapTimeout);
    const auto mapped = Clock::now();
    if (waited != 0) {
        std::fprintf(stderr, "startup-probe: %s\n",
                     waited == 1 ? "no window mapped within 10 s"
                                 : "the program ended before mapping a window");
        stopChild(child);
        XCloseDisplay(display);
        return waited;
    }

    std::this_thread::sleep_for(kSettleDelay);
    const long kib = peakResidentKib(child);
    stopChild(child);
    XCloseDisplay(display);
    if (kib < 0) {
        std::fprintf(stderr, "startup-probe: cannot read the peak memory of the program\n");
        return 2;
    }
    const double ms = std::chrono::duration<double, std::milli>(mapped - start).count();
    std::printf("%.1f %ld\n", ms, kib);
    return 0;
}
