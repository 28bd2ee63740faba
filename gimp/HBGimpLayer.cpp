// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpLayer.h"

#include "HBGimpText.h"

#include <QImage>

#include <cstring>
#include <memory>
#include <vector>

namespace
{

using Bytes = std::vector<std::uint8_t>;

struct Unref
{
    void operator()(GeglBuffer* buffer) const { g_object_unref(buffer); }
};
using Buffer = std::unique_ptr<GeglBuffer, Unref>;

/// How the pixels of a drawable are had in 8 bits. The formats bear the layer's own colour space: nothing is
/// converted from one profile to another.
class Format
{
public:
    explicit Format(gint32 drawable)
        : m_Native(gimp_drawable_get_format(drawable))
        , m_Grey(!gimp_drawable_is_rgb(drawable))
        // GIMP keeps masks and channels linear; their numbers are meant as they are.
        , m_EightBit(babl_format_with_space(gimp_item_is_channel(drawable) ? "Y u8"
                                            : m_Grey                       ? "Y'A u8"
                                                                           : "R'G'B'A u8",
                                            m_Native))
        , m_Color(babl_format_with_space("R'G'B'A u8", m_Native))
        , m_Size(babl_format_get_bytes_per_pixel(m_EightBit))
        , m_NativeSize(babl_format_get_bytes_per_pixel(m_Native))
    {
    }

    const Babl* Native() const { return m_Native; }
    const Babl* EightBit() const { return m_EightBit; }
    std::size_t Size() const { return std::size_t(m_Size); }
    std::size_t NativeSize() const { return std::size_t(m_NativeSize); }
    bool IsGrey() const { return m_Grey; }

    HBRGBA32i Pixel(const std::uint8_t* bytes) const
    {
        switch (m_Size) {
        case 1:
            return {bytes[0], bytes[0], bytes[0], 255};
        case 2:
            return {bytes[0], bytes[0], bytes[0], bytes[1]};
        default:
            return {bytes[0], bytes[1], bytes[2], bytes[3]};
        }
    }

    /// One row of pixels to the layer's own form.
    void ToNative(const HBRGBA32i* pixels, int count, std::uint8_t* native)
    {
        m_Colors.resize(std::size_t(count) * 4);
        for (int x = 0; x < count; ++x) {
            const std::uint8_t rgba[] = {pixels[x].red, pixels[x].green, pixels[x].blue, pixels[x].alpha};
            std::memcpy(&m_Colors[std::size_t(x) * 4], rgba, 4);
        }
        if (!m_Grey) {
            babl_process(babl_fish(m_Color, m_Native), m_Colors.data(), native, count);
            return;
        }
        m_Greys.resize(std::size_t(count) * Size());
        babl_process(babl_fish(m_Color, m_EightBit), m_Colors.data(), m_Greys.data(), count);
        for (int x = 0; x < count; ++x) {
            // The same number, whatever the way over the luminance makes of it.
            if (pixels[x].red == pixels[x].green && pixels[x].green == pixels[x].blue)
                m_Greys[std::size_t(x) * Size()] = pixels[x].red;
        }
        babl_process(babl_fish(m_EightBit, m_Native), m_Greys.data(), native, count);
    }

private:
    const Babl* m_Native;
    bool m_Grey;
    const Babl* m_EightBit;
    const Babl* m_Color;
    int m_Size;
    int m_NativeSize;
    Bytes m_Colors;
    Bytes m_Greys;
};

GeglRectangle Rectangle(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

void ReadTile(GeglBuffer* buffer, const Format& format, Bytes* bytes, HBImage<>* image, int index)
{
    HBTileAccess tile(*image, index);
    const QRect area = tile.Area();
    bytes->resize(std::size_t(area.width()) * std::size_t(area.height()) * format.Size());
    const GeglRectangle rectangle = Rectangle(area);
    gegl_buffer_get(buffer, &rectangle, 1, format.EightBit(), bytes->data(), GEGL_AUTO_ROWSTRIDE, GEGL_ABYSS_NONE);
    HBRGBA32i* const pixels = tile.Pixels();
    const std::uint8_t* from = bytes->data();
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x, from += format.Size())
            pixels[y * HBImage<>::TileSide + x] = format.Pixel(from);
    }
}

