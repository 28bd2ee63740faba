// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRecipe.h>

#include <QByteArray>

/// What a recipe takes, found out once, before it runs: by its steps, the heads of the stamps that it draws and
/// the length of its texts.
class HBRecipeCost
{
public:
    HBRecipeCost() = default;
    explicit HBRecipeCost(const HBRecipe& recipe);

    /// How long adjusting a picture takes on one core that is not the fastest, in seconds: right within a factor
    /// of three or so, and rather too little. Reading and writing are not counted.
    double Seconds(qint64 pixels) const { return (m_PerPixel * double(pixels) + m_PerPicture) / 1e9; }
    /// Bytes of memory besides the picture and its result.
    qint64 Memory(qint64 pixels) const { return m_Memory + m_MemoryPerPixel * pixels; }

private:
    // Nanoseconds.
    double m_PerPixel = 0;
    double m_PerPicture = 0;
    qint64 m_Memory = 0;
    int m_MemoryPerPixel = 0;
};

/// The SHA-256, as hexadecimal digits, of all that the recipe's result depends on besides the photo: its own and
/// what the files of its stamps hold.
QByteArray HBHashOfRecipe(const HBRecipe& recipe);
