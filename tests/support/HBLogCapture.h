// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>
#include <QVector>

/// Catches the debug lines while it lives; everything else goes to the test's own log. One at a time.
class HBLogCapture {
public:
    struct Line {
        QString text;
        QString context; ///< file, function and category that came along, as far as they did
    };

    HBLogCapture();
    ~HBLogCapture();
    Q_DISABLE_COPY(HBLogCapture)

    QVector<Line> Take();

private:
    static void Handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_Before;
    QVector<Line> m_Lines;
};

/// While it lives, windows may be shown: silences what a platform without a screen remarks about each of them.
/// Create it before an HBLogCapture.
class HBShowsWindows {
public:
    HBShowsWindows();
    ~HBShowsWindows();
    Q_DISABLE_COPY(HBShowsWindows)
};
