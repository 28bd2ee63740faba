// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRecipe.h>

#include <QFutureWatcher>
#include <QImage>
#include <QObject>
#include <QVector>

#include <atomic>
#include <memory>

/// What recipes make of a picture, small, on another thread. The last question counts; GUI thread.
class HBSmallPreviews : public QObject
{
    Q_OBJECT
public:
    explicit HBSmallPreviews(QObject* parent = nullptr);
    /// Waits for nothing.
    ~HBSmallPreviews() override;

    /// \param side the longer one, in pixels
    void Ask(const HBImage<>& picture, const QVector<HBRecipe>& recipes, int side);

    /// The picture with its longer side shrunk to `side`, of samples: quick, for any size of picture. Any thread.
    /// \throws std::bad_alloc
    static HBImage<> Shrunk(const HBImage<>& picture, int side);

Q_SIGNALS:
    /// In the order of the recipes; null for one that cannot be applied.
    void Ready(const QVector<QImage>& previews);

private:
    void Start();

    QFutureWatcher<QVector<QImage>> m_Watcher;
    std::shared_ptr<std::atomic<int>> m_pQuestion; ///< number of the last one
    HBImage<> m_Picture;
    QVector<HBRecipe> m_Recipes;
    int m_Side = 0;
    int m_Answering = 0; ///< number of the question that is being answered; 0: none
};
