// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBViewAids.h"

#include "HBBeforeAfter.h"
#include "HBPanelHead.h"
#include "HBResultHistogram.h"
#include "HBSideBySide.h"
#include "HBViewColors.h"

#include <HBPanelSession.h>
#include <KMDocumentView.h>

#include <QAction>
#include <QDockWidget>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>

#include <new>

namespace
{

constexpr char MonitorKey[] = "view/monitorProfile";
constexpr char CompareKey[] = "view/compareOpened";
constexpr char HistogramKey[] = "view/histogram";

QString ColorText(HBRGBA32i color)
{
    QString text = QString("%1 %2 %3").arg(color.red).arg(color.green).arg(color.blue);
    return color.alpha == 255 ? text : text + ' ' + QString::number(color.alpha);
}

} // namespace

HBViewAids::HBViewAids(QMainWindow* window, KMDocumentView* view, HBBeforeAfter* beforeAfter, QMenu* menu)
    : QObject(window)
    , m_pView(view)
    , m_pBeforeAfter(beforeAfter)
    , m_pColors(new HBViewColors(window))
    , m_pSideBySide(new HBSideBySide(view))
    , m_pHistogramDock(new QDockWidget(tr("Histogram"), window))
    , m_pHistogram(new HBResultHistogram(m_pHistogramDock))
    , m_pPixelLabel(new QLabel(window))
    , m_pProfileLabel(new QLabel(window))
{
    menu->addSeparator();
    m_pBeside = AddToggle(menu, tr("Before and After &Side by Side"), "Ctrl+Alt+B",
                          tr("Show the photo as it was beside it, the same part as large"));
    m_pCompareOpened = AddToggle(menu, tr("Compare with the Photo as Op&ened"), {},
                                 tr("Or else, in a panel, with the photo without this one step"));
    m_pClipping = AddToggle(menu, tr("Mark &Clipping"), "C",
                            tr("Paint pixels red that are too bright in a channel, and blue that are black"));
    m_pHistogramDock->setObjectName("Histogram");
    m_pHistogramDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    m_pHistogramDock->setWidget(m_pHistogram);
    m_pHistogramDock->hide();
    window->addDockWidget(Qt::RightDockWidgetArea, m_pHistogramDock);
    if (auto* panels = window->findChild<QDockWidget*>("PanelDock"))
        window->splitDockWidget(m_pHistogramDock, panels, Qt::Vertical); // over the panel
    QAction* histogram = m_pHistogramDock->toggleViewAction();
    histogram->setText(tr("&Histogram"));
    histogram->setShortcut(QKeySequence("H"));
    histogram->setStatusTip(tr("Show how often each level occurs, now and before"));
    menu->addAction(histogram);
    m_pColors->AddTo(menu);
    connect(m_pBeside, &QAction::toggled, m_pSideBySide, &HBSideBySide::SetShown);
    connect(m_pCompareOpened, &QAction::toggled, this, &HBViewAids::ShowBefore);
    connect(m_pClipping, &QAction::toggled, m_pColors, &HBViewColors::SetClippingMarked);

    connect(m_pColors, &HBViewColors::LookChanged, view, &KMDocumentView::SetLook);
    connect(m_pColors, &HBViewColors::LookChanged, beforeAfter, &HBBeforeAfter::SetLook);
    connect(m_pColors, &HBViewColors::LookChanged, m_pSideBySide, &HBSideBySide::SetLook);
    connect(m_pColors, &HBViewColors::Failed, this, &HBViewAids::Failed);
    connect(view, &KMDocumentView::PixelHovered, this, &HBViewAids::ShowPixel);
    connect(m_pSideBySide->BeforeView(), &KMDocumentView::PixelHovered, this, &HBViewAids::ShowPixel);

    m_pPixelLabel->setToolTip(
        tr("Pixel under the mouse: its place, and red, green, blue and, unless opaque, alpha "
           "before → after"));
    for (QLabel* label : {m_pPixelLabel, m_pProfileLabel}) {
        label->setIndent(window->fontMetrics().averageCharWidth());
        label->setTextFormat(Qt::PlainText);
        window->statusBar()->addPermanentWidget(label);
    }
}

