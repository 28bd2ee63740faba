// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Holds the photo's view, with a line around it while the keys go there.
class HBPhotoFrame : public QWidget
{
    Q_OBJECT
public:
    /// \param content the view, or what it lies in
    explicit HBPhotoFrame(QWidget* content, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
