// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeDialog.h"

#include <HBAdjustment.h>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace
{

constexpr int PreviewSide = 320;

}

HBRecipeDialog::HBRecipeDialog(const HBImage<>& photo, const QString& name, const HBRecipe& recipe,
                               QWidget* parent)
    : QDialog(parent)
    , m_pBefore(new QLabel)
    , m_pAfter(new QLabel)
{
    setWindowTitle(tr("Apply Recipe"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* pictures = new QHBoxLayout;
    for (QLabel* label : {m_pBefore, m_pAfter}) {
        label->setMinimumSize(PreviewSide, PreviewSide * 3 / 4);
        label->setAlignment(Qt::AlignCenter);
        pictures->addWidget(label);
    }
    m_pBefore->setObjectName("before");
    m_pAfter->setObjectName("after");
    m_pBefore->setAccessibleName(tr("The photo as it is"));
    m_pAfter->setAccessibleName(tr("The photo with the recipe"));
    QStringList steps;
    for (const HBRecipeStep& step : recipe.steps) {
        const HBAdjustment* adjustment = HBFindAdjustment(step.panel);
        steps.append(QString("%1. %2").arg(steps.size() + 1).arg(adjustment ? adjustment->Title() : step.panel));
    }
    constexpr int most = 12;
    if (steps.size() > most)
        steps = steps.mid(0, most - 1) << tr("and %1 more").arg(steps.size() - most + 1);
    auto* list = new QLabel(steps.join('\n'));
    list->setTextFormat(Qt::PlainText);
    auto* title = new QLabel(name);
    title->setTextFormat(Qt::PlainText); // it quotes a file
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addLayout(pictures);
    layout->addWidget(list);
    layout->addStretch();
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Apply)->setDefault(true); // not before it knows its dialog

    const double ratio = devicePixelRatioF();
    connect(&m_Previews, &HBSmallPreviews::Ready, this, [this, ratio](const QVector<QImage>& previews) {
        QLabel* const labels[] = {m_pBefore, m_pAfter};
        for (int i = 0; i < 2 && i < previews.size(); ++i) {
            QPixmap pixmap = QPixmap::fromImage(previews.at(i));
            pixmap.setDevicePixelRatio(ratio);
            labels[i]->setPixmap(pixmap);
            if (previews.at(i).isNull())
                labels[i]->setText(tr("It cannot be applied to this photo."));
        }
    });
    m_Previews.Ask(photo, {HBRecipe(), recipe}, int(std::ceil(PreviewSide * ratio)));
}
