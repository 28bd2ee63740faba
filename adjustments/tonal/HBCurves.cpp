// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBCurves.h"

#include "HBRecordStream.h"

#include <HBIterativeCurvesTransformation.h>

#include <algorithm>

namespace
{

constexpr const char* Channels[] = {"all", "red", "green", "blue"};

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
        if (!HBIsOk(stream))
            return {};
        points.append(point);
    }
    return points;
}

} // namespace

HBCurvesParams::HBCurvesParams()
{
    for (QVector<QPoint>& list : points)
        list = Straight();
}

bool HBCurvesParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> channel;
    for (QVector<QPoint>& list : points)
        list = ReadPoints(stream);
    return HBIsOk(stream);
}

// The defaults, big endian: the 16 bytes of the tag; channel 0; four times: count 2, (0, 0), (255, 255).
bool HBCurvesParams::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << channel;
    for (const QVector<QPoint>& list : points)
        stream << list;
    return HBIsOk(stream);
}

QVector<QPoint> HBCurvesParams::Editable(const QVector<QPoint>& points)
{
    if (points.size() < 2 || points.size() > HBCurvesTransformation::MaxPoints)
        return Straight();
    QVector<QPoint> list = points;
    for (QPoint& point : list)
        point = QPoint(qBound(0, point.x(), 255), qBound(0, point.y(), 255));
    std::stable_sort(list.begin(), list.end(), [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
    return list;
}

HBStages HBStagesOf(const HBCurvesParams& params)
{
    QVector<QPoint> curves[4];
    std::transform(std::begin(params.points), std::end(params.points), curves, &HBCurvesParams::Editable);
    return {HBStageOf(HBIterativeCurvesTransformation(curves, 100))};
}

QVariant HBToVariant(const QVector<QPoint> (&points)[4])
{
    QVariantMap lists;
    for (int c = 0; c < 4; ++c) {
        QVariantList list;
        for (const QPoint& point : points[c])
            list.append(QVariant(QVariantList{point.x(), point.y()}));
        lists.insert(Channels[c], list);
    }
    return lists;
}

void HBFromVariant(const QVariant& variant, QVector<QPoint> (&points)[4])
{
    const QVariantMap lists = variant.toMap();
    for (int c = 0; c < 4; ++c) {
        const auto found = lists.find(Channels[c]);
        if (found == lists.end())
            continue;
        points[c].clear();
        for (const QVariant& entry : found->toList()) {
            const QVariantList numbers = entry.toList();
            points[c].append(QPoint(numbers.value(0).toInt(), numbers.value(1).toInt()));
        }
    }
}
