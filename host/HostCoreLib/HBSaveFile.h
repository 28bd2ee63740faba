// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostCoreLibExport.h"

#include <QByteArray>
#include <QString>

/// Writes a file whole or not at all: one that was there before stays if that fails. Any thread.
/// \param reason why it failed, without the file's name
HB_HOSTCORELIB_EXPORT bool HBSaveFile(const QString& path, const QByteArray& bytes, QString* reason);
