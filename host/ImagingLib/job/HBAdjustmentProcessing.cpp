// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentProcessing.h"

class HBAdjustmentProcessing::Control : public HBJobControl
{
public:
    explicit Control(HBAdjustmentProcessing& owner) : m_Owner(owner) {}

    bool IsCancelled() const override
    {
        const QReadLocker guard(m_Owner.m_pDataGuard);
        return *m_Owner.m_pNewData;
    }
    void SetRange(int minimum, int maximum) override { m_Owner.SetRange(minimum, maximum); }
    void SetProgress(int value) override { m_Owner.SetProgressValue(value); }

private:
    HBAdjustmentProcessing& m_Owner;
};

HBAdjustmentProcessing::HBAdjustmentProcessing(QReadWriteLock* dataGuard, const bool* newData)
    : m_pDataGuard(dataGuard)
    , m_pNewData(newData)
{
}

HBAdjustmentProcessing::~HBAdjustmentProcessing() = default;

void HBAdjustmentProcessing::SetRange(int minimum, int maximum)
{
    Q_EMIT RangeChanged(minimum, maximum);
}

void HBAdjustmentProcessing::SetProgressValue(int value)
{
    Q_EMIT ProgressChanged(value);
}

HBImage<> HBAdjustmentProcessing::Run(const HBTarget& target, const HBTileFunction& transform)
{
    Control control(*this);
    HBOutcome outcome = HBWalkTiles(target, transform, &control);
    m_Exception = outcome.exception;
    return outcome.image;
}
