// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPhotoFile.h>

#include <QFutureWatcher>
#include <QObject>

#include <atomic>
#include <memory>

/// How large a file would be, by encoding it on another thread: the last question is always answered, those that
/// came while an answer was made only if none came behind them. GUI thread.
class HBSizeEstimate : public QObject
{
    Q_OBJECT
public:
    explicit HBSizeEstimate(const HBImage<>& image, QObject* parent = nullptr);
    /// Waits for nothing: what is being encoded is given up.
    ~HBSizeEstimate() override;

    /// \param path only its suffix counts
    void Ask(const QString& path, const HBPhotoOptions& options);
    bool IsBusy() const { return m_IsBusy; }

Q_SIGNALS:
    /// \param bytes -1 if it cannot be written
    void Known(qint64 bytes);

private:
    void Start();
    void Finish();

    const HBImage<> m_Image;
    QFutureWatcher<qint64> m_Watcher;
    std::shared_ptr<std::atomic<bool>> m_pWanted;
    QString m_Path;
    HBPhotoOptions m_Options;
    bool m_IsBusy = false;
    bool m_Again = false; ///< something was asked meanwhile
};
