// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRepeatedKey.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <vector>

namespace
{

constexpr std::size_t MaximumDepth = 1024; ///< Qt's own: it refuses what is deeper

/// \return the index of the quote that ends the string that begins at `begin`; the size if none does
int EndOfString(const QByteArray& json, int begin)
{
    int at = begin + 1;
    while (at < json.size() && json[at] != '"')
        at += json[at] == '\\' ? 2 : 1;
    return qMin(at, json.size());
}

bool IsKey(const QByteArray& json, int behind)
{
    const auto isSpace = [](char byte) { return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n'; };
    while (behind < json.size() && isSpace(json[behind]))
        ++behind;
    return behind < json.size() && json[behind] == ':';
}

QByteArray Unescaped(const QByteArray& text)
{
    if (!text.contains('\\'))
        return text;
    return QJsonDocument::fromJson("[\"" + text + "\"]").array().at(0).toString().toUtf8();
}

} // namespace

bool HBHasRepeatedKey(const QByteArray& json, QByteArray* key)
{
    std::vector<QSet<QByteArray>> levels; // an array's stays empty
    for (int at = 0; at < json.size(); ++at) {
        const char byte = json[at];
        if (byte == '{' || byte == '[') {
            if (levels.size() == MaximumDepth)
                return false;
            levels.emplace_back();
        } else if ((byte == '}' || byte == ']') && !levels.empty()) {
            levels.pop_back();
        } else if (byte == '"') {
            const int begin = at + 1;
            at = EndOfString(json, at);
            if (levels.empty() || !IsKey(json, at + 1))
                continue;
            *key = Unescaped(json.mid(begin, at - begin));
            if (levels.back().contains(*key))
                return true;
            levels.back().insert(*key);
        }
    }
    return false;
}
