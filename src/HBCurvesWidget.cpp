// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesWidget.h"

#include "HBCurveScene.h"
#include "HBDocumentPick.h"
#include "HBJobLog.h"
#include "HBPanelJob.h"
#include "HBPanelStream.h"
#include "ui_CurvesWidget.h"

#include <KMStringHelper.h>

#include <QAction>

#include <algorithm>

namespace
{

/// In the order in which a rectangle goes to them, should a host have two checked.
enum Picker { GrayPicker, BlackPicker, WhitePicker };

int Level(const HBRGBA32i& color, int channel)
{
    return channel == 1 ? color.red : channel == 2 ? color.green : color.blue;
}

/// Narrows the letters of a text that its label, of fixed width, would cut.
void FitText(QLabel* label)
{
    constexpr int Bearing = 3; // of the outer letters
    const int needed = label->fontMetrics().horizontalAdvance(label->text()) + Bearing;
    if (needed <= label->maximumWidth())
        return;
    QFont font = label->font();
    font.setStretch(qMax(50, 100 * label->maximumWidth() / needed));
    label->setFont(font);
}

} // namespace

HB_PANEL_STREAM(HBCurvesWidget, "curves data")

HBCurvesWidget::HBCurvesWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::CurvesWidget>())
{
    m_pUI->setupUi(GetUIContent());
    FitText(m_pUI->labelChannel);
    m_pUI->m_pInputSlider->SetRange(0, 255);
    m_pUI->m_pInputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pInputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pInputSlider->SetControlName(HBCurveScene::First, tr("First point"));
    m_pUI->m_pInputSlider->SetControlName(HBCurveScene::Last, tr("Last point"));
    m_pUI->m_pInputLabel->SetBackgroundBrush(LevelStrip(Qt::Horizontal));
    m_pUI->m_pOutputLabel->SetBackgroundBrush(LevelStrip(Qt::Vertical));
    SetHistogram(m_pUI->m_pHistogramm);

    MakeCurve();
    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    MakePickers();
    connect(m_pUI->m_pInputSlider, SIGNAL(NodeReleased()), SLOT(OnSliderNodeReleased()));
    SetChannel(m_Params.channel);
    Listen(m_pUI->m_pChannel, SIGNAL(currentIndexChanged(int)), SLOT(OnChannelChanged(int)));
    Listen(m_pUI->m_pInputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnInputChanged(uint,int)));
}

HBCurvesWidget::~HBCurvesWidget() = default;

void HBCurvesWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    for (QVector<QPoint>& list : m_Params.points)
        list = Params::Editable(list);
    SetChannel(m_Params.channel);
}

void HBCurvesWidget::Reset()
{
    m_pPick->Cancel();
    SetValue(Params());
    NotifyChanged(&HBCurvesWidget::ValueChanged);
}

void HBCurvesWidget::SetChannel(int channel)
{
    const int c = channel >= 0 && channel <= 3 ? channel : 0;
    m_pUI->m_pHistogramm->SetChannel(IndexToHistogrammChannel(c));
    m_pUI->m_pChannel->setCurrentIndex(c);
    m_Params.channel = c;
    QVector<QPoint>& points = m_Params.points[c];
    m_pUI->m_pInputSlider->SetMaximum(HBCurveScene::First, points.at(1).x() - HBCurveScene::Gap);
    m_pUI->m_pInputSlider->SetValue(HBCurveScene::First, points.first().x());
    m_pUI->m_pInputSlider->SetMinimum(HBCurveScene::Last, points.at(points.size() - 2).x() + HBCurveScene::Gap);
    m_pUI->m_pInputSlider->SetValue(HBCurveScene::Last, points.last().x());
    m_pCurve->SetPoints(&points);
}

