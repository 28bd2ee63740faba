// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJpegReader.h"

#include "HBJpegErrors.h"

#include <vector>

namespace
{

struct Progress
{
    jpeg_progress_mgr manager; // first: the library knows no more of this
    const HBStraightRead* read;
};

/// While the library takes in the many passes of a progressive file, it gives back no rows.
void OnProgress(j_common_ptr codec)
{
    if (!reinterpret_cast<const Progress*>(codec->progress)->read->IsWanted())
        codec->err->error_exit(codec);
}

/// A decoder that is freed however its use ends.
class Decoder
{
public:
    explicit Decoder(const HBStraightRead* read) : m_Codec(), m_Progress{}
    {
        m_Codec.err = errors.Manager();
        m_Progress.manager.progress_monitor = OnProgress;
        m_Progress.read = read;
    }
    ~Decoder() { jpeg_destroy_decompress(&m_Codec); }
    Q_DISABLE_COPY(Decoder)

    const jpeg_decompress_struct& Codec() const { return m_Codec; }

    bool ReadHead(const QByteArray& file)
    {
        if (setjmp(errors.Jump()))
            return false;
        jpeg_create_decompress(&m_Codec);
        m_Codec.progress = &m_Progress.manager;
        jpeg_mem_src(&m_Codec, reinterpret_cast<const unsigned char*>(file.constData()),
                     static_cast<unsigned long>(file.size()));
        return jpeg_read_header(&m_Codec, TRUE) == JPEG_HEADER_OK;
    }

    bool Start()
    {
        if (setjmp(errors.Jump()))
            return false;
        // QRgb, opaque; or four inks in its place.
        m_Codec.out_color_space = m_Codec.num_components == 4       ? JCS_CMYK
                                  : Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRA
                                                                    : JCS_EXT_ARGB;
        return jpeg_start_decompress(&m_Codec);
    }

    /// \param rows `stride` pixels apart
    bool ReadRows(QRgb* rows, int count, int stride)
    {
        if (setjmp(errors.Jump()))
            return false;
        for (int done = 0; done < count;) {
            // As many as the library makes at once.
            JSAMPROW pointers[16];
            int asked = 0;
            for (; asked < 16 && done + asked < count; ++asked)
                pointers[asked] = reinterpret_cast<JSAMPROW>(rows + qptrdiff(done + asked) * stride);
            done += int(jpeg_read_scanlines(&m_Codec, pointers, JDIMENSION(asked)));
        }
        return true;
    }

    bool Finish()
    {
        if (setjmp(errors.Jump()))
            return false;
        return jpeg_finish_decompress(&m_Codec);
    }

    HBJpegErrors errors;

private:
    jpeg_decompress_struct m_Codec;
    Progress m_Progress;
};

bool ReadPixels(Decoder* decoder, HBStraightRead* read)
{
    const QSize size(int(decoder->Codec().image_width), int(decoder->Codec().image_height));
    if (!read->Begin(size) || !decoder->Start())
        return false;
    std::vector<QRgb> rows(size_t(size.width()) * HBUprightTiles::RowsAtOnce);
    for (int first = 0; first < size.height(); first += HBUprightTiles::RowsAtOnce) {
        const int count = qMin(HBUprightTiles::RowsAtOnce, size.height() - first);
        if (!read->IsWanted() || !decoder->ReadRows(rows.data(), count, size.width()))
            return false;
        if (decoder->Codec().num_components == 4)
            read->print->Convert(rows.data(), count * size.width());
        read->tiles.Put(first, count, rows.data(), size.width());
    }
    return decoder->Finish();
}

} // namespace

HBStraightRead::Outcome HBReadJpeg(const QByteArray& file, HBStraightRead* read)
{
    Decoder decoder(read);
    const jpeg_decompress_struct& codec = decoder.Codec();
    const auto isForPrint = [&] {
        return codec.num_components == 4 && read->print && read->print->Begin(codec.saw_Adobe_marker);
    };
    const bool known =
        decoder.ReadHead(file) && (codec.num_components == 1 || codec.num_components == 3 || isForPrint());
    if (!known) {
        decoder.errors.ThrowIfOutOfMemory();
        return HBStraightRead::LeftToQt;
    }
    const double unit = codec.density_unit == 1 ? 2.54 : 1; // inches, in centimetres
    if (codec.density_unit == 1 || codec.density_unit == 2) {
        read->dotsPerMetreX = int(100. * codec.X_density / unit);
        read->dotsPerMetreY = int(100. * codec.Y_density / unit);
    }
    const bool whole = ReadPixels(&decoder, read);
    read->lacksPixels = decoder.errors.LacksPixels();
    if (decoder.errors.Remark()[0])
        read->remarks.append(QString::fromLatin1(decoder.errors.Remark()));
    if (whole)
        return HBStraightRead::Read;
    decoder.errors.ThrowIfOutOfMemory();
    read->reason = QString::fromLatin1(decoder.errors.Error());
    return HBStraightRead::Failed;
}
