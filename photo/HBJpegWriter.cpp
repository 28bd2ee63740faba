// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJpegWriter.h"

#include "HBJpegErrors.h"
#include "HBPhotoText.h"
#include "HBPictureRows.h"

#include <algorithm>
#include <jerror.h>
#include <new>

namespace
{

/// From here on, colours cost more by being too coarse than by being stored whole.
constexpr int FullColorQuality = 90;

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

/// Light has the factors that say how many pixels share a colour; colours have 1.
void SetQuality(jpeg_compress_struct* codec, const HBJpegOptions& options)
{
    jpeg_set_quality(codec, options.quality, TRUE);
    const bool isFull = options.chroma == HBChroma::Full ||
                        (options.chroma == HBChroma::ByQuality && options.quality >= FullColorQuality);
    const bool single = isFull || codec->num_components == 1;
    codec->comp_info[0].h_samp_factor = single ? 1 : 2;
    codec->comp_info[0].v_samp_factor = single || options.chroma == HBChroma::Half ? 1 : 2;
}

/// Where the encoder's bytes go. Not jpeg_mem_dest(): after an error in the midst that leaves a pointer to what it
/// has freed. Called from C: nothing may be thrown.
struct Destination
{
    jpeg_destination_mgr manager; // first: the library knows no more of this
    QByteArray* bytes;
    bool isTooLarge;
    JOCTET chunk[1 << 16];

    static Destination* Of(j_compress_ptr codec) { return reinterpret_cast<Destination*>(codec->dest); }

    static void Begin(j_compress_ptr codec)
    {
        Destination* const self = Of(codec);
        self->manager.next_output_byte = self->chunk;
        self->manager.free_in_buffer = sizeof self->chunk;
    }
    static boolean Empty(j_compress_ptr codec)
    {
        Of(codec)->Append(codec, sizeof chunk);
        Begin(codec);
        return TRUE;
    }
    static void End(j_compress_ptr codec)
    {
        Of(codec)->Append(codec, sizeof chunk - Of(codec)->manager.free_in_buffer);
    }

private:
    void Append(j_compress_ptr codec, std::size_t count)
    {
        constexpr qint64 largest = 0x7fff0000; // that a QByteArray can hold
        isTooLarge = bytes->size() + qint64(count) > largest;
        bool isAppended = false;
        try {
            if (!isTooLarge)
                bytes->append(reinterpret_cast<const char*>(chunk), int(count));
            isAppended = !isTooLarge;
        } catch (const std::bad_alloc&) { // told below: nothing may be jumped out of
        }
        if (!isAppended)
            ERREXIT1(codec, JERR_OUT_OF_MEMORY, 0);
    }
};

/// An encoder that is freed however its use ends.
class Encoder
{
public:
    explicit Encoder(QByteArray* bytes) : m_Codec(), m_Destination()
    {
        m_Codec.err = errors.Manager();
        m_Destination.bytes = bytes;
        m_Destination.manager.init_destination = Destination::Begin;
        m_Destination.manager.empty_output_buffer = Destination::Empty;
        m_Destination.manager.term_destination = Destination::End;
    }
    ~Encoder() { jpeg_destroy_compress(&m_Codec); }
    Q_DISABLE_COPY(Encoder)

    bool Start(const HBPictureRows& rows, const HBJpegCoding& coding, const HBJpegOptions& options)
    {
        if (setjmp(errors.Jump()))
            return false;
        jpeg_create_compress(&m_Codec);
        m_Codec.dest = &m_Destination.manager;
        m_Codec.image_width = JDIMENSION(rows.Width());
        m_Codec.image_height = JDIMENSION(rows.Height());
        const bool grey = rows.Format() == QImage::Format_Grayscale8;
        m_Codec.input_components = grey ? 1 : 4;
        m_Codec.in_color_space = grey                              ? JCS_GRAYSCALE
                                 : Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX
                                                                   : JCS_EXT_XRGB;
        jpeg_set_defaults(&m_Codec);
        if (coding.CanBeWritten()) {
            if (!grey)
                jpeg_set_colorspace(&m_Codec, coding.isRgb ? JCS_RGB : JCS_YCbCr);
            SetCoding(&m_Codec, coding);
        } else {
            SetQuality(&m_Codec, options);
        }
        constexpr double metresPerInch = 0.0254;
        m_Codec.density_unit = 1; // per inch
        m_Codec.X_density = UINT16(qBound(1, qRound(rows.DotsPerMetreX() * metresPerInch), 0xffff));
        m_Codec.Y_density = UINT16(qBound(1, qRound(rows.DotsPerMetreY() * metresPerInch), 0xffff));
        jpeg_start_compress(&m_Codec, TRUE);
        return true;
    }

    bool WriteRow(const uchar* row)
    {
        if (setjmp(errors.Jump()))
            return false;
        auto* line = const_cast<JSAMPROW>(row);
        return jpeg_write_scanlines(&m_Codec, &line, 1) == 1;
    }

    bool Finish()
    {
        if (setjmp(errors.Jump()))
            return false;
        jpeg_finish_compress(&m_Codec);
        return true;
    }

    bool IsTooLarge() const { return m_Destination.isTooLarge; }

    HBJpegErrors errors;

private:
    jpeg_compress_struct m_Codec;
    Destination m_Destination;
};

bool WriteAll(Encoder* encoder, HBPictureRows& rows, const HBJpegCoding& coding, const HBJpegOptions& options)
{
    if (!encoder->Start(rows, coding, options))
        return false;
    for (int y = 0; y < rows.Height(); ++y) {
        if (!rows.IsWanted(y) || !encoder->WriteRow(rows.Row(y)))
            return false;
    }
    return encoder->Finish();
}

/// The head up to the first scan. The decoder stays usable after a failure.
bool ReadHead(jpeg_decompress_struct* codec, const QByteArray& file, HBJpegErrors* errors)
{
    codec->err = errors->Manager();
    if (setjmp(errors->Jump()))
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
    HBJpegErrors errors;
    jpeg_decompress_struct codec = {};
    if (ReadHead(&codec, file, &errors)) {
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

bool HBWriteJpeg(HBPictureRows& rows, const HBJpegCoding& coding, const HBJpegOptions& options, QByteArray* bytes,
                 QString* reason)
{
    if (coding.components.size() == 1 && rows.IsGrey())
        rows.MakeGrey();
    bytes->clear();
    Encoder encoder(bytes);
    if (WriteAll(&encoder, rows, coding, options))
        return true;
    if (encoder.IsTooLarge())
        return HBFail(reason, HBPhotoText::tr("the file is too large"));
    encoder.errors.ThrowIfOutOfMemory();
    return HBFail(reason, QString::fromLatin1(encoder.errors.Error()));
}
