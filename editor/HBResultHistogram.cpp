// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBResultHistogram.h"

#include <HBHistogramShape.h>
#include <HBIsDark.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace
{

constexpr int Channels = 3;

HBHistogramShape::Levels LevelsOf(const HistogramWidget& counter, int channel)
{
    HBHistogramShape::Levels levels{};
    for (int level = 0; level < 256; ++level)
        levels[size_t(level)] = counter.GetCount(channel, level);
    return levels;
}

QPainterPath Outline(const HBHistogramShape& shape, const QRectF& area)
{
    QPainterPath path(area.bottomLeft());
    for (int level = 0; level < 256; ++level)
        path.lineTo(area.left() + level / 255.0 * area.width(),
                    area.bottom() - shape.heights[size_t(level)] * area.height());
    path.lineTo(area.bottomRight());
    return path;
}

} // namespace

HBResultHistogram::HBResultHistogram(QWidget* parent) : QWidget(parent)
{
    constexpr int MaximumHeight = 150; // it leaves the side bar to the panel
    setMaximumHeight(MaximumHeight);
    setAccessibleName(tr("Histogram of the result over that of the photo before"));
    setToolTip(tr("Lines: the photo as it is shown. Gray: as it was before."));
    for (Counted* counted : {&m_Source, &m_Result}) {
        counted->counter = new HistogramWidget(this);
        counted->counter->hide();
        connect(counted->counter, &HistogramWidget::HistogrammComplete, this, [this] { update(); });
    }
}

HBResultHistogram::~HBResultHistogram()
{
    delete m_Source.counter; // before the images that they count
    delete m_Result.counter;
}

void HBResultHistogram::Set(Counted* counted, const HBImage<>& image)
{
    if (counted->image.Get().IsSameAs(image))
        return;
    counted->image.Set(image);
    counted->isKnown = false;
    if (isVisible())
        Count(counted);
}

void HBResultHistogram::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Count(&m_Source);
    Count(&m_Result);
}

void HBResultHistogram::Count(Counted* counted)
{
    if (std::exchange(counted->isKnown, true))
        return;
    const bool open = !counted->image.Get().IsEmpty();
    counted->counter->SetImage(open ? &counted->image : static_cast<HBSharedImage<HBImage<>>*>(nullptr));
    update();
}

void HBResultHistogram::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(2, 3, -2, -1);
    const bool dark = HBIsDark(palette().color(QPalette::Base));
    const QColor lines[Channels] = {dark ? QColor(255, 110, 110) : QColor(205, 40, 40),
                                    dark ? QColor(100, 215, 100) : QColor(20, 135, 20),
                                    dark ? QColor(125, 160, 255) : QColor(45, 75, 225)};
    QColor faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.13);
    // Both under one ceiling, or they could not be compared.
    double ceiling = 1;
    HBHistogramShape::Levels source[Channels];
    HBHistogramShape::Levels result[Channels];
    for (int channel = 0; channel < Channels; ++channel) {
        source[channel] = LevelsOf(*m_Source.counter, channel);
        result[channel] = LevelsOf(*m_Result.counter, channel);
        ceiling = std::max(
            {ceiling, HBHistogramShape::Ceiling(source[channel]), HBHistogramShape::Ceiling(result[channel])});
    }
    for (const auto& levels : source)
        painter.fillPath(Outline(HBHistogramShape::Of(levels, ceiling), area), faint);
    painter.setBrush(Qt::NoBrush);
    for (int channel = 0; channel < Channels; ++channel) {
        painter.setPen(QPen(lines[channel], 1.25));
        painter.drawPath(Outline(HBHistogramShape::Of(result[channel], ceiling), area));
    }
}
