// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHistogramPanel.h"

#include <HistogramWidget.h>

#include <QLinearGradient>

void HBHistogramPanel::AttachQImage(HBSharedImage<QImage>* image)
{
    m_pHistogram->SetImage(image);
}

void HBHistogramPanel::AttachRGB32iImage(HBSharedImage<HBImage<>>* image)
{
    m_pHistogram->SetImage(image);
}

void HBHistogramPanel::UpdateHistogramm()
{
    m_pHistogram->RebuildHistogramm();
}

void HBHistogramPanel::ShowSource(const HBImage<>& source)
{
    {
        const QWriteLocker locker(&m_Source.lock);
        m_Source.image = source;
    }
    m_pHistogram->SetImage(&m_Source);
}

int HBHistogramPanel::IndexToHistogrammChannel(int channel)
{
    constexpr int AllColors = 7;
    return channel >= 1 && channel <= 3 ? 1 << (channel - 1) : AllColors;
}

QBrush HBHistogramPanel::LevelStrip(Qt::Orientation orientation)
{
    const bool lying = orientation == Qt::Horizontal;
    QLinearGradient strip(0, 0, lying ? 1 : 0, lying ? 0 : 1);
    strip.setColorAt(0.0, lying ? Qt::black : Qt::white);
    strip.setColorAt(1.0, lying ? Qt::white : Qt::black);
    strip.setCoordinateMode(QGradient::StretchToDeviceMode);
    return strip;
}
