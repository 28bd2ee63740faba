// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoMetadata.h"

#include "HBPhotoProfile.h"
#include "HBPhotoText.h"

#include <HBQtImage.h>

#include <QMutex>

#include <exiv2/exiv2.hpp>
#include <exiv2/webpimage.hpp>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <new>

namespace
{

constexpr char XmpKey[] = "Xmp";
constexpr char IptcKey[] = "Iptc";
constexpr char OrientationKey[] = "Exif.Image.Orientation";
constexpr int Upright = 1;

/// The XMP part of the library is not thread-safe by itself, and must be set up before the first use.
void SetUpLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] {
        static QMutex mutex;
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize(
            [](void* lock, bool take) {
                auto* m = static_cast<QMutex*>(lock);
                take ? m->lock() : m->unlock();
            },
            &mutex);
    });
}

const Exiv2::byte* Bytes(const QByteArray& bytes)
{
    return reinterpret_cast<const Exiv2::byte*>(bytes.constData());
}

/// Exiv2::ImageType::none for what has no metadata.
int TypeOf(const QByteArray& file)
{
    constexpr int shortest = 64; // the library takes it for an error if a file is shorter than some format's tail
    return file.size() < shortest ? Exiv2::ImageType::none
                                  : Exiv2::ImageFactory::getType(Bytes(file), long(file.size()));
}

auto OpenImage(const QByteArray& file)
{
    auto image = Exiv2::ImageFactory::open(Bytes(file), long(file.size()));
    image->readMetadata();
    return image;
}

// ---- Reading ----

/// Tags of the first directory that describe how its file stores the pixels or where its other parts are (TIFF 6.0
/// and its supplements); every file has its own.
constexpr int layoutTags[] = {
    0x00fe, 0x00ff, 0x0100, 0x0101, 0x0102, 0x0103, 0x0106, 0x010a, 0x0111, 0x0115, 0x0116, 0x0117,
    0x0118, 0x0119, 0x011c, 0x0120, 0x0121, 0x0124, 0x0125, 0x013d, 0x0140, 0x0142, 0x0143, 0x0144,
    0x0145, 0x014a, 0x0152, 0x0153, 0x0154, 0x0155, 0x015b, 0x0200, 0x0201, 0x0202, 0x0203, 0x0211,
    0x0212, 0x0213, 0x0214, 0x02bc, 0x83bb, 0x8649, 0x8769, 0x8773, 0x8825,
};

/// Whether the tag tells something about the photo, rather than about its file or its thumbnails.
bool IsAboutPhoto(const Exiv2::Exifdatum& datum)
{
    const QByteArray group = QByteArray::fromStdString(datum.groupName());
    if (group == "Image")
        return !std::binary_search(std::begin(layoutTags), std::end(layoutTags), int(datum.tag()));
    return group != "Thumbnail" && !group.startsWith("SubImage") && !group.startsWith("SubThumb") &&
           !group.startsWith("Image") && group != "MpfInfo" && group != "PanasonicRaw";
}

KMEXIFElement ToElement(const Exiv2::Exifdatum& datum)
{
    KMEXIFElement element{QByteArray::fromStdString(datum.key()), int(datum.typeId()),
                          QByteArray(int(datum.size()), '\0')};
    datum.copy(reinterpret_cast<Exiv2::byte*>(element.value.data()), Exiv2::littleEndian);
    return element;
}

long NumberOf(const Exiv2::ExifData& exif, const char* key, long otherwise)
{
    const auto datum = exif.findKey(Exiv2::ExifKey(key));
    return datum != exif.end() && datum->count() > 0 ? datum->toLong() : otherwise;
}

int DotsPerMetre(const Exiv2::ExifData& exif)
{
    const auto datum = exif.findKey(Exiv2::ExifKey("Exif.Image.XResolution"));
    if (datum == exif.end() || datum->count() == 0)
        return 0;
    const bool perCentimetre = NumberOf(exif, "Exif.Image.ResolutionUnit", 2) == 3;
    const double dots = double(datum->toFloat()) * 100 / (perCentimetre ? 1 : 2.54);
    return dots >= 1 && dots < 1e6 ? qRound(dots) : 0; // false for a broken fraction, too
}

HBPhotoMetadata Read(const QByteArray& file)
{
    HBPhotoMetadata metadata;
    const auto image = OpenImage(file);

    const Exiv2::ExifData& exif = image->exifData();
    for (const Exiv2::Exifdatum& datum : exif) {
        if (IsAboutPhoto(datum))
            metadata.elements.append(ToElement(datum));
    }
    const long orientation = NumberOf(exif, OrientationKey, Upright);
    metadata.orientation = orientation >= 1 && orientation <= 8 ? int(orientation) : Upright;
    metadata.dotsPerMetre = DotsPerMetre(exif);

    const QByteArray xmp = QByteArray::fromStdString(image->xmpPacket());
    if (!xmp.isEmpty())
        metadata.elements.append({XmpKey, Exiv2::undefined, xmp});
    if (!image->iptcData().empty()) {
        const Exiv2::DataBuf iptc = Exiv2::IptcParser::encode(image->iptcData());
        const QByteArray block(reinterpret_cast<const char*>(iptc.pData_), int(iptc.size_));
        metadata.elements.append({IptcKey, Exiv2::undefined, block});
    }
    if (image->iccProfileDefined()) {
        const Exiv2::DataBuf& icc = *image->iccProfile();
        const QByteArray block(reinterpret_cast<const char*>(icc.pData_), int(icc.size_));
        metadata.profile = KMCMSProfile(block);
    }
    return metadata;
}

