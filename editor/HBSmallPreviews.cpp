// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSmallPreviews.h"

#include <HBPoolJob.h>

#include <algorithm>
#include <new>

HBSmallPreviews::HBSmallPreviews(QObject* parent)
    : QObject(parent)
    , m_pQuestion(std::make_shared<std::atomic<int>>(0))
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, [this] {
        const bool isLast = m_Answering == *m_pQuestion;
        const QVector<QImage> previews = m_Watcher.result();
        m_Answering = 0;
        if (isLast)
            Q_EMIT Ready(previews);
        else
            Start();
    });
}

HBSmallPreviews::~HBSmallPreviews()
{
    m_Watcher.disconnect(this);
    ++*m_pQuestion;
}

HBImage<> HBSmallPreviews::Shrunk(const HBImage<>& picture, int side)
{
    const QSize size(picture.Width(), picture.Height());
    if (qMax(size.width(), size.height()) <= side)
        return picture;
    const QSize small = size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage image(small, QImage::Format_ARGB32);
    if (image.isNull())
        throw std::bad_alloc();
    constexpr int Samples = 4; // each way in a pixel
    const double stepX = double(size.width()) / small.width() / Samples;
    const double stepY = double(size.height()) / small.height() / Samples;
    for (int y = 0; y < small.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < small.width(); ++x) {
            int red = 0, green = 0, blue = 0, alpha = 0;
            for (int i = 0; i < Samples * Samples; ++i) {
                const QPoint sample(x * Samples + i % Samples, y * Samples + i / Samples);
                const HBRGBA32i pixel =
                    picture.PixelAt(int((sample.x() + 0.5) * stepX), int((sample.y() + 0.5) * stepY));
                red += pixel.red * pixel.alpha;
                green += pixel.green * pixel.alpha;
                blue += pixel.blue * pixel.alpha;
                alpha += pixel.alpha;
            }
            const int weight = std::max(1, alpha);
            row[x] = qRgba(red / weight, green / weight, blue / weight, alpha / (Samples * Samples));
        }
    }
    return HBImage<>::FromQImage(image);
}

void HBSmallPreviews::Ask(const HBImage<>& picture, const QVector<HBRecipe>& recipes, int side)
{
    m_Picture = picture;
    m_Recipes = recipes;
    m_Side = side;
    ++*m_pQuestion;
    if (m_Answering == 0)
        Start();
}

void HBSmallPreviews::Start()
{
    m_Answering = *m_pQuestion;
    const auto answer = [question = m_pQuestion, number = m_Answering, picture = m_Picture, recipes = m_Recipes,
                         side = m_Side] {
        QVector<QImage> previews(recipes.size());
        try {
            const HBImage<> small = Shrunk(picture, side);
            for (int i = 0; i < recipes.size() && *question == number; ++i) {
                QString ignored;
                previews[i] = HBApplyRecipe(HBTarget{small}, recipes.at(i), &ignored, nullptr).ToQImage();
            }
        } catch (const std::bad_alloc&) {
            // those that are missing are not shown
        }
        return previews;
    };
    HBWatchInPool(&m_Watcher, answer);
}
