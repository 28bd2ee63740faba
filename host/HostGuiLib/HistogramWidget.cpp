// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HistogramWidget.h"

#include "HBHistogramShape.h"
#include "HBIsDark.h"

#include <HBWarn.h>

#include <QEvent>
#include <QLayout>
#include <QMetaMethod>
#include <QPainter>
#include <QPainterPath>

#include <limits>

namespace
{

constexpr int AllColors = 7;
constexpr int SideInset = 2; ///< as QGraphicsView::fitInView keeps, so that a curve laid over it fits
constexpr int Margin = 4;    ///< above the highest column; the marks of cut ones stand in it

struct Look
{
    QColor fill;
    QColor line;
};

/// How a channel is drawn, alone or laid over others. Where all three meet they make a grey, as lights on a dark
/// ground or as inks on a light one; the fills are chosen so that a grey curve stays visible on it.
Look LookOf(int channel, bool alone, const QPalette& palette)
{
    static const QColor Lights[] = {{96, 26, 26}, {22, 78, 22}, {30, 44, 122}};
    static const QColor OnDark[] = {{170, 48, 48}, {40, 130, 40}, {56, 84, 200}};
    static const QColor DarkLines[] = {{232, 92, 92}, {84, 190, 84}, {112, 146, 255}};
    static const QColor Inks[] = {{255, 158, 150}, {156, 228, 150}, {158, 182, 255}};
    if (channel == HBHistogrammCalculator::Luma) {
        const QColor line = palette.color(QPalette::Text);
        QColor fill = line;
        fill.setAlphaF(0.45);
        return {fill, line};
    }
    if (HBIsDark(palette.color(QPalette::Base)))
        return {alone ? OnDark[channel] : Lights[channel], DarkLines[channel]};
    return {Inks[channel], Inks[channel].darker(150)};
}

/// Where the columns stand, in logical pixels.
struct Frame
{
    QRectF area;

    double X(int level) const { return area.left() + level / 255.0 * area.width(); }
    double Y(double height) const { return area.bottom() - height * area.height(); }
};

QPolygonF Outline(const HBHistogramShape& shape, const Frame& frame)
{
    QPolygonF line;
    for (int level = 0; level < 256; ++level) {
        // What occurs at all shows, if only as a pixel.
        const double least = shape.heights[level] > 0 ? 1.0 / qMax(1.0, frame.area.height()) : 0;
        line << QPointF(frame.X(level), frame.Y(qMax(shape.heights[level], least)));
    }
    return line;
}

void Fill(QPainter& painter, const QPolygonF& line, const Frame& frame)
{
    QPolygonF body = line;
    body << QPointF(frame.X(255), frame.area.bottom()) << QPointF(frame.X(0), frame.area.bottom());
    painter.drawPolygon(body);
}

void MarkCut(QPainter& painter, int level, const Frame& frame)
{
    const double x = qMax(frame.area.left() + 1, qMin(frame.X(level), frame.area.right() - 1));
    const double top = frame.area.top() - Margin + 0.5;
    const QPointF mark[] = {{x, top}, {x + 3, top + 3}, {x - 3, top + 3}};
    painter.drawPolygon(mark, 3);
}

HBHistogrammCalculator::Counts CountNow(const QImage& image)
{
    return HBHistogrammCalculator::Count(image);
}

HBHistogrammCalculator::Counts CountNow(const HBImage<>& image)
{
    return HBHistogrammCalculator::Count(image, QRect(0, 0, image.Width(), image.Height()));
}

} // namespace

HistogramWidget::HistogramWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags)
{
    setAccessibleName(tr("Histogram"));
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HistogramWidget::OnCounted);
}

HistogramWidget::~HistogramWidget()
{
    Abandon();
}

// ---- Counting ----

void HistogramWidget::SetImage(HBSharedImage<QImage>* image)
{
    m_pQImage = image;
    m_pImage = nullptr;
    RebuildHistogramm();
}

void HistogramWidget::SetImage(HBSharedImage<HBImage<>>* image)
{
    m_pQImage = nullptr;
    m_pImage = image;
    RebuildHistogramm();
}

void HistogramWidget::RebuildHistogramm()
{
    if (m_pQImage)
        Take(m_pQImage->Get());
    else if (m_pImage)
        Take(m_pImage->Get());
    else
        Clear();
}

/// The request holds a copy of the image, nothing of this widget, which may die while it is worked on.
template <class Image>
void HistogramWidget::Take(const Image& image)
{
    Abandon();
    m_Waiting = Request{
        [image]() -> Counts {
            try {
                return CountNow(image);
            } catch (const std::exception& error) {
                HBWarn("The histogram could not be counted: ", error.what());
                return {};
            }
        },
        [image](const HBHistogrammCalculator::Abandoned& abandoned, const HBHistogrammCalculator::Done& done) {
            HBHistogrammCalculator::CountBehind(image, abandoned, done);
        }};
    if (m_Counts.pixels == 0) { // it does not say any more that there is no picture
        m_Drawn = {};
        update();
    }
    if (isVisible() || isSignalConnected(QMetaMethod::fromSignal(&HistogramWidget::HistogrammComplete)))
        Start();
    else
        m_Watcher.setFuture(QFuture<Counts>()); // the former request, if it still runs, is replaced
}

