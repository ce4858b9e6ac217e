#include "capture/image/picture_sink.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace vistrel
{

bool PictureSink::write(const void* bytes, qint64 count)
{
    const bool taken = m_device.write(static_cast<const char*>(bytes), count) == count;
    m_failed = m_failed || !taken;
    return taken;
}

Result<void> PictureSink::state() const
{
    if (!m_failed) return {};
    return Error{Error::Kind::Io, m_device.errorString(), u"writing the picture"_s};
}

vips::VTarget PictureSink::target()
{
    VipsTargetCustom* target = vips_target_custom_new();
    g_signal_connect(target, "write", G_CALLBACK(onWrite), this);
    g_signal_connect(target, "read", G_CALLBACK(onRead), this);
    g_signal_connect(target, "seek", G_CALLBACK(onSeek), this);
    return vips::VTarget(VIPS_TARGET(target));
}

gint64 PictureSink::onWrite(VipsTargetCustom* /*target*/, const void* bytes, gint64 count, PictureSink* sink)
{
    return sink->write(bytes, count) ? count : -1;
}

gint64 PictureSink::onRead(VipsTargetCustom* /*target*/, void* bytes, gint64 count, PictureSink* sink)
{
    return sink->m_device.read(static_cast<char*>(bytes), count);
}

gint64 PictureSink::onSeek(VipsTargetCustom* /*target*/, gint64 offset, int origin, PictureSink* sink)
{
    const qint64 from = origin == SEEK_CUR   ? sink->m_device.pos()
                        : origin == SEEK_END ? sink->m_device.size()
                                             : 0;
    return sink->seek(from + offset) ? from + offset : -1;
}

} // namespace vistrel
