// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBConnectionSet.h"

#include <QObject>

void HBConnectionSet::Add(QObject* sender, const char* signal, const char* slot)
{
    m_Links.append({sender, signal, slot});
}

void HBConnectionSet::Connect(QObject* receiver) const
{
    for (const Link& link : m_Links)
        QObject::connect(link.sender, link.signal, receiver, link.slot, Qt::UniqueConnection);
}

void HBConnectionSet::Disconnect(QObject* receiver) const
{
    for (const Link& link : m_Links)
        QObject::disconnect(link.sender, link.signal, receiver, link.slot);
}
