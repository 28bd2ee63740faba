// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBChannelTables.h"

/// A white-balance correction that is ready to be applied: a pixel operation made of a table a channel, which
/// knows nothing of the picture that it was found in. Alpha is kept; the default is the identity.
class KMWBTransformation : public HBChannelTables
{
public:
    /// What is corrected. The numbers are part of stored records; any other changes nothing.
    enum BalanceFunction : int {
        AutoBalance = 0,   ///< a colour cast
        Overexposure = 1,  ///< too much light
        Underexposure = 2, ///< too little
    };
};
