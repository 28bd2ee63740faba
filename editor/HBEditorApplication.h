// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

/// The application of the editor, in which what finds no memory ends, and not the program: the photo and its steps
/// are still there.
class HBEditorApplication : public QApplication
{
    Q_OBJECT
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    /// Something that an event had begun was broken off. Once, until what listens has returned.
    void OutOfMemory();

private:
    bool m_IsTelling = false;
};