QAction* HBViewAids::AddToggle(QMenu* menu, const QString& text, const QString& key, const QString& hint)
{
    QAction* action = menu->addAction(text);
    action->setCheckable(true);
    action->setShortcut(QKeySequence(key));
    action->setStatusTip(hint);
    return action;
}

QWidget* HBViewAids::BeginPanel(HBPanelSession* session)
{
    m_pHead = new HBPanelHead(session, m_pView);
    connect(m_pHead, &HBPanelHead::PreviewToggled, m_pBeforeAfter, &HBBeforeAfter::SetPreviewed);
    connect(m_pHead, &HBPanelHead::Noted, this, &HBViewAids::Hinted);
    connect(session, &HBPanelSession::PreviewReady, m_pHead, [this](const HBImage<>& image) {
        if (m_pHead) // not behind EndPanel
            m_pHistogram->SetResult(image);
    });
    return m_pHead;
}

/// Not at once: this may be the answer to one of its controls.
void HBViewAids::EndPanel()
{
    m_pBeforeAfter->SetPreviewed(true);
    if (m_pHead)
        m_pHead->deleteLater();
    m_pHead = nullptr;
}

void HBViewAids::ShowPhoto(const HBImage<>& present, const HBImage<>& opened, bool isAdjusting)
{
    m_Present = present;
    m_Opened = opened;
    m_IsAdjusting = isAdjusting;
    const bool open = !present.IsEmpty();
    for (QAction* action : {m_pBeside, m_pCompareOpened, m_pClipping})
        action->setEnabled(open);
    m_pColors->SetPhotoProfile(present.Profile().Icc());
    m_pProfileLabel->setText(open ? m_pColors->PhotoProfileName() : QString());
    m_pProfileLabel->setToolTip(tr("Colour profile of the photo. It is shown by that of the monitor: %1")
                                    .arg(m_pColors->MonitorProfileName()));
    ShowBefore();
}

void HBViewAids::ShowBefore()
{
    // Without a panel there is no step that could be left out.
    const HBImage<>& before = m_IsAdjusting && !m_pCompareOpened->isChecked() ? m_Present : m_Opened;
    m_pBeforeAfter->SetBefore(before);
    m_pHistogram->SetSource(before);
    if (!m_IsAdjusting)
        m_pHistogram->SetResult(m_Present);
    m_pSideBySide->SetBefore(before);
}

/// The same whichever of the two is on the screen there.
void HBViewAids::ShowPixel(const QPoint& pixel)
{
    m_pPixelLabel->clear();
    if (pixel.x() < 0)
        return;
    try {
        const HBRGBA32i before = m_pBeforeAfter->Before().PixelAt(pixel.x(), pixel.y());
        const HBRGBA32i after = m_pView->Picture().PixelAt(pixel.x(), pixel.y());
        const QString colors =
            before == after ? ColorText(after) : tr("%1 → %2").arg(ColorText(before), ColorText(after));
        m_pPixelLabel->setText(tr("%1, %2:  %3").arg(pixel.x()).arg(pixel.y()).arg(colors));
    } catch (const std::bad_alloc&) {
        // the tile cannot be brought back into memory
    }
}

HBPanelHead* HBViewAids::Head() const
{
    return m_pHead;
}

QString HBViewAids::PixelText() const
{
    return m_pPixelLabel->text();
}

void HBViewAids::ReadSettings(const QSettings& settings)
{
    QString ignored; // the file may be gone: then it is the desktop's
    m_pColors->SetMonitorFile(settings.value(MonitorKey).toString(), &ignored);
    m_pCompareOpened->setChecked(settings.value(CompareKey, false).toBool());
    m_pHistogramDock->setVisible(settings.value(HistogramKey, false).toBool());
}

void HBViewAids::WriteSettings(QSettings* settings) const
{
    settings->setValue(MonitorKey, m_pColors->MonitorFile());
    settings->setValue(CompareKey, m_pCompareOpened->isChecked());
    settings->setValue(HistogramKey, !m_pHistogramDock->isHidden());
}
