// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJobLog.h"
#include "HBLogCapture.h"
#include "HBPanelStream.h"
#include "HBTestMain.h"

#include <QTemporaryFile>

#include <stdexcept>
#include <unistd.h>

class tst_HBJobLog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void exceptionLines() {
        HBLogCapture log;
        HB_LOG_JOB_EXCEPTION(nullptr);
        QVERIFY(log.Take().isEmpty());
        HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(std::runtime_error("no more tiles")));
        HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(42));
        const QVector<HBLogCapture::Line> lines = log.Take();
        QCOMPARE(lines.size(), 2);
        const QString head = QString("\"Build date=%1, time=").arg(__DATE__);
        // Quoted and escaped, as Qt writes a string to its debug stream.
        const QString place = "line=851, file=\\\"ImagingLib\\\\HBTransformImageColors.h\\\"";
        for (const HBLogCapture::Line& line : lines) QVERIFY2(line.text.startsWith(head), qPrintable(line.text));
        const QString known = ". Unexpected exception: " + place + ". Exception content:\\\"no more tiles\\\"\"";
        QVERIFY2(lines[0].text.endsWith(known), qPrintable(lines[0].text));
        QVERIFY2(lines[1].text.endsWith(". Unexpected unknown exception: " + place + '"'),
                 qPrintable(lines[1].text));

        // A handler that runs out of memory must not end the process, nor keep the line.
        QTemporaryFile file;
        QVERIFY(file.open());
        const int terminal = dup(STDERR_FILENO);
        dup2(file.handle(), STDERR_FILENO);
        const QtMessageHandler handler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString&) { throw std::bad_alloc(); });
        HB_LOG_JOB_EXCEPTION(std::make_exception_ptr(std::runtime_error(std::string(5000, 'x'))));
        HBLogStreamError("date", "time", 7, "src\\HBPanel", "Read panel error.");
        qInstallMessageHandler(handler);
        dup2(terminal, STDERR_FILENO);
        close(terminal);
        QVERIFY(file.seek(0));
        const QByteArray raw = file.readAll();
        QVERIFY2(raw.contains(". Unexpected exception: line=851, file=\"ImagingLib\\"), raw.constData());
        QVERIFY(
            raw.endsWith("xxx\"\nBuild date=date, time=time. Line=7, file=\"src\\HBPanel\". Read panel error.\n"));
        QVERIFY(raw.count('x') >= 5000);
    }
};

HB_TEST_MAIN(tst_HBJobLog)
#include "tst_HBJobLog.moc"
