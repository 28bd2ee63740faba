// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class QObject;

/// The connections that a panel cuts while it sets its own controls, as one.
class HBConnectionSet
{
public:
    /// \param signal, slot as made by SIGNAL() and SLOT()
    void Add(QObject* sender, const char* signal, const char* slot);

    /// Connects what is not connected, in the order it was added; connecting twice changes nothing.
    void Connect(QObject* receiver) const;
    void Disconnect(QObject* receiver) const;

private:
    struct Link
    {
        QObject* sender;
        const char* signal;
        const char* slot;
    };
    QVector<Link> m_Links;
};

/// Cuts the connections for as long as it lives.
class HBMute
{
public:
    HBMute(const HBConnectionSet& connections, QObject* receiver)
        : m_Connections(connections)
        , m_pReceiver(receiver)
    {
        m_Connections.Disconnect(m_pReceiver);
    }
    ~HBMute() { m_Connections.Connect(m_pReceiver); }
    HBMute(const HBMute&) = delete;
    HBMute& operator=(const HBMute&) = delete;

private:
    const HBConnectionSet& m_Connections;
    QObject* m_pReceiver;
};
