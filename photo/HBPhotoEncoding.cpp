// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoEncoding.h"

#include "HBFileNumbers.h"
#include "HBPhotoCheck.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBPhotoEncoding)
};

void ReadJpeg(const QByteArray& file, HBPhotoEncoding* encoding)
{
    encoding->jpeg = HBReadJpegCoding(file);
    encoding->isForPrint = encoding->jpeg.components.size() == 4;
    constexpr int padding = 1024; // some cameras fill up the last block
    const int end = HBJpegEnd(file);
    encoding->hasAppendix = end >= 0 && file.size() - end > padding;
}

void ReadPng(const QByteArray& file, HBPhotoEncoding* encoding)
{
    const HBFileNumbers numbers(file, true);
    encoding->bitsPerChannel = qMax(8, int(numbers.At(24, 1)));
    for (qint64 chunk = 8; chunk + 12 <= file.size(); chunk += 12 + numbers.At(chunk, 4)) {
        const QByteArray name = file.mid(int(chunk) + 4, 4);
        if (name == "acTL")
            encoding->isAnimated = true;
        if (name == "IDAT")
            break;
    }
}

void ReadTiff(const QByteArray& file, HBPhotoEncoding* encoding)
{
    enum { ReducedCopy = 254, BitsPerSample = 258, ColorModel = 262, Layers = 37724 };
    const HBFileNumbers numbers(file, file.startsWith('M'));
    auto first = [&](qint64 directory, int tag) {
        const HBTiffField field = HBTiffField::Find(numbers, directory, tag);
        return field.count > 0 ? numbers.At(field.position, field.bytes) : 0;
    };
    qint64 directory = numbers.At(4, 4);
    encoding->bitsPerChannel = qMax(8, int(first(directory, BitsPerSample)));
    const qint64 model = first(directory, ColorModel);
    encoding->isForPrint = model == 5 || (model >= 8 && model <= 10);
    encoding->hasLayers = HBTiffField::Find(numbers, directory, Layers).count > 0;
    encoding->pages = 0;
    constexpr int enough = 1000; // and an end of directories that go round in a circle
    for (int i = 0; directory > 0 && i < enough; ++i) {
        if (i == 0 || !(first(directory, ReducedCopy) & 1))
            ++encoding->pages;
        directory = numbers.At(directory + 2 + 12 * numbers.At(directory, 2), 4);
    }
}

// ---- WebP ----

/// The boolean decoder of VP8 (RFC 6386, 7.3), for values that are as likely as not.
class Vp8Bits
{
public:
    Vp8Bits(const QByteArray& file, qint64 position) : m_Numbers(file, true), m_Position(position)
    {
        m_Value = quint32(m_Numbers.At(m_Position, 2));
        m_Position += 2;
    }

    bool Flag()
    {
        const quint32 split = 1 + (((m_Range - 1) * 128) >> 8);
        const bool flag = m_Value >= split << 8;
        if (flag) {
            m_Range -= split;
            m_Value -= split << 8;
        } else {
            m_Range = split;
        }
        while (m_Range < 128) {
            m_Range <<= 1;
            m_Value <<= 1;
            if (++m_Shifted == 8) {
                m_Shifted = 0;
                m_Value |= quint32(m_Numbers.At(m_Position++, 1));
            }
        }
        return flag;
    }

    int Number(int bits)
    {
        int number = 0;
        while (bits-- > 0)
            number = number << 1 | int(Flag());
        return number;
    }

    /// A flag that says whether there is one, the number and its sign.
    int SignedIfAny(int bits)
    {
        if (!Flag())
            return 0;
        const int number = Number(bits);
        return Flag() ? -number : number;
    }

private:
    HBFileNumbers m_Numbers;
    qint64 m_Position;
    quint32 m_Value = 0;
    quint32 m_Range = 255;
    int m_Shifted = 0;
};

