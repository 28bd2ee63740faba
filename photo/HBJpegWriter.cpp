// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJpegWriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <csetjmp>
#include <cstdio> // before jpeglib.h, which does not include it
#include <cstdlib>
#include <jpeglib.h>

namespace
{

/// From here on, colours cost more by being too coarse than by being stored whole.
constexpr int FullColorQuality = 90;

/// libjpeg's way out of an error. What it jumps over must have no destructors.
struct ErrorExit
{
    jpeg_error_mgr manager;
    std::jmp_buf jump;
    char text[JMSG_LENGTH_MAX];
};

[[noreturn]] void OnError(j_common_ptr codec)
{
    auto* exit = reinterpret_cast<ErrorExit*>(codec->err);
    exit->manager.format_message(codec, exit->text);
    std::longjmp(exit->jump, 1);
}

void DropMessage(j_common_ptr) {}

jpeg_error_mgr* Prepare(ErrorExit* exit)
{
    jpeg_std_error(&exit->manager);
    exit->manager.error_exit = OnError;
    exit->manager.output_message = DropMessage;
    exit->text[0] = '\0';
    return &exit->manager;
}

/// Tables, component by component, and the sampling factors.
void SetCoding(jpeg_compress_struct* codec, const HBJpegCoding& coding)
{
    const int known = coding.components.size();
    for (int i = 0; i < coding.tables.size() && i < NUM_QUANT_TBLS; ++i) {
        unsigned divisors[64];
        std::copy(coding.tables.at(i).begin(), coding.tables.at(i).end(), divisors);
        jpeg_add_quant_table(codec, i, divisors, 100, FALSE);
    }
    for (int i = 0; i < codec->num_components; ++i) {
        // A grey file that has got colours: the chroma is to be no worse than the luma was.
        const HBJpegCoding::Component& component = coding.components.at(std::min(i, known - 1));
        codec->comp_info[i].quant_tbl_no = component.table;
        // Grey has nothing to be smaller than.
        const bool single = codec->num_components == 1 || known == 1;
        codec->comp_info[i].h_samp_factor = single ? 1 : component.horizontal;
        codec->comp_info[i].v_samp_factor = single ? 1 : component.vertical;
    }
    if (coding.isProgressive)
        jpeg_simple_progression(codec);
}

void SetQuality(jpeg_compress_struct* codec, int quality)
{
    jpeg_set_quality(codec, quality, TRUE);
    if (quality >= FullColorQuality) {
        codec->comp_info[0].h_samp_factor = 1;
        codec->comp_info[0].v_samp_factor = 1;
    }
}

/// \param buffer to be freed, also after a failure
bool Compress(const QImage& pixels, const HBJpegCoding& coding, int quality, unsigned char** buffer,
              unsigned long* size, ErrorExit* exit)
{
    jpeg_compress_struct codec;
    codec.err = Prepare(exit);
    if (setjmp(exit->jump)) {
        jpeg_destroy_compress(&codec);
        return false;
    }
    jpeg_create_compress(&codec);
    jpeg_mem_dest(&codec, buffer, size);
    codec.image_width = JDIMENSION(pixels.width());
    codec.image_height = JDIMENSION(pixels.height());
    const bool grey = pixels.format() == QImage::Format_Grayscale8;
    codec.input_components = grey ? 1 : 4;
    codec.in_color_space = grey ? JCS_GRAYSCALE : Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
    jpeg_set_defaults(&codec);
    if (coding.CanBeWritten()) {
        if (!grey)
            jpeg_set_colorspace(&codec, coding.isRgb ? JCS_RGB : JCS_YCbCr);
        SetCoding(&codec, coding);
    } else {
        SetQuality(&codec, quality);
    }
    constexpr double metresPerInch = 0.0254;
    codec.density_unit = 1; // per inch
    codec.X_density = UINT16(qBound(1, qRound(pixels.dotsPerMeterX() * metresPerInch), 0xffff));
    codec.Y_density = UINT16(qBound(1, qRound(pixels.dotsPerMeterY() * metresPerInch), 0xffff));
    jpeg_start_compress(&codec, TRUE);
    while (codec.next_scanline < codec.image_height) {
        auto* line = const_cast<JSAMPROW>(pixels.constScanLine(int(codec.next_scanline)));
        jpeg_write_scanlines(&codec, &line, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    return true;
}

/// The head up to the first scan. The decoder stays usable after a failure.
bool ReadHead(jpeg_decompress_struct* codec, const QByteArray& file, ErrorExit* exit)
{
    codec->err = Prepare(exit);
    if (setjmp(exit->jump))
        return false;
    jpeg_create_decompress(codec);
    jpeg_mem_src(codec, reinterpret_cast<const unsigned char*>(file.constData()),
                 static_cast<unsigned long>(file.size()));
    return jpeg_read_header(codec, TRUE) == JPEG_HEADER_OK;
}

/// Whether libjpeg can write them: each component's size is a whole part of the largest, and they fit in one unit.
bool CanFactorsBeWritten(const QVector<HBJpegCoding::Component>& components)
{
    int horizontal = 1;
    int vertical = 1;
    int blocks = 0;
    for (const auto& component : components) {
        blocks += component.horizontal * component.vertical;
        horizontal = std::max(horizontal, component.horizontal);
        vertical = std::max(vertical, component.vertical);
    }
    if (blocks > C_MAX_BLOCKS_IN_MCU)
        return false;
    return std::all_of(components.begin(), components.end(), [&](const auto& component) {
        return horizontal % component.horizontal == 0 && vertical % component.vertical == 0;
    });
}

} // namespace

HBJpegCoding HBReadJpegCoding(const QByteArray& file)
{
    HBJpegCoding coding;
    ErrorExit exit;
    jpeg_decompress_struct codec = {};
    if (ReadHead(&codec, file, &exit)) {
        coding.isRgb = codec.jpeg_color_space == JCS_RGB;
        coding.isProgressive = codec.progressive_mode;
        std::array<int, NUM_QUANT_TBLS> places;
        for (int i = 0; i < NUM_QUANT_TBLS; ++i) {
            places[std::size_t(i)] = coding.tables.size();
            if (const JQUANT_TBL* table = codec.quant_tbl_ptrs[i]) {
                HBJpegCoding::Table divisors;
                std::transform(table->quantval, table->quantval + 64, divisors.begin(),
                               [](quint16 divisor) { return std::max<quint16>(divisor, 1); });
                coding.tables.append(divisors);
            }
        }
        for (int i = 0; i < codec.num_components; ++i) {
            const jpeg_component_info& info = codec.comp_info[i];
            const bool known = info.quant_tbl_no >= 0 && info.quant_tbl_no < NUM_QUANT_TBLS &&
                               codec.quant_tbl_ptrs[info.quant_tbl_no];
            if (!known) { // no table, no quality that could be kept
                coding = HBJpegCoding();
                break;
            }
            coding.components.append(
                {info.h_samp_factor, info.v_samp_factor, places[std::size_t(info.quant_tbl_no)]});
        }
        if (!CanFactorsBeWritten(coding.components)) {
            for (auto& component : coding.components)
                component.horizontal = component.vertical = 1;
        }
    }
    jpeg_destroy_decompress(&codec);
    return coding;
}

bool HBWriteJpeg(const QImage& pixels, const HBJpegCoding& coding, int quality, QByteArray* bytes, QString* reason)
{
    const bool grey = coding.components.size() == 1 && pixels.allGray();
    const QImage source = grey ? pixels.convertToFormat(QImage::Format_Grayscale8) : pixels;
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    ErrorExit exit;
    const bool written = Compress(source, coding, quality, &buffer, &size, &exit);
    constexpr unsigned long largest = 0x7fff0000; // that a QByteArray can hold
    if (written && size <= largest)
        *bytes = QByteArray(reinterpret_cast<const char*>(buffer), int(size));
    else
        *reason = written ? QCoreApplication::translate("HBPhotoFile", "the file is too large")
                          : QString::fromLatin1(exit.text);
    std::free(buffer);
    return written && size <= largest;
}
