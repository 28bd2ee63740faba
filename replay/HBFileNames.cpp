// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFileNames.h"

#include <QFile>

#include <filesystem>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

namespace
{

constexpr ushort FirstEscape = 0xdc80; // for the byte 0x80: ASCII is never invalid
constexpr ushort LastEscape = 0xdcff;

/// UTF-8 with escapes. Without a state: a character that is cut in two becomes escapes, which give the same bytes.
QString Decoded(const char* bytes, int length)
{
    QString text;
    for (int i = 0; i < length;) {
        const uchar first = uchar(bytes[i]);
        const int expected = first < 0x80 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
        const QByteArray character(bytes + i, qMin(expected, length - i));
        const QString decoded = QString::fromUtf8(character);
        const bool valid = decoded.toUtf8() == character;
        text += valid ? decoded : QString(QChar(FirstEscape - 0x80 + first));
        i += valid ? int(character.size()) : 1;
    }
    return text;
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

constexpr int MibOfUtf8 = 106;

class FileNameCodec : public QTextCodec
{
public:
    QByteArray name() const override { return "adjustment-panels-file-names"; }
    int mibEnum() const override { return -1; } // it has no registered number

protected:
    QString convertToUnicode(const char* bytes, int length, ConverterState*) const override
    {
        return Decoded(bytes, length);
    }

    QByteArray convertFromUnicode(const QChar* characters, int length, ConverterState*) const override
    {
        QByteArray bytes;
        for (int i = 0; i < length; ++i) {
            const ushort unit = characters[i].unicode();
            if (characters[i].isHighSurrogate() && i + 1 < length && characters[i + 1].isLowSurrogate())
                bytes += QString(characters + i++, 2).toUtf8();
            else if (unit >= FirstEscape && unit <= LastEscape)
                bytes += char(unit - FirstEscape + 0x80);
            else
                bytes += QString(characters[i]).toUtf8();
        }
        return bytes;
    }
};

#endif

/// Not so what makes a name look like another one: marks that turn the direction of the text, among others.
bool IsHarmless(QChar character)
{
    const ushort unit = character.unicode();
    const bool turnsText = (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069);
    const QChar::Category category = character.category();
    return !turnsText && category != QChar::Other_Control && category != QChar::Other_Surrogate &&
           category != QChar::Separator_Line && category != QChar::Separator_Paragraph;
}

} // namespace

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

void HBKeepAllFileNames()
{
    if (QTextCodec::codecForLocale()->mibEnum() == MibOfUtf8)
        QTextCodec::setCodecForLocale(new FileNameCodec); // Qt deletes it
}

QString HBDecodedFileName(const QByteArray& bytes)
{
    return QFile::decodeName(bytes);
}

QStringList HBNamesUnknownToQt(const QString&)
{
    return {};
}

#else

void HBKeepAllFileNames() {}

QString HBDecodedFileName(const QByteArray& bytes)
{
    return Decoded(bytes.constData(), int(bytes.size()));
}

QStringList HBNamesUnknownToQt(const QString& folder)
{
    QStringList names;
    std::error_code problem;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).constData(), problem);
    for (; !problem && entry != std::filesystem::directory_iterator(); entry.increment(problem)) {
        const QString name = HBDecodedFileName(QByteArray::fromStdString(entry->path().filename().string()));
        std::error_code unknown;
        if (!HBIsFileName(name))
            names.append(entry->is_directory(unknown) ? name + '/' : name);
    }
    return names;
}

#endif

bool HBIsFileName(const QString& path)
{
    return QFile::decodeName(QFile::encodeName(path)) == path;
}

QString HBShownOnTerminal(const QString& text)
{
    QString shown;
    for (int i = 0; i < text.size(); ++i) {
        const ushort unit = text[i].unicode();
        const auto code = [unit](const char* form, int digits, int escape) {
            return QString(form).arg(unit - escape, digits, 16, QLatin1Char('0'));
        };
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            shown += text.mid(i++, 2);
        else if (IsHarmless(text[i]))
            shown += text[i];
        else if (unit == '\n')
            shown += QLatin1String("\\n");
        else if (unit >= FirstEscape && unit <= LastEscape)
            shown += code("\\x%1", 2, FirstEscape - 0x80);
        else
            shown += unit < 0x100 ? code("\\x%1", 2, 0) : code("\\u%1", 4, 0);
    }
    return shown;
}
