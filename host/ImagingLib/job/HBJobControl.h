// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <atomic>

/// Progress and cancel of one piece of work. Whoever started it cancels, from any thread; the work asks before
/// each tile, also while it only looks at the picture, and tells how far it is. A null pointer to a control is
/// allowed everywhere: nobody listens, nothing is cancelled.
class HB_IMAGINGLIB_EXPORT HBJobControl
{
public:
    HBJobControl() = default;
    HBJobControl(const HBJobControl&) = delete;
    HBJobControl& operator=(const HBJobControl&) = delete;
    virtual ~HBJobControl();

    /// The result is no longer wanted.
    void Cancel() { m_Cancelled.store(true, std::memory_order_relaxed); }
    virtual bool IsCancelled() const { return m_Cancelled.load(std::memory_order_relaxed); }

    /// Called by the work, on its threads but one at a time. Values lie in the range and never fall within it; a
    /// work of several stages sets a range for each.
    virtual void SetRange(int minimum, int maximum);
    virtual void SetProgress(int value);

private:
    std::atomic<bool> m_Cancelled{false};
};

/// Also for a null pointer.
inline bool HBIsCancelled(const HBJobControl* control)
{
    return control && control->IsCancelled();
}
