// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFile.h"

#include "HBPhotoCheck.h"
#include "HBPhotoMetadata.h"
#include "HBTiffReader.h"

#include <HBSaveFile.h>
#include <KMImageFileManager.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QScopeGuard>

#include <exception>
#include <mutex>
#include <new>
#include <unistd.h>

namespace
{

constexpr int DotsPerMetreUnknown = 2835; // 72 dots per inch

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBPhotoFile)
};

bool Fail(QString* reason, const QString& text)
{
    *reason = text;
    return false;
}

/// Runs a step that reports its failure, or throws it.
template <class Step>
bool RunNamed(const QString& path, QString* error, Step step)
{
    QString reason;
    try {
        if (step(&reason))
            return true;
    } catch (const std::bad_alloc&) {
        reason = Text::tr("there is not enough memory for it");
    } catch (const std::exception& problem) {
        reason = QString::fromLocal8Bit(problem.what());
    }
    *error = path + ": " + reason;
    return false;
}

// ---- Reading ----

/// What one picture may take: two copies of it are in memory while it is read or written.
qint64 LargestPicture()
{
    static const qint64 bytes = qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE) / 2;
    return bytes;
}

bool ReadBytes(const QString& path, QByteArray* bytes, QString* reason)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Fail(reason, Text::tr("there is no such file"));
    if (!info.isFile())
        return Fail(reason, Text::tr("this is not a file")); // a device could be read for ever
    if (info.size() == 0) // also one of the kernel's, which says so and could be read for ever
        return Fail(reason, Text::tr("the file is empty"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(reason, file.errorString());
    if (file.size() > qMin(LargestPicture(), qint64(0x7fff0000))) // the most that a QByteArray can hold
        return Fail(reason, Text::tr("the file is too large"));
    *bytes = file.readAll();
    return file.error() == QFile::NoError || Fail(reason, file.errorString());
}

bool CheckSize(const QSize& size, QString* reason)
{
    if (size.isValid() && size.isEmpty())
        return Fail(reason, Text::tr("the picture has no pixels"));
    constexpr int bytesPerPixel = 8; // of the deepest formats
    if (size.isValid() && qint64(size.width()) * size.height() > LargestPicture() / bytesPerPixel) {
        return Fail(reason, Text::tr("%1 x %2 pixels are too many for this machine's memory")
                                .arg(size.width())
                                .arg(size.height()));
    }
    return true;
}

/// Collects what Qt's decoders remark on this thread while it lives, as about damaged data: they only log it,
/// without the file's name.
class Remarks
{
public:
    Remarks()
    {
        static std::once_flag once;
        std::call_once(once, [] {
            otherMessages = qInstallMessageHandler(Keep);
            HBLogTiffMessages();
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
            QImageReader::setAllocationLimit(0); // CheckSize() knows the machine
#endif
        });
        kept = &m_Kept;
    }
    ~Remarks()
    {
        kept = nullptr;
    }
    Q_DISABLE_COPY(Remarks)

    void AddTo(QStringList* warnings) const
    {
        for (const QString& remark : m_Kept.mid(0, 3))
            warnings->append(Text::tr("the decoder remarks: %1").arg(remark));
    }

private:
    static void Keep(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        const bool remark = type == QtWarningMsg || type == QtInfoMsg; // Qt 6's PNG decoder only informs
        if (!kept || !remark)
            otherMessages(type, context, text);
        else if (!kept->contains(text))
            kept->append(text);
    }

    static thread_local QStringList* kept;
    static QtMessageHandler otherMessages;
    QStringList m_Kept;
};

thread_local QStringList* Remarks::kept = nullptr;
QtMessageHandler Remarks::otherMessages = nullptr;

/// The first picture, as it lies in the file.
bool ReadPixels(const QByteArray& bytes, QImageReader* reader, QImage* image)
{
    if (reader->format() == "tiff")
        *image = HBReadStraightTiff(bytes);
    return !image->isNull() || (reader->read(image) && !image->isNull());
}

bool Decode(QByteArray bytes, QImage* image, HBPhoto* photo, QString* reason)
{
    if (!HBIsWholeFile(bytes))
        return Fail(reason, Text::tr("the file is cut short"));
    const Remarks remarks; // also about the head, which is read more than once
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false); // it knows the orientation of some formats only
    photo->format = reader.format();
    // Qt also draws drawings and reads icons.
    if (!reader.canRead() || !KMImageFileManager::SuffixesForRead().contains(QString::fromLatin1(photo->format)))
        return Fail(reason, Text::tr("this is not a photo of a known format"));
    const int pages = reader.imageCount(); // before size(), which leaves the TIFF reader where it finds no pages
    if (!CheckSize(reader.size(), reason))
        return false;
    HBPhotoEncoding encoding = HBReadEncoding(bytes, photo->format);
    encoding.pages = qMax(encoding.pages, pages);
    encoding.isAnimated |= encoding.pages > 1 && reader.supportsAnimation();
    const bool read = ReadPixels(bytes, &reader, image);
    remarks.AddTo(&photo->warnings);
    if (!read)
        return Fail(reason, Text::tr("the picture cannot be read (%1)").arg(reader.errorString()));
    if (encoding.pages > 1)
        photo->warnings.append(Text::tr("only the first of %1 pages is read").arg(encoding.pages));
    if (image->depth() == 64 || image->format() == QImage::Format_Grayscale16) {
        photo->warnings.append(Text::tr("16 bits a channel are reduced to 8"));
        encoding.bitsPerChannel = qMax(16, encoding.bitsPerChannel);
    }
    photo->encoding = encoding;
    return true;
}

