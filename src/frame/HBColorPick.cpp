// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorPick.h"

#include <KMColorDialog.h>

#include <QAbstractButton>
#include <QPixmap>
#include <QPointer>

void HBShowColor(QAbstractButton* button, const QColor& color)
{
    QPixmap pixmap(button->iconSize());
    pixmap.fill(color);
    button->setIcon(QIcon(pixmap));
}

HBPick HBRunColorDialog(QWidget* panel, const QString& title, const QColor& current, const char* liveSlot,
                        QColor* chosen)
{
    const QPointer<QWidget> alive(panel);
    // On the heap: as a child it dies with the panel, and then must not die here once more.
    const QPointer<KMColorDialog> dialog(new KMColorDialog(panel));
    dialog->setWindowTitle(title);
    dialog->SetColor(current);
    // After SetColor, whose echo is no edit of the user's.
    if (liveSlot)
        QObject::connect(dialog, SIGNAL(ColorChanged(QColor)), panel, liveSlot);
    const int result = dialog->Exec();
    if (!alive || !dialog)
        return HBPick::Gone;
    *chosen = dialog->GetColor();
    delete dialog;
    return result == 1 ? HBPick::Accepted : HBPick::Rejected;
}

std::optional<QColor> HBPickColor(QWidget* panel, const QString& title, const QColor& current,
                                  const char* liveSlot)
{
    const QColor before = current; // may be the panel's own, which follows the dialog
    QColor chosen;
    switch (HBRunColorDialog(panel, title, before, liveSlot, &chosen)) {
    case HBPick::Accepted:
        return chosen;
    case HBPick::Rejected:
        return before;
    case HBPick::Gone:
        break;
    }
    return {};
}
