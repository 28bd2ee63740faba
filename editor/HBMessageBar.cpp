// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBMessageBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

HBMessageBar::HBMessageBar(QWidget* parent) : QFrame(parent), m_pIcon(new QLabel(this)), m_pText(new QLabel(this))
{
    m_pText->setWordWrap(true);
    m_pText->setTextFormat(Qt::PlainText); // it may quote a file
    m_pText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* close = new QToolButton(this);
    close->setAutoRaise(true);
    close->setText(QStringLiteral("×")); // the style's picture is dark
    close->setToolTip(tr("Close this message"));
    close->setAccessibleName(tr("Close this message"));
    connect(close, &QToolButton::clicked, this, &QWidget::hide);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 5, 6, 5);
    layout->addWidget(m_pIcon);
    layout->addWidget(m_pText, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    setAutoFillBackground(true);
    hide();
    connect(&m_Time, &QTimer::timeout, this, [this] {
        if (!underMouse())
            hide();
    });
}

void HBMessageBar::LieOver(QWidget* area)
{
    const bool shown = !isHidden();
    setParent(area); // which hides it
    setVisible(shown);
    area->installEventFilter(this);
    Place();
}

bool HBMessageBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        Place();
    return QFrame::eventFilter(watched, event);
}

void HBMessageBar::Place()
{
    if (!parentWidget())
        return;
    const int width = parentWidget()->width();
    setGeometry(0, 0, width, hasHeightForWidth() ? heightForWidth(width) : sizeHint().height());
    raise();
}

QString HBMessageBar::Text() const
{
    return isHidden() ? QString() : m_pText->text();
}

void HBMessageBar::ShowText(const QString& text, bool error)
{
    // Fixed colours with enough contrast in a light and in a dark window.
    setStyleSheet(error ? "HBMessageBar { background: #8f1d1d; } QLabel, QToolButton { color: #ffffff; }"
                        : "HBMessageBar { background: #1d4f8f; } QLabel, QToolButton { color: #ffffff; }");
    const QStyle::StandardPixmap icon = error ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    m_pIcon->setPixmap(style()->standardIcon(icon).pixmap(18, 18));
    m_pText->setText(text);
    setAccessibleName(text);
    Place();
    m_Time.start(error ? ErrorMilliseconds : NoteMilliseconds);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
