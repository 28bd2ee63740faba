// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFile.h"

#include "HBConvertToSrgb.h"
#include "HBPhotoDecoder.h"
#include "HBPhotoMetadata.h"
#include "HBPhotoText.h"
#include "HBPictureRows.h"
#include "HBPngFile.h"
#include "HBStraightRead.h"
#include "HBTiffFile.h"

#include <HBColorTransform.h>
#include <HBQtImage.h>
#include <HBSaveFile.h>
#include <KMImageFileManager.h>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include <exception>
#include <new>
#include <utility>

namespace
{

/// Takes no memory: neither a translation nor the name of the file.
QString OutOfMemory()
{
    return QStringLiteral("there is not enough memory");
}

/// Runs a step that reports its failure, or throws it.
template <class Step>
bool RunNamed(const QString& path, QString* error, Step step)
try {
    QString reason;
    try {
        if (step(&reason))
            return true;
    } catch (const std::bad_alloc&) {
        reason = HBPhotoText::tr("there is not enough memory for it");
    } catch (const std::exception& problem) {
        reason = QString::fromLocal8Bit(problem.what());
    }
    *error = path + ": " + reason;
    return false;
} catch (const std::bad_alloc&) {
    *error = OutOfMemory();
    return false;
}

// ---- Reading ----

bool ReadBytes(const QString& path, QByteArray* bytes, QString* reason)
{
    const QFileInfo info(path);
    if (!info.exists())
        return HBFail(reason, HBPhotoText::tr("there is no such file"));
    if (!info.isFile())
        return HBFail(reason, HBPhotoText::tr("this is not a file")); // a device could be read for ever
    if (info.size() == 0) // also one of the kernel's, which says so and could be read for ever
        return HBFail(reason, HBPhotoText::tr("the file is empty"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return HBFail(reason, file.errorString());
    if (file.size() > qMin(HBLargestPicture(), qint64(0x7fff0000))) // the most that a QByteArray can hold
        return HBFail(reason, HBPhotoText::tr("the file is too large"));
    *bytes = file.readAll();
    return file.error() == QFile::NoError || HBFail(reason, file.errorString());
}

// ---- Writing ----

bool HasTransparency(const QString& suffix)
{
    return suffix == "png" || suffix == "webp" || suffix == "tif" || suffix == "tiff";
}

/// The longest side that the format can store; QImage's own limit for those that have none.
int LongestSide(const QString& suffix)
{
    if (suffix == "jpg" || suffix == "jpeg")
        return 65500;
    return suffix == "webp" ? 16383 : 0x7fffff;
}

bool Encode(HBPictureRows& rows, const QString& suffix, const HBPhotoOptions& options, QByteArray* bytes,
            QString* reason)
{
    const bool overSame = options.encoding.format == HBFormatOfName("." + suffix);
    if (suffix == "jpg" || suffix == "jpeg")
        return HBWriteJpeg(rows, overSame ? options.encoding.jpeg : HBJpegCoding(),
                           {options.quality, options.chroma}, bytes, reason);
    if (suffix == "png")
        return HBWritePng(rows, bytes, reason);
    if (suffix == "tif" || suffix == "tiff")
        return HBWriteTiff(rows, bytes, reason);
    const QImage whole = rows.Whole();
    HBCheckMemory();
    QBuffer buffer(bytes);
    QImageWriter writer(&buffer, suffix.toLatin1());
    if (suffix == "webp")
        writer.setQuality(qBound(0, overSame ? options.encoding.webpQuality : options.quality, 100));
    return writer.write(whole) || HBFail(reason, writer.errorString());
}

/// What the file shall hold besides the pixels; makes these grey where the profile is one for grey.
HBPhotoMetadata MetadataFor(const HBImage<>& image, HBPictureRows* rows, QStringList* warnings)
{
    HBPhotoMetadata metadata;
    for (const KMEXIFElement* element : image.Elements())
        metadata.elements.append(*element);
    metadata.profile = image.Profile();
    if (HBProfileModel(metadata.profile.Icc()) == "GRAY") {
        if (rows->IsGrey()) {
            rows->MakeGrey();
        } else {
            metadata.profile = KMCMSProfile(HBRgbProfileOfGrey(metadata.profile.Icc()));
            if (metadata.profile.IsEmpty())
                warnings->append(
                    HBPhotoText::tr("the picture is no longer gray; its profile for gray was left out"));
        }
    }
    return metadata;
}

/// With the metadata put in.
bool EncodeWhole(const QString& path, const HBImage<>& picture, const HBPhotoOptions& options, QByteArray* bytes,
                 QStringList* warnings, QString* reason)
{
    QStringList unheard;
    QStringList* told = warnings ? warnings : &unheard;
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (!HBCanWritePhoto(path))
        return HBFail(reason, HBPhotoText::tr("pictures cannot be written in the format \"%1\"").arg(suffix));
    if (picture.IsEmpty())
        return HBFail(reason, HBPhotoText::tr("there is no picture to write"));
    QString unconverted;
    const HBImage<> image =
        options.convertToSrgb ? HBConvertToSrgb(picture, picture.Profile(), &unconverted) : picture;
    if (!unconverted.isEmpty())
        told->append(unconverted);
    const QSize size(image.Width(), image.Height());
    if (qMax(size.width(), size.height()) > LongestSide(suffix)) {
        return HBFail(
            reason,
            HBPhotoText::tr("%1 x %2 pixels are too many for this format").arg(size.width()).arg(size.height()));
    }
    HBPictureRows rows(image, HasTransparency(suffix), options.isWanted);
    const HBPhotoMetadata metadata = MetadataFor(image, &rows, told);
    const bool done = Encode(rows, suffix, options, bytes, reason);
    if (options.isWanted && !options.isWanted())
        return HBFail(reason, HBPhotoText::tr("it was given up"));
    if (!done)
        return false;
    *bytes = HBEmbedMetadata(std::move(*bytes), metadata, size, told);
    return true;
}

} // namespace

bool HBCanWritePhoto(const QString& path)
{
    return KMImageFileManager::SuffixesForWrite().contains(QFileInfo(path).suffix().toLower());
}

bool HBTakesQuality(const QString& path)
{
    const QByteArray format = HBFormatOfName(path);
    return format == "jpeg" || format == "webp";
}

bool HBReadPhoto(const QString& path, HBPhoto* photo, QString* error, const std::function<bool()>& isWanted,
                 HBCutShort cutShort)
{
    return RunNamed(path, error, [&](QString* reason) {
        QByteArray bytes;
        HBPhoto read;
        if (!ReadBytes(path, &bytes, reason) || !HBDecodePhoto(bytes, isWanted, cutShort, &read, reason))
            return false;
        *photo = read;
        return true;
    });
}

QSize HBPhotoSize(const QString& path)
try {
    const QFileInfo info(path);
    if (!info.isFile() || info.size() == 0)
        return {};
    return HBSizeInHead(path);
} catch (const std::bad_alloc&) {
    return {}; // whoever reads it will be told why
}

bool HBWritePhoto(const QString& path, const HBImage<>& image, const HBPhotoOptions& options, QString* error,
                  QStringList* warnings, HBPhotoEncoding* written)
{
    return RunNamed(path, error, [&](QString* reason) {
        QByteArray bytes;
        if (!EncodeWhole(path, image, options, &bytes, warnings, reason))
            return false;
        if (options.mayWrite && !options.mayWrite(bytes))
            return HBFail(reason, HBPhotoText::tr("it was given up"));
        // Before the file is there: nothing may fail behind that.
        const HBPhotoEncoding encoding = written ? HBReadEncoding(bytes, HBFormatOfName(path)) : HBPhotoEncoding();
        if (!HBSaveFile(path, bytes, reason))
            return false;
        if (written)
            *written = encoding;
        return true;
    });
}

bool HBEncodePhoto(const QString& path, const HBImage<>& image, const HBPhotoOptions& options, QByteArray* file,
                   QString* error, QStringList* warnings)
{
    return RunNamed(path, error,
                    [&](QString* reason) { return EncodeWhole(path, image, options, file, warnings, reason); });
}
