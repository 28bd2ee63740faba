// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBSharedImage.h>

#include <memory>

class HBConnectionSet;
class HBHistogramFeed;
class QDataStream;

namespace Ui
{
class LevelsWidget;
}

/// Levels: black point, white point and gamma of the input and the two ends of the output, for all channels together
/// and for each, over the histogram of the image, with an automatic adjustment of the three channels.
class PANELS_EXPORT HBLevelsWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Index of a channel: 0 composite, 1 red, 2 green, 3 blue.
    /// Stored form: tag "KMLevels 1.00000", then channel, twelve overlapping ints (see Write), the outputs, the gammas.
    /// Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 channel = 0;                                            ///< shown for editing; changes no pixel
        qint32 input[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}}; ///< black and white point, 0..255
        qint32 middle[4] = {128, 128, 128, 128}; ///< position of the gamma handle, derived from gamma
        qint32 output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}}; ///< 0..255; low may exceed high
        double gamma[4] = {1.0, 1.0, 1.0, 1.0}; ///< 0.01..9.99; 1 does nothing, more brightens

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBLevelsWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBLevelsWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, but for a channel outside 0..3, which becomes 0. Emits nothing and starts no
    /// job.
    void SetValue(const Params& params);

    /// Shows the histogram of an image of the host's choosing instead of the source; see HistogramWidget::SetImage.
    void AttachQImage(HBSharedImage<QImage>* image);
    void AttachRGB32iImage(HBSharedImage<HBImage<>>* image);
    /// Counts the attached image again.
    void UpdateHistogramm();

    /// Position of the gamma handle between the points: the middle at gamma 1, low at 9.99, high at 0.01.
    static int MiddleValue(int low, int high, double gamma);
    /// The gamma of a handle's position; 1 if the points leave no room for one.
    static double ToneValue(int low, int high, int position);
    /// The histogram view's mask: 7 for 0, then 1, 2, 4; 7 for anything else.
    static int IndexToHistogrammChannel(int channel);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnSourceChanged();
    void OnChannelChanged(int channel);
    void OnInputChanged(uint control, int value);
    void OnLowInputChanged(int value);
    void OnMiddleInputChanged(double gamma);
    void OnHighInputChanged(int value);
    void OnOutputChanged(uint control, int value);
    void OnLowOutputChanged(int value);
    void OnHighOutputChanged(int value);
    void OnHistogrammComplete();
    void OnAutoAdjust();

private:
    struct LevelsData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(LevelsData job);
    void Connect();
    void Disconnect();
    void SetChannel(int channel);

    std::unique_ptr<Ui::LevelsWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    std::unique_ptr<HBConnectionSet> m_pInputLink;  ///< of the input slider, also in m_pConnections
    std::unique_ptr<HBConnectionSet> m_pOutputLink; ///< of the output slider, also in m_pConnections
    std::unique_ptr<HBHistogramFeed> m_pFeed;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBLevelsWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBLevelsWidget::Params& params);
