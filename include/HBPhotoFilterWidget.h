// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <QColor>

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class PhotoFilterWidget;
}

/// Photo filter: a coloured gel before the lens, from a list of presets or freely chosen.
class PANELS_EXPORT HBPhotoFilterWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    struct PhotoFilterData;

    /// Stored form: tag "KMPhotoFilter 1.00000", then the fields in their order. Written records exist: a new field needs
    /// a new tag.
    struct PANELS_EXPORT Params
    {
        QColor color = QColor("#EBB113");
        qint32 density = 50; ///< percent, 0..100; 0 does nothing

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBPhotoFilterWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBPhotoFilterWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    /// The job; on a thread of the pool.
    HBImage<> Process(PhotoFilterData job);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnColor();
    void OnCurrentColorChanged(const QColor& color);
    void OnDensityChanged(int density);
    void OnPresetChanged(int index);

private:
    void Connect();
    void Disconnect();
    void FillPresets();
    void SetColor(const QColor& color);
    void UpdatePresetIndex(const QColor& color);

    std::unique_ptr<Ui::PhotoFilterWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBPhotoFilterWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBPhotoFilterWidget::Params& params);
