#include "batch/command_line.h"

#include "app/config/config_values.h"
#include "batch/option_set.h"

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

QSize sizeOf(const std::string& text)
{
    const QStringList sides = QString::fromStdString(text).toLower().split(u'x');
    return {sides[0].toInt(), sides[1].toInt()};
}

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

QList<ImageFormat> formatsOf(const Arguments& given)
{
    QList<ImageFormat> formats;
    for (const QString& name : QString::fromStdString(given.formats).split(u',')) {
        const ImageFormat format = *imageFormatOf(name);
        if (!formats.contains(format)) formats.append(format);
    }
    return formats;
}

void fillImages(Plan& plan, const Arguments& given)
{
    plan.outputFolder = QDir::cleanPath(QString::fromStdString(given.output));
    plan.formats = formatsOf(given);
    plan.naming = QString::fromStdString(given.naming);
    plan.overwrite = given.overwrite;
    plan.jpegQuality = given.quality;
    if (!given.thumbnail.empty())
        plan.thumbnail = sizeOf(given.thumbnail);
    else if (!given.sheet.empty())
        plan.thumbnail = kSheetThumbnail;
}

void fillPages(Plan& plan, const Arguments& given)
{
    const bool jpegAlone = plan.formats == QList{ImageFormat::Jpeg};
    plan.page.timeout = millisecondsOf(given.timeout);
    plan.page.delay = millisecondsOf(given.delay);
    plan.page.allowScript = !given.noScript;
    plan.page.confinement = QString::fromStdString(given.confinement);
    plan.page.encoding = jpegAlone ? PagePicture::Encoding::Jpeg : PagePicture::Encoding::Png;
    plan.page.jpegQuality = given.quality;
}

void fillRun(Plan& plan, const Arguments& given)
{
    plan.browser.program = QString::fromStdString(given.browser);
    plan.browser.sandbox = !given.noSandbox;
    plan.jobs = QString::fromStdString(given.jobs).toInt(); // "auto" gives 0.
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
    plan.addresses = texts(given.addresses);
    fillImages(plan, given);
    fillPages(plan, given);
    fillRun(plan, given);
    plan.options = options.kept();
    return plan;
}

Answer usageError(const QString& what)
{
    return {ExitCode::Usage, u"vistrel-batch: %1\nTry vistrel-batch --help.\n"_s.arg(what)};
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

/// arguments with every option of kept that they do not hold; an error for one that they hold with another
/// value.
std::variant<QStringList, Answer> completed(const QStringList& arguments, const OptionValues& kept)
{
    Arguments given;
    OptionSet options(given);
    if (const auto answer = parseInto(options, arguments)) return *answer;
    const OptionValues now = options.kept();
    QStringList all = arguments;
    for (auto option = kept.cbegin(); option != kept.cend(); ++option) {
        if (options.isGiven(option.key())) {
            if (now.value(option.key()) == option.value()) continue;
            return usageError(u"the run to go on with was started with another %1: %2"_s.arg(
                option.key(), option.value().join(u' ')));
        }
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
    if (given.config.empty()) return planOf(given, first);
    const QString config = QString::fromStdString(given.config);
    if (!QFileInfo(config).isReadable()) return usageError(config + u" cannot be read"_s);
    given = defaultsFrom(loadConfig(config));
    OptionSet second(given);
    if (const auto answer = parseInto(second, arguments)) return *answer;
    return planOf(given, second);
}

} // namespace

std::variant<Plan, Answer> parseCommandLine(const QStringList& arguments, const OptionValues& kept)
{
    const auto all = completed(arguments, kept);
    if (const auto* answer = std::get_if<Answer>(&all)) return *answer;
    auto parsed = parseNew(std::get<QStringList>(all));
    const auto* plan = std::get_if<Plan>(&parsed);
    if (plan != nullptr && !plan->resume && plan->lists.isEmpty() && plan->addresses.isEmpty())
        return usageError(u"there is nothing to convert: give a list file, or a page with --url"_s);
    return parsed;
}

} // namespace vistrel
