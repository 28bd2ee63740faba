// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPanelCatalog.h>

#include <HBImage.h>

#include <QFutureWatcher>
#include <QObject>

/// Draws the overlay of a panel without a job, in the background: one drawing at a time, then the newest that was
/// asked for meanwhile. GUI thread only; destroying it waits for the drawing that runs.
class HBOverlayJob : public QObject
{
    Q_OBJECT
public:
    explicit HBOverlayJob(QObject* parent = nullptr);
    ~HBOverlayJob() override;

    void Draw(const HBImage<>& source, const HBOverlayDrawing& drawing);

Q_SIGNALS:
    /// What was last asked for; with an error the image is the source.
    void Done(const HBImage<>& image, const QString& error);

private:
    struct Result
    {
        HBImage<> image;
        QString error;
    };
    void Start();
    void Finish();

    QFutureWatcher<Result> m_Watcher;
    HBImage<> m_Source;
    HBOverlayDrawing m_Drawing;
    bool m_Pending = false;
};
