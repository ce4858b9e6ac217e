#include "batch/entry_conversion.h"

#include "capture/page/address.h"
#include "platform/log.h"
#include "platform/whole_file.h"

#include <QCoroFuture>
#include <QElapsedTimer>
#include <QFile>
#include <QtConcurrentRun>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Everything that the writing thread needs, its own copy.
struct WritingJob {
    PagePicture picture;
    OutputFiles files;
    ImageFormat format;
    int quality;
    std::optional<QSize> thumbnail;
    IfExists ifExists;
};

std::optional<QString> writeThumbnail(const WritingJob& job)
{
    const auto bytes = encodeThumbnail(job.picture, job.format, job.quality, *job.thumbnail);
    if (!bytes) return bytes.error().text();
    const auto problem = writeWholeFile(job.files.thumbnail, *bytes, job.ifExists);
    return problem ? std::optional(problem->message) : std::nullopt;
}

/// Either all files of the entry are there afterwards, or none.
Outcome encodeAndWrite(const WritingJob& job)
{
    const auto image = encodeImage(job.picture, job.format, job.quality);
    if (!image) return Outcome::failed(image.error().text());
    if (const auto problem = writeWholeFile(job.files.image, *image, job.ifExists))
        return Outcome::failed(problem->message);
    if (job.thumbnail) {
        if (const auto problem = writeThumbnail(job)) {
            QFile::remove(job.files.image);
            return Outcome::failed(*problem);
        }
    }
    Outcome outcome;
    outcome.state = EntryState::Converted;
    outcome.file = job.files.image;
    outcome.thumbnail = job.files.thumbnail;
    outcome.size = job.picture.size();
    outcome.bytes = image->size();
    return outcome;
}

} // namespace

std::shared_ptr<EntryConversion> EntryConversion::create(const Plan& plan, QThreadPool& writers, Entry entry)
{
    return std::shared_ptr<EntryConversion>(new EntryConversion(plan, writers, std::move(entry)));
}

EntryConversion::EntryConversion(const Plan& plan, QThreadPool& writers, Entry entry)
    : m_plan(plan), m_writers(writers), m_entry(std::move(entry))
{
}

Task<Outcome> EntryConversion::run(std::shared_ptr<Browser> browser, OutputFiles files)
{
    const auto self = shared_from_this();
    QElapsedTimer timer;
    timer.start();
    auto shot = co_await takeShot(std::move(browser));
    m_run.reset();
    Outcome outcome = Outcome::skipped(u"the run was ended meanwhile"_s);
    if (!shot) {
        if (!m_cancelled) outcome = Outcome::failed(shot.error().text());
    } else if (!m_cancelled) {
        WritingJob job{std::move(shot->picture),
                       std::move(files),
                       m_plan.format,
                       m_plan.jpegQuality,
                       m_plan.thumbnail,
                       m_plan.overwrite ? IfExists::Replace : IfExists::Refuse};
        const auto writing = QtConcurrent::run(&m_writers, encodeAndWrite, std::move(job));
        outcome = co_await writing;
    }
    outcome.milliseconds = timer.elapsed();
    co_return outcome;
}

Task<Result<PageShot>> EntryConversion::takeShot(std::shared_ptr<Browser> browser)
{
    if (!m_entry.problem.isEmpty()) co_return Error{Error::Kind::Usage, m_entry.problem, {}};
    const auto addresses = resolveAddress(m_entry.text);
    if (!addresses) co_return addresses.error();
    PageRequest request = m_plan.page;
    request.addresses = *addresses;
    m_run = PageRun::create(std::move(browser), std::move(request));
    auto shot = co_await m_run->run();
    if (shot) {
        for (const QString& warning : std::as_const(shot->warnings))
            qCInfo(logPage).noquote() << m_entry.text << warning;
    }
    co_return shot;
}

void EntryConversion::cancel()
{
    m_cancelled = true;
    if (m_run) m_run->cancel();
}

} // namespace vistrel
