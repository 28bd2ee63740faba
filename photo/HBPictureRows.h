// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QImage>

#include <functional>

/// The rows of a picture as a file stores them, made of its tiles as they are asked for: a few of them are in
/// memory at a time. One thread.
///
/// Rows are QImage::Format_RGB32 or, if the picture is not opaque, Format_ARGB32; or Format_Grayscale8.
class HBPictureRows
{
public:
    /// \param image not empty; must outlive this
    /// \param keepsAlpha whether the file can store it; else the picture is put on white
    /// \param isWanted see IsWanted; may be null
    /// \throws std::bad_alloc
    HBPictureRows(const HBImage<>& image, bool keepsAlpha, std::function<bool()> isWanted = {});

    int Width() const { return m_Image.Width(); }
    int Height() const { return m_Image.Height(); }
    QImage::Format Format() const { return m_Format; }
    bool HasAlpha() const { return m_Format == QImage::Format_ARGB32; }

    /// In both directions, those of the image; those of 72 dots per inch where it says nothing.
    int DotsPerMetreX() const { return Dots(0); }
    int DotsPerMetreY() const { return Dots(1); }

    /// Whether all pixels are opaque and grey. Looks at them until one is not.
    bool IsGrey();
    /// From now on rows are grey, which the picture must be.
    void MakeGrey();

    /// Asked before each row; false: whoever writes them gives up.
    bool IsWanted(int y) const { return y % 64 != 0 || !m_IsWanted || m_IsWanted(); }
    /// Valid until the next call. Quick from top to bottom.
    /// \throws std::bad_alloc
    const uchar* Row(int y);
    /// All rows, with the resolution, for those who need a whole picture.
    QImage Whole();

private:
    int Dots(int which) const;
    const QImage& Strip(int first);

    const HBImage<>& m_Image;
    QImage::Format m_Format;
    QImage m_Pixels; ///< of the strip, a part of a row of tiles, as they are in the tiles
    QImage m_Strip;  ///< as they are to be; shares the above where that is the same
    int m_First = -1;
    const std::function<bool()> m_IsWanted;
};
