// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPngFile.h"

#include <QScopeGuard>

#include <algorithm>
#include <cstring>
#include <new>
#include <png.h>
#include <vector>

namespace
{

/// What libpng reports: texts that need no memory, because it calls from C and is left by a jump.
struct Reports
{
    static constexpr int MostRemarks = 3;

    char error[200] = "";
    char remarks[MostRemarks][200] = {};
    int remarkCount = 0;
    bool hasNoMemory = false;

    [[noreturn]] static void OnError(png_structp png, png_const_charp text)
    {
        auto* self = static_cast<Reports*>(png_get_error_ptr(png));
        qstrncpy(self->error, text, sizeof self->error);
        png_longjmp(png, 1);
    }
    static void OnWarning(png_structp png, png_const_charp text)
    {
        auto* self = static_cast<Reports*>(png_get_error_ptr(png));
        if (self->remarkCount < MostRemarks)
            qstrncpy(self->remarks[self->remarkCount++], text, sizeof self->remarks[0]);
    }
    static png_voidp Allocate(png_structp png, png_alloc_size_t bytes)
    {
        void* const memory = std::malloc(bytes);
        if (!memory)
            static_cast<Reports*>(png_get_error_ptr(png))->hasNoMemory = true;
        return memory;
    }
    static void Free(png_structp, png_voidp memory) { std::free(memory); }
};

/// Calls libpng. `call` must have, and make, nothing with a destructor: an error jumps over it.
template <class Call>
bool Runs(png_structp png, Call call)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    call();
    return true;
}

// ---- Reading ----

struct Source
{
    const QByteArray& file;
    png_size_t position = 0;

    static void Read(png_structp png, png_bytep to, png_size_t count)
    {
        auto* self = static_cast<Source*>(png_get_io_ptr(png));
        if (count > png_size_t(self->file.size()) - self->position)
            png_error(png, "Read Error");
        std::memcpy(to, self->file.constData() + self->position, count);
        self->position += count;
    }
};

struct Head
{
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    int bits = 0;
    int colors = 0; ///< PNG_COLOR_TYPE_...
    int interlace = 0;
    png_uint_32 dotsX = 0;
    png_uint_32 dotsY = 0;

    /// Each pixel is a number: of a colour, or how light it is.
    bool HasNumbers() const { return colors == PNG_COLOR_TYPE_PALETTE || colors == PNG_COLOR_TYPE_GRAY; }
};

bool ReadHead(png_structp png, png_infop info, Head* head)
{
    return Runs(png, [=] {
        png_read_info(png, info);
        png_get_IHDR(png, info, &head->width, &head->height, &head->bits, &head->colors, &head->interlace, nullptr,
                     nullptr);
        head->dotsX = png_get_x_pixels_per_meter(png, info);
        head->dotsY = png_get_y_pixels_per_meter(png, info);
    });
}

/// What each number stands for; those that stand for nothing are as the first.
using Colors = QRgb[256];

void GetPalette(png_structp png, png_infop info, QRgb* colors)
{
    png_colorp palette = nullptr;
    png_bytep alphas = nullptr;
    int count = 0;
    int alphaCount = 0;
    png_get_PLTE(png, info, &palette, &count);
    png_get_tRNS(png, info, &alphas, &alphaCount, nullptr);
    for (int i = 0; i < 256; ++i) {
        const int known = i < count ? i : 0;
        colors[i] = count == 0 ? 0xff000000
                               : qRgba(palette[known].red, palette[known].green, palette[known].blue,
                                       alphas && known < alphaCount ? alphas[known] : 255);
    }
}

void GetGreys(png_structp png, png_infop info, int bits, QRgb* colors)
{
    const int largest = (1 << bits) - 1;
    for (int i = 0; i < 256; ++i) {
        const int grey = qMin(i, largest) * 255 / largest;
        colors[i] = qRgb(grey, grey, grey);
    }
    png_color_16p transparent = nullptr;
    if (png_get_tRNS(png, info, nullptr, nullptr, &transparent) && transparent && transparent->gray <= largest)
        colors[transparent->gray] = bits == 1 ? colors[transparent->gray] & 0xffffff : 0;
}

/// \param colors set if pixels are numbers; else they come as QRgb
bool Start(png_structp png, png_infop info, const Head& head, QRgb* colors)
{
    return Runs(png, [&head, png, info, colors] {
        if (head.HasNumbers()) {
            png_set_packing(png); // a byte each
            if (head.colors == PNG_COLOR_TYPE_PALETTE)
                GetPalette(png, info, colors);
            else
                GetGreys(png, info, head.bits, colors);
        } else {
            png_set_expand(png); // of a transparent colour
            png_set_gray_to_rgb(png);
            const bool little = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
            if (little)
                png_set_bgr(png);
            else
                png_set_swap_alpha(png);
            if (!(head.colors & PNG_COLOR_MASK_ALPHA) && !png_get_valid(png, info, PNG_INFO_tRNS))
                png_set_filler(png, 0xff, little ? PNG_FILLER_AFTER : PNG_FILLER_BEFORE);
        }
        png_read_update_info(png, info);
    });
}

bool ReadRows(png_structp png, png_bytep rows, int count, qptrdiff stride)
{
    return Runs(png, [=] {
        for (int i = 0; i < count; ++i)
            png_read_row(png, rows + i * stride, nullptr);
    });
}

