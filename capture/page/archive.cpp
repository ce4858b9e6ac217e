#include "capture/page/archive.h"

#include "capture/page/page_world.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint64 kLongestLine = 4096;
constexpr qint64 kMostBytes = 100 * 1024 * 1024; // What is larger is left to the browser as it is.

} // namespace

bool isArchive(const QString& path)
{
    return path.endsWith(u".mht", Qt::CaseInsensitive) || path.endsWith(u".mhtml", Qt::CaseInsensitive);
}

QByteArray archiveWithLineEnds(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMostBytes) return {};
    const QByteArray first = file.readLine(kLongestLine);
    if (!first.endsWith('\n') || first.endsWith("\r\n")) return {};
    file.seek(0);
    return file.readAll().replace('\n', "\r\n");
}

Task<Result<void>> checkArchive(std::shared_ptr<Session> session, QString frameId)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return world.error();
    const auto filled = co_await world->evaluate(
        u"(() => { const root = document.body || document.documentElement; return root.hasChildNodes(); })()"_s);
    if (!filled) co_return filled.error();
    if (filled->toBool()) co_return Result<void>();
    co_return Error{Error::Kind::Page, u"the archive holds no page that can be read"_s, {}};
}

} // namespace vistrel
