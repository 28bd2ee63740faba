// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBJobControl.h>

/// Passes cancelling on, and no progress.
class HBSilentControl : public HBJobControl
{
public:
    explicit HBSilentControl(const HBJobControl* listener) : m_pListener(listener) {}
    bool IsCancelled() const override { return HBIsCancelled(m_pListener); }

private:
    const HBJobControl* m_pListener;
};
