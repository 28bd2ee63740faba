// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBAdjustmentProcessingTemplate.h>
#include <HBChannelTables.h>
#include <HBIterativeAdjustmentTransformation.h>
#include <HBTileWalk.h>

#include <memory>
#include <type_traits>
#include <utility>

/// What an adjustment does to a tile, with everything derived that can be derived before the first one. Copyable;
/// by default the identity. If each channel depends on itself alone it is nothing but tables, which can be put
/// together with those before and after.
struct HBOperation
{
    std::shared_ptr<const HBChannelTables> tables;
    HBTileFunction transform; ///< unless there are tables

    bool IsIdentity() const { return !tables && !transform; }
};

/// Both, one after the other; tables become one table.
HB_ADJUSTMENTS_EXPORT HBOperation HBThen(const HBOperation& first, const HBOperation& second);

/// The operation as a function of a tile; null for the identity.
HB_ADJUSTMENTS_EXPORT HBTileFunction HBTileFunctionOf(const HBOperation& operation);

/// The identity if the tables change nothing.
HB_ADJUSTMENTS_EXPORT HBOperation HBOperationOf(const HBChannelTables& tables);

template <class Transformation, class = void>
struct HBIsTransformation : std::false_type
{
};
template <class Transformation>
struct HBIsTransformation<Transformation, std::void_t<decltype(&Transformation::SetProcessingBuffer)>>
    : std::true_type
{
};
template <class Transformation, class = void>
struct HBHasOperation : std::false_type
{
};
template <class Transformation>
struct HBHasOperation<Transformation, std::void_t<decltype(std::declval<Transformation>().Operation())>>
    : std::true_type
{
};

/// An operation from a pixel operation (see HBIterativeAdjustmentTransformation) or a transformation of tiles.
template <class Transformation>
HBOperation HBOperationOf(const Transformation& transformation)
{
    if constexpr (std::is_base_of_v<HBChannelTables, Transformation>)
        return HBOperationOf(static_cast<const HBChannelTables&>(transformation));
    else if constexpr (HBHasOperation<Transformation>::value)
        return HBOperationOf(transformation.Operation());
    else if constexpr (HBIsTransformation<Transformation>::value)
        return {nullptr, HBTileFunctionOf<Transformation>(transformation)};
    else
        return {nullptr, HBTileFunctionOf(HBIterativeAdjustmentTransformation<Transformation>(transformation))};
}