/// What a drawable has of the image's selection.
struct Selection
{
    QRect area; ///< in pixels of the drawable
    bool isThere = false;
};

Selection SelectionOn(gint32 drawable)
{
    Selection selection;
    gint x = 0;
    gint y = 0;
    gint width = 0;
    gint height = 0;
    selection.isThere = !gimp_selection_is_empty(gimp_item_get_image(drawable));
    if (gimp_drawable_mask_intersect(drawable, &x, &y, &width, &height))
        selection.area = {x, y, width, height};
    return selection;
}

void ReadSelection(gint32 drawable, HBTarget* target)
{
    const Selection selection = SelectionOn(drawable);
    if (!selection.isThere)
        return;
    // Of what is selected elsewhere there is nothing to read: one pixel without coverage.
    const QRect area = selection.area.isValid() ? selection.area : QRect(0, 0, 1, 1);
    QImage mask(area.size(), QImage::Format_Alpha8);
    if (mask.isNull())
        throw std::bad_alloc();
    mask.fill(0);
    if (selection.area.isValid()) {
        gint x = 0;
        gint y = 0;
        gimp_drawable_offsets(drawable, &x, &y);
        const Buffer buffer(gimp_drawable_get_buffer(gimp_image_get_selection(gimp_item_get_image(drawable))));
        const GeglRectangle rectangle = Rectangle(area.translated(x, y));
        gegl_buffer_get(buffer.get(), &rectangle, 1, babl_format("Y u8"), mask.bits(), mask.bytesPerLine(),
                        GEGL_ABYSS_NONE);
    }
    target->selection = HBImage<>::FromQImage(mask);
    target->offset = area.topLeft();
    target->bounds = mask.rect();
}

/// What the adjustment has changed, as far as a write must know it.
struct Changes
{
    std::vector<bool> tiles;
    QRect area; ///< around all changed tiles
    bool colored = false;
};

Changes Compare(const HBImage<>& source, const HBImage<>& adjusted)
{
    Changes changes;
    changes.tiles.resize(std::size_t(source.Tiles().size()));
    for (int index = 0; index < source.Tiles().size(); ++index) {
        if (source.Tile(index) == adjusted.Tile(index))
            continue;
        const QRect area = source.TileRect(index);
        const KMTilePin<HBRGBA32i> before(source.Tile(index), false);
        const KMTilePin<HBRGBA32i> after(adjusted.Tile(index), false);
        bool changed = false;
        for (int i = 0; i < HBImage<>::TilePixels; ++i) {
            if (i % HBImage<>::TileSide >= area.width() || i / HBImage<>::TileSide >= area.height())
                continue;
            const HBRGBA32i pixel = after.Pixels()[i];
            if (before.Pixels()[i] == pixel)
                continue;
            changed = true;
            changes.colored |= pixel.red != pixel.green || pixel.green != pixel.blue;
        }
        changes.tiles[std::size_t(index)] = changed;
        if (changed)
            changes.area |= area;
    }
    return changes;
}

/// Puts the changed pixels of a tile into the buffer that becomes the layer.
void WriteTile(GeglBuffer* layer, GeglBuffer* shadow, Format* format, const HBImage<>& source,
               const HBImage<>& adjusted, int index)
{
    const QRect area = source.TileRect(index);
    const GeglRectangle rectangle = Rectangle(area);
    const std::size_t size = format->NativeSize();
    const std::size_t row = std::size_t(area.width()) * size;
    Bytes native(row * std::size_t(area.height()));
    Bytes converted(row);
    gegl_buffer_get(layer, &rectangle, 1, format->Native(), native.data(), GEGL_AUTO_ROWSTRIDE, GEGL_ABYSS_NONE);
    const KMTilePin<HBRGBA32i> before(source.Tile(index), false);
    const KMTilePin<HBRGBA32i> after(adjusted.Tile(index), false);
    for (int y = 0; y < area.height(); ++y) {
        const HBRGBA32i* const old = before.Pixels() + y * HBImage<>::TileSide;
        const HBRGBA32i* const pixels = after.Pixels() + y * HBImage<>::TileSide;
        format->ToNative(pixels, area.width(), converted.data());
        for (int x = 0; x < area.width(); ++x) {
            if (old[x] != pixels[x])
                std::memcpy(&native[std::size_t(y) * row + std::size_t(x) * size],
                            &converted[std::size_t(x) * size], size);
        }
    }
    gegl_buffer_set(shadow, &rectangle, 0, format->Native(), native.data(), GEGL_AUTO_ROWSTRIDE);
}

