// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStackProgress.h"

#include "HBDocument.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QToolButton>

HBStackProgress::HBStackProgress(HBDocument* document, QWidget* parent)
    : QWidget(parent)
    , m_pBar(new QProgressBar(this))
    , m_pGiveUp(new QToolButton(this))
{
    m_pBar->setMaximumWidth(120);
    m_pBar->setToolTip(tr("The photo is being made from its steps"));
    m_pGiveUp->setText(tr("Cancel"));
    m_pGiveUp->setAutoRaise(true);
    m_pGiveUp->setToolTip(tr("Take back the change of the steps that takes so long"));
    connect(m_pGiveUp, &QToolButton::clicked, document, &HBDocument::GiveUp);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pBar);
    layout->addWidget(m_pGiveUp);
    hide();
    connect(&document->Result(), &HBStackResult::Progress, this, &HBStackProgress::Show);
}

void HBStackProgress::SetMayGiveUp(bool may)
{
    m_pGiveUp->setEnabled(may);
}

/// \param percent -1: it is over
void HBStackProgress::Show(int percent)
{
    setVisible(percent >= 0);
    m_pBar->setValue(qMax(0, percent));
}
