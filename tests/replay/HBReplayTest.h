// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "../photo/HBTestFiles.h"
#include "HBTestImages.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>
#include <QVector>

#include <memory>

/// A test that runs panel-replay in a folder of its own.
class HBReplayTest : public QObject {
protected:
    struct Outcome {
        int code = -1;
        QString out;
        QString err;

        /// The lines of standard output.
        QVector<QJsonObject> Json() const {
            QVector<QJsonObject> lines;
            for (const QString& line : out.split('\n', Qt::SkipEmptyParts))
                lines.append(QJsonDocument::fromJson(line.toUtf8()).object());
            return lines;
        }
    };

    /// \param photos each of 150 x 140 pixels
    void MakeFolder(const QStringList& photos) {
        m_pFolder = std::make_unique<HBTestFolder>();
        for (const QString& name : photos) {
            QVERIFY(QDir(m_pFolder->path()).mkpath(QFileInfo(name).path()));
            QVERIFY(HBTestRamp(150, 140).ToQImage().save(Path(name)));
        }
    }
    QString Path(const QString& name) const { return m_pFolder->filePath(name); }
    /// Without the journal.
    QStringList Results(const QString& folder) const {
        return m_pFolder->Files(folder).filter(QRegularExpression("^(?!\\.panel-replay.*\\.journal$)"));
    }

    Outcome Replay(const QStringList& arguments, const QProcessEnvironment& more = {}) const {
        return Run(PANEL_REPLAY, arguments, more);
    }
    Outcome Shell(const QByteArray& script) const {
        return HBWriteBytes(Path("script"), script) ? Run("sh", {"script"}) : Outcome();
    }

    /// Without a display or a locale, as under cron.
    Outcome Run(const QString& program, const QStringList& arguments, const QProcessEnvironment& more = {}) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "LANG", "LANGUAGE", "LC_ALL"})
            environment.remove(name);
        // A sanitizer's list of what it left out is no message of the program's.
        environment.insert("LSAN_OPTIONS", environment.value("LSAN_OPTIONS") + ":print_suppressions=0");
        environment.insert(more);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_pFolder->path());
        process.start(program, arguments);
        process.waitForFinished(120000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    std::unique_ptr<HBTestFolder> m_pFolder;
};
