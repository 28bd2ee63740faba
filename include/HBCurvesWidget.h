// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <ControlNode.h>
#include <HBSharedImage.h>

#include <QList>
#include <QPainterPath>
#include <QVector>

#include <memory>

class HBConnectionSet;
class HBHistogramFeed;
class QDataStream;
class QFocusEvent;
class QGraphicsItem;
class QGraphicsScene;
class QGraphicsSceneMouseEvent;
class QKeyEvent;

namespace Ui
{
class CurvesWidget;
}

/// Curves: a tone curve for all channels together and for each, edited over the histogram of the image, with pickers
/// that take a black, a gray or a white point from the document view.
///
/// Two spaces: a curve point is (input, output), both 0..255, output growing upward; the scene's y grows downward.
class PANELS_EXPORT HBCurvesWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Index of a channel: 0 composite, 1 red, 2 green, 3 blue.
    /// Stored form: tag "KMCurves 1.00000", then channel and the four lists, each in Qt's form of a QVector<QPoint>.
    /// Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 channel = 0;        ///< shown for editing; changes no pixel
        QVector<QPoint> points[4]; ///< at least two each, by input; (0, 0), (255, 255) does nothing

        Params();
        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed; a
        /// list that could not be read whole is empty).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBCurvesWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBCurvesWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, but for what no editor could hold: a channel outside 0..3 becomes 0, a list of less than 2 or
    /// more than 256 points the default, points are clamped to 0..255 and sorted by input. Emits nothing and starts no
    /// job.
    void SetValue(const Params& params);

    /// Shows the histogram of an image of the host's choosing instead of the source; see HistogramWidget::SetImage.
    void AttachQImage(HBSharedImage<QImage>* image);
    void AttachRGB32iImage(HBSharedImage<HBImage<>>* image);
    /// Counts the attached image again.
    void UpdateHistogramm();

    /// The document the pickers pick from; null for none. Ends a pick.
    void SetView(KMDocumentView* view) override;

    /// The histogram view's mask: 7 for 0, then 1, 2, 4; 7 for anything else.
    static int IndexToHistogrammChannel(int channel);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnChannelChanged(int channel);
    void OnSourceChanged();
    void OnBlack(bool checked);
    void OnGray(bool checked);
    void OnWhite(bool checked);
    void OnBlackFinished();
    void OnGrayFinished();
    void OnWhiteFinished();
    void OnNodePressed(ControlNode* node, Qt::MouseButton button);
    void OnNodeReleased(ControlNode* node, Qt::MouseButton button);
    void OnSliderNodeReleased();
    void OnDeleteAction();
    void OnInputChanged(uint control, int value);

private:
    struct CurvesData;
    struct Picker;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(CurvesData job);
    void Connect();
    void Disconnect();
    void SetChannel(int channel);

    // The editor (HBCurvesWidgetEditor.cpp)
    QVector<QPoint>& Points() { return m_Params.points[m_Params.channel]; }
    static QPoint ToViewPoint(const QPoint& point);
    static QPoint FromViewPoint(const QPoint& point);
    static QPainterPath BuildSpline(const QVector<QPoint>& points);
    void MakeScene();
    void AddMesh();
    void FilterScene(QEvent* event);
    void FilterView(QEvent* event);
    void ShowCurve();
    void RebuildCurve();
    void MakeControls();
    void InsertNode(int index);
    bool InsertPoint(const QPoint& point);
    bool CanMove(int index, const QPoint& point);
    bool MovePoint(int index, const QPoint& point);
    void RemovePoint(int index);
    bool HitTestForInsert(const QPoint& point, const QPointF& scenePos);
    void Select(ControlNode* node);
    void ShowPoint(const QPoint& point);
    void StepSelection(int step);
    void InsertAfterSelection();
    void MoveSelection(const QPoint& step);
    void SceneMousePressEvent(QGraphicsSceneMouseEvent* event);
    void SceneMouseMoveEvent(QGraphicsSceneMouseEvent* event);
    void SceneMouseReleaseEvent(QGraphicsSceneMouseEvent* event);
    void SceneKeyPressEvent(QKeyEvent* event);
    void SceneFocusOut(QFocusEvent* event);

    // The pickers (HBCurvesWidgetPickers.cpp)
    void MakePickers();
    void FinishPickers();
    void CancelPicks();
    void TogglePicker(const Picker& picker, bool checked);
    bool IsPicking() const;
    void InstallFilter(bool install);
    void FilterDocument(QEvent* event);
    void MousePressed(const QPoint& position, Qt::MouseButton button);
    void MouseReleased(const QPoint& position, Qt::MouseButton button);
    void EndDrag();
    static HBRGBA32i CalcAvgColor(const HBImage<>& image, const QRect& rect, const HBRGBA32i& fallback);
    void StartPick(Picker& picker);
    void StartBlackProcessing();
    void StartGrayProcessing();
    void StartWhiteProcessing();
    void FinishPick(Picker& picker, void (*apply)(QVector<QPoint>& points, int average));

    std::unique_ptr<Ui::CurvesWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    std::unique_ptr<HBConnectionSet> m_pSliderLink; ///< of the input slider, also in m_pConnections
    std::unique_ptr<HBHistogramFeed> m_pFeed;
    Params m_Params;

    QGraphicsScene* m_pScene = nullptr;
    QGraphicsItem* m_pCurve = nullptr;
    QList<ControlNode*> m_Nodes; ///< one per point of the shown channel, in its order
    ControlNode* m_pSelected = nullptr;

    QPointer<KMDocumentView> m_pView;
    bool m_Picking = false; ///< a rectangle is being dragged on the document
    QPoint m_PickStart;
    std::unique_ptr<Picker> m_pBlackPicker;
    std::unique_ptr<Picker> m_pGrayPicker;
    std::unique_ptr<Picker> m_pWhitePicker;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBCurvesWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBCurvesWidget::Params& params);
