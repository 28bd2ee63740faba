// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBInterrupt.h"

#include <csignal>

namespace
{

volatile std::sig_atomic_t interrupted = 0;

}

void HBWatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { interrupted = 1; };
    action.sa_flags = int(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool HBIsInterrupted()
{
    return interrupted != 0;
}