/// Turns and mirrors a picture that lies as `orientation` says (EXIF 2.32, tag 0x0112).
QImage Upright(const QImage& image, int orientation)
{
    const QTransform clockwise = QTransform().rotate(90);
    const QTransform anticlockwise = QTransform().rotate(-90);
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.mirrored(true, true);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.mirrored(true, false).transformed(anticlockwise);
    case 6:
        return image.transformed(clockwise);
    case 7:
        return image.mirrored(true, false).transformed(clockwise);
    case 8:
        return image.transformed(anticlockwise);
    default:
        return image;
    }
}

/// The profile if it fits the pixels, which always are red, green and blue: one for CMYK would spoil them.
KMCMSProfile FittingProfile(const KMCMSProfile& profile, QStringList* warnings)
{
    const QByteArray model = profile.Icc().mid(16, 4); // ICC.1:2022, 7.2.6
    if (profile.IsEmpty() || model == "RGB " || model == "GRAY")
        return profile;
    warnings->append(Text::tr("its colour profile is not one for RGB and was left out"));
    return {};
}

HBImage<> WithMetadata(const QImage& pixels, const HBPhotoMetadata& metadata, QStringList* warnings)
{
    HBImage<> image = HBImage<>::FromQImage(Upright(pixels, metadata.orientation));
    for (const KMEXIFElement& element : metadata.elements)
        image.AddElement(new KMEXIFElement(element));
    image.SetProfile(FittingProfile(metadata.profile, warnings));
    const bool known = metadata.dotsPerMetre > 0;
    image.SetHostValue(0, known ? metadata.dotsPerMetre : pixels.dotsPerMeterX());
    image.SetHostValue(1, known ? metadata.dotsPerMetre : pixels.dotsPerMeterY());
    return image;
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

bool IsOpaque(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb all = 0xff000000;
        for (int x = 0; x < image.width(); ++x)
            all &= line[x];
        if (all != 0xff000000)
            return false;
    }
    return true;
}

/// The pixels as the format stores them: without an alpha channel unless it says something.
QImage PixelsFor(const QString& suffix, const HBImage<>& image)
{
    QImage pixels = image.ToQImage();
    if (pixels.isNull())
        throw std::bad_alloc();
    if (IsOpaque(pixels)) {
        pixels.reinterpretAsFormat(QImage::Format_RGB32);
    } else if (!HasTransparency(suffix)) {
        QImage onWhite(pixels.size(), QImage::Format_RGB32);
        onWhite.fill(Qt::white);
        QPainter(&onWhite).drawImage(0, 0, pixels);
        pixels = onWhite;
    }
    auto dots = [&](int which) {
        return image.HostValue(which) > 0 ? image.HostValue(which) : DotsPerMetreUnknown;
    };
    pixels.setDotsPerMeterX(dots(0));
    pixels.setDotsPerMeterY(dots(1));
    return pixels;
}

