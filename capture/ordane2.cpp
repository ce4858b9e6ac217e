#include "capture/ordane2.h"

#include "capture/browser_keeper.h"
#include "capture/page/address.h"
#include "capture/page/page_run.h"
#include "platform/log.h"
#include "platform/runtime_error.h"

#include <QBuffer>
#include <QEventLoop>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint32 kImageHeld = 1;
constexpr qint32 kFailed = 0;

ImageFormat formatOf(const QString& pattern)
{
    const auto format = imageFormatOf(pattern.mid(pattern.lastIndexOf(u'.') + 1));
    if (!format) throw RuntimeError(RuntimeError::Number::Automation);
    return *format;
}

/// What encode, which is given a device, writes there.
template<typename Encode>
QByteArray bytesOrThrow(Encode encode)
{
    QBuffer buffer;
    buffer.open(QBuffer::ReadWrite);
    const Result<void> encoded = encode(buffer);
    if (encoded) return buffer.data();
    qCWarning(logPage).noquote() << encoded.error().text();
    throw RuntimeError(RuntimeError::Number::Automation);
}

} // namespace

class Ordane2::Engine : public QObject, public std::enable_shared_from_this<Engine>
{
public:
    Engine(BrowserOptions options, std::optional<ImageFormat> intended)
        : m_keeper(std::move(options)), m_intended(intended)
    {
        // The browser is several times faster at it, and no pixel is encoded twice.
        if (intended == ImageFormat::Jpeg) m_request.encoding = PagePicture::Encoding::Jpeg;
    }

    void capture(const QString& entry)
    {
        releasePicture();
        QEventLoop loop;
        m_loop = &loop;
        const auto task = flow(entry);
        if (!task.isReady()) loop.exec();
        m_loop = nullptr;
    }

    void giveUp()
    {
        m_progress = {};
        if (m_run) m_run->cancel();
        m_keeper.stop();
    }

    void releasePicture() { m_picture = {}; }
    [[nodiscard]] const PagePicture& picture() const { return m_picture; }

    PageRequest m_request;
    ProgressHandler m_progress;

private:
    Task<> flow(QString entry)
    {
        const auto self = shared_from_this();
        auto shot = co_await takeShot(entry);
        if (shot)
            m_picture = std::move(shot->picture);
        else
            qCWarning(logPage).noquote() << entry << "was not captured:" << shot.error().text();
        m_run.reset();
        if (m_loop != nullptr) m_loop->quit();
    }

    /// A page that loses its browser gets another one, once, in what is left of its time.
    Task<Result<PageShot>> takeShot(QString entry)
    {
        auto request = m_request;
        const auto addresses = resolveAddress(entry);
        if (!addresses) co_return addresses.error();
        request.addresses = *addresses;
        const QDeadlineTimer end(PageRun::timeoutOf(request));
        std::shared_ptr<Browser> lost; // Kept to the end: it may just be telling that it is.
        for (;;) {
            const auto browser = co_await m_keeper.browser(std::chrono::milliseconds(end.remainingTime()));
            if (!browser) co_return browser.error();
            auto shot = co_await takeShotIn(*browser, request, end);
            const bool isLost = !shot && shot.error().kind == Error::Kind::Closed && !(*browser)->isUsable();
            if (!isLost || lost || end.hasExpired()) co_return shot;
            lost = *browser;
        }
    }

    Task<Result<PageShot>> takeShotIn(std::shared_ptr<Browser> browser, PageRequest request,
                                      QDeadlineTimer end)
    {
        m_run = PageRun::create(std::move(browser), std::move(request));
        connect(m_run.get(), &PageRun::progress, this, [this](int percent) {
            if (m_progress) m_progress(percent);
        });
        auto shot = co_await m_run->run(end);
        if (!shot || !m_intended) co_return shot;
        const auto fits = checkFits(shot->picture.size(), *m_intended);
        if (!fits) co_return fits.error();
        co_return shot;
    }

    BrowserKeeper m_keeper;
    std::optional<ImageFormat> m_intended;
    std::shared_ptr<PageRun> m_run; // While a capture is under way.
    QEventLoop* m_loop = nullptr;   // Likewise.
    PagePicture m_picture;
};

Ordane2::Ordane2(BrowserOptions options, std::optional<ImageFormat> intended)
    : m_engine(std::make_shared<Engine>(std::move(options), intended))
{
}

Ordane2::~Ordane2() { m_engine->giveUp(); }

void Ordane2::CapturePage(const QString& url, const QString& /*pattern*/)
{
    const auto engine = m_engine; // This instance may be released meanwhile.
    engine->capture(url);
}

void Ordane2::SetCaptureTimeout(qint32 milliseconds)
{
    m_engine->m_request.timeout = std::chrono::milliseconds(milliseconds);
}

void Ordane2::SetRenderDelay(qint32 milliseconds)
{
    m_engine->m_request.delay = std::chrono::milliseconds(milliseconds);
}

void Ordane2::SetAllowActiveX(bool /*value*/) {}

void Ordane2::SetAllowJava(bool /*value*/) {}

void Ordane2::SetAllowScript(bool value) { m_engine->m_request.allowScript = value; }

void Ordane2::SetJpegQuality(qint32 quality)
{
    m_engine->m_request.jpegQuality = std::clamp(quality, 1, 100);
}

void Ordane2::ReleaseImage() { m_engine->releasePicture(); }

qint32 Ordane2::GetCaptureStatus() { return m_engine->picture().isNull() ? kFailed : kImageHeld; }

QByteArray Ordane2::GetImageBytes(const QString& pattern)
{
    if (m_engine->picture().isNull()) throw RuntimeError(RuntimeError::Number::Automation);
    return bytesOrThrow([&](QIODevice& device) {
        return encodeImage(m_engine->picture(), formatOf(pattern), m_engine->m_request.jpegQuality, device);
    });
}

QByteArray Ordane2::GetThumbnailBytes(const QString& pattern, qint32 width, qint32 height, qint32 /*mode*/)
{
    if (m_engine->picture().isNull()) throw RuntimeError(RuntimeError::Number::Automation);
    const QSize size(std::clamp(width, 1, kLongestThumbnailSide),
                     std::clamp(height, 1, kLongestThumbnailSide));
    return bytesOrThrow([&](QIODevice& device) {
        return encodeThumbnail(m_engine->picture(), formatOf(pattern), m_engine->m_request.jpegQuality, size,
                               device);
    });
}

void Ordane2::setProgressHandler(ProgressHandler handler) { m_engine->m_progress = std::move(handler); }

} // namespace vistrel
