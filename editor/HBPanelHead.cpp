// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelHead.h"

#include <HBAdjustmentWidget.h>
#include <HBCurves.h>
#include <HBLevels.h>
#include <HBPanelSession.h>
#include <KMDocumentView.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>
#include <new>

namespace
{

bool HasOwnChannels(const HBCurvesParams& params)
{
    const QVector<QPoint> neutral = {{0, 0}, {255, 255}};
    for (int channel = 1; channel < 4; ++channel) {
        if (HBCurvesParams::Editable(params.points[channel]) != neutral)
            return true;
    }
    return false;
}

bool HasOwnChannels(const HBLevelsParams& params)
{
    for (int c = 1; c < 4; ++c) {
        const bool neutral = params.input[c][0] == 0 && params.input[c][1] == 255 && params.output[c][0] == 0 &&
                             params.output[c][1] == 255 && params.gamma[c] == 1.0;
        if (!neutral)
            return true;
    }
    return false;
}

/// Whether the panel shows all channels together while one of them is bent on its own.
bool HidesChannels(const std::any& record)
{
    if (const auto* curves = std::any_cast<HBCurvesParams>(&record))
        return curves->channel == 0 && HasOwnChannels(*curves);
    if (const auto* levels = std::any_cast<HBLevelsParams>(&record))
        return levels->channel == 0 && HasOwnChannels(*levels);
    return false;
}

} // namespace

HBPanelHead::HBPanelHead(HBPanelSession* session, KMDocumentView* view)
    : m_pSession(session)
    , m_pView(view)
    , m_pPreview(new QCheckBox(tr("Pre&view"), this))
    , m_pHint(new QLabel(tr("Red, green or blue is changed on its own, too."), this))
    , m_Picks(HBPhotoPicksOf(QString::fromLatin1(session->Entry().className)))
{
    m_pPreview->setChecked(true);
    m_pPreview->setToolTip(tr("Show the photo with this adjustment"));
    m_pHint->setWordWrap(true);
    m_pHint->hide();
    connect(m_pPreview, &QCheckBox::toggled, this, &HBPanelHead::PreviewToggled);
    connect(session->Panel(), &HBAdjustmentWidget::DataChanged, this, &HBPanelHead::ShowHint);
    // Another channel is shown without a word.
    connect(session, &HBPanelSession::PreviewReady, this, &HBPanelHead::ShowHint);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(9, 6, 9, 0); // as the panels' own
    row->addWidget(m_pPreview);
    row->addStretch();
    AddPicks(row);
    auto* hint = new QHBoxLayout;
    hint->setContentsMargins(9, 3, 9, 0);
    hint->addWidget(m_pHint);
    layout->addLayout(row);
    layout->addLayout(hint);
    layout->addWidget(session->Widget(), 1);
}

HBPanelHead::~HBPanelHead()
{
    EndPick();
}

void HBPanelHead::AddPicks(QHBoxLayout* row)
{
    for (int i = 0; i < m_Picks.size(); ++i) {
        auto* button = new QToolButton(this);
        button->setText(m_Picks.at(i).text);
        button->setToolTip(m_Picks.at(i).hint);
        button->setFocusPolicy(Qt::TabFocus);
        button->setCheckable(true);
        connect(button, &QToolButton::clicked, this, [this, i](bool checked) {
            EndPick();
            if (checked)
                BeginPick(i);
        });
        row->addWidget(button);
        m_PickButtons.append(button);
    }
}

/// The panel's controls come first by the tab key. It has put its own in order by now.
void HBPanelHead::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    QWidget* const panel = m_pSession ? m_pSession->Widget() : nullptr;
    if (!panel)
        return;
    QWidget* last = nullptr;
    for (QWidget* widget = panel->nextInFocusChain(); widget != panel; widget = widget->nextInFocusChain()) {
        if (panel->isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
            last = widget;
    }
    if (!last)
        return;
    setTabOrder(last, m_pPreview);
    last = m_pPreview;
    for (QToolButton* button : qAsConst(m_PickButtons)) {
        setTabOrder(last, button);
        last = button;
    }
}

// ---- Picking from the photo ----

void HBPanelHead::BeginPick(int index)
{
    if (!m_pView || m_pView->HasOverrideCursor()) // a picker of the panel's own is on
        return m_PickButtons.at(index)->setChecked(false);
    m_Picking = index;
    m_PickButtons.at(index)->setChecked(true);
    m_pView->SetOverrideCursor(Qt::CrossCursor);
    m_pView->viewport()->installEventFilter(this);
    m_pView->installEventFilter(this);
    m_pView->setFocus(); // for Escape
    Q_EMIT Noted(m_Picks.at(index).hint);
}

void HBPanelHead::EndPick()
{
    if (m_Picking < 0)
        return;
    m_PickButtons.at(m_Picking)->setChecked(false);
    m_Picking = -1;
    Q_EMIT Noted({});
    if (!m_pView)
        return;
    m_pView->viewport()->removeEventFilter(this);
    m_pView->removeEventFilter(this);
    m_pView->SetOverrideCursor(QCursor());
}

bool HBPanelHead::eventFilter(QObject* watched, QEvent* event)
{
    if (m_Picking < 0 || !m_pView)
        return QWidget::eventFilter(watched, event);
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched == m_pView && key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        if (event->type() == QEvent::KeyPress)
            EndPick();
        return true;
    }
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool mouse = watched == m_pView->viewport() && (press || event->type() == QEvent::MouseButtonRelease);
    if (!mouse || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return QWidget::eventFilter(watched, event);
    if (!press) // with the release, which else a tool would take for its own
        PickAt(static_cast<QMouseEvent*>(event)->pos());
    return true;
}

void HBPanelHead::PickAt(const QPoint& position)
{
    const HBPhotoPick pick = m_Picks.at(m_Picking);
    EndPick();
    if (!m_pSession || !m_pSession->Panel())
        return;
    const QPointF place = m_pView->viewportTransform().inverted().map(QPointF(position));
    const QPoint pixel(int(std::floor(place.x())), int(std::floor(place.y())));
    const HBImage<>& photo = m_pSession->Target().source;
    if (!QRect(0, 0, photo.Width(), photo.Height()).contains(pixel))
        return;
    try {
        const HBPanelEntry& entry = m_pSession->Entry();
        std::any record = entry.get(*m_pSession->Panel());
        if (!pick.apply(HBColorAround(photo, pixel), &record)) {
            Q_EMIT Noted(tr("No value of this panel makes that place so. Try another."));
            return;
        }
        m_pSession->SetStep({QString::fromLatin1(entry.className), entry.adjustment->save(record)});
        ShowHint();
    } catch (const std::bad_alloc&) {
        // the tile cannot be brought back into memory
    }
}

void HBPanelHead::ShowHint()
{
    if (m_pSession && m_pSession->Panel())
        m_pHint->setVisible(HidesChannels(m_pSession->Entry().get(*m_pSession->Panel())));
}
