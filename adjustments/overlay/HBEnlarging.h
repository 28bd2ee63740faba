// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QVector>

/// Between which two pixels of a row, or of a column, each pixel of an enlarged one lies. Exact integer
/// arithmetic: the same bytes on every instruction set, and whatever pieces an image is made in.
class HBEnlarging
{
public:
    HBEnlarging() = default;
    /// Of `from` pixels to `to`. Middle of the pixel to middle of the pixel; the outermost half pixels have one
    /// neighbour only.
    HBEnlarging(int from, int to);

    bool IsEmpty() const { return m_First.isEmpty(); }
    /// The first of the two pixels, the second one follows (and may not exist if its weight is 0).
    int First(int index) const { return m_First.at(index); }
    /// Of the second pixel, in 1/256.
    int Weight(int index) const { return m_Weights.at(index); }

    /// Enlarged pixels `index` … `index` + `count` - 1, premultiplied, of a row of which `pixels` is that at
    /// `origin`.
    void Across(const QRgb* pixels, int origin, int index, int count, QRgb* target) const;

    /// The mean of two rows, premultiplied, by the weight of the second in 1/256.
    static void Mix(const QRgb* first, const QRgb* second, int weight, int count, QRgb* target);

private:
    QVector<qint32> m_First;
    QVector<qint32> m_Weights;
};