// ---- Writing ----

/// The kinds of metadata, each of which a format holds or not.
struct Kind
{
    Exiv2::MetadataId id;
    const char* name;
};
constexpr Kind kinds[] = {
    {Exiv2::mdExif, "EXIF"}, {Exiv2::mdIptc, "IPTC"}, {Exiv2::mdXmp, "XMP"}, {Exiv2::mdIccProfile, "ICC"}};

int KindsOf(const HBPhotoMetadata& metadata)
{
    int found = metadata.profile.IsEmpty() ? 0 : Exiv2::mdIccProfile;
    for (const KMEXIFElement& element : metadata.elements)
        found |= element.key == XmpKey ? Exiv2::mdXmp : element.key == IptcKey ? Exiv2::mdIptc : Exiv2::mdExif;
    return found;
}

/// The kinds that a file of this format can hold.
int KindsHeldBy(const QByteArray& file)
{
    const int type = TypeOf(file);
    int held = 0;
    if (type == Exiv2::ImageType::none)
        return held;
    for (const Kind& kind : {kinds[0], kinds[1], kinds[2]}) {
        const Exiv2::AccessMode mode = Exiv2::ImageFactory::checkMode(type, kind.id);
        if (mode == Exiv2::amWrite || mode == Exiv2::amReadWrite)
            held |= kind.id;
    }
    // The library does not tell about profiles; those formats that hold EXIF tags hold a profile as well.
    return held & Exiv2::mdExif ? held | Exiv2::mdIccProfile : held;
}

QByteArray BlockOf(const HBPhotoMetadata& metadata, const char* key)
{
    for (const KMEXIFElement& element : metadata.elements) {
        if (element.key == key)
            return element.value;
    }
    return {};
}

template <class Data, class Key, class Number>
void SetIfThere(Data& data, const char* key, Number number)
{
    const auto datum = data.findKey(Key(key));
    if (datum != data.end())
        *datum = number;
}

void SetExif(Exiv2::ExifData& exif, const HBPhotoMetadata& metadata, const QSize& size)
{
    Exiv2::ExifData added;
    for (const KMEXIFElement& element : metadata.elements) {
        if (element.key == XmpKey || element.key == IptcKey)
            continue;
        const auto value = Exiv2::Value::create(Exiv2::TypeId(element.type));
        value->read(Bytes(element.value), long(element.value.size()), Exiv2::littleEndian);
        added.add(Exiv2::ExifKey(element.key.toStdString()), value.get());
    }
    using Key = Exiv2::ExifKey;
    SetIfThere<Exiv2::ExifData, Key>(added, OrientationKey, std::uint16_t(Upright));
    SetIfThere<Exiv2::ExifData, Key>(added, "Exif.Photo.PixelXDimension", std::uint32_t(size.width()));
    SetIfThere<Exiv2::ExifData, Key>(added, "Exif.Photo.PixelYDimension", std::uint32_t(size.height()));

    // Into what is there: the layout tags of a TIFF file must stay.
    for (const Exiv2::Exifdatum& datum : added) {
        const auto present = exif.findKey(Exiv2::ExifKey(datum.key()));
        if (present != exif.end())
            exif.erase(present);
    }
    for (const Exiv2::Exifdatum& datum : added)
        exif.add(datum);
}

void SetXmp(Exiv2::Image& image, const HBPhotoMetadata& metadata, const QSize& size)
{
    const std::string packet = BlockOf(metadata, XmpKey).toStdString();
    Exiv2::XmpData xmp;
    if (Exiv2::XmpParser::decode(xmp, packet) != 0) {
        // Not understood, but perhaps by somebody else.
        image.setXmpPacket(packet);
        image.writeXmpFromPacket(true);
        return;
    }
    using Key = Exiv2::XmpKey;
    SetIfThere<Exiv2::XmpData, Key>(xmp, "Xmp.tiff.Orientation", Upright);
    SetIfThere<Exiv2::XmpData, Key>(xmp, "Xmp.tiff.ImageWidth", size.width());
    SetIfThere<Exiv2::XmpData, Key>(xmp, "Xmp.tiff.ImageLength", size.height());
    SetIfThere<Exiv2::XmpData, Key>(xmp, "Xmp.exif.PixelXDimension", size.width());
    SetIfThere<Exiv2::XmpData, Key>(xmp, "Xmp.exif.PixelYDimension", size.height());
    image.setXmpData(xmp);
}