void HBCurvesWidget::OnChannelChanged(int channel)
{
    if (channel < 0)
        return;
    {
        const Mute mute(this, nullptr, Mute::ShowsOthers);
        SetChannel(channel);
    }
    // Without DataChanged(): another channel is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

// ---- The curve ----

void HBCurvesWidget::MakeCurve()
{
    QGraphicsView* view = m_pUI->m_pCurveView;
    m_pCurve = new HBCurveScene(&m_Params.points[m_Params.channel], view);
    m_pCurve->SetNodeListener(this);
    m_pCurve->ShowIn(view);
    view->setAccessibleName(tr("Tone curve"));
    view->setAccessibleDescription(
        tr("Page Up and Page Down select a point, Insert adds one, the arrow keys move it, "
           "Delete removes it."));

    auto* remove = new QAction(view);
    remove->setShortcut(Qt::Key_Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(remove);
    connect(remove, SIGNAL(triggered()), SLOT(OnDeleteAction()));

    MavuCustomSlider* slider = m_pUI->m_pInputSlider;
    connect(m_pCurve, &HBCurveScene::PointsChanged, this,
            [this] { NotifyChanged(&HBCurvesWidget::ValueChanged); });
    connect(m_pCurve, &HBCurveScene::PointTouched, this, [this](const QPoint& point) {
        m_pUI->m_pInputSpin->setText(QString::number(point.x()));
        m_pUI->m_pOutputSpin->setText(QString::number(point.y()));
    });
    connect(m_pCurve, &HBCurveScene::EndLimited, this, [slider](uint end, int input) {
        end == HBCurveScene::First ? slider->SetMaximum(end, input) : slider->SetMinimum(end, input);
    });
    connect(m_pCurve, &HBCurveScene::EndMoving, this, [this, slider](uint end, int input) {
        const Mute mute(this, slider);
        slider->SetValue(end, input);
    });
}

void HBCurvesWidget::OnNodePressed(ControlNode* node, Qt::MouseButton button)
{
    m_pCurve->OnNodePressed(node, button);
}

void HBCurvesWidget::OnNodeReleased(ControlNode* node, Qt::MouseButton button)
{
    m_pCurve->OnNodeReleased(node, button);
}

void HBCurvesWidget::OnSliderNodeReleased()
{
    m_pCurve->Deselect();
}

void HBCurvesWidget::OnDeleteAction()
{
    if (m_pUI->m_pCurveView->scene())
        m_pCurve->RemoveSelected();
}

void HBCurvesWidget::OnInputChanged(uint control, int value)
{
    m_pCurve->MoveEnd(control, value);
}

// ---- The pickers ----

void HBCurvesWidget::MakePickers()
{
    m_pPick = std::make_unique<HBDocumentPick>([this] { return SourceImage(); }, this);
    const struct
    {
        QToolButton* button;
        const char* icon;
        QRgb fallback;
        const char* toggled;
        const char* finished;
    } pickers[] = {
        {m_pUI->m_pGray, "theme:picker_gray.png", qRgb(128, 128, 128),
         SLOT(OnGray(bool)), SLOT(OnGrayFinished())},
              {m_pUI->m_pBlack, "theme:picker_black.png", qRgb(0, 0, 0),
               SLOT(OnBlack(bool)), SLOT(OnBlackFinished())},
                    {m_pUI->m_pWhite, "theme:picker_white.png", qRgb(255, 255, 255),
                     SLOT(OnWhite(bool)), SLOT(OnWhiteFinished())},
                    };
    for (const auto& picker : pickers) {
        picker.button->setIcon(QIcon(QPixmap(KMStringHelper::DPIAdjustImageName(picker.icon))));
        const int index = m_pPick->Add(picker.button, HBRGBA32i::FromRgba(picker.fallback));
        connect(picker.button, SIGNAL(toggled(bool)), picker.toggled);
        connect(m_pPick->Watcher(index), SIGNAL(finished()), picker.finished);
    }
}

void HBCurvesWidget::SetView(KMDocumentView* view)
{
    m_pPick->SetView(view);
}

bool HBCurvesWidget::eventFilter(QObject* watched, QEvent* event)
{
    m_pPick->Filter(watched, event);
    return HBAdjustmentWidget::eventFilter(watched, event);
}

void HBCurvesWidget::OnBlack(bool checked)
{
    m_pPick->Toggle(BlackPicker, checked);
}

void HBCurvesWidget::OnGray(bool checked)
{
    m_pPick->Toggle(GrayPicker, checked);
}

void HBCurvesWidget::OnWhite(bool checked)
{
    m_pPick->Toggle(WhitePicker, checked);
}

/// Puts a picked colour into the curves of the three colours, unless the pick was cancelled.
void HBCurvesWidget::FinishPick(int picker, void (*apply)(QVector<QPoint>& points, int average))
{
    if (const std::optional<HBRGBA32i> color = m_pPick->Result(picker)) {
        Params params = m_Params;
        for (int c = 1; c <= 3; ++c) {
            QVector<QPoint>& points = params.points[c];
            apply(points, Level(*color, c));
            std::sort(points.begin(), points.end(),
                      [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
        }
        SetValue(params);
        NotifyChanged(&HBCurvesWidget::ValueChanged);
    }
    m_pPick->StartNext(picker);
}

void HBCurvesWidget::OnBlackFinished()
{
    FinishPick(BlackPicker, [](QVector<QPoint>& points, int average) {
        QPoint& lower = points.first().y() <= points.last().y() ? points.first() : points.last();
        lower = QPoint(average, 0);
    });
}

void HBCurvesWidget::OnGrayFinished()
{
    FinishPick(GrayPicker, [](QVector<QPoint>& points, int average) {
        points = {points.first(), QPoint(average, 128), points.last()};
    });
}

void HBCurvesWidget::OnWhiteFinished()
{
    FinishPick(WhitePicker, [](QVector<QPoint>& points, int average) {
        QPoint& higher = points.first().y() > points.last().y() ? points.first() : points.last();
        higher = QPoint(average, 255);
    });
}

// ---- The job ----

struct HBCurvesWidget::CurvesData : HBJobData
{
    Params params;
};

void HBCurvesWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, CurvesData{JobData(), m_Params});
}

HBImage<> HBCurvesWidget::Process(CurvesData job)
{
    HBOutcome outcome;
    const HBImage<> result = HBRunJob(job, job.params, &outcome);
    HB_LOG_JOB_EXCEPTION(outcome.exception);
    return result;
}
