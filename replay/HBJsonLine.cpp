// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJsonLine.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

constexpr ushort Mark = 1; // a control character, which Qt writes as \u0001

/// Qt writes a lone surrogate as a question mark: it, and the mark itself, become the mark, "u" and four digits.
QString Marked(const QString& text)
{
    QString marked;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            marked += text.mid(i++, 2);
        else if (text[i].isSurrogate() || text[i].unicode() == Mark)
            marked += QChar(Mark) + QString("u%1").arg(text[i].unicode(), 4, 16, QLatin1Char('0'));
        else
            marked += text[i];
    }
    return marked;
}

QJsonValue Marked(const QJsonValue& value)
{
    if (value.isString())
        return Marked(value.toString());
    if (value.isArray()) {
        QJsonArray array;
        for (const auto& entry : value.toArray())
            array.append(Marked(QJsonValue(entry)));
        return array;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (auto entry = object.begin(); entry != object.end(); ++entry)
            *entry = Marked(QJsonValue(*entry));
        return object;
    }
    return value;
}

} // namespace

QByteArray HBJsonLine(const QJsonObject& object)
{
    const QByteArray written = QJsonDocument(Marked(QJsonValue(object)).toObject()).toJson(QJsonDocument::Compact);
    QByteArray line;
    for (int i = 0; i < written.size(); ++i) {
        if (written[i] != '\\') {
            line += written[i];
        } else if (written.mid(i, 7) == "\\u0001u") {
            line += "\\u";
            i += 6;
        } else { // an escape of two characters: its second may be a backslash
            line += written.mid(i++, 2);
        }
    }
    return line + '\n';
}
