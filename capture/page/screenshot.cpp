#include "capture/page/screenshot.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Rows that are coded together in a JPEG file: strips are joined where they end.
constexpr int kJpegRows = 16;

/// The fewest CSS px that are whole pixels, and whole kJpegRows of a JPEG.
int wholeRows(const ShotSettings& settings)
{
    const int multiple = 100 * (settings.encoding == PagePicture::Encoding::Jpeg ? kJpegRows : 1);
    return multiple / std::gcd(multiple, int(std::lround(settings.scale * 100)));
}

/// 15 s and 1 s for each million pixels.
Session::Limit drawingLimit(QSize size)
{
    return std::chrono::seconds(15 + qint64(size.width()) * size.height() / 1000000);
}

QJsonObject stripParams(QRect strip, const ShotSettings& settings)
{
    const QJsonObject clip{{u"x"_s, strip.x()},
                           {u"y"_s, strip.y()},
                           {u"width"_s, strip.width()},
                           {u"height"_s, strip.height()},
                           {u"scale"_s, 1}};
    QJsonObject params{{u"clip"_s, clip}};
    if (settings.encoding == PagePicture::Encoding::Jpeg) {
        params.insert(u"format"_s, u"jpeg"_s);
        params.insert(u"quality"_s, settings.jpegQuality);
    } else {
        params.insert(u"format"_s, u"png"_s);
        params.insert(u"optimizeForSpeed"_s, true);
    }
    return params;
}

/// The least whole pixels that cover the content, cut at the window's sides where it reaches too far beyond.
QRect contentArea(const QJsonObject& content, QSize viewport)
{
    int left = int(std::floor(content[u"x"].toDouble()));
    int width = std::max(viewport.width(), int(std::ceil(content[u"width"].toDouble())));
    if (width > kMostWindowWidths * viewport.width()) {
        left = 0;
        width = viewport.width();
    }
    const int top = int(std::floor(content[u"y"].toDouble()));
    return {left, top, width, std::max(viewport.height(), int(std::ceil(content[u"height"].toDouble())))};
}

} // namespace

int stripRows(QRect area, const ShotSettings& settings)
{
    const double byPixels = double(kMostStripPixels) / (area.width() * settings.scale);
    const int rows = int(std::min(byPixels, double(settings.longestSide)) / settings.scale);
    return area.height() <= rows ? area.height() : rows - rows % wholeRows(settings);
}

Task<Result<QRect>> measurePage(std::shared_ptr<Session> session, QSize viewport)
{
    const auto metrics = co_await session->call(u"Page.getLayoutMetrics"_s);
    if (!metrics) co_return metrics.error().during(u"measuring the page"_s);
    co_return contentArea(metrics->result.value(u"cssContentSize"_s).toObject(), viewport);
}

Result<void> checkArea(QRect area, const ShotSettings& settings)
{
    const QSize size = area.size() * settings.scale;
    if (size.width() <= settings.longestSide && qint64(size.width()) * size.height() <= kMostPixels)
        return {};
    const QString words = u"the picture is %1 x %2 px, over the cap of %3 px in width or %4 million pixels"_s;
    return Error{
        Error::Kind::TooLarge,
        words.arg(size.width()).arg(size.height()).arg(settings.longestSide).arg(kMostPixels / 1000000),
        {}};
}

Task<Result<PagePicture>> takePicture(std::shared_ptr<Session> session, QRect area, ShotSettings settings,
                                      std::function<void(int rows)> progress)
{
    PagePicture picture(settings.encoding);
    const int rows = stripRows(area, settings);
    for (int row = 0; row < area.height(); row += rows) {
        const QRect strip(area.x(), area.y() + row, area.width(), std::min(rows, area.height() - row));
        const QSize size = strip.size() * settings.scale;
        auto reply = co_await session->call(u"Page.captureScreenshot"_s, stripParams(strip, settings),
                                            drawingLimit(size));
        if (!reply) co_return reply.error().during(u"taking the picture"_s);
        const auto added = picture.addStrip(std::move(reply->data), size);
        if (!added) co_return added.error().during(u"taking the picture"_s);
        progress(row + strip.height());
    }
    co_return picture;
}

} // namespace vistrel
