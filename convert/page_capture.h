#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

namespace vistrel
{

/// The page-capture component as the conversion run sees it: loads one page, keeps its picture and hands back
/// encoded image files. All calls come on one thread. Every operation throws RuntimeError (Automation) when
/// it cannot be carried out at all; a page that could not be captured is no such failure, it is a status.
///
/// An event handler that runs inside CapturePage may release the instance: the capture then ends at once, and
/// the call returns normally.
class PageCapture
{
public:
    virtual ~PageCapture() = default;

    /// Loads url (an address, or a path of a local file), waits and keeps the picture. Returns when the
    /// capture has finished, failed or run out of time. Meanwhile the event loop runs and the progress
    /// handler is called. The second argument is always "*" and means nothing.
    virtual void CapturePage(const QString& url, const QString& pattern) = 0;

    /// Longest time that one CapturePage may take. 0 means the component's own default.
    virtual void SetCaptureTimeout(qint32 milliseconds) = 0;
    /// Wait between the page being loaded and its picture being taken.
    virtual void SetRenderDelay(qint32 milliseconds) = 0;
    virtual void SetAllowActiveX(bool value) = 0;
    virtual void SetAllowJava(bool value) = 0;
    virtual void SetAllowScript(bool value) = 0;
    /// 1 to 100, used when an image is encoded as JPEG.
    virtual void SetJpegQuality(qint32 quality) = 0;

    /// Drops the picture of the last capture.
    virtual void ReleaseImage() = 0;

    /// 1: a picture is held and may be fetched. Every other value: the last capture failed.
    [[nodiscard]] virtual qint32 GetCaptureStatus() = 0;

    /// The whole encoded image file at full size. The encoding is named by what follows pattern's last dot:
    /// "png", "jpg", "gif", "bmp" or "tif".
    [[nodiscard]] virtual QByteArray GetImageBytes(const QString& pattern) = 0;

    /// As GetImageBytes, width x height pixels. The last argument is always 0.
    [[nodiscard]] virtual QByteArray GetThumbnailBytes(const QString& pattern, qint32 width, qint32 height,
                                                       qint32 mode) = 0;

    /// Called from inside CapturePage with the progress of the current page, 0 to 100 percent.
    using ProgressHandler = std::function<void(qint32 percent)>;
    /// Subscribes the one listener; an empty handler ends the subscription. Never fails.
    virtual void setProgressHandler(ProgressHandler handler) = 0;
};

/// Creates a component instance, never null; one is made per run. extension, ".png" or the like, is that of
/// the files the run will fetch. Throws RuntimeError (Automation) when it cannot.
using PageCaptureFactory = std::function<std::shared_ptr<PageCapture>(const QString& extension)>;

} // namespace vistrel
