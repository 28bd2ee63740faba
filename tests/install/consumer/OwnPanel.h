// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustmentRow.h>
#include <HBAdjustmentWidget.h>
#include <HBPanelJob.h>
#include <HBRecordStream.h>

#include <QSlider>
#include <QVBoxLayout>

// An adjustment of the program's own and its panel, by what is installed: each channel becomes darker by a number.

struct DarkenParams {
    qint32 amount = 0;

    static constexpr char Tag[] = "Darken 1";
    bool Read(QDataStream& stream) { return HBReadTag(stream, Tag) && HBIsOk(stream >> amount); }
    bool Write(QDataStream& stream) const { return HBWriteTag(stream, Tag) && HBIsOk(stream << amount); }
    static constexpr auto Fields() {
        return std::make_tuple(HBNumber("amount", &DarkenParams::amount, {0, 255, 0, HBUnit::Levels}));
    }
};

inline HBStages HBStagesOf(const DarkenParams& params) {
    HBChannelTables tables;
    const int amount = HBClamped(params, &DarkenParams::amount);
    for (int level = 0; level < 256; ++level)
        tables.red[level] = tables.green[level] = tables.blue[level] = std::uint8_t(qMax(0, level - amount));
    return {HBStageOf(tables)};
}

class DarkenPanel : public HBAdjustmentWidget {
public:
    using Params = DarkenParams;

    DarkenPanel(bool dialog, QWidget* parent, Qt::WindowFlags flags)
        : HBAdjustmentWidget(dialog, parent, flags)
        , m_pSlider(new QSlider(Qt::Horizontal)) {
        m_pSlider->setRange(0, 255);
        (new QVBoxLayout(GetUIContent()))->addWidget(m_pSlider);
        connect(m_pSlider, &QSlider::valueChanged, this,
                [this](int amount) { Store(this, m_Params.amount, amount); });
    }
    Params GetValue() const { return m_Params; }
    void SetValue(const Params& params) {
        const Mute mute(this);
        const QSignalBlocker silent(m_pSlider);
        m_Params = params;
        m_pSlider->setValue(params.amount);
    }
    void ValueChanged() {}

private:
    struct Data : HBJobData {
        Params params;
    };
    void Reset() override { m_pSlider->setValue(Params().amount); }
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override {
        HBStartJob(watcher, &Process, Data{JobData(), m_Params});
    }
    static HBImage<> Process(Data job) { return HBRunJob(job, job.params); }

    QSlider* m_pSlider;
    Params m_Params;
};
