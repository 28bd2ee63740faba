// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOperation.h"

HBOperation HBOperationOf(const HBChannelTables& tables)
{
    const HBChannelTables same;
    if (tables.blue == same.blue && tables.green == same.green && tables.red == same.red)
        return {};
    return {std::make_shared<const HBChannelTables>(tables), nullptr};
}

HBOperation HBThen(const HBOperation& first, const HBOperation& second)
{
    if (first.IsIdentity())
        return second;
    if (second.IsIdentity())
        return first;
    if (first.tables && second.tables)
        return HBOperationOf(HBComposed(*first.tables, *second.tables));
    return {nullptr, [before = HBTileFunctionOf(first), after = HBTileFunctionOf(second)](HBTileAccess& tile) {
                before(tile);
                after(tile);
            }};
}

HBTileFunction HBTileFunctionOf(const HBOperation& operation)
{
    if (!operation.tables)
        return operation.transform;
    return HBTileFunctionOf(HBIterativeAdjustmentTransformation<HBChannelTables>(*operation.tables));
}
