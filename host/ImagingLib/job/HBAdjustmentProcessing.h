// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBTileWalk.h"

#include <QObject>
#include <QReadWriteLock>

/// A walk over the tiles of an image (HBTileWalk.h) that tells its progress by signals and is stopped by a flag
/// under a lock. For a host's own jobs: the panels and the adjustments walk by themselves.
///
/// Lives on the thread that runs the job. Signals are emitted on that and on the pool's threads, one at a time,
/// with values that never go backwards: connect them with Qt::QueuedConnection.
class HB_IMAGINGLIB_EXPORT HBAdjustmentProcessing : public QObject
{
    Q_OBJECT
public:
    /// \param dataGuard guards *newData; taken for reading before each tile and each blended row and never held
    ///        while pixels are worked on. Both must outlive the object.
    /// \param newData true: the result is no longer wanted; the job stops at its next look.
    HBAdjustmentProcessing(QReadWriteLock* dataGuard, const bool* newData);
    ~HBAdjustmentProcessing() override;

    void SetRange(int minimum, int maximum);
    void SetProgressValue(int value);

    /// What was thrown first in the last job; null if nothing was. Exceptions never leave the job.
    std::exception_ptr Exception() const { return m_Exception; }

Q_SIGNALS:
    void RangeChanged(int minimum, int maximum);
    void ProgressChanged(int value);

protected:
    /// Runs the job (see HBWalkTiles). One that was stopped returns what it had; one that threw, the tiles it had
    /// done, still blended by the selection.
    HBImage<> Run(const HBTarget& target, const HBTileFunction& transform);

private:
    class Control;

    QReadWriteLock* m_pDataGuard;
    const bool* m_pNewData;
    std::exception_ptr m_Exception;
};
