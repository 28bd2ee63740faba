// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>
#include <HBSharedImage.h>
#include <HistogramWidget.h>

#include <QWidget>

/// The histogram of the photo as it is shown, in front of that of the photo it is made from. Counts only while it
/// is seen. GUI thread only.
class HBResultHistogram : public QWidget
{
    Q_OBJECT
public:
    explicit HBResultHistogram(QWidget* parent = nullptr);
    ~HBResultHistogram() override;

    void SetSource(const HBImage<>& image) { Set(&m_Source, image); }
    void SetResult(const HBImage<>& image) { Set(&m_Result, image); }

    QSize sizeHint() const override { return {256, 110}; }
    QSize minimumSizeHint() const override { return {120, 60}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// A picture and who counts it, never shown itself.
    struct Counted
    {
        HBSharedImage<HBImage<>> image;
        HistogramWidget* counter = nullptr;
        bool isKnown = false; ///< to the counter
    };

    void Set(Counted* counted, const HBImage<>& image);
    void Count(Counted* counted);

    Counted m_Source;
    Counted m_Result;
};
