// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBInterrupt.h"

#include <atomic>
#include <csignal>

namespace
{

// Read by every thread.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler cannot take locks");

} // namespace

void HBWatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { interrupted = true; };
    action.sa_flags = int(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool HBIsInterrupted()
{
    return interrupted;
}
