// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>

/// A device that holds `limit` bytes: what is written beyond them fails, and so does what is read beyond them.
class HBFailingDevice : public QIODevice {
public:
    explicit HBFailingDevice(int limit, const QByteArray& bytes = {}) : m_Limit(limit), m_Bytes(bytes) {
        open(ReadWrite | Unbuffered);
    }

    const QByteArray& Bytes() const { return m_Bytes; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 count = qMin(size, qint64(qMin(m_Limit, m_Bytes.size()) - m_Position));
        if (count <= 0) return -1;
        memcpy(data, m_Bytes.constData() + m_Position, size_t(count));
        m_Position += int(count);
        return count;
    }
    qint64 writeData(const char* data, qint64 size) override {
        const qint64 count = qMin(size, qint64(m_Limit - m_Bytes.size()));
        if (count <= 0) return -1;
        m_Bytes.append(data, int(count));
        return count;
    }

private:
    const int m_Limit;
    QByteArray m_Bytes;
    int m_Position = 0;
};
