// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRunTest.h"

#include <QApplication>

/// The main() of a test: one class a file, with widgets, without a screen unless one is asked for.
#define HB_TEST_MAIN(Class)                                                                                       \
    int main(int argc, char* argv[]) {                                                                            \
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");               \
        QApplication application(argc, argv);                                                                     \
        Class test;                                                                                               \
        return HBRunTest(&test, application.arguments());                                                         \
    }
