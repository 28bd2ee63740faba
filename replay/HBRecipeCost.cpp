// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeCost.h"

#include <HBAdjustment.h>
#include <HBSign.h>
#include <HBWatermark.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixelFormat>
#include <QStringList>

namespace
{

// Nanoseconds on one core.
constexpr double PerPixelOfTables = 0.3; // they become one table where they stand together
constexpr double PerPixel = 1.5;
constexpr double PerPixelOfFlood = 8;
constexpr double PerPixelOfShape = 6; // where its soft edge is everywhere
constexpr double PerPixelOfPoint = 0.3;
constexpr double PerPixelOfBlending = 1;
constexpr double PerLetter = 4000;     // of each copy
constexpr double PerPixelOfStamp = 15; // to read it and to make it smaller

// Where stamps are kept, they are read once: so many of them, with so many pixels in all.
constexpr qint64 KeptPixels = 64 << 20;
constexpr int KeptStamps = 64;

bool IsTable(const QString& panel)
{
    for (const char* name : {"HBBrightnessContrastWidget", "HBExposureWidget", "HBGammaCorrectionWidget",
                             "HBPosterizeWidget", "HBLevelsWidget", "HBCurvesWidget"}) {
        if (panel == QLatin1String(name))
            return true;
    }
    return false;
}

/// The record of a step of that kind.
template <class Params>
bool Restore(const HBRecipeStep& step, const char* panel, Params* params)
{
    std::any record;
    QString reason;
    const HBAdjustment* adjustment = step.panel == QLatin1String(panel) ? HBFindAdjustment(panel) : nullptr;
    if (!adjustment || !adjustment->restore(step.values, &record, &reason))
        return false;
    *params = std::any_cast<const Params&>(record);
    return true;
}

/// One that can be read; the others fail when they are drawn. Never a device, nor a file of the kernel's, which
/// says that it is empty.
bool IsOrdinary(const QString& file)
{
    const QFileInfo info(file);
    return info.isFile() && info.size() > 0;
}

double Letters(const HBWatermarkParams& text)
{
    return double(qMin(text.text.size(), 4096)) * HBClamped(text, &HBWatermarkParams::horizontalTiles) *
           HBClamped(text, &HBWatermarkParams::verticalTiles);
}

double PerPixelOfSelection(const HBSelectionShape& selection)
{
    double sum = selection.IsNone() ? 0 : PerPixelOfBlending;
    for (const HBShape& shape : selection.shapes)
        sum += PerPixelOfShape + PerPixelOfPoint * shape.points.size();
    return sum;
}

} // namespace

HBRecipeCost::HBRecipeCost(const HBRecipe& recipe)
{
    QStringList stamps;
    int maskBytes = 0;
    int partBytes = 0;
    for (const HBRecipeStep& step : recipe.steps) {
        if (!step.on)
            continue;
        m_PerPixel += PerPixelOfSelection(step.selection);
        maskBytes = step.selection.IsNone() ? maskBytes : 8; // and the picture before it
        if (step.amount < HBRecipeStep::MaximumAmount) {
            m_PerPixel += PerPixelOfBlending;
            partBytes = 4;
        }
        m_PerPixel += IsTable(step.panel)                                   ? PerPixelOfTables
                      : step.panel == QLatin1String("HBReplaceColorWidget") ? PerPixelOfFlood
                                                                            : PerPixel;
        HBWatermarkParams text;
        HBSignParams sign;
        if (Restore(step, "HBWatermarkWidget", &text))
            m_PerPicture += PerLetter * Letters(text);
        else if (Restore(step, "HBSignWidget", &sign) && IsOrdinary(sign.fileName))
            stamps.append(sign.fileName);
    }
    m_MemoryPerPixel = maskBytes + partBytes;
    QStringList different = stamps;
    different.removeDuplicates();
    // More than are kept drive each other out.
    const bool areKept = different.size() <= KeptStamps;
    qint64 kept = 0;
    for (const QString& file : areKept ? different : stamps) {
        QImageReader reader(file);
        reader.setDecideFormatFromContent(true);
        const QSize size = reader.size();
        const qint64 pixels = size.isValid() ? qint64(size.width()) * size.height() : 0;
        const int bits = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
        // As it is in the file, and as it is drawn.
        m_Memory = qMax(m_Memory, pixels * (bits / 8 + 4));
        const bool isKept = areKept && (kept += pixels) <= KeptPixels;
        m_PerPicture += PerPixelOfStamp * double(pixels) * (isKept || !areKept ? 1 : stamps.count(file));
    }
}

QByteArray HBHashOfRecipe(const HBRecipe& recipe)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(recipe.ToJson());
    for (const HBRecipeStep& step : recipe.steps) {
        HBSignParams sign;
        if (!Restore(step, "HBSignWidget", &sign) || !IsOrdinary(sign.fileName))
            continue;
        QFile file(sign.fileName);
        if (file.open(QIODevice::ReadOnly)) {
            QCryptographicHash stamp(QCryptographicHash::Sha256);
            stamp.addData(&file);
            hash.addData(stamp.result());
        }
    }
    return hash.result().toHex();
}
