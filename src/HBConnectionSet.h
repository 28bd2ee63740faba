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
