// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Whether an object of a JSON text has a key twice; not if the text is no JSON. To be asked before such a text is
/// parsed: whose value counts is not said, and Qt 5.15 loses the memory of the other one.
/// \param key the first such, as UTF-8
bool HBHasRepeatedKey(const QByteArray& json, QByteArray* key);
