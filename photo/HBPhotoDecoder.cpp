// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoDecoder.h"

#include "HBFileNumbers.h"
#include "HBJpegReader.h"
#include "HBPhotoCheck.h"
#include "HBPhotoMetadata.h"
#include "HBPhotoText.h"
#include "HBPngFile.h"
#include "HBTiffFile.h"

#include <HBColorTransform.h>
#include <HBQtImage.h>
#include <KMImageFileManager.h>

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>

#include <mutex>
#include <unistd.h>

namespace
{

/// Qt 6 bounds the bytes of a picture by itself; HBStraightRead knows the machine.
void LiftQtsBound()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QImageReader::setAllocationLimit(0);
#endif
}

/// Collects what decoders remark while it lives, as about damaged data. Qt's and libtiff only log it, without the
/// file's name: that of this thread comes here.
class Remarks
{
public:
    Remarks()
    {
        static std::once_flag once;
        std::call_once(once, [] {
            otherMessages = qInstallMessageHandler(Keep);
            HBLogTiffMessages();
            LiftQtsBound();
        });
        kept = &m_Kept;
    }
    ~Remarks() { kept = nullptr; }
    Q_DISABLE_COPY(Remarks)

    void Add(const QString& text)
    {
        if (!m_Kept.contains(text))
            m_Kept.append(text);
    }
    void AddTo(QStringList* warnings) const
    {
        for (const QString& remark : m_Kept.mid(0, 3))
            warnings->append(HBPhotoText::tr("the decoder remarks: %1").arg(remark));
    }
    QString Last() const { return m_Kept.isEmpty() ? QString() : m_Kept.last(); }

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

HBStraightRead::Outcome ReadStraight(const QByteArray& file, const QByteArray& format, HBStraightRead* read)
{
    return format == "jpeg"   ? HBReadJpeg(file, read)
           : format == "png"  ? HBReadPng(file, read)
           : format == "tiff" ? HBReadTiff(file, read)
                              : HBStraightRead::LeftToQt;
}

/// Piece by piece: the picture is large enough as it is.
void PutRows(const QImage& image, HBUprightTiles* tiles)
{
    for (int first = 0; first < image.height(); first += HBUprightTiles::RowsAtOnce) {
        const int count = qMin(HBUprightTiles::RowsAtOnce, image.height() - first);
        QImage piece(image.constScanLine(first), image.width(), count, image.bytesPerLine(), image.format());
        if (image.colorCount() > 0)
            piece.setColorTable(image.colorTable());
        const QImage rows = HBConverted(piece, QImage::Format_ARGB32);
        tiles->Put(first, count, reinterpret_cast<const QRgb*>(rows.constBits()), rows.bytesPerLine() / 4);
    }
}

/// \param isDeep whether it had 16 bits a channel
bool ReadByQt(QImageReader* reader, HBStraightRead* read, bool* isDeep)
{
    const QSize size = reader->size();
    if (size.isValid() && !read->Begin(size))
        return false;
    QImage image;
    if (!reader->read(&image) || image.isNull())
        return HBFail(&read->reason, reader->errorString());
    *isDeep = image.depth() == 64 || image.format() == QImage::Format_Grayscale16;
    read->dotsPerMetreX = image.dotsPerMeterX();
    read->dotsPerMetreY = image.dotsPerMeterY();
    if (image.size() != read->tiles.Lying() && !read->Begin(image.size()))
        return false;
    PutRows(image, &read->tiles);
    return true;
}

/// Sets it up, and finds out; empty if we do not read it. Qt also draws drawings and reads icons.
QByteArray KnownFormat(QImageReader* reader)
{
    reader->setDecideFormatFromContent(true);
    reader->setAutoTransform(false); // it knows the orientation of some formats only
    const QByteArray format = reader->format();
    const bool isKnown = KMImageFileManager::SuffixesForRead().contains(QString::fromLatin1(format));
    return reader->canRead() && isKnown ? format : QByteArray();
}

/// \param reader not yet asked for its size(), which leaves that of TIFF where it finds no pages
HBPhotoEncoding EncodingOf(const QByteArray& file, const QByteArray& format, const QImageReader& reader)
{
    HBPhotoEncoding encoding = HBReadEncoding(file, format);
    const bool mayHavePages = format != "jpeg" && format != "png"; // these have one
    encoding.pages = qMax(encoding.pages, mayHavePages ? reader.imageCount() : 1);
    encoding.isAnimated |= encoding.pages > 1 && reader.supportsAnimation();
    return encoding;
}

/// What our own readers do not know Qt reads; of a file that is cut short the rows that are there count.
/// \param isDeep whether it had 16 bits a channel
bool ReadPixels(const QByteArray& file, const QByteArray& format, const KMCMSProfile& profile,
                QImageReader* reader, HBStraightRead* read, Remarks* remarks, bool* isDeep)
{
    const auto outcome = ReadStraight(file, format, read);
    for (const QString& remark : qAsConst(read->remarks))
        remarks->Add(remark);
    if (outcome == HBStraightRead::LeftToQt) {
        read->lacksPixels = read->isCutShort;
        return ReadByQt(reader, read, isDeep);
    }
    const bool isFailed = outcome == HBStraightRead::Failed;
    if (isFailed && !(read->isCutShort && read->tiles.HasRows() && read->IsWanted()))
        return false;
    read->lacksPixels |= isFailed;
    if (!profile.IsEmpty() && !read->print->HasBegun())
        QColorSpace::fromIccProfile(profile.Icc()); // which remarks what is wrong with it
    return true;
}

/// Why there is no picture; empty: there is.
QString Trouble(bool isRead, const HBStraightRead& read, const Remarks& remarks)
{
    if (!read.refusal.isEmpty())
        return read.refusal;
    if (!read.IsWanted())
        return HBPhotoText::tr("it was given up");
    const QString problem = read.reason.isEmpty() ? remarks.Last() : read.reason;
    return isRead ? QString() : HBPhotoText::tr("the picture cannot be read (%1)").arg(problem);
}

/// Tells what the photo lacks of what its file has, or should have.
void TellShortcomings(const HBStraightRead& read, bool isDeep, const Remarks& remarks, HBPhoto* photo)
{
    QStringList& warnings = photo->warnings;
    if (!read.isCutShort) {
        remarks.AddTo(&warnings);
    } else {
        warnings.append(read.lacksPixels
                            ? HBPhotoText::tr("the file is cut short, and a part of the picture is missing")
                            : HBPhotoText::tr("the file is cut short behind the picture"));
        photo->encoding.lacksPixels = read.lacksPixels;
    }
    if (photo->encoding.pages > 1)
        warnings.append(HBPhotoText::tr("only the first of %1 pages is read").arg(photo->encoding.pages));
    if (isDeep) {
        warnings.append(HBPhotoText::tr("16 bits a channel are reduced to 8"));
        photo->encoding.bitsPerChannel = qMax(16, photo->encoding.bitsPerChannel);
    }
}

/// The profile if it fits the pixels, which always are red, green and blue: one for CMYK would spoil them.
KMCMSProfile FittingProfile(const KMCMSProfile& profile, QStringList* warnings)
{
    const QByteArray model = HBProfileModel(profile.Icc());
    if (profile.IsEmpty() || model == "RGB " || model == "GRAY")
        return profile;
    warnings->append(HBPhotoText::tr("its color profile is not one for RGB and was left out"));
    return {};
}

HBImage<> WithMetadata(const HBStraightRead& read, const HBPhotoMetadata& metadata, QStringList* warnings)
{
    HBImage<> image = read.tiles.Image();
    for (const KMEXIFElement& element : metadata.elements)
        image.AddElement(new KMEXIFElement(element));
    if (read.print && read.print->HasBegun()) {
        image.SetProfile(KMCMSProfile(HBSrgbProfile()));
        warnings->append(HBPhotoText::tr("its colors for print were converted to sRGB by its profile"));
    } else {
        image.SetProfile(FittingProfile(metadata.profile, warnings));
    }
    const int otherwise = QImage(1, 1, QImage::Format_RGB32).dotsPerMeterX(); // what Qt takes for usual
    const auto dots = [&](int inFile) {
        return metadata.dotsPerMetre > 0 ? metadata.dotsPerMetre : inFile > 0 ? inFile : otherwise;
    };
    image.SetHostValue(0, dots(read.dotsPerMetreX));
    image.SetHostValue(1, dots(read.dotsPerMetreY));
    return image;
}

} // namespace