bool Encode(const QImage& pixels, const QString& suffix, const HBPhotoOptions& options, QByteArray* bytes,
            QString* reason)
{
    if (qMax(pixels.width(), pixels.height()) > LongestSide(suffix)) {
        return Fail(
            reason,
            Text::tr("%1 x %2 pixels are too many for this format").arg(pixels.width()).arg(pixels.height()));
    }
    const bool overSame = options.encoding.format == HBFormatOfName("." + suffix);
    if (suffix == "jpg" || suffix == "jpeg") {
        return HBWriteJpeg(pixels, overSame ? options.encoding.jpeg : HBJpegCoding(), options.quality, bytes,
                           reason);
    }
    QBuffer buffer(bytes);
    QImageWriter writer(&buffer, suffix.toLatin1());
    if (suffix == "webp") // for PNG it would mean "do not compress"
        writer.setQuality(qBound(0, overSame ? options.encoding.webpQuality : options.quality, 100));
    return writer.write(pixels) || Fail(reason, writer.errorString());
}

/// What the file shall hold besides the pixels; makes these grey where the profile is one for grey.
HBPhotoMetadata MetadataFor(const HBImage<>& image, QImage* pixels, QStringList* warnings)
{
    HBPhotoMetadata metadata;
    for (const KMEXIFElement* element : image.Elements())
        metadata.elements.append(*element);
    metadata.profile = image.Profile();
    if (metadata.profile.Icc().mid(16, 4) == "GRAY") {
        if (!pixels->hasAlphaChannel() && pixels->allGray()) {
            *pixels = pixels->convertToFormat(QImage::Format_Grayscale8);
        } else {
            metadata.profile = KMCMSProfile();
            warnings->append(Text::tr("the picture is no longer grey; its profile for grey was left out"));
        }
    }
    return metadata;
}

} // namespace

bool HBReadPhoto(const QString& path, HBPhoto* photo, QString* error)
{
    return RunNamed(path, error, [&](QString* reason) {
        QByteArray bytes;
        QImage pixels;
        HBPhoto read;
        if (!ReadBytes(path, &bytes, reason) || !Decode(bytes, &pixels, &read, reason))
            return false;
        const HBPhotoMetadata metadata = HBReadMetadata(bytes, &read.warnings);
        read.image = WithMetadata(pixels, metadata, &read.warnings);
        *photo = read;
        return true;
    });
}

QSize HBPhotoSize(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() == 0)
        return {};
    const Remarks untold; // HBReadPhoto() tells them
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.size();
}

bool HBWritePhoto(const QString& path, const HBImage<>& image, const HBPhotoOptions& options, QString* error,
                  QStringList* warnings, HBPhotoEncoding* written)
{
    QStringList unheard;
    QStringList* told = warnings ? warnings : &unheard;
    return RunNamed(path, error, [&](QString* reason) {
        const QString suffix = QFileInfo(path).suffix().toLower();
        if (!KMImageFileManager::SuffixesForWrite().contains(suffix))
            return Fail(reason, Text::tr("pictures cannot be written in the format \"%1\"").arg(suffix));
        if (image.IsEmpty())
            return Fail(reason, Text::tr("there is no picture to write"));
        QImage pixels = PixelsFor(suffix, image);
        const HBPhotoMetadata metadata = MetadataFor(image, &pixels, told);
        QByteArray bytes;
        if (!Encode(pixels, suffix, options, &bytes, reason))
            return false;
        bytes = HBEmbedMetadata(bytes, metadata, pixels.size(), told);
        if (options.mayWrite && !options.mayWrite(bytes))
            return Fail(reason, Text::tr("it was given up"));
        if (!HBSaveFile(path, bytes, reason))
            return false;
        if (written)
            *written = HBReadEncoding(bytes, HBFormatOfName(path));
        return true;
    });
}