void SetIptc(Exiv2::Image& image, const HBPhotoMetadata& metadata)
{
    const QByteArray block = BlockOf(metadata, IptcKey);
    Exiv2::IptcData iptc;
    if (Exiv2::IptcParser::decode(iptc, Bytes(block), std::uint32_t(block.size())) != 0)
        throw Exiv2::Error(Exiv2::kerCorruptedMetadata);
    image.setIptcData(iptc);
}

void SetProfile(Exiv2::Image& image, const QByteArray& icc)
{
    Exiv2::DataBuf buffer(Bytes(icc), long(icc.size()));
    image.setIccProfile(buffer);
}

/// \param file that the image was opened with; goes as soon as it is not needed
QByteArray WrittenFile(Exiv2::Image& image, QByteArray* file)
{
    HBCheckMemory(); // the library writes through streams, which keep to themselves that they got none
    image.writeMetadata();
    Exiv2::BasicIo& io = image.io();
    if (io.open() != 0)
        throw Exiv2::Error(Exiv2::kerDataSourceOpenFailed);
    if (io.mmap() != Bytes(*file)) // the library has its own by now
        *file = QByteArray();
    QByteArray result(int(io.size()), Qt::Uninitialized);
    result.truncate(int(io.read(reinterpret_cast<Exiv2::byte*>(result.data()), long(result.size()))));
    return result;
}

/// The file with those kinds put in.
/// \param file may be empty afterwards: of a large picture there are not more copies than must be
/// \throws Exiv2::Error while the file is still there
QByteArray Embed(QByteArray* file, const HBPhotoMetadata& metadata, const QSize& size, int chosen)
{
    const auto image = OpenImage(*file);
    if (chosen & Exiv2::mdExif)
        SetExif(image->exifData(), metadata, size);
    if (chosen & Exiv2::mdXmp)
        SetXmp(*image, metadata, size);
    if (chosen & Exiv2::mdIptc)
        SetIptc(*image, metadata);
    const QByteArray icc = chosen & Exiv2::mdIccProfile ? metadata.profile.Icc() : QByteArray();
    if (icc.isEmpty())
        return WrittenFile(*image, file);
    SetProfile(*image, icc); // for every format: it throws if this is no profile
    if (image->imageType() == Exiv2::ImageType::png || image->imageType() == Exiv2::ImageType::webp)
        image->clearIccProfile();
    if (image->imageType() == Exiv2::ImageType::png)
        return HBWithPngProfile(WrittenFile(*image, file), icc);
    if (image->imageType() == Exiv2::ImageType::webp)
        return HBWithWebPProfile(WrittenFile(*image, file), icc, size);
    return WrittenFile(*image, file);
}

/// Rethrows what is no fault of the metadata.
/// \throws std::bad_alloc
QString ReasonOf(const std::exception& problem)
{
    const auto* error = dynamic_cast<const Exiv2::Error*>(&problem);
    if (dynamic_cast<const std::bad_alloc*>(&problem) || (error && error->code() == Exiv2::kerMallocFailed))
        throw std::bad_alloc();
    const QString reason = QString::fromLocal8Bit(problem.what());
    return reason.isEmpty() ? HBPhotoText::tr("it is broken") : reason;
}

} // namespace

HBPhotoMetadata HBReadMetadata(const QByteArray& file, QStringList* warnings)
{
    SetUpLibrary();
    try {
        if (TypeOf(file) == Exiv2::ImageType::none)
            return {};
        return Read(file);
    } catch (const std::exception& problem) {
        warnings->append(HBPhotoText::tr("its metadata cannot be read (%1)").arg(ReasonOf(problem)));
        return {};
    }
}

QByteArray HBEmbedMetadata(QByteArray file, const HBPhotoMetadata& metadata, const QSize& size,
                           QStringList* warnings)
{
    SetUpLibrary();
    const int present = KindsOf(metadata);
    const int held = present & KindsHeldBy(file);
    for (const Kind& kind : kinds) {
        if (present & ~held & kind.id)
            warnings->append(HBPhotoText::tr("%1 metadata cannot be stored in this format").arg(kind.name));
    }
    if (held == 0)
        return file;
    try {
        return Embed(&file, metadata, size, held);
    } catch (const std::exception& problem) {
        ReasonOf(problem);
        // One kind spoils all, by being too large for example: put in those that can be.
    }
    for (const Kind& kind : kinds) {
        try {
            if (held & kind.id)
                file = Embed(&file, metadata, size, kind.id);
        } catch (const std::exception& problem) {
            warnings->append(
                HBPhotoText::tr("%1 metadata cannot be stored (%2)").arg(kind.name, ReasonOf(problem)));
        }
    }
    return file;
}
