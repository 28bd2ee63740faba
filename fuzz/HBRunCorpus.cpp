// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Where the compiler brings no fuzzer: runs the files and the files of the folders that it is given, once each;
// with "--mutate SECONDS SEED", variations of them too, which is no match for a fuzzer that sees what code it
// reaches, but finds what is easy to find, under any sanitizer.
#include "HBFuzz.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QVector>

#include <cstdio>
#include <cstring>

namespace {

QVector<QByteArray> inputs;

void Run(const QByteArray& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()), std::size_t(input.size()));
}

bool Read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    inputs.append(file.readAll());
    return true;
}

QByteArray Mutated(QRandomGenerator& random) {
    QByteArray bytes = inputs[random.bounded(inputs.size())];
    for (int i = 1 + random.bounded(4); i > 0; --i) {
        const int at = random.bounded(bytes.size() + 1), count = 1 + random.bounded(8);
        switch (random.bounded(6)) {
        case 0:
            bytes.truncate(at);
            break;
        case 1:
            bytes.insert(at, QByteArray(count, char(random.bounded(256))));
            break;
        case 2:
            bytes.remove(at, count);
            break;
        case 3:
            bytes.insert(at, inputs[random.bounded(inputs.size())].mid(random.bounded(64), count * 4));
            break;
        default: {
            static const char extremes[][5] = {"\0\0\0\0", "\377\377\377\377", "\177\377\377\377", "\200\0\0\0"};
            if (at + 4 <= bytes.size() && random.bounded(2))
                std::memcpy(bytes.data() + at, extremes[random.bounded(4)], 4);
            else if (at < bytes.size())
                bytes[at] = char(random.bounded(256));
        }
        }
    }
    return bytes.left(1 << 16);
}

} // namespace

int main(int argc, char** argv) {
    qint64 seconds = 0;
    quint32 seed = 0;
    QByteArray last = "last-input";
    LLVMFuzzerInitialize(&argc, &argv);
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--mutate") == 0 && i + 2 < argc) {
            seconds = std::atoll(argv[++i]);
            seed = quint32(std::atoll(argv[++i]));
        } else if (qstrcmp(argv[i], "--last") == 0 && i + 1 < argc) {
            last = argv[++i];
        } else if (!Read(argv[i])) {
            QDirIterator files(argv[i], QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext()) Read(files.next());
        }
    }
    if (inputs.isEmpty()) {
        std::fprintf(stderr, "usage: %s [--mutate SECONDS SEED [--last FILE]] FILE-OR-FOLDER...\n", argv[0]);
        return 2;
    }
    qint64 count = 0;
    for (const QByteArray& input : qAsConst(inputs)) Run(input), ++count;
    QRandomGenerator random(seed);
    QElapsedTimer time;
    for (time.start(); time.elapsed() < seconds * 1000; ++count) {
        const QByteArray input = Mutated(random);
        // Kept before it runs: it may be the last one.
        QFile file(last);
        if (file.open(QIODevice::WriteOnly)) file.write(input);
        file.close();
        Run(input);
    }
    QFile::remove(last);
    std::printf("%lld inputs, nothing wrong\n", static_cast<long long>(count));
    return 0;
}
