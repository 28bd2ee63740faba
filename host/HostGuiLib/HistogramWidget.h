// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostGuiLibExport.h"

#include <HBHistogrammCalculator.h>
#include <HBImage.h>
#include <HBSharedImage.h>

#include <QFutureWatcher>
#include <QImage>
#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

/// Shows how often each level occurs in a picture. GUI thread only; the counting is done in the global thread
/// pool, behind everything else that wants a thread there: a panel's job is not slower for it.
///
/// The shared images stay the caller's: the widget keeps the pointer for RebuildHistogramm() and takes a copy of
/// the image, under its lock, at that moment only. Call SetImage with a null pointer before the shared image dies,
/// unless nobody rebuilds after that. A newer request replaces one that still runs; until its counts are there the
/// former ones are shown and returned. Alpha is not looked at.
///
/// What nobody looks at is not counted: a request waits until the widget is shown, somebody is connected to
/// HistogrammComplete, or a count is asked for, which is made at once then.
///
/// Its symbols bear a tag: without it, a program's own class HistogramWidget, no rare name, would take the place
/// of this one inside the panels.
class HB_HOSTGUILIB_EXPORT ADJUSTMENT_PANELS_OWN_NAME HistogramWidget : public QWidget
{
    Q_OBJECT
public:
    explicit HistogramWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~HistogramWidget() override;

    /// Counts this image from now on. A null pointer clears at once, without a signal.
    void SetImage(HBSharedImage<QImage>* image);
    void SetImage(HBSharedImage<HBImage<>>* image);
    /// Counts the image again, after its owner changed it.
    void RebuildHistogramm();

    /// What is drawn: 1 red, 2 green, 4 blue or a sum of them, 7 all three (the default), 0 luminance. Other bits
    /// are ignored. The counts are there for every channel in any case.
    void SetChannel(int mask);
    int Channel() const { return m_Mask; }

    /// Pixels of the counted picture, 0 if there is none.
    double GetPixelsCount() const { return double(Current().pixels); }
    /// The lowest and the highest level that occurs; 0 and 0 without a picture or for an unknown channel. Channels
    /// are indices here, not masks: 0 red, 1 green, 2 blue, 3 luminance (ITU-R BT.709).
    void GetRange(int channel, int& low, int& high) const;
    /// How many pixels have this level, up to the largest uint; 0 for an unknown channel or level.
    uint GetCount(int channel, int level) const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The counts of the newest request are there. Not emitted for a request that a newer one replaced.
    void HistogrammComplete();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void connectNotify(const QMetaMethod& signal) override;

private:
    using Counts = HBHistogrammCalculator::Counts;

    /// A picture to count, now or in the pool.
    struct Request
    {
        std::function<Counts()> now;
        std::function<void(const HBHistogrammCalculator::Abandoned& abandoned,
                           const HBHistogrammCalculator::Done& done)>
            behind;
    };

    template <class Image>
    void Take(const Image& image);
    void Start();
    const Counts& Current() const;
    bool IsCounting() const;
    void Abandon();
    void Clear();
    void OnCounted();
    QImage Draw() const;
    void DrawChannels(QPainter& painter) const;

    HBSharedImage<QImage>* m_pQImage = nullptr;
    HBSharedImage<HBImage<>>* m_pImage = nullptr;
    QFutureWatcher<Counts> m_Watcher;
    std::shared_ptr<std::atomic<bool>> m_pAbandoned; ///< of the running count; shared with it
    mutable std::optional<Request> m_Waiting;        ///< unless it has begun
    mutable Counts m_Counts;
    int m_Mask = 7;
    mutable QImage m_Drawn; ///< what was painted last; null when it must be drawn anew
};
