#include "batch/picture_writing.h"

#include "batch/file_hash.h"
#include "capture/image/blank_check.h"
#include "platform/whole_file.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// The files of an entry, complete but for their names: one for each format, then the thumbnail if there is
/// one.
using NamelessFiles = std::vector<std::unique_ptr<WholeFile>>;

Attempt unwritable(const QString& message) { return {Outcome::failed(message), Trouble::Unwritable}; }

Attempt failure(const WriteProblem& problem)
{
    if (problem.cause != WriteProblem::Cause::Other) return unwritable(problem.message);
    return {Outcome::failed(problem.message), Trouble::None};
}

/// Adds a file with what encode, which is given a device, writes there; nothing when that went well.
template<typename Encode>
std::optional<Attempt> add(NamelessFiles& files, const QString& folder, Encode encode)
{
    WholeFile& file = *files.emplace_back(std::make_unique<WholeFile>(folder));
    const Result<void> encoded = file.isOpen() ? encode(file) : Result<void>();
    if (const auto problem = file.problem()) return failure(*problem);
    if (!encoded) return Attempt{Outcome::failed(encoded.error().text()), Trouble::None};
    return std::nullopt;
}

std::variant<NamelessFiles, Attempt> makeFiles(const WritingJob& job)
{
    const Plan& plan = job.tools.plan;
    NamelessFiles files;
    std::optional<Attempt> failed;
    for (qsizetype i = 0; i < plan.formats.size() && !failed; ++i) {
        failed = add(files, plan.outputFolder, [&](QIODevice& device) {
            return encodeImage(job.shot.picture, plan.formats[i], plan.jpegQuality, device);
        });
    }
    if (plan.thumbnail && !failed) {
        failed = add(files, plan.outputFolder, [&](QIODevice& device) {
            return encodeThumbnail(job.shot.picture, plan.formats.first(), plan.jpegQuality, *plan.thumbnail,
                                   device);
        });
    }
    if (failed) return *failed;
    return files;
}

/// Gives files their names until one cannot have it; takes back those of this call then.
std::optional<WriteProblem> nameAll(const NamelessFiles& files, const OutputFiles& names, IfExists ifExists)
{
    const QStringList paths = names.all();
    for (qsizetype i = 0; i < paths.size(); ++i) {
        auto problem = files[size_t(i)]->moveTo(paths[i], ifExists);
        if (!problem) continue;
        for (qsizetype named = 0; named < i; ++named)
            files[size_t(named)]->takeBack();
        return problem;
    }
    return std::nullopt;
}

/// Gives them the entry's name, or another one when something came to be there meanwhile.
std::variant<OutputFiles, Attempt> nameFreely(WritingJob& job, const NamelessFiles& files)
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
        OutputFiles names = job.tools.names.filesOf(job.entry.name);
        const auto problem = nameAll(files, names, replace ? IfExists::Replace : IfExists::Refuse);
        if (!problem) return names;
        if (problem->cause != WriteProblem::Cause::Exists) return failure(*problem);
        job.entry.name.clear();
    }
}

QString noteOn(const PageShot& shot)
{
    QStringList notes;
    if (shot.httpStatus >= 400) notes += u"HTTP %1"_s.arg(shot.httpStatus);
    if (isBlank(shot.picture)) notes += u"blank, one colour only"_s;
    notes += shot.warnings;
    return notes.join(u"; "_s);
}

Outcome success(const WritingJob& job, const OutputFiles& names, WholeFile& image)
{
    Outcome outcome;
    outcome.state = EntryState::Converted;
    outcome.file = names.images.first();
    outcome.thumbnail = names.thumbnail;
    outcome.size = job.shot.picture.size();
    outcome.bytes = image.size();
    outcome.hash = fileHash(image);
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
    const auto made = makeFiles(job);
    if (const auto* attempt = std::get_if<Attempt>(&made)) return *attempt;
    const auto& files = std::get<NamelessFiles>(made);
    const auto named = nameFreely(job, files);
    if (const auto* attempt = std::get_if<Attempt>(&named)) return *attempt;
    Outcome outcome = success(job, std::get<OutputFiles>(named), *files.front());
    const auto noted = job.tools.journal.finish(job.entry.entry.number, outcome);
    if (!noted) return unwritable(noted.error().during(u"writing the journal"_s).text());
    return {std::move(outcome), Trouble::None};
}

} // namespace vistrel
