// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Holds the photo's view, with a line around it while the keys go there.
class HBPhotoFrame : public QWidget
{
    Q_OBJECT
public:
    explicit HBPhotoFrame(QWidget* view, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* const m_pView;
};
