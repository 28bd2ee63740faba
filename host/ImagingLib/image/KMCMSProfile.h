// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The colour profile that travels with an image: the bytes of an ICC profile, or nothing (then sRGB is meant).
/// The imaging library carries it along and never converts by it.
class KMCMSProfile
{
public:
    KMCMSProfile() = default;
    explicit KMCMSProfile(const QByteArray& icc) : m_Icc(icc) {}

    bool IsEmpty() const { return m_Icc.isEmpty(); }
    const QByteArray& Icc() const { return m_Icc; }

    friend bool operator==(const KMCMSProfile& a, const KMCMSProfile& b) { return a.m_Icc == b.m_Icc; }
    friend bool operator!=(const KMCMSProfile& a, const KMCMSProfile& b) { return !(a == b); }

private:
    QByteArray m_Icc;
};
