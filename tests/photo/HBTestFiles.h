// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

inline QByteArray HBBytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool HBWriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A new folder for each test function.
struct HBTestFolder : QTemporaryDir {
    QString operator()(const QString& name) const { return filePath(name); }
    QStringList Files(const QString& folder = ".") const {
        return QDir(filePath(folder)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
};
