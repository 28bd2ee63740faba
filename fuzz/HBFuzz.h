// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>

// What the fuzz targets share. Each target is one program: with Clang's -fsanitize=fuzzer it looks for new inputs,
// otherwise it runs the files that it is given (HBRunCorpus.cpp).

/// One input of the target; what it finds wrong ends the process through HBFuzzFail.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

/// Says what is wrong, and aborts: that is how a fuzzer learns of it.
[[noreturn]] void HBFuzzFail(const QString& what);
inline void HBFuzzCheck(bool right, const QString& what) {
    if (!right) HBFuzzFail(what);
}

/// The first bytes of an input, which choose what is done with the rest. After the end all is 0.
class HBFuzzInput {
public:
    HBFuzzInput(const std::uint8_t* data, std::size_t size)
        : m_Bytes(QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size))) {}

    bool IsAtEnd() const { return m_At >= m_Bytes.size(); }
    int Byte() { return IsAtEnd() ? 0 : std::uint8_t(m_Bytes[m_At++]); }
    int Signed() { return std::int8_t(Byte()); }
    /// 0 .. count − 1
    int Below(int count) { return count > 0 ? Byte() % count : 0; }
    QByteArray Rest() const { return m_Bytes.mid(m_At); }

private:
    const QByteArray m_Bytes;
    int m_At = 0;
};

/// A small picture of an awkward size, and one of several selections, hostile ones among them: beside the picture,
/// smaller than its bounds, without a mask.
HBTarget HBFuzzTarget(HBFuzzInput* input);

/// Every pixel that the selection cannot reach is as it was.
bool HBKeepsOutside(const HBTarget& target, const HBImage<>& result);

/// The step as one that stores a record takes it, made of raw bytes; one of plain values takes the bytes as JSON.
QJsonObject HBFuzzStep(const HBAdjustment& adjustment, const QByteArray& bytes);

/// Works events off until it is so; false if that never comes. Patience is counted in turns, not in seconds: on a
/// busy machine what is waited for takes as much longer as they do.
bool HBComesTrue(const std::function<bool()>& isSo);

/// Ends the process if the file cannot be written.
void HBFuzzWrite(const QString& path, const QByteArray& bytes);
/// The process' own folder below TMPDIR, removed at its end.
QString HBFuzzFolder();
