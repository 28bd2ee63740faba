// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBJobControl.h>
#include <HBRecipe.h>

#include <QFutureWatcher>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

/// What has to be worked in to have the result of a stack of steps. Any thread.
struct HBStackWork
{
    struct Done
    {
        HBImage<> checkpoint; ///< after `first`; empty if that has no steps
        HBImage<> image;      ///< empty: cancelled, or failed
        QString error;
    };

    HBImage<> photo; ///< as it was opened
    HBImage<> from;  ///< the result of the steps before `first`
    HBRecipe first;  ///< up to what is worth keeping
    HBRecipe rest;
    int before = 0; ///< how many steps are in `from`

    /// Once: it lets go of `from` when it can.
    Done Run(HBJobControl* control);
};

/// The result of a stack of steps on a photo, made by the core in one pass from the nearest state that is kept.
/// Kept are the states that are likely to be needed next, of which all together have no more tiles of their own
/// than the photo has: a stack of twenty steps takes the memory of the photo, its result, and one picture more.
/// GUI thread; the work is done by the pool.
class HBStackResult : public QObject
{
    Q_OBJECT
public:
    using Steps = QVector<HBRecipeStep>;

    explicit HBStackResult(QObject* parent = nullptr);
    ~HBStackResult() override;

    /// Starts anew, without steps.
    void SetPhoto(const HBImage<>& photo);
    const HBImage<>& Photo() const { return m_Photo; }

    /// Asks for another stack's result; Ready follows, at once if it is known. What is being made for a stack that
    /// is no longer wanted is given up.
    /// \throws std::bad_alloc, also of those who are told. Without any for the work there is Trouble
    void Want(const Steps& steps);
    /// What was asked for last.
    const Steps& Asked() const { return m_Asked; }
    /// The result of such a stack, which someone else has made.
    void Know(const Steps& steps, const HBImage<>& image);

    /// While it is held, nothing is worked for the wanted stack: someone waits for the same, or for more.
    void SetHeld(bool held);

    /// The last result that was ready; not that of the wanted stack unless IsUpToDate.
    const HBImage<>& Image() const { return m_Image; }
    bool IsUpToDate() const { return m_Present == m_Wanted; }
    /// Why the wanted stack has no result; empty: it has, or is being made.
    QString Trouble() const { return m_Trouble; }

    /// What is to be done for that stack, whatever is wanted.
    HBStackWork WorkFor(const Steps& steps) const;

Q_SIGNALS:
    void Ready();
    void Failed(const QString& reason);
    /// How far it is, 0 .. 100, of what takes long; -1: it is over.
    void Progress(int percent);

private:
    struct State
    {
        Steps steps;
        HBImage<> image;
    };
    class Control;

    HBStackWork WorkTo(const Steps& acting, int shared) const;
    void Keep(const Steps& acting, const HBImage<>& image);
    void Show(const Steps& acting, const HBImage<>& image);
    void Trim();
    void Start();
    void Begin();
    void Fail();
    void Finish();
    void TellProgress();

    HBImage<> m_Photo;
    HBImage<> m_Image;
    Steps m_Present; ///< only those that are on, as all that follow
    Steps m_Asked;   ///< all of them
    Steps m_Wanted;
    int m_Shared = 0; ///< so many steps the wanted stack has in common with the one before
    bool m_Held = false;
    QString m_Trouble;
    QVector<State> m_Kept; ///< the last used first
    QFutureWatcher<HBStackWork::Done> m_Watcher;
    std::shared_ptr<Control> m_pControl; ///< of the job that runs
    HBStackWork m_Work;                  ///< which it does
    Steps m_Making;                      ///< for this stack
    QTimer m_Glance;
};
