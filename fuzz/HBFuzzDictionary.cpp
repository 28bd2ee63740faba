// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Prints, from what the fields say of themselves, a dictionary for a fuzzer (no argument), or writes the first
// inputs of the targets into folders: HBFuzzDictionary SEEDS-FOLDER.
#include "HBFuzz.h"
#include "HBTestRecords.h"

#include <QDir>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtEndian>

#include <cstdio>
#include <cstring>
#include <set>

namespace {

QByteArray Quoted(const QByteArray& bytes) {
    QByteArray text = "\"";
    for (const char c : bytes) {
        if (c > ' ' && c <= '~' && c != '"' && c != '\\')
            text += c;
        else
            text += "\\x" + QByteArray(1, c).toHex();
    }
    return text + '"';
}

QByteArray Bytes(std::initializer_list<int> numbers) {
    QByteArray bytes;
    for (const int number : numbers) bytes += char(number);
    return bytes;
}

void Add(std::set<QByteArray>* words, double number) {
    char bytes[8];
    qToBigEndian(qint32(qBound(-2147483648.0, number, 2147483647.0)), bytes);
    words->insert(QByteArray(bytes, 4));
    quint64 bits;
    std::memcpy(&bits, &number, 8);
    qToBigEndian(bits, bytes);
    words->insert(QByteArray(bytes, 8));
}

QByteArray BytesOf(const HBAdjustment& adjustment, const std::any& record) {
    const QJsonObject saved = adjustment.save(record);
    return adjustment.tag ? QByteArray::fromBase64(saved["record"].toString().toLatin1())
                          : QJsonDocument(saved["values"].toObject()).toJson(QJsonDocument::Compact);
}

void WriteSeeds(const QString& folder) {
    for (const char* target : {"record", "recipe", "gestures"}) QDir().mkpath(folder + '/' + target);
    QRandomGenerator random(1);
    HBRecipe all;
    for (int i = 0; i < HBAdjustments().size(); ++i) {
        const HBAdjustment& adjustment = HBAdjustments()[i];
        const std::any records[] = {adjustment.defaults(), HBDemonstration(adjustment),
                                    HBHostileRecord(adjustment, 1)};
        for (int k = 0; k < 3; ++k) {
            const QByteArray head = Bytes({i, 4 + k, k});
            const QByteArray selection = k ? QByteArray("\x02\xfe\x03\x01\x70\x60\x80\x80", 8) : QByteArray();
            HBFuzzWrite(QString("%1/record/%2-%3").arg(folder, adjustment.className).arg(k),
                        head + selection + BytesOf(adjustment, records[k]));
        }
        QByteArray gestures = Bytes({i, 1, 8, 0, 0, 4, 0});
        for (int k = 0; k < 12; ++k) gestures += Bytes({random.bounded(20), random.bounded(99), k * 20});
        HBFuzzWrite(QString("%1/gestures/%2").arg(folder, adjustment.className), gestures);
        all.steps += HBStepOf(adjustment, records[1]);
        HBFuzzWrite(QString("%1/recipe/%2").arg(folder, adjustment.className),
                    QByteArray("\4\0", 2) + HBRecipe{{all.steps.last()}}.ToJson());
    }
    all.steps.removeLast(); // the last two draw stamps and texts over everything
    all.steps.removeLast();
    HBFuzzWrite(folder + "/recipe/all", QByteArray("\3\0", 2) + all.ToJson());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc > 1) {
        WriteSeeds(argv[1]);
        return 0;
    }
    std::set<QByteArray> words;
    for (const char* word : {"format",   "adjustment-recipe",
                             "version",  "steps",
                             "panel",    "record",
                             "values",   "on",
                             "amount",   "selection",
                             "kind",     "rectangle",
                             "ellipse",  "polygon",
                             "gradient", "color",
                             "combine",  "add",
                             "subtract", "intersect",
                             "inverted", "rect",
                             "points",   "from",
                             "to",       "tolerance",
                             "feather"})
        words.insert('"' + QByteArray(word) + '"');
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        words.insert(adjustment.className);
        if (adjustment.tag) words.insert(adjustment.tag);
        for (const HBFieldInfo& field : adjustment.fields) {
            words.insert(field.key.toLatin1());
            if (field.type != HBFieldInfo::Number) continue;
            for (const double edge : {field.range.minimum, field.range.maximum}) {
                for (const double number : {edge - 1, edge, edge + 1}) Add(&words, number);
            }
        }
    }
    for (const QByteArray& word : words) std::printf("%s\n", Quoted(word).constData());
    return 0;
}
