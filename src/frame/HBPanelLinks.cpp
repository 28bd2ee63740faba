// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelLinks.h"

void HBPanelLinks::Connect(const QObject* sender) const
{
    for (const Link& link : m_Links) {
        if (link.sender && (!sender || link.sender == sender))
            QObject::connect(link.sender, link.signal, m_pPanel, link.slot, Qt::UniqueConnection);
    }
}

void HBPanelLinks::Disconnect(const QObject* sender) const
{
    for (const Link& link : m_Links) {
        if (link.sender && (!sender || link.sender == sender))
            QObject::disconnect(link.sender, link.signal, m_pPanel, link.slot);
    }
}

void HBPanelLinks::Sever() const
{
    for (const Link& link : m_Links) {
        if (link.sender)
            link.sender->disconnect(m_pPanel);
    }
}