/// Counts in the pool what waits.
void HistogramWidget::Start()
{
    if (!m_Waiting)
        return;
    m_pAbandoned = std::make_shared<std::atomic<bool>>(false);
    QFutureInterface<Counts> counted;
    counted.reportStarted();
    m_Watcher.setFuture(counted.future());
    // Where the memory was used up some is left for Qt, which ends the process if it cannot tell the result.
    const auto room = std::make_shared<QByteArray>(1 << 18, Qt::Uninitialized);
    (*std::exchange(m_Waiting, std::nullopt)).behind(m_pAbandoned, [counted, room](const Counts& counts) mutable {
        room->clear();
        counted.reportResult(counts);
        counted.reportFinished();
    });
}

const HistogramWidget::Counts& HistogramWidget::Current() const
{
    if (m_Waiting) {
        m_Counts = (*std::exchange(m_Waiting, std::nullopt)).now();
        m_Drawn = {};
    }
    return m_Counts;
}

void HistogramWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Start();
}

void HistogramWidget::connectNotify(const QMetaMethod& signal)
{
    QWidget::connectNotify(signal);
    if (signal == QMetaMethod::fromSignal(&HistogramWidget::HistogrammComplete))
        Start();
}

bool HistogramWidget::IsCounting() const
{
    return m_Waiting.has_value() || m_Watcher.isRunning();
}

void HistogramWidget::Abandon()
{
    if (m_pAbandoned)
        *m_pAbandoned = true;
}

void HistogramWidget::Clear()
{
    Abandon();
    m_Watcher.setFuture(QFuture<Counts>());
    m_Waiting.reset();
    m_Counts = {};
    m_Drawn = {};
    update();
}

void HistogramWidget::OnCounted()
{
    if (m_Watcher.isCanceled() || m_Watcher.future().resultCount() == 0)
        return; // the empty future of Clear()
    m_Counts = m_Watcher.result();
    m_Drawn = {};
    update();
    Q_EMIT HistogrammComplete();
}

void HistogramWidget::GetRange(int channel, int& low, int& high) const
{
    low = 0;
    high = 0;
    if (Current().pixels == 0 || channel < 0 || channel >= HBHistogrammCalculator::ChannelCount)
        return;
    const auto& levels = Current().levels[channel];
    const auto occurs = [](quint64 count) { return count > 0; };
    low = int(std::find_if(levels.begin(), levels.end(), occurs) - levels.begin());
    high = int(levels.rend() - std::find_if(levels.rbegin(), levels.rend(), occurs)) - 1;
}

uint HistogramWidget::GetCount(int channel, int level) const
{
    if (channel < 0 || channel >= HBHistogrammCalculator::ChannelCount || level < 0 || level > 255)
        return 0;
    return uint(qMin<quint64>(Current().levels[channel][level], std::numeric_limits<uint>::max()));
}

// ---- Painting ----

void HistogramWidget::SetChannel(int mask)
{
    mask &= AllColors;
    if (mask == m_Mask)
        return;
    m_Mask = mask;
    m_Drawn = {};
    update();
}

QSize HistogramWidget::sizeHint() const
{
    // With a layout, an editor covers it: that wants a square.
    return layout() ? QSize(256, 256) : QSize(256, 100);
}

void HistogramWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) {
        m_Drawn = {};
        update();
    }
}

void HistogramWidget::paintEvent(QPaintEvent*)
{
    if (!isVisible())
        Current(); // somebody takes a picture of it
    // Drawn once and kept: a curve that is dragged over it repaints it with every move.
    const double ratio = devicePixelRatioF();
    if (m_Drawn.isNull() || m_Drawn.devicePixelRatio() != ratio || m_Drawn.size() != size() * ratio)
        m_Drawn = Draw();
    QPainter(this).drawImage(0, 0, m_Drawn);
}

QImage HistogramWidget::Draw() const
{
    const double ratio = devicePixelRatioF();
    QImage image(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.setDevicePixelRatio(ratio);
    image.fill(palette().color(QPalette::Base));

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_Counts.pixels > 0)
        DrawChannels(painter);
    else if (!layout() && !IsCounting()) { // a view laid over it would cross the text
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.setFont(font());
        painter.drawText(rect(), Qt::AlignCenter, tr("No image"));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    QColor frame = palette().color(QPalette::Text);
    frame.setAlphaF(0.35);
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    return image;
}

void HistogramWidget::DrawChannels(QPainter& painter) const
{
    QVector<int> channels;
    for (int channel = 0; channel < 3; ++channel)
        if (m_Mask & (1 << channel))
            channels.append(channel);
    if (channels.isEmpty())
        channels.append(HBHistogrammCalculator::Luma);

    const bool alone = channels.size() == 1;
    double ceiling = 1;
    for (const int channel : qAsConst(channels))
        ceiling = qMax(ceiling, HBHistogramShape::Ceiling(m_Counts.levels[channel]));
    const Frame frame{QRectF(rect()).adjusted(SideInset, 1 + Margin, -SideInset, -1)};
    // Behind a thin curve it is a background.
    painter.setOpacity((isEnabled() ? 1.0 : 0.4) * (layout() ? 0.35 : 1.0));

    for (const int channel : qAsConst(channels)) {
        const Look look = LookOf(channel, alone, palette());
        const HBHistogramShape shape = HBHistogramShape::Of(m_Counts.levels[channel], ceiling);
        const QPolygonF line = Outline(shape, frame);
        if (!alone)
            painter.setCompositionMode(HBIsDark(palette().color(QPalette::Base))
                                           ? QPainter::CompositionMode_Screen
                                           : QPainter::CompositionMode_Multiply);
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.fill);
        Fill(painter, line, frame);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setBrush(look.line);
        for (const int level : shape.CutPeaks(m_Counts.levels[channel]))
            MarkCut(painter, level, frame);
        painter.setPen(QPen(look.line, 1));
        painter.drawPolyline(line);
    }
}
