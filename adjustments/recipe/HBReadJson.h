// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QString>

/// As QJsonDocument::fromJson, but an object in which a key stands twice is an error: it means two things, and
/// Qt 5 never frees the first of them. Null if it fails. Any thread. \throws std::bad_alloc
/// \param error why it failed; may be null
HB_ADJUSTMENTS_EXPORT QJsonDocument HBReadJson(const QByteArray& json, QString* error = nullptr);
