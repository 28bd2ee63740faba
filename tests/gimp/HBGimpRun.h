// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// Ends with the test, also where that is killed.
class HBGimpChild : public QProcess {
protected:
    void setupChildProcess() override;
};

/// A GIMP of its own: a fresh folder of the user's, our plug-in, Script-Fu and PNG files; nothing else, so that
/// it starts quickly. Works in that folder.
class HBGimpRun {
public:
    HBGimpRun();

    /// Why there is nothing to test; empty: all is there.
    static QString Missing(const QStringList& programs);

    QString Path(const QString& name) const { return m_Folder.filePath(name); }
    /// Where the plug-in keeps what it remembers.
    QString Remembered(const QString& name) const { return Path("home/adjustment-panels/" + name); }
    bool Write(const QString& name, const QByteArray& bytes) const;
    /// In the C locale, without a display unless one is given.
    QProcessEnvironment Environment() const;

private:
    QTemporaryDir m_Folder;
};
