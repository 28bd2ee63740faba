// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class HBDocument;
class QProgressBar;
class QToolButton;

/// For the status bar: how far the result of a document's steps is, while one is being made that takes long, and a
/// button that takes back the change it is made for. GUI thread.
class HBStackProgress : public QWidget
{
    Q_OBJECT
public:
    explicit HBStackProgress(HBDocument* document, QWidget* parent = nullptr);

    /// Whether the button does anything.
    void SetMayGiveUp(bool may);

private:
    void Show(int percent);

    QProgressBar* m_pBar;
    QToolButton* m_pGiveUp;
};
