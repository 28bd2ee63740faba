// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBInterrupt.h"

#include "HBReplayExit.h"
#include "HBReplayLog.h"
#include "HBReplayWords.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <poll.h>
#include <semaphore.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace
{

/// How long the program has to come to its end by itself, and then to say so.
constexpr std::chrono::milliseconds grace{300};
constexpr int mostWait = 50;

// Read by every thread.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler cannot take locks");
sem_t arrived; ///< wakes the watching thread: all that a signal handler may do to that end

enum Telling { NotTold, BeingTold, Told };
std::atomic<Telling> lastWords[STDERR_FILENO + 1] = {}; ///< by file descriptor

/// For ever: a signal may come while the process ends.
struct Shared
{
    std::mutex mutex;
    std::function<HBLastWords()> words;
};
Shared& shared()
{
    static auto* const shared = new Shared;
    return *shared;
}

/// Past the buffers of the C library, which a thread may hold that waits for the reader for ever.
/// \param wait milliseconds at most for each piece; -1: without end
void WriteIfTaken(int file, const QByteArray& bytes, int wait)
{
    for (int done = 0; done < bytes.size();) {
        pollfd output{file, POLLOUT, 0};
        if (::poll(&output, 1, wait) <= 0 || output.revents != POLLOUT)
            return;
        // So much fits without waiting.
        const ssize_t written =
            ::write(file, bytes.constData() + done, std::size_t(qMin(bytes.size() - done, PIPE_BUF)));
        if (written < 0 && errno != EINTR)
            return;
        done += int(qMax(ssize_t(0), written));
    }
}

/// By the thread that comes to it first, which may have to wait for its reader; the other one waits for it.
template <class Words>
void Tell(int file, const Words& words, int wait)
{
    Telling expected = NotTold;
    if (lastWords[file].compare_exchange_strong(expected, BeingTold)) {
        WriteIfTaken(file, words(), wait);
        lastWords[file] = Told;
    }
    for (int waited = 0; lastWords[file] != Told && (wait < 0 || waited < wait); ++waited)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

[[noreturn]] void End(int wait)
{
    std::function<HBLastWords()> words;
    {
        const std::lock_guard<std::mutex> lock(shared().mutex);
        words = shared().words;
    }
    const auto last = [&words] {
        return words ? words() : HBLastWords{HBLastErrorLine(HBReplayWords::tr("interrupted")), QByteArray()};
    };
    Tell(
        STDERR_FILENO, [&] { return last().message; }, wait);
    Tell(
        STDOUT_FILENO, [&] { return last().line; }, wait);
    std::_Exit(HBWasInterrupted);
}

[[noreturn]] void Watch()
{
    while (sem_wait(&arrived) != 0) {
    }
    std::this_thread::sleep_for(grace);
    End(mostWait);
}

} // namespace

void HBWatchInterrupts()
{
    shared();
    sem_init(&arrived, 0, 0);
    try {
        std::thread(Watch).detach();
    } catch (const std::system_error&) { // too little memory: those at work look at the flag
    }
    struct sigaction action = {};
    action.sa_handler = [](int) {
        interrupted = true;
        const int code = errno;
        std::signal(SIGPIPE, SIG_IGN); // Ctrl-C ends the reader, too: the last words must not end with it
        sem_post(&arrived);
        errno = code;
    };
    action.sa_flags = int(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool HBIsInterrupted()
{
    return interrupted;
}

void HBSetLastWords(std::function<HBLastWords()> words)
{
    const std::lock_guard<std::mutex> lock(shared().mutex);
    shared().words = std::move(words);
}

void HBEndInterrupted()
{
    End(-1); // if that lasts too long, the watching thread ends it
}