bool HBDecodePhoto(const QByteArray& file, const std::function<bool()>& isWanted, HBCutShort cutShort,
                   HBPhoto* photo, QString* reason)
{
    const bool isWhole = HBIsWholeFile(file);
    if (!isWhole && cutShort == HBCutShort::Refused)
        return HBFail(reason, HBPhotoText::tr("the file is cut short"));
    HBCheckMemory();
    Remarks remarks; // also about the head, which is read more than once
    QByteArray same = file;
    QBuffer buffer(&same);
    QImageReader reader(&buffer);
    const QByteArray format = KnownFormat(&reader);
    if (format.isEmpty())
        return HBFail(reason, HBPhotoText::tr("this is not a photo of a known format"));
    photo->encoding = EncodingOf(file, format, reader);
    QStringList aboutMetadata;
    const HBPhotoMetadata metadata = HBReadMetadata(file, &aboutMetadata);

    HBPrintColors print(metadata.profile.Icc());
    HBStraightRead read;
    read.print = &print;
    read.orientation = metadata.orientation;
    read.isWanted = isWanted;
    read.isCutShort = !isWhole;
    bool isDeep = false;
    const bool isRead = ReadPixels(file, format, metadata.profile, &reader, &read, &remarks, &isDeep);
    const QString trouble = Trouble(isRead, read, remarks);
    if (!trouble.isEmpty())
        return HBFail(reason, trouble);
    TellShortcomings(read, isDeep, remarks, photo);
    photo->warnings.append(aboutMetadata);
    photo->image = WithMetadata(read, metadata, &photo->warnings);
    return true;
}

QSize HBSizeInHead(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.peek(24);
    if (head.startsWith("\x89PNG\r\n\x1a\n")) { // what is wrong with the rest Qt would print
        const HBFileNumbers numbers(head, true);
        const QSize size(int(numbers.At(16, 4)), int(numbers.At(20, 4)));
        return size.isEmpty() ? QSize() : size;
    }
    HBCheckMemory();
    const Remarks untold; // HBDecodePhoto() tells them
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    return reader.size();
}
