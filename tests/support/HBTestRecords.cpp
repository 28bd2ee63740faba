// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestRecords.h"

#include "HBTestImages.h"

#include <QColor>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

void SetNumber(const HBFieldInfo& field, const HBAdjustment& adjustment, std::any& record, double value) {
    void* const data = adjustment.mutableData(record);
    if (field.get(data).userType() == QMetaType::Int)
        field.set(data, int(qBound(-2147483648.0, value, 2147483647.0)));
    else
        field.set(data, value);
}

} // namespace

QJsonObject HBDemonstrationStep(const HBAdjustment& adjustment) {
    QFile file(QString(SAMPLE_RECIPES "/%1.json").arg(adjustment.className));
    if (!file.open(QIODevice::ReadOnly)) qFatal("%s is missing", qPrintable(file.fileName()));
    QJsonObject step = QJsonDocument::fromJson(file.readAll()).object()["steps"].toArray()[0].toObject();
    step.remove("panel");
    // A stamp lies beside its recipe; tests have it built in, under a name that is the same on every machine.
    Q_INIT_RESOURCE(HBTestStamp);
    for (const HBFieldInfo& field : adjustment.fields) {
        if (!field.isFile) continue;
        std::any record;
        QString reason;
        if (!adjustment.restore(step, &record, &reason))
            qFatal("%s: %s", adjustment.className, qPrintable(reason));
        void* const data = adjustment.mutableData(record);
        field.set(data, ":/recipes/" + field.get(data).toString());
        step = adjustment.save(record);
    }
    return step;
}

std::any HBDemonstration(const HBAdjustment& adjustment) {
    std::any record;
    QString reason;
    if (!adjustment.restore(HBDemonstrationStep(adjustment), &record, &reason))
        qFatal("%s: %s", adjustment.className, qPrintable(reason));
    return record;
}

std::any HBHostileRecord(const HBAdjustment& adjustment, int which) {
    // JSON, as which plain values are stored, has no infinity.
    const double numbers[HBHostileRecords] = {-1e9, 1e9, adjustment.tag ? qQNaN() : -7.7,
                                              adjustment.tag ? qInf() : 0};
    std::any record = which & 1 ? HBDemonstration(adjustment) : adjustment.defaults();
    for (const HBFieldInfo& field : adjustment.fields) {
        void* const data = adjustment.mutableData(record);
        const QVariant value = field.get(data);
        if (field.type == HBFieldInfo::Number) {
            const bool isInt = value.userType() == QMetaType::Int;
            SetNumber(field, adjustment, record, isInt && which > 1 ? numbers[which - 2] * 3 : numbers[which]);
        } else if (field.type == HBFieldInfo::Choice) {
            field.set(data, which % 2 ? int(field.values.size()) : -1);
        } else if (value.userType() == QMetaType::QColor) {
            field.set(data, which % 2 ? QColor() : QColor(1, 2, 3, 4));
        }
    }
    return record;
}

std::any HBRandomRecord(const HBAdjustment& adjustment, QRandomGenerator& random) {
    std::any record = HBDemonstration(adjustment);
    for (const HBFieldInfo& field : adjustment.fields) {
        void* const data = adjustment.mutableData(record);
        const QVariant value = field.get(data);
        if (field.type == HBFieldInfo::Number) {
            const double width = field.range.maximum - field.range.minimum;
            double share = random.bounded(8) ? random.generateDouble() : 3 * random.generateDouble() - 1;
            if (field.key.startsWith("margins")) share = random.generateDouble() * 0.4; // more may leave no room
            SetNumber(field, adjustment, record, field.range.minimum + share * width);
        } else if (field.type == HBFieldInfo::Choice) {
            field.set(data, random.bounded(int(field.values.size())));
        } else if (value.userType() == QMetaType::Bool) {
            field.set(data, random.bounded(2) == 1);
        } else if (value.userType() == QMetaType::QColor) {
            field.set(data, QColor::fromRgba(random.generate()));
        }
    }
    return record;
}

HBTarget HBTestTarget(const QSize& size, bool selected) {
    HBTarget target;
    target.source = HBTestRamp(size.width(), size.height());
    if (!selected) return target;
    target.selection = HBTestMask(size.width(), size.height());
    target.offset = QPoint(size.width() > 8 ? 5 : 0, size.height() > 8 ? -6 : 0);
    target.bounds = QRect(QPoint(), size);
    return target;
}

HBOutcome HBRun(const HBAdjustment& adjustment, const std::any& record, const HBTarget& target,
                HBJobControl* control) {
    const auto stages = [&] { return adjustment.stages(record, target.bounds.isValid()); };
    return HBRunStages(target, std::cref(stages), control);
}
