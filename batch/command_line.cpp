#include "batch/command_line.h"

#include "app/config/config_values.h"
#include "batch/option_set.h"
#include "batch/option_values.h"
#include "capture/page/page_run.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QString kListOption = u"LIST"_s;
/// For the contact sheet, when the user names no size.
constexpr QSize kSheetThumbnail(240, 180);

const char* formatName(qint32 imageType)
{
    static constexpr std::array names{"png", "jpeg", "gif", "bmp", "tiff"};
    return names[size_t(imageType)];
}

/// The wizard's settings, as far as they mean something here.
Arguments defaultsFrom(const ConfigValues& values)
{
    Arguments defaults;
    defaults.output = values.OutputFolder.toStdString();
    defaults.formats = formatName(values.ImageType);
    defaults.naming = values.NameAs == 1 ? "number" : "url";
    defaults.overwrite = values.Overwrite == 1;
    defaults.quality = values.JpgQuality;
    if (values.Thumbnail)
        defaults.thumbnail = std::to_string(values.ThumWidth) + "x" + std::to_string(values.ThumHeight);
    defaults.delay = values.DelayTime;
    defaults.timeout = values.TimeOut;
    defaults.noScript = !values.EnableScript;
    return defaults;
}

QStringList texts(const std::vector<std::string>& values)
{
    QStringList list;
    for (const std::string& value : values)
        list.append(QString::fromStdString(value));
    return list;
}

