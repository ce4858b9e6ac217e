#include "capture/image/gif_writer.h"

#include "capture/image/ditherer.h"
#include "capture/image/palette.h"

#include <QSize>

#include <memory>

#include <gif_lib.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qsizetype kWriteAtOnce = 65536; // Bytes; the library itself writes 255 at a time.

struct FreeMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using ColourMap = std::unique_ptr<ColorMapObject, FreeMap>;

ColourMap mapOf(const QList<QRgb>& palette)
{
    ColourMap map(GifMakeMapObject(1 << GifBitSize(int(palette.size())), nullptr));
    for (qsizetype i = 0; map && i < palette.size(); ++i)
        map->Colors[i] = {uchar(qRed(palette[i])), uchar(qGreen(palette[i])), uchar(qBlue(palette[i]))};
    return map;
}

/// The stream of one frame; what goes wrong shows when it is closed.
class GifStream
{
public:
    GifStream(PictureSink& sink, QSize size, const QList<QRgb>& palette) : m_sink(sink)
    {
        const ColourMap map = mapOf(palette);
        m_gif = EGifOpen(this, append, nullptr);
        m_good = map && m_gif != nullptr &&
                 EGifPutScreenDesc(m_gif, size.width(), size.height(), 8, 0, map.get()) == GIF_OK &&
                 EGifPutImageDesc(m_gif, 0, 0, size.width(), size.height(), false, nullptr) == GIF_OK;
    }
    GifStream(const GifStream&) = delete;
    GifStream& operator=(const GifStream&) = delete;
    ~GifStream() { close(); }

    bool putRow(QByteArray& indices)
    {
        m_good = m_good &&
                 EGifPutLine(m_gif, reinterpret_cast<uchar*>(indices.data()), int(indices.size())) == GIF_OK;
        return m_good;
    }

    /// Whether the file is complete.
    bool close()
    {
        if (m_gif == nullptr) return m_good;
        const bool closed = EGifCloseFile(m_gif, nullptr) == GIF_OK;
        m_gif = nullptr;
        m_good = m_good && closed && flush();
        return m_good;
    }

private:
    static int append(GifFileType* gif, const GifByteType* bytes, int count)
    {
        auto* stream = static_cast<GifStream*>(gif->UserData);
        stream->m_pending.append(reinterpret_cast<const char*>(bytes), count);
        return stream->m_pending.size() < kWriteAtOnce || stream->flush() ? count : 0;
    }

    bool flush()
    {
        const bool written = m_sink.write(m_pending.constData(), m_pending.size());
        m_pending.resize(0);
        return written;
    }

    PictureSink& m_sink;
    QByteArray m_pending;
    GifFileType* m_gif = nullptr;
    bool m_good = false;
};

Result<QList<QRgb>> paletteFor(const vips::VImage& image)
{
    PaletteChooser chooser;
    readRows(image, [&](const Rows& rows) {
        chooser.add(rows, image.width());
        return true;
    });
    return chooser.palette();
}

} // namespace

Result<void> writeGif(const std::function<vips::VImage()>& open, PictureSink& sink)
{
    const auto palette = paletteFor(open());
    if (!palette) return palette.error();
    const vips::VImage image = open();
    GifStream stream(sink, {image.width(), image.height()}, *palette);
    Ditherer ditherer(*palette, image.width());
    QByteArray indices(image.width(), Qt::Uninitialized);
    readRows(image, [&](const Rows& rows) {
        bool taken = true;
        for (int row = 0; row < rows.count && taken; ++row) {
            ditherer.map(rows.row(row), reinterpret_cast<uchar*>(indices.data()));
            taken = stream.putRow(indices);
        }
        return taken;
    });
    if (stream.close()) return {};
    return Error{Error::Kind::Format, u"the frame cannot be written"_s, u"encoding the picture"_s};
}

} // namespace vistrel
