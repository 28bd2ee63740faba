// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QVector>

/// What a panel hears of its controls: connections by the names of signal and slot, so that a host can disconnect
/// one by name too. Cut and made again, all or those of one control, in the order in which they were added. GUI
/// thread.
class HBPanelLinks
{
public:
    explicit HBPanelLinks(QObject* panel) : m_pPanel(panel) {}
    HBPanelLinks(const HBPanelLinks&) = delete;
    HBPanelLinks& operator=(const HBPanelLinks&) = delete;

    /// One that the next Connect makes. SIGNAL and SLOT of literals: the texts are not copied.
    void Add(QObject* sender, const char* signal, const char* slot) { m_Links.append({sender, signal, slot}); }
    /// Makes those of the sender (null: all), also what others have disconnected; twice changes nothing.
    void Connect(const QObject* sender) const;
    void Disconnect(const QObject* sender) const;
    /// Disconnects all senders from the panel, by whatever they were connected.
    void Sever() const;

private:
    struct Link
    {
        QPointer<QObject> sender;
        const char* signal;
        const char* slot;
    };

    QObject* const m_pPanel;
    QVector<Link> m_Links;
};