bool ReadPixels(png_structp png, png_infop info, const Head& head, HBStraightRead* read)
{
    const QSize size(int(head.width), int(head.height));
    Colors colors;
    if (!read->Begin(size) || !Start(png, info, head, colors))
        return false;
    std::vector<QRgb> rows(size_t(size.width()) * HBUprightTiles::RowsAtOnce);
    std::vector<png_byte> numbers(head.HasNumbers() ? rows.size() : 0);
    const int rowsAtOnce = read->isCutShort ? 1 : HBUprightTiles::RowsAtOnce; // up to the last one that is there
    for (int first = 0; first < size.height(); first += rowsAtOnce) {
        const int count = qMin(rowsAtOnce, size.height() - first);
        if (!read->IsWanted())
            return false;
        if (head.HasNumbers()) {
            if (!ReadRows(png, numbers.data(), count, size.width()))
                return false;
            std::transform(numbers.cbegin(), numbers.cend(), rows.begin(), [&](png_byte i) { return colors[i]; });
        } else if (!ReadRows(png, reinterpret_cast<png_bytep>(rows.data()), count, qptrdiff(size.width()) * 4)) {
            return false;
        }
        read->tiles.Put(first, count, rows.data(), size.width());
    }
    return Runs(png, [=] { png_read_end(png, info); });
}

// ---- Writing ----

/// Called from C: nothing may be thrown.
void Append(png_structp png, png_bytep bytes, png_size_t count)
{
    constexpr qint64 largest = 0x7fff0000; // that a QByteArray can hold
    auto* file = static_cast<QByteArray*>(png_get_io_ptr(png));
    if (file->size() + qint64(count) > largest)
        png_error(png, "the file is too large");
    bool appended = false;
    try {
        file->append(reinterpret_cast<const char*>(bytes), int(count));
        appended = true;
    } catch (const std::bad_alloc&) {
        static_cast<Reports*>(png_get_error_ptr(png))->hasNoMemory = true;
    }
    if (!appended)
        png_error(png, "Write Error");
}

void Flush(png_structp) {}

bool WriteHead(png_structp png, png_infop info, const HBPictureRows& rows)
{
    const bool grey = rows.Format() == QImage::Format_Grayscale8;
    const int colors = grey              ? PNG_COLOR_TYPE_GRAY
                       : rows.HasAlpha() ? PNG_COLOR_TYPE_RGB_ALPHA
                                         : PNG_COLOR_TYPE_RGB;
    const bool little = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    return Runs(png, [&rows, png, info, grey, colors] {
        png_set_IHDR(png, info, png_uint_32(rows.Width()), png_uint_32(rows.Height()), 8, colors,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_pHYs(png, info, png_uint_32(rows.DotsPerMetreX()), png_uint_32(rows.DotsPerMetreY()),
                     PNG_RESOLUTION_METER);
        png_write_info(png, info);
        if (grey)
            return;
        if (little)
            png_set_bgr(png);
        else
            png_set_swap_alpha(png);
        if (!rows.HasAlpha())
            png_set_filler(png, 0, little ? PNG_FILLER_AFTER : PNG_FILLER_BEFORE);
    });
}

bool WriteAll(png_structp png, png_infop info, HBPictureRows& rows)
{
    if (!WriteHead(png, info, rows))
        return false;
    for (int y = 0; y < rows.Height(); ++y) {
        if (!rows.IsWanted(y))
            return false;
        const uchar* row = rows.Row(y);
        if (!Runs(png, [=] { png_write_row(png, row); }))
            return false;
    }
    return Runs(png, [=] { png_write_end(png, info); });
}

} // namespace

HBStraightRead::Outcome HBReadPng(const QByteArray& file, HBStraightRead* read)
{
    Reports reports;
    png_structp png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, &reports, Reports::OnError,
                                               Reports::OnWarning, nullptr, Reports::Allocate, Reports::Free);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const auto end = qScopeGuard([&] { png_destroy_read_struct(&png, &info, nullptr); });
    if (!info)
        throw std::bad_alloc();
    // Some files need a larger window than they say.
    png_set_option(png, PNG_MAXIMUM_INFLATE_WINDOW, PNG_OPTION_ON);
    Source source{file};
    png_set_read_fn(png, &source, Source::Read);
    // What is cut off in the midst of a piece is lost with the whole of it.
    if (read->isCutShort && png_get_compression_buffer_size(png) > 64)
        png_set_compression_buffer_size(png, 64);
    Head head;
    const bool known = ReadHead(png, info, &head);
    if (known && (head.bits > 8 || head.interlace != PNG_INTERLACE_NONE))
        return HBStraightRead::LeftToQt;
    read->dotsPerMetreX = int(head.dotsX);
    read->dotsPerMetreY = int(head.dotsY);
    const bool whole = known && ReadPixels(png, info, head, read);
    for (int i = 0; i < reports.remarkCount; ++i) {
        const QString remark = QString::fromLatin1(reports.remarks[i]);
        if (remark != QLatin1String("iCCP: known incorrect sRGB profile")) // of many programs; it is good enough
            read->remarks.append("libpng warning: " + remark);
    }
    if (whole)
        return HBStraightRead::Read;
    if (reports.hasNoMemory)
        throw std::bad_alloc();
    read->reason = QString::fromLatin1(reports.error);
    return HBStraightRead::Failed;
}

bool HBWritePng(HBPictureRows& rows, QByteArray* bytes, QString* reason)
{
    Reports reports;
    png_structp png = png_create_write_struct_2(PNG_LIBPNG_VER_STRING, &reports, Reports::OnError,
                                                Reports::OnWarning, nullptr, Reports::Allocate, Reports::Free);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const auto end = qScopeGuard([&] { png_destroy_write_struct(&png, &info); });
    if (!info)
        throw std::bad_alloc();
    bytes->clear();
    png_set_write_fn(png, bytes, Append, Flush);
    if (WriteAll(png, info, rows))
        return true;
    if (reports.hasNoMemory)
        throw std::bad_alloc();
    *reason = QString::fromLatin1(reports.error);
    return false;
}
