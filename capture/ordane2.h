#pragma once

#include "capture/browser/browser_options.h"
#include "capture/image/image_encoder.h"
#include "convert/page_capture.h"

#include <memory>

namespace vistrel
{

/// The page-capture component, on a browser of its own that it starts with the first capture, keeps for the
/// next ones and ends with itself. Pages are 1280 CSS px wide and captured at their full height.
///
/// Failures of a page or of the browser are a status other than 1, with the reason in the log. RuntimeError
/// (Automation) is for calls that make no sense: fetching an image while none is held, an unknown encoding,
/// an image that does not fit its format.
class Ordane2 : public PageCapture
{
public:
    /// intended: the format that images will be fetched in, where it is known: the capture of a page that it
    /// cannot hold then fails, instead of the fetching. For JPEG the quality is that at the capture's time.
    explicit Ordane2(BrowserOptions options = {}, std::optional<ImageFormat> intended = std::nullopt);
    /// Ends a capture that is under way.
    ~Ordane2() override;

    void CapturePage(const QString& url, const QString& pattern) override;

    void SetCaptureTimeout(qint32 milliseconds) override;
    void SetRenderDelay(qint32 milliseconds) override;
    void SetAllowActiveX(bool value) override; ///< Kept without effect: no engine of today runs them.
    void SetAllowJava(bool value) override;    ///< Kept without effect: no engine of today runs them.
    void SetAllowScript(bool value) override;
    void SetJpegQuality(qint32 quality) override;

    void ReleaseImage() override;
    [[nodiscard]] qint32 GetCaptureStatus() override;
    [[nodiscard]] QByteArray GetImageBytes(const QString& pattern) override;
    /// A size of 0 or less gives no thumbnail: no bytes.
    [[nodiscard]] QByteArray GetThumbnailBytes(const QString& pattern, qint32 width, qint32 height,
                                               qint32 mode) override;
    void setProgressHandler(ProgressHandler handler) override;

private:
    class Engine;
    std::shared_ptr<Engine> m_engine; // Shared with a CapturePage that is under way, which may outlive us.
};

} // namespace vistrel
