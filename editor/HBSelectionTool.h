// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSelectionGesture.h"

#include <HBTileWalk.h>

#include <QObject>

#include <memory>
#include <optional>

class HBSelectionOutline;
class KMDocumentView;
class QGraphicsSceneMouseEvent;
class QKeyEvent;

/// Draws selections on the view, by mouse and by keys.
///
/// The mouse drags a shape; with the lasso it draws, or sets corners by clicks. The modifiers at the press choose
/// the mode for this shape: Shift adds, Ctrl or Alt subtracts (window managers may keep Alt), both intersect.
/// Shift that comes later makes a square. A drag within the selection moves it. A click does nothing.
///
/// The arrows bring a crosshair, and move it by a pixel of the screen or, with Shift, ten; Return and Space set
/// points there; with the tool that moves, the arrows move the selection. Escape gives a drawing up, else the
/// crosshair, else the selection, unless that key is wanted for more. The mouse is left to a panel that picks.
class HBSelectionTool : public QObject
{
    Q_OBJECT
public:
    using Tool = HBSelectionToolKind;
    using Mode = HBSelectionMode;
    static constexpr int FirstTolerance = 30;

    explicit HBSelectionTool(KMDocumentView* view, QObject* parent = nullptr);
    ~HBSelectionTool() override;

    /// Tool::None: the mouse does not select.
    void SetTool(Tool tool);
    void SetMode(Mode mode) { m_Mode = mode; }
    /// The photo as it was opened, whose colours are looked for.
    void SetPhoto(const HBImage<>& photo);
    /// Pixels, for the present selection and later ones.
    void SetFeather(int feather);
    int Feather() const { return m_Feather; }
    /// 0..255, for the colour that was chosen last and later ones.
    void SetTolerance(int tolerance);
    int Tolerance() const { return m_Tolerance; }

    /// Whether Escape drops the selection when there is nothing else to give up; true at first.
    void SetEscapeDeselects(bool does) { m_EscapeDeselects = does; }

    /// Without what is being drawn.
    const HBSelectionShape& Shape() const { return m_Shape; }
    /// Gives up what is being drawn. Feather and tolerance become those of the selection.
    void SetShape(const HBSelectionShape& shape);
    /// For the panels: what of a picture is selected. Throws std::bad_alloc.
    /// \param photo as it was opened, for selections by colour
    HBTarget SelectIn(const HBImage<>& picture, const HBImage<>& photo) const;
    HBSelectionOutline* Outline() const { return m_pOutline; }

public Q_SLOTS:
    void SelectAll();
    void SelectNothing() { SetShape({}); }
    /// Nothing becomes everything, everything nothing.
    void Invert();

Q_SIGNALS:
    /// \param gesture changes that follow each other with the same number belong together; -1: with none
    void Changed(int gesture);
    /// Feather or tolerance is that of another selection.
    void OptionsChanged();
    /// About what is being drawn: its size; or why it cannot be.
    void Told(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Gesture { Single = -1, OfFeather, OfTolerance, OfNudges };

    QSize PhotoSize() const;
    double ScreenPixel() const;
    bool MayStart(const QPointF& scenePosition) const;
    bool IsAll() const;
    bool IsWithin(const QPointF& at) const;

    bool Begin(Tool tool, const QPointF& at, Qt::KeyboardModifiers modifiers);
    void MoveTo(const QPointF& at, bool held, bool regular);
    bool End();
    bool GiveUp();
    void TakeOptions();
    void Put(const HBSelectionShape& shape, Gesture gesture = Single);

    QPointF PlaceOf(const QGraphicsSceneMouseEvent& event) const;
    bool OnMouse(QGraphicsSceneMouseEvent* event);
    bool OnPress(QGraphicsSceneMouseEvent* event);
    bool OnMove(QGraphicsSceneMouseEvent* event);
    bool OnRelease(QGraphicsSceneMouseEvent* event);
    void ShowCursor(const QPointF& at);

    bool OnKey(const QKeyEvent& key);
    bool OnEscape();
    bool OnPoint(const QKeyEvent& key);
    void MoveCrosshair(const QPointF& by);
    void Nudge(const QPointF& by);
    void HideCrosshair();

    void ShowOutline();

    KMDocumentView* m_pView;
    HBSelectionOutline* m_pOutline;
    Tool m_Tool = Tool::None;
    Mode m_Mode = Mode::New;
    int m_Feather = 0;
    int m_Tolerance = FirstTolerance;
    bool m_EscapeDeselects = true;
    HBImage<> m_Photo;
    HBSelectionShape m_Shape;
    std::unique_ptr<HBSelectionGesture> m_pGesture; ///< while something is being drawn
    QPointF m_PressedAt;
    bool m_Pressed = false;
    bool m_HasNewOptions = false; ///< feather or tolerance, since the gesture began
    bool m_Began = false;         ///< by this press
    bool m_Moved = false;         ///< since the press
    bool m_Adds = false;          ///< the Shift of the press is still held
    QPointF m_Crosshair;
    bool m_HasCrosshair = false;
};
