// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <QString>

/// Bytes of memory that this process may use: the machine's or, where that is less, the smallest limit of its
/// control groups, own and outer ones, versions 1 and 2: those of a container, a batch system or a service. Read
/// anew each time. Any thread.
/// \param root folder in which the system's files (proc/self/cgroup, sys/fs/cgroup) are looked for
HB_IMAGINGLIB_EXPORT qint64 HBUsableMemory(const QString& root = QString());
