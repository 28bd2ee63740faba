// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMColorDialog.h"

KMColorDialog::KMColorDialog(QWidget* parent) : QColorDialog(parent), m_Color(currentColor())
{
    setOptions(DontUseNativeDialog | ShowAlphaChannel);
    connect(this, &QColorDialog::currentColorChanged, this, [this](const QColor& color) {
        if (m_Setting)
            return;
        m_Color = color;
        Q_EMIT ColorChanged(color);
    });
}

void KMColorDialog::SetColor(const QColor& color)
{
    m_Setting = true;
    setCurrentColor(color);
    m_Setting = false;
    m_Color = color;
}

int KMColorDialog::Exec()
{
    // QDialog::exec() guards itself against its own deletion; nothing of this object may be touched after it.
    return exec() == Accepted ? 1 : 0;
}
