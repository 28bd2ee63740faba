// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

/// The picture with its colours in sRGB, and that as its profile; metadata and alpha stay. For programs that do
/// not look at profiles. Relative colorimetric with black point compensation; any thread.
/// \param profile what the pixels are in, as a rule the image's own; empty: sRGB already
/// \param reason why it came back as it was, if the profile cannot be used; else empty. May be null
/// \throws std::bad_alloc
HBImage<> HBConvertToSrgb(const HBImage<>& image, const KMCMSProfile& profile, QString* reason = nullptr);
