#pragma once

#include "platform/result.h"

#include <QIODevice>

#include <vips/vips8>

namespace vistrel
{

/// Where the bytes of an image file go while it is encoded. It remembers whether all were taken. One thread
/// at a time.
class PictureSink
{
public:
    /// device is open for reading and writing, of random access, and outlives the sink.
    explicit PictureSink(QIODevice& device) : m_device(device) {}
    PictureSink(const PictureSink&) = delete;
    PictureSink& operator=(const PictureSink&) = delete;

    /// False when not all count bytes were taken.
    bool write(const void* bytes, qint64 count);
    /// Goes on at offset, in bytes from the start; false where the device cannot.
    bool seek(qint64 offset) { return m_device.seek(offset); }

    /// The sink as the imaging library's savers take it, which write from threads of their own. The sink
    /// outlives it.
    [[nodiscard]] vips::VTarget target();

    /// Error::Kind::Io once the device did not take something.
    [[nodiscard]] Result<void> state() const;

private:
    static gint64 onWrite(VipsTargetCustom* target, const void* bytes, gint64 count, PictureSink* sink);
    static gint64 onRead(VipsTargetCustom* target, void* bytes, gint64 count, PictureSink* sink);
    static gint64 onSeek(VipsTargetCustom* target, gint64 offset, int origin, PictureSink* sink);

    QIODevice& m_device;
    bool m_failed = false;
};

} // namespace vistrel
