// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <array>
#include <functional>

class HBPictureRows;

/// What decides how good a JPEG's pixels are, and how large its file. Empty if the file is none.
struct HBJpegCoding
{
    struct Component
    {
        int horizontal =
            1; ///< sampling factors, 1..4: a component that has half of another's is stored in half size
        int vertical = 1;
        int table = 0; ///< its entry in `tables`
    };
    using Table = std::array<quint16, 64>; ///< divisors of the coefficients, 1..65535, row by row

    QVector<Component> components; ///< one (grey), three or four (for print)
    QVector<Table> tables;
    bool isRgb = false;         ///< three components are red, green and blue, not luma and chroma
    bool isProgressive = false; ///< comes into view in several passes

    bool IsEmpty() const { return components.isEmpty(); }
    /// Whether it is what a save can write, which knows grey and colours for screens.
    bool CanBeWritten() const { return components.size() == 1 || components.size() == 3; }
};

/// How fine colours are stored beside light.
enum class HBChroma {
    ByQuality, ///< Full from a quality of 90 on, else Quarter
    Full,      ///< 4:4:4, each pixel's
    Half,      ///< 4:2:2, one for two pixels beside each other
    Quarter    ///< 4:2:0, one for four pixels
};

struct HBJpegOptions
{
    int quality = 92; ///< 0..100 as libjpeg counts
    HBChroma chroma = HBChroma::ByQuality;
};

// Any thread. Nothing is thrown but std::bad_alloc.

HBJpegCoding HBReadJpegCoding(const QByteArray& file);

/// Writes the pixels, which must have no alpha, and their resolution; no metadata.
/// \param coding of the file that is saved over, to be as good as that was; if it cannot be written, the quality
///        and chroma of `options` hold
bool HBWriteJpeg(HBPictureRows& rows, const HBJpegCoding& coding, const HBJpegOptions& options, QByteArray* bytes,
                 QString* reason);
