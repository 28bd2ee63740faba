// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBHistogramPanel.h"

#include <ControlNode.h>
#include <HBCurves.h>

class HBCurveScene;
class HBDocumentPick;

namespace Ui
{
class CurvesWidget;
}

/// Curves, edited over the histogram of the image (HBCurveScene), with pickers that take a black, a gray or a
/// white point from the document view (HBDocumentPick).
class HB_PANELS_EXPORT HBCurvesWidget : public HBAdjustmentWidget, public HBHistogramPanel
{
    Q_OBJECT
public:
    using Params = HBCurvesParams;

    HBCurvesWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBCurvesWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, but for what no editor could hold: a channel outside 0..3 becomes 0, lists become what
    /// HBCurvesParams::Editable says. Emits nothing and starts no job.
    void SetValue(const Params& params);

    /// The document the pickers pick from; null for none. Ends a pick.
    void SetView(KMDocumentView* view) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnChannelChanged(int channel);
    void OnSourceChanged() { ShowSource(SourceImage()); }
    void OnBlack(bool checked);
    void OnGray(bool checked);
    void OnWhite(bool checked);
    void OnBlackFinished();
    void OnGrayFinished();
    void OnWhiteFinished();
    void OnNodePressed(ControlNode* node, Qt::MouseButton button);
    void OnNodeReleased(ControlNode* node, Qt::MouseButton button);
    void OnSliderNodeReleased();
    void OnDeleteAction();
    void OnInputChanged(uint control, int value);

private:
    struct CurvesData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(CurvesData job);
    void MakeCurve();
    void MakePickers();
    void SetChannel(int channel);
    void FinishPick(int picker, void (*apply)(QVector<QPoint>& points, int average));

    std::unique_ptr<Ui::CurvesWidget> m_pUI;
    Params m_Params;
    HBCurveScene* m_pCurve; ///< of the curve view; edits the list of the shown channel
    std::unique_ptr<HBDocumentPick> m_pPick;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBCurvesWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBCurvesWidget::Params& params);
