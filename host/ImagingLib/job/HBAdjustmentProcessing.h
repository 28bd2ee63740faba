// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "imaginglib_export.h"

#include <QObject>
#include <QPoint>
#include <QReadWriteLock>
#include <QRect>

#include <exception>
#include <functional>

/// The job of a panel: walks the tiles of an image, transforms them, blends by the selection and reports progress.
///
/// Lives on the thread that runs the job, normally one of the global pool, and spreads the work over lanes (see
/// HBParallel.h), each claiming the next tile or row in order. Signals are emitted on those threads, one at a time,
/// with values that never go backwards: connect them with Qt::QueuedConnection.
class IMAGINGLIB_EXPORT HBAdjustmentProcessing : public QObject
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
    /// Transforms the 16384 pixels of tile `index`. Each lane works with its own copy.
    using TileFunction = std::function<void(HBRGBA32i* pixels, int index)>;

    /// Runs the job and returns the adjusted image, which shares every tile that was not touched with the source.
    ///
    /// Without a selection (bounds not valid) the range is 0 .. tiles and every tile is transformed. With one, only
    /// the tiles under the bounds are, then the rows that the selection image covers are blended, and the range is
    /// 0 .. tiles + rows; pixels outside keep their bytes. A job that was stopped returns what it had; one that threw
    /// returns the tiles it had done, still blended by the selection.
    /// \param bounds in pixels of the selection image, which lies at `offset` on the source
    HBImage<> Run(const HBImage<>& source, const HBImage<>& selection, const QPoint& offset, const QRect& bounds,
                  const TileFunction& transform);

private:
    class Claims;
    void Spread(int lanes, Claims& claims, const std::function<void()>& lane);

    QReadWriteLock* m_pDataGuard;
    const bool* m_pNewData;
    std::exception_ptr m_Exception;
};
