// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorApplication.h"

#include <QScopedValueRollback>

#include <new>

bool HBEditorApplication::notify(QObject* receiver, QEvent* event)
try {
    return QApplication::notify(receiver, event);
} catch (const std::bad_alloc&) {
    // What listens shows a text, which may find no memory either, in an event of its own even.
    if (!m_IsTelling) {
        const QScopedValueRollback<bool> telling(m_IsTelling, true);
        try {
            Q_EMIT OutOfMemory();
        } catch (const std::bad_alloc&) {
        }
    }
    return true;
}