/// An area of the drawable on the canvas; null if some of it lies beyond.
QRect OnCanvas(gint32 drawable, const QRect& area)
{
    const gint32 image = gimp_item_get_image(drawable);
    gint x = 0;
    gint y = 0;
    gimp_drawable_offsets(drawable, &x, &y);
    const QRect canvas(0, 0, gimp_image_width(image), gimp_image_height(image));
    return canvas.contains(area.translated(x, y)) ? area.translated(x, y) : QRect();
}

/// The selection put aside for a write: GIMP blends by it what it is given, but ours is blended already. What
/// GIMP may change, and keeps for an undo, is the area alone. In an undo group, which makes one step of all.
class SelectionAside
{
public:
    SelectionAside(gint32 drawable, const QRect& area)
        : m_Image(gimp_item_get_image(drawable))
        , m_Layer(gimp_image_get_active_layer(m_Image))
        , m_ActiveChannel(gimp_image_get_active_channel(m_Image))
        , m_EditMask(m_Layer != -1 && gimp_layer_get_edit_mask(m_Layer))
        , m_Saved(gimp_selection_save(m_Image))
    {
        const QRect onCanvas = OnCanvas(drawable, area);
        gimp_context_push();
        gimp_context_set_feather(FALSE);
        if (!onCanvas.isNull())
            gimp_image_select_rectangle(m_Image, GIMP_CHANNEL_OP_REPLACE, onCanvas.x(), onCanvas.y(),
                                        onCanvas.width(), onCanvas.height());
        else // no selection reaches beyond the canvas
            gimp_selection_none(m_Image);
    }
    ~SelectionAside()
    {
        gimp_image_select_item(m_Image, GIMP_CHANNEL_OP_REPLACE, m_Saved);
        gimp_context_pop();
        gimp_image_remove_channel(m_Image, m_Saved);
        // Adding a channel has made it the active one.
        if (m_ActiveChannel != -1)
            gimp_image_set_active_channel(m_Image, m_ActiveChannel);
        else if (m_Layer != -1)
            gimp_image_set_active_layer(m_Image, m_Layer);
        if (m_EditMask)
            gimp_layer_set_edit_mask(m_Layer, TRUE);
    }
    SelectionAside(const SelectionAside&) = delete;
    SelectionAside& operator=(const SelectionAside&) = delete;

private:
    gint32 m_Image;
    gint32 m_Layer;
    gint32 m_ActiveChannel;
    bool m_EditMask;
    gint32 m_Saved;
};

class UndoGroup
{
public:
    explicit UndoGroup(gint32 image) : m_Image(image) { gimp_image_undo_group_start(m_Image); }
    ~UndoGroup() { gimp_image_undo_group_end(m_Image); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    gint32 m_Image;
};

/// Each tile goes through GIMP's pipe; what the user is told of them does, too: not of all.
void Tell(const HBGimpLayer::Progress& progress, int done, int count)
{
    constexpr int Often = 16;
    if (progress && done % Often == 0)
        progress(double(done) / count);
}

/// \param whole the shadow needs all that GIMP will take of it
void FillShadow(gint32 drawable, const HBImage<>& source, const HBImage<>& adjusted, const Changes& changes,
                const QRect& whole, const HBGimpLayer::Progress& progress)
{
    const Buffer layer(gimp_drawable_get_buffer(drawable));
    const Buffer shadow(gimp_drawable_get_shadow_buffer(drawable));
    Format format(drawable);
    for (int index = 0; index < source.Tiles().size(); ++index) {
        Tell(progress, index, source.Tiles().size());
        const QRect area = source.TileRect(index);
        if (changes.tiles[std::size_t(index)]) {
            WriteTile(layer.get(), shadow.get(), &format, source, adjusted, index);
        } else if (whole.intersects(area)) {
            const GeglRectangle rectangle = Rectangle(area);
            gegl_buffer_copy(layer.get(), &rectangle, GEGL_ABYSS_NONE, shadow.get(), &rectangle);
        }
    }
    gegl_buffer_flush(shadow.get());
}

} // namespace

