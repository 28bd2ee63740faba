// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBAdjustmentProcessingTemplate.h>

#include <QtConcurrent>

/// The head of every panel's job record: what to adjust, and where. A job owns copies of all it touches.
struct HBJobData
{
    HBImage<> source;
    HBImage<> selection;
    QPoint offset; ///< of the selection image on the source
    QRect bounds;  ///< of the selection, in pixels of the selection image; not valid: no selection
};

/// Runs panel->process(job) on the global pool, for the watcher. Whatever is thrown before the tiles are reached ends
/// here, with the image unchanged: from a future it would come out in the GUI thread.
template <class Panel, class Data>
void HBStartJob(QFutureWatcher<HBImage<>>* watcher, Panel* panel, HBImage<> (Panel::*process)(Data),
                const Data& job)
{
    watcher->setFuture(QtConcurrent::run([=, job = Data(job)]() mutable -> HBImage<> {
        try {
            return (panel->*process)(job);
        } catch (...) {
            static_cast<HBAdjustmentWidget*>(panel)->SetJobFailed();
            return std::move(job.source); // a copy may throw again
        }
    }));
}

template <class Transformation>
HBImage<> HBAdjustmentWidget::RunTransformation(const HBJobData& job, const Transformation& transformation,
                                                std::exception_ptr* exception)
{
    HBAdjustmentProcessingTemplate<Transformation> processing(transformation, &GetDataGuard(), &GetNewData());
    ConnectProgress(processing);
    const HBImage<> result = processing.Process(job.source, job.selection, job.offset, job.bounds);
    if (processing.Exception())
        SetJobFailed();
    if (exception)
        *exception = processing.Exception();
    return result;
}
