// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// The tables of HBSrgb.h for kernels of HBColorVectors-inl.h. Included once per instruction set.
#if defined(HB_SRGB_VECTORS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef HB_SRGB_VECTORS_INL_H
#undef HB_SRGB_VECTORS_INL_H
#else
#define HB_SRGB_VECTORS_INL_H
#endif

#include "HBColorVectors-inl.h"
#include "HBSrgb.h"

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

/// The light, 0..1, of whole levels.
template <class D>
HWY_INLINE hn::Vec<D> LightOf(D d, const HBSrgb::LevelTable& table, hn::Vec<D> levels)
{
    const hn::RebindToSigned<D> di;
    return hn::GatherIndex(d, table.light.data(), hn::ConvertTo(di, levels));
}

/// The levels of any light; what is outside 0..1 is clamped.
template <class D>
HWY_INLINE hn::Vec<D> ShadeOf(D d, const HBSrgb::ShadeTable& table, hn::Vec<D> light)
{
    const hn::RebindToSigned<D> di;
    const auto bounded = hn::Min(hn::Max(light, hn::Set(d, HBSrgb::ShadeTable::Least)), hn::Set(d, 1.0f));
    const auto step = hn::ShiftRight<HBSrgb::ShadeTable::Shift>(hn::BitCast(di, bounded));
    return hn::GatherIndex(d, table.level.data(), hn::Sub(step, hn::Set(di, HBSrgb::ShadeTable::First)));
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#endif
