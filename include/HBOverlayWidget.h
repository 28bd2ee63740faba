// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

class QComboBox;

/// What the panels of the overlays have in common. They only edit the values: there is no job, and the host draws
/// what GetValue() says, with HBAdjust for example. Not a class of Qt's: to hosts that ask, HBAdjustmentWidget is
/// the base.
class HB_PANELS_EXPORT HBOverlayWidget : public HBAdjustmentWidget
{
public:
    HBOverlayWidget(QWidget* parent, Qt::WindowFlags flags) : HBAdjustmentWidget(false, parent, flags) {}

    /// Leaves the watcher alone: there is no job.
    void StartJobWatching(QFutureWatcher<HBImage<>>*) override {}

protected:
    /// The list of the modes and the controls of margins, opacity and mode, which both forms name alike.
    template <class Form>
    void ListenToOverlay(const Form& form)
    {
        FillBlendingModes(form.m_pBlendCombo);
        Listen(form.m_pLeftMargin, SIGNAL(valueChanged(int)), SLOT(OnLeftMarginChanged(int)));
        Listen(form.m_pRightMargin, SIGNAL(valueChanged(int)), SLOT(OnRightMarginChanged(int)));
        Listen(form.m_pTopMargin, SIGNAL(valueChanged(int)), SLOT(OnTopMarginChanged(int)));
        Listen(form.m_pBottomMargin, SIGNAL(valueChanged(int)), SLOT(OnBottomMarginChanged(int)));
        Listen(form.m_pOpacitySpn, SIGNAL(valueChanged(int)), SLOT(OnOpacityChanged(int)));
        Listen(form.m_pBlendCombo, SIGNAL(currentIndexChanged(int)), SLOT(OnBlendingModeChanged(int)));
    }
    template <class Form, class Params>
    void ShowOverlay(const Form& form, const Params& params) const
    {
        form.m_pLeftMargin->setValue(params.margins.left());
        form.m_pTopMargin->setValue(params.margins.top());
        form.m_pRightMargin->setValue(params.margins.right());
        form.m_pBottomMargin->setValue(params.margins.bottom());
        form.m_pOpacitySpn->setValue(params.opacity);
        form.m_pBlendCombo->setCurrentIndex(BlendingModeToIndex(unsigned(params.blendingMode)));
    }

    /// \param set of the corner value that is the margin
    template <class Panel>
    void StoreMargin(QRect& margins, void (QRect::*set)(int), int margin, void (Panel::*valueSignal)())
    {
        (margins.*set)(margin);
        NotifyChanged(valueSignal);
    }

    /// 0, "Normal", for what is not in the list; see HBBlendingModes.h.
    unsigned BlendingIndexToMode(int index) const;
    int BlendingModeToIndex(unsigned mode) const;

private:
    static void FillBlendingModes(QComboBox* combo);
};