bool HBGimpLayer::Check(QString* reason) const
{
    if (!gimp_item_is_valid(m_Drawable) || !gimp_item_is_drawable(m_Drawable))
        *reason = HBGimpText::tr("The layer is no longer there.");
    else if (gimp_drawable_is_indexed(m_Drawable))
        *reason = HBGimpText::tr("The image has indexed colors. Convert it first: Image > Mode > RGB.");
    else if (gimp_item_is_group(m_Drawable))
        *reason = HBGimpText::tr("A layer group has no pixels of its own. Choose one of its layers.");
    else if (gimp_item_get_lock_content(m_Drawable))
        *reason = HBGimpText::tr("The pixels of the layer are locked.");
    else
        return true;
    return false;
}

bool HBGimpLayer::IsExact() const
{
    const GimpPrecision precision = gimp_image_get_precision(gimp_item_get_image(m_Drawable));
    return precision == GIMP_PRECISION_U8_GAMMA ||
           (precision == GIMP_PRECISION_U8_LINEAR && gimp_item_is_channel(m_Drawable));
}

QString HBGimpLayer::Warning() const
{
    QStringList warnings;
    if (!IsExact())
        warnings += HBGimpText::tr("What changes is stored with 8 bits of accuracy; the image has more.");
    if (gimp_drawable_is_gray(m_Drawable))
        warnings += HBGimpText::tr("This is gray: colors become shades of gray.");
    return warnings.join(' ');
}

void HBGimpLayer::Read(HBTarget* target, const Progress& progress) const
{
    target->source = HBImage<>(gimp_drawable_width(m_Drawable), gimp_drawable_height(m_Drawable));
    const Buffer buffer(gimp_drawable_get_buffer(m_Drawable));
    const Format format(m_Drawable);
    Bytes bytes;
    const int count = target->source.Tiles().size();
    for (int index = 0; index < count; ++index) {
        Tell(progress, index, count);
        ReadTile(buffer.get(), format, &bytes, &target->source, index);
    }
    ReadSelection(m_Drawable, target);
}

bool HBGimpLayer::IsSelectionElsewhere() const
{
    const Selection selection = SelectionOn(m_Drawable);
    return selection.isThere && !selection.area.isValid();
}

bool HBGimpLayer::Write(const HBImage<>& source, const HBImage<>& adjusted, Written* written, QString* reason,
                        const Progress& progress) const
{
    if (!Check(reason))
        return false;
    const QSize size(gimp_drawable_width(m_Drawable), gimp_drawable_height(m_Drawable));
    if (size != QSize(source.Width(), source.Height()) || size != QSize(adjusted.Width(), adjusted.Height())) {
        *reason = HBGimpText::tr("The layer has another size by now.");
        return false;
    }
    const Changes changes = Compare(source, adjusted);
    written->changed = !changes.area.isEmpty();
    if (!written->changed)
        return true;

    if (changes.colored && gimp_drawable_is_gray(m_Drawable))
        written->notes +=
            HBGimpText::tr("The image is gray: colors were stored as shades of gray. To keep them, convert "
                           "it first: Image > Mode > RGB.");
    if (!IsExact())
        written->notes += HBGimpText::tr("What changed was stored with 8 bits of accuracy; the image has more.");

    // With the progress GIMP shows a Cancel, which ends this process: nothing of the image may change before the
    // group.
    const bool selected = SelectionOn(m_Drawable).isThere;
    const bool inside = selected && !OnCanvas(m_Drawable, changes.area).isNull();
    FillShadow(m_Drawable, source, adjusted, changes, inside ? changes.area : QRect(QPoint(0, 0), size), progress);
    const UndoGroup group(gimp_item_get_image(m_Drawable));
    std::unique_ptr<SelectionAside> aside;
    if (selected)
        aside = std::make_unique<SelectionAside>(m_Drawable, changes.area);
    gimp_drawable_merge_shadow(m_Drawable, TRUE);
    gimp_drawable_update(m_Drawable, changes.area.x(), changes.area.y(), changes.area.width(),
                         changes.area.height());
    return true;
}
