#include "batch/picture_writing.h"

#include "capture/image/blank_check.h"
#include "platform/whole_file.h"

#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

struct EncodedFiles {
    QList<QByteArray> images; // One for each format.
    QByteArray thumbnail;
};

Result<EncodedFiles> encode(const WritingJob& job)
{
    const Plan& plan = job.tools.plan;
    EncodedFiles encoded;
    for (const ImageFormat format : plan.formats) {
        auto image = encodeImage(job.shot.picture, format, plan.jpegQuality);
        if (!image) return image.error();
        encoded.images.append(*std::move(image));
    }
    if (!plan.thumbnail) return encoded;
    auto thumbnail =
        encodeThumbnail(job.shot.picture, plan.formats.first(), plan.jpegQuality, *plan.thumbnail);
    if (!thumbnail) return thumbnail.error();
    encoded.thumbnail = *std::move(thumbnail);
    return encoded;
}

/// Writes files until one cannot be written; takes back those of this call then.
std::optional<WriteProblem> writeAll(const OutputFiles& files, const EncodedFiles& encoded, IfExists ifExists)
{
    QList<std::pair<QString, QByteArray>> pending;
    for (qsizetype i = 0; i < files.images.size(); ++i)
        pending.append({files.images[i], encoded.images[i]});
    if (!files.thumbnail.isEmpty()) pending.append({files.thumbnail, encoded.thumbnail});
    for (qsizetype i = 0; i < pending.size(); ++i) {
        auto problem = writeWholeFile(pending[i].first, pending[i].second, ifExists);
        if (!problem) continue;
        for (qsizetype written = 0; written < i; ++written)
            QFile::remove(pending[written].first);
        return problem;
    }
    return std::nullopt;
}

Attempt unwritable(const QString& message) { return {Outcome::failed(message), Trouble::Unwritable}; }

/// Writes under the entry's name, or under another one when something came to be there meanwhile.
std::variant<OutputFiles, Attempt> writeUnderFreeName(WritingJob& job, const EncodedFiles& encoded)
{
    const bool replace = job.tools.plan.overwrite || job.entry.begun;
    for (;;) {
        if (job.entry.name.isEmpty()) {
            const auto name =
                job.tools.names.claim(job.entry.entry, {job.shot.picture.size(), job.shot.title});
            if (!name) return unwritable(name.error().text());
            job.entry.name = *name;
        }
        const auto begun = job.tools.journal.begin(job.entry.entry.number, job.entry.name);
        if (!begun) return unwritable(begun.error().during(u"writing the journal"_s).text());
        OutputFiles files = job.tools.names.filesOf(job.entry.name);
        const auto problem = writeAll(files, encoded, replace ? IfExists::Replace : IfExists::Refuse);
        if (!problem) return files;
        if (problem->cause == WriteProblem::Cause::Other)
            return Attempt{Outcome::failed(problem->message), Trouble::None};
        if (problem->cause != WriteProblem::Cause::Exists) return unwritable(problem->message);
        job.entry.name.clear();
    }
}

QString noteOn(const PageShot& shot)
{
    QStringList notes;
    if (shot.httpStatus >= 400) notes += u"HTTP %1"_s.arg(shot.httpStatus);
    if (isBlank(shot.picture)) notes += u"blank, one colour only"_s;
    return notes.join(u"; "_s);
}

Outcome success(const WritingJob& job, const OutputFiles& files, const QByteArray& image)
{
    Outcome outcome;
    outcome.state = EntryState::Converted;
    outcome.file = files.images.first();
    outcome.thumbnail = files.thumbnail;
    outcome.size = job.shot.picture.size();
    outcome.bytes = image.size();
    outcome.hash = QString::fromLatin1(QCryptographicHash::hash(image, QCryptographicHash::Sha256).toHex());
    outcome.address = job.shot.finalAddress.toString(QUrl::RemoveUserInfo);
    outcome.httpStatus = job.shot.httpStatus;
    outcome.note = noteOn(job.shot);
    outcome.started = job.started;
    outcome.attempts = job.entry.attempts + 1;
    outcome.milliseconds = job.clock.elapsed();
    return outcome;
}

} // namespace

Attempt writePictures(WritingJob job)
{
    const auto encoded = encode(job);
    if (!encoded) return {Outcome::failed(encoded.error().text()), Trouble::None};
    const auto written = writeUnderFreeName(job, *encoded);
    if (const auto* attempt = std::get_if<Attempt>(&written)) return *attempt;
    Outcome outcome = success(job, std::get<OutputFiles>(written), encoded->images.first());
    const auto noted = job.tools.journal.finish(job.entry.entry.number, outcome);
    if (!noted) return unwritable(noted.error().during(u"writing the journal"_s).text());
    return {std::move(outcome), Trouble::None};
}

} // namespace vistrel
