// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurvesWidget.h"

#include "HBConnectionSet.h"
#include "HBCurvesWidgetPicker.h"
#include "HBHistogramFeed.h"
#include "HBJobLog.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_CurvesWidget.h"

#include <HBIterativeCurvesTransformation.h>
#include <KMDocumentView.h>

#include <QGraphicsScene>

#include <algorithm>

namespace
{

constexpr char Tag[] = "KMCurves 1.00000";
constexpr char SourceName[] = "src\\HBCurvesWidget";

const QVector<QPoint>& Straight()
{
    static const QVector<QPoint> points = {QPoint(0, 0), QPoint(255, 255)};
    return points;
}

/// As Qt reads a QVector<QPoint>, but without trusting its count: Qt would allocate for it before the first point.
QVector<QPoint> ReadPoints(QDataStream& stream)
{
    quint32 count = 0;
    stream >> count;
    QVector<QPoint> points;
    for (quint32 i = 0; i < count; ++i) {
        QPoint point;
        stream >> point;
        if (stream.status() != QDataStream::Ok)
            return {};
        points.append(point);
    }
    return points;
}

/// A list that the editor can show; one that it made itself comes back as it is.
QVector<QPoint> Editable(QVector<QPoint> points)
{
    constexpr int MostPoints = 256;
    if (points.size() < 2 || points.size() > MostPoints)
        return Straight();
    for (QPoint& point : points)
        point = QPoint(qBound(0, point.x(), 255), qBound(0, point.y(), 255));
    std::stable_sort(points.begin(), points.end(), [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
    return points;
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

// ---- Record ----

HBCurvesWidget::Params::Params()
{
    for (QVector<QPoint>& list : points)
        list = Straight();
}

bool HBCurvesWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> channel;
    for (QVector<QPoint>& list : points)
        list = ReadPoints(stream);
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 16 bytes of the tag; channel 0; four times: count 2, (0, 0), (255, 255).
bool HBCurvesWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << channel;
    for (const QVector<QPoint>& list : points)
        stream << list;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBCurvesWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write curves data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBCurvesWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read curves data error.");
    return stream;
}

// ---- Construction ----

HBCurvesWidget::HBCurvesWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::CurvesWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
    , m_pSliderLink(std::make_unique<HBConnectionSet>())
    , m_pFeed(std::make_unique<HBHistogramFeed>())
{
    m_pUI->setupUi(GetUIContent());
    FitText(m_pUI->labelChannel);
    m_pUI->m_pInputSlider->SetRange(0, 255);
    m_pUI->m_pInputSlider->AddControl(0, 0, 255, QBrush(Qt::black));
    m_pUI->m_pInputSlider->AddControl(255, 0, 255, QBrush(Qt::white));
    m_pUI->m_pInputSlider->SetControlName(0, tr("First point"));
    m_pUI->m_pInputSlider->SetControlName(1, tr("Last point"));

    QLinearGradient across(0, 0, 1, 0);
    across.setColorAt(0.0, Qt::black);
    across.setColorAt(1.0, Qt::white);
    across.setCoordinateMode(QGradient::StretchToDeviceMode);
    m_pUI->m_pInputLabel->SetBackgroundBrush(across);
    QLinearGradient upward(0, 0, 0, 1);
    upward.setColorAt(0.0, Qt::white);
    upward.setColorAt(1.0, Qt::black);
    upward.setCoordinateMode(QGradient::StretchToDeviceMode);
    m_pUI->m_pOutputLabel->SetBackgroundBrush(upward);

    MakeScene();
    connect(this, SIGNAL(SourceChanged()), SLOT(OnSourceChanged()));
    MakePickers();
    connect(m_pUI->m_pInputSlider, SIGNAL(NodeReleased()), SLOT(OnSliderNodeReleased()));

    m_pConnections->Add(m_pUI->m_pChannel, SIGNAL(currentIndexChanged(int)), SLOT(OnChannelChanged(int)));
    for (HBConnectionSet* set : {m_pConnections.get(), m_pSliderLink.get()})
        set->Add(m_pUI->m_pInputSlider, SIGNAL(ValueChanged(uint,int)), SLOT(OnInputChanged(uint,int)));
    SetChannel(m_Params.channel);
    Connect();
}

HBCurvesWidget::~HBCurvesWidget()
{
    FinishJob();
    FinishPickers();
    Disconnect();
    m_pUI->m_pInputSlider->disconnect(this);
    // The scene loses its focus on the way down and would still ask this filter.
    m_pScene->removeEventFilter(this);
    m_pUI->m_pCurveView->removeEventFilter(this);
    m_pUI->m_pCurveView->viewport()->removeEventFilter(this);
}

void HBCurvesWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBCurvesWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

bool HBCurvesWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pScene)
        FilterScene(event);
    else if (watched == m_pUI->m_pCurveView || watched == m_pUI->m_pCurveView->viewport())
        FilterView(event);
    else if (m_pView && watched == m_pView->scene())
        FilterDocument(event);
    return HBAdjustmentWidget::eventFilter(watched, event);
}

// ---- Values ----

void HBCurvesWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    for (QVector<QPoint>& list : m_Params.points)
        list = Editable(list);
    SetChannel(m_Params.channel);
    Connect();
}

void HBCurvesWidget::Reset()
{
    CancelPicks();
    SetValue(Params());
    NotifyChanged(&HBCurvesWidget::ValueChanged);
}

void HBCurvesWidget::SetChannel(int channel)
{
    const int c = channel >= 0 && channel <= 3 ? channel : 0;
    m_pUI->m_pHistogramm->SetChannel(IndexToHistogrammChannel(c));
    m_pUI->m_pChannel->setCurrentIndex(c);
    m_Params.channel = c;
    ShowCurve();
}

void HBCurvesWidget::OnChannelChanged(int channel)
{
    if (channel < 0)
        return;
    Disconnect();
    SetChannel(channel);
    Connect();
    // Without DataChanged(): another channel is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

// ---- Histogram ----

int HBCurvesWidget::IndexToHistogrammChannel(int channel)
{
    return HBHistogramMask(channel);
}

void HBCurvesWidget::AttachQImage(HBSharedImage<QImage>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBCurvesWidget::AttachRGB32iImage(HBSharedImage<HBImage<>>* image)
{
    m_pUI->m_pHistogramm->SetImage(image);
}

void HBCurvesWidget::UpdateHistogramm()
{
    m_pUI->m_pHistogramm->RebuildHistogramm();
}

void HBCurvesWidget::OnSourceChanged()
{
    m_pFeed->Update(SourceImage(), m_pUI->m_pHistogramm);
}

// ---- Job ----

struct HBCurvesWidget::CurvesData : HBJobData
{
    Params params;
};

void HBCurvesWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const CurvesData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBCurvesWidget::Process, job);
}

HBImage<> HBCurvesWidget::Process(CurvesData job)
{
    std::exception_ptr exception;
    const HBImage<> result =
        RunTransformation(job, HBIterativeCurvesTransformation(job.params.points, 100), &exception);
    HB_LOG_JOB_EXCEPTION(exception);
    return result;
}
