// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// Why a photo cannot be read or written, or not whole: HBPhotoText::tr("...").
struct HBPhotoText
{
    Q_DECLARE_TR_FUNCTIONS(HBPhotoFile)
};

/// False, with the reason.
inline bool HBFail(QString* reason, const QString& text)
{
    *reason = text;
    return false;
}