/// The quality of a lossy frame, by the quantizers in its head (RFC 6386, 9.3 to 9.6).
int QualityOfVp8(const QByteArray& file, qint64 frame)
{
    Vp8Bits bits(file, frame + 10);
    bits.Number(2); // colour space, clamping
    int segments[4] = {};
    bool segmented = bits.Flag();
    bool absolute = false;
    if (segmented) {
        const bool newMap = bits.Flag();
        const bool newData = bits.Flag();
        if (newData) {
            absolute = bits.Flag();
            for (int& quantizer : segments)
                quantizer = bits.SignedIfAny(7);
            for (int i = 0; i < 4; ++i)
                bits.SignedIfAny(6); // of the loop filter
        }
        for (int i = 0; newMap && i < 3; ++i) {
            if (bits.Flag())
                bits.Number(8);
        }
        segmented = newData;
    }
    bits.Number(1 + 6 + 3); // loop filter: kind, level, sharpness
    if (bits.Flag() && bits.Flag()) {
        for (int i = 0; i < 8; ++i)
            bits.SignedIfAny(6); // its deltas
    }
    bits.Number(2); // partitions
    const int base = bits.Number(7);
    // libwebp spreads its four segments about the quality, more to the coarse side: the second finest is next to
    // it.
    std::sort(std::begin(segments), std::end(segments));
    const int quantizer = !segmented ? base : absolute ? segments[1] : base + segments[1];
    // libwebp takes the cube root of a quality that it has bent at three quarters.
    const double bent = std::pow(1 - qBound(0, quantizer, 127) / 127.0, 3);
    const double quality = bent < 0.5 ? bent * 1.5 : (bent + 1) / 2;
    return qBound(0, int(std::lround(100 * quality)), 99);
}

void ReadWebP(const QByteArray& file, HBPhotoEncoding* encoding)
{
    const HBFileNumbers numbers(file, false);
    for (qint64 chunk = 12; chunk + 8 <= file.size();) {
        const QByteArray name = file.mid(int(chunk), 4);
        if (name == "ANIM")
            encoding->isAnimated = true;
        if (name == "ANMF") { // the first frame: its own chunks follow
            chunk += 8 + 16;
            continue;
        }
        if (name == "VP8L" || name == "VP8 ") {
            encoding->webpQuality = name == "VP8L" ? 100 : QualityOfVp8(file, chunk + 8);
            break;
        }
        chunk += 8 + (numbers.At(chunk + 4, 4) + 1) / 2 * 2;
    }
}

} // namespace

HBPhotoEncoding HBReadEncoding(const QByteArray& file, const QByteArray& format)
{
    HBPhotoEncoding encoding;
    encoding.format = format;
    if (format == "jpeg")
        ReadJpeg(file, &encoding);
    else if (format == "png")
        ReadPng(file, &encoding);
    else if (format == "tiff")
        ReadTiff(file, &encoding);
    else if (format == "webp")
        ReadWebP(file, &encoding);
    return encoding;
}

QByteArray HBFormatOfName(const QString& path)
{
    const QByteArray suffix = QFileInfo(path).suffix().toLower().toLatin1();
    return suffix == "jpg" ? "jpeg" : suffix == "tif" ? "tiff" : suffix;
}

QStringList HBLossesOfSave(const HBPhotoEncoding& encoding, const QString& path)
{
    QStringList losses;
    const QByteArray format = HBFormatOfName(path);
    if (!encoding.format.isEmpty() && encoding.format != format) {
        losses.append(Text::tr("its format, which is %1 whatever its name says")
                          .arg(QString::fromLatin1(encoding.format.toUpper())));
    }
    if (encoding.bitsPerChannel > 8)
        losses.append(Text::tr("its %1 bits a channel, of which 8 stay").arg(encoding.bitsPerChannel));
    if (encoding.isForPrint)
        losses.append(Text::tr("its colors for print (CMYK or Lab), which become red, green and blue"));
    if (encoding.isAnimated)
        losses.append(Text::tr("its animation, of which the first picture stays"));
    else if (encoding.pages > 1)
        losses.append(Text::tr("its further pages (%1)").arg(encoding.pages - 1));
    if (encoding.hasLayers)
        losses.append(Text::tr("its layers"));
    if (encoding.lacksPixels)
        losses.append(Text::tr("what other programs may still find of the part that is missing here"));
    if (encoding.hasAppendix)
        losses.append(Text::tr("what is appended to the picture, such as a video"));
    return losses;
}