std::chrono::milliseconds millisecondsOf(double seconds)
{
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

/// The values of an option that may be repeated; they are checked already.
QList<RequestHeader> valuesOf(const std::vector<std::string>& texts,
                              Result<RequestHeader> (*read)(const QString&))
{
    QList<RequestHeader> values;
    for (const std::string& text : texts)
        values.append(*read(QString::fromStdString(text)));
    return values;
}

void fillImages(Plan& plan, const Arguments& given)
{
    plan.outputFolder = QDir::cleanPath(QString::fromStdString(given.output));
    plan.formats = *readFormats(QString::fromStdString(given.formats));
    plan.naming = QString::fromStdString(given.naming);
    plan.overwrite = given.overwrite;
    plan.jpegQuality = given.quality;
    if (!given.thumbnail.empty())
        plan.thumbnail = *readSize(QString::fromStdString(given.thumbnail));
    else if (!given.sheet.empty())
        plan.thumbnail = kSheetThumbnail;
}

void fillPages(Plan& plan, const Arguments& given)
{
    const bool jpegAlone = plan.formats == QList{ImageFormat::Jpeg};
    plan.page.timeout = millisecondsOf(given.timeout);
    plan.page.delay = millisecondsOf(given.delay);
    plan.page.awaitedElement = QString::fromStdString(given.awaitedElement);
    plan.page.awaitsIdle = given.waitUntil == "idle";
    plan.page.allowScript = !given.noScript;
    plan.page.wantsTitle = plan.naming.contains(u"{title}"_s);
    plan.page.confinement = QString::fromStdString(given.confinement);
    plan.page.encoding = jpegAlone ? PagePicture::Encoding::Jpeg : PagePicture::Encoding::Png;
    plan.page.jpegQuality = given.quality;
}

void fillLook(PageRequest& page, const Arguments& given)
{
    page.viewport = *readSize(QString::fromStdString(given.viewport));
    page.scale = std::round(given.scale * 100) / 100;
    page.windowOnly = given.windowOnly;
    page.maxHeight = given.maxHeight;
    page.element = QString::fromStdString(given.element);
    page.dark = given.dark;
    page.hidden = texts(given.hidden);
}

void fillRequests(Plan& plan, const Arguments& given)
{
    plan.browser.language = QString::fromStdString(given.languages);
    plan.browser.userAgent = QString::fromStdString(given.userAgent);
    plan.page.headers = valuesOf(given.headers, readHeader);
    plan.page.cookies = valuesOf(given.cookies, readCookie);
    if (!given.proxy.empty()) plan.browser.proxy = *readProxy(QString::fromStdString(given.proxy));
    plan.browser.takeBadCertificates = given.insecure;
}

void fillRun(Plan& plan, const Arguments& given)
{
    plan.browser.program = QString::fromStdString(given.browser);
    plan.browser.sandbox = !given.noSandbox;
    plan.jobs = *readJobs(QString::fromStdString(given.jobs));
    plan.perHost = given.perHost;
    plan.perHostDelay = millisecondsOf(given.perHostDelay);
    plan.retries = given.retries;
    plan.retryFailed = given.retryFailed;
    plan.resume = given.resume || given.retryFailed;
    plan.reportFile = QString::fromStdString(given.report);
    plan.sheetFile = QString::fromStdString(given.sheet);
    plan.verbose = given.verbose;
}

Plan planOf(const Arguments& given, const OptionSet& options)
{
    Plan plan;
    plan.lists = texts(given.lists);
    plan.sitemaps = texts(given.sitemaps);
    plan.addresses = texts(given.addresses);
    fillImages(plan, given);
    fillPages(plan, given);
    fillLook(plan.page, given);
    fillRequests(plan, given);
    fillRun(plan, given);
    plan.options = options.kept();
    return plan;
}

Answer usageError(const QString& what)
{
    return {ExitCode::Usage, u"vistrel-batch: %1\nTry vistrel-batch --help.\n"_s.arg(what)};
}

/// The plan with the files that belong to it, each read once: it may be a pipe.
std::variant<Plan, Answer> completePlan(const Arguments& given, const OptionSet& options)
{
    struct File {
        QString option;
        std::string path;
        QString* content;
    };
    Plan plan = planOf(given, options);
    for (const File& file : {File{u"--script"_s, given.script, &plan.page.script},
                             File{u"--css"_s, given.style, &plan.page.style}}) {
        if (file.path.empty()) continue;
        const auto content = readTextFile(QString::fromStdString(file.path));
        if (!content) return usageError(file.option + u": "_s + content.error().message);
        *file.content = *content;
    }
    return plan;
}

/// Parses arguments over the values that given holds; nothing when that went well.
std::optional<Answer> parseInto(OptionSet& options, const QStringList& arguments)
{
    try {
        options.parse(arguments);
    } catch (const CLI::CallForHelp&) {
        return Answer{ExitCode::Converted, options.help()};
    } catch (const CLI::CallForVersion& version) {
        return Answer{ExitCode::Converted, QString::fromUtf8(version.what()) + u'\n'};
    } catch (const CLI::ParseError& problem) {
        return usageError(QString::fromUtf8(problem.what()));
    }
    return std::nullopt;
}

/// Why options that are given do not go with those kept of an earlier run; empty when they do.
QString difference(const OptionSet& options, const OptionValues& kept)
{
    const OptionValues now = options.kept();
    for (auto option = now.cbegin(); option != now.cend(); ++option) {
        const QStringList earlier = kept.value(option.key());
        if (!options.isGiven(option.key()) || option.value() == earlier) continue;
        const bool secret = option.key() == u"--header" || option.key() == u"--cookie";
        if (earlier.isEmpty()) return u"the run to go on with was started without "_s + option.key();
        return u"the run to go on with was started with another "_s + option.key() +
               (secret ? QString() : u": "_s + earlier.join(u' '));
    }
    return {};
}

/// arguments with every option of kept that they do not hold; an error for one that they hold with another
/// value.
std::variant<QStringList, Answer> completed(const QStringList& arguments, const OptionValues& kept)
{
    if (kept.isEmpty()) return arguments;
    Arguments given;
    OptionSet options(given);
    if (const auto answer = parseInto(options, arguments)) return *answer;
    if (const QString why = difference(options, kept); !why.isEmpty()) return usageError(why);
    QStringList all = arguments;
    for (auto option = kept.cbegin(); option != kept.cend(); ++option) {
        if (options.isGiven(option.key())) continue;
        for (const QString& value : option.value())
            all.append(option.key() == kListOption ? value : option.key() + u'=' + value);
    }
    return all;
}

std::variant<Plan, Answer> parseNew(const QStringList& arguments)
{
    Arguments given;
    OptionSet first(given);
    if (const auto answer = parseInto(first, arguments)) return *answer;
    if (given.config.empty()) return completePlan(given, first);
    const QString config = QString::fromStdString(given.config);
    if (!QFileInfo(config).isReadable() || QFileInfo(config).isDir())
        return usageError(config + u" cannot be read"_s);
    given = defaultsFrom(loadConfig(config));
    OptionSet second(given);
    if (const auto answer = parseInto(second, arguments)) return *answer;
    return completePlan(given, second);
}

bool isSameFile(const QString& one, const QString& other)
{
    const QFileInfo first(one);
    const QFileInfo second(other);
    const QString target = first.canonicalFilePath(); // Empty when there is no such file.
    return first.absoluteFilePath() == second.absoluteFilePath() ||
           (!target.isEmpty() && target == second.canonicalFilePath());
}

/// What would be lost to the report or the contact sheet; empty when nothing.
QString overwritten(const Plan& plan)
{
    QStringList taken = plan.lists + plan.sitemaps + plan.addresses;
    taken.append(Journal::pathIn(plan.outputFolder));
    for (const auto& [option, file] :
         {std::pair(u"--report"_s, plan.reportFile), {u"--html"_s, plan.sheetFile}}) {
        if (file.isEmpty()) continue;
        for (const QString& other : std::as_const(taken)) {
            if (isSameFile(file, other)) return u"%1 would overwrite %2"_s.arg(option, other);
        }
        taken.append(file);
    }
    return {};
}

/// What options that are right one by one make wrong together; empty when all is well.
QString objectionTo(const Plan& plan)
{
    const bool nothing = plan.lists.isEmpty() && plan.sitemaps.isEmpty() && plan.addresses.isEmpty();
    if (nothing && !plan.resume)
        return u"there is nothing to convert: give a list file, a page with --url, or a --sitemap"_s;
    if (!plan.page.script.isEmpty() && !plan.page.allowScript)
        return u"--script needs pages whose scripts run: leave out --no-script"_s;
    if (!plan.page.element.isEmpty() && plan.page.windowOnly)
        return u"--selector and --visible-only exclude each other: leave out one"_s;
    if (plan.page.delay >= PageRun::timeoutOf(plan.page))
        return u"no page is ready within --timeout when --delay takes all of it: shorten the delay"_s;
    if (plan.outputFolder.isEmpty()) return u"the output folder has no name: give one with --output"_s;
    return overwritten(plan);
}

} // namespace

std::variant<Plan, Answer> parseCommandLine(const QStringList& arguments, const OptionValues& kept)
{
    const auto all = completed(arguments, kept);
    if (const auto* answer = std::get_if<Answer>(&all)) return *answer;
    auto parsed = parseNew(std::get<QStringList>(all));
    const auto* plan = std::get_if<Plan>(&parsed);
    const QString objection = plan != nullptr ? objectionTo(*plan) : QString();
    if (!objection.isEmpty()) return usageError(objection);
    return parsed;
}

} // namespace vistrel
