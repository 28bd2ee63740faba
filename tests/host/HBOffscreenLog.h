// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

/// Drops the one warning that the platform without a screen gives for every window of a fixed or least size. To be
/// made in initTestCase() and destroyed in cleanupTestCase(), between which Qt Test's own log is in force.
class HBOffscreenLog {
public:
    HBOffscreenLog() { Before() = qInstallMessageHandler(&Handle); }
    ~HBOffscreenLog() { qInstallMessageHandler(Before()); }
    Q_DISABLE_COPY(HBOffscreenLog)

private:
    static QtMessageHandler& Before() {
        static QtMessageHandler before = nullptr;
        return before;
    }
    static void Handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (text != QLatin1String("This plugin does not support propagateSizeHints()"))
            Before()(type, context, text);
    }
};
