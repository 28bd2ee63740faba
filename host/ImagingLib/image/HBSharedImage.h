// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QReadWriteLock>

/// An image (HBImage<> or QImage) with its own lock, for a panel that replaces it and a view that reads it on
/// another thread. Whoever uses `image` holds `lock`; copy the image out rather than work under the lock.
template <class Image>
struct HBSharedImage
{
    Image image;
    mutable QReadWriteLock lock;

    Image Get() const
    {
        const QReadLocker locker(&lock);
        return image;
    }
    void Set(const Image& value)
    {
        const QWriteLocker locker(&lock);
        image = value;
    }
};
