// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>
#include <HBRecipe.h>

#include <QIODevice>
#include <QRandomGenerator>

// Records of any adjustment, made from what the table says of it.

/// What samples/recipes/<panel>.json sets: as it stands there, and loaded.
QJsonObject HBDemonstrationStep(const HBAdjustment& adjustment);
std::any HBDemonstration(const HBAdjustment& adjustment);

/// Number `which` of a few records with values far outside what any form allows; all kinds that a stream can
/// bring.
std::any HBHostileRecord(const HBAdjustment& adjustment, int which);
constexpr int HBHostileRecords = 4;

/// Numbers within their ranges, and now and then outside; choices, truth values and colours of any kind. What else
/// there is stays as in the demonstration.
std::any HBRandomRecord(const HBAdjustment& adjustment, QRandomGenerator& random);

/// A picture with a mask on a part of it, of which both reach beyond the picture if that is large enough.
HBTarget HBTestTarget(const QSize& size, bool selected);

inline HBRecipeStep HBStepOf(const HBAdjustment& adjustment, const std::any& record) {
    return {adjustment.className, adjustment.save(record)};
}

/// The adjustment's own outcome, without a recipe.
HBOutcome HBRun(const HBAdjustment& adjustment, const std::any& record, const HBTarget& target,
                HBJobControl* control = nullptr);

/// The stored form of a record, and back.
template <class Params>
Params HBLoad(const QByteArray& bytes) {
    Params params;
    QDataStream stream(bytes);
    params.Read(stream);
    return params;
}

template <class Params>
QByteArray HBStore(const Params& params) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    params.Write(stream);
    return bytes;
}
