#include "batch/command_line.h"

#include "app/config/config_values.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr double kLongestSeconds = 86400;
constexpr int kLongestSide = 10000;

const char* const kDescription = R"(Turns lists of web pages into image files.

A list is a text file with one address or local HTML file a line; "-" reads it from standard input.
Lines that begin with "*" and lines of at most one character are left out.)";

const char* const kExitCodes =
    R"(Exit codes: 0 all converted, 1 some entries failed, 2 usage, 3 the browser could not be started,
130 and 143 interrupted.)";

/// The options as they are written.
struct Arguments {
    std::vector<std::string> lists;
    std::vector<std::string> addresses;
    std::string output = ".";
    std::string format = "png";
    std::string naming = "url";
    bool overwrite = false;
    int quality = 80;
    std::string thumbnail;
    double delay = 0;
    double timeout = 30;
    bool script = true;
    std::string config;
    std::string browser;
    bool sandbox = true;
    std::string report;
    bool verbose = false;
};

std::string checkSize(const std::string& text)
{
    static const QRegularExpression pattern(u"^(\\d{1,5})[xX](\\d{1,5})$"_s);
    const auto match = pattern.match(QString::fromStdString(text));
    const bool fits = match.hasMatch() && match.captured(1).toInt() >= 1 && match.captured(2).toInt() >= 1 &&
                      std::max(match.captured(1).toInt(), match.captured(2).toInt()) <= kLongestSide;
    return fits ? std::string() : "a size is written WIDTHxHEIGHT, in pixels up to 10000, not " + text;
}

QSize sizeOf(const std::string& text)
{
    const QStringList sides = QString::fromStdString(text).toLower().split(u'x');
    return {sides[0].toInt(), sides[1].toInt()};
}

void defineInput(CLI::App& app, Arguments& given)
{
    app.add_option("LIST", given.lists, "List files, or - for standard input")->type_name("");
    app.add_option("--url", given.addresses, "One more page; may be repeated")->type_name("ADDRESS");
    app.add_option("--config", given.config, "Take the defaults from the settings file of the wizard")
        ->type_name("FILE");
}

void defineOutput(CLI::App& app, Arguments& given)
{
    app.add_option("-o,--output", given.output, "Folder for the images, created if missing")
        ->type_name("DIR")
        ->capture_default_str();
    app.add_option("-f,--format", given.format, "png, jpeg, gif, bmp or tiff")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"png", "jpeg", "gif", "bmp", "tiff"}))
        ->capture_default_str();
    app.add_option("--name", given.naming, "Name the files by url or by number")
        ->type_name("SCHEME")
        ->check(CLI::IsMember({"url", "number"}))
        ->capture_default_str();
    app.add_flag("--overwrite,!--no-overwrite", given.overwrite,
                 "Replace files that are there already; else a free name is found");
    app.add_option("-q,--quality", given.quality, "JPEG quality, 1 to 100")
        ->type_name("N")
        ->check(CLI::Range(1, 100))
        ->capture_default_str();
    app.add_option("--thumbnail", given.thumbnail, "Write a thumbnail of this size beside each image")
        ->type_name("WxH")
        ->check(CLI::Validator(checkSize, "", "size"));
    app.add_option("--report", given.report, "Write one JSON object a line for every entry")
        ->type_name("FILE");
}

void defineRendering(CLI::App& app, Arguments& given)
{
    app.add_option("--delay", given.delay, "Wait between a page being ready and its picture")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kLongestSeconds))
        ->capture_default_str();
    app.add_option("--timeout", given.timeout, "The longest time for one page")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.1, kLongestSeconds))
        ->capture_default_str();
    app.add_flag("!--no-script", given.script, "Do not run the pages' scripts");
}

void defineBrowser(CLI::App& app, Arguments& given)
{
    app.add_option("--browser", given.browser, "Chromium-family browser to use: a path or a name")
        ->type_name("PROGRAM");
    app.add_flag("!--no-sandbox", given.sandbox, "Run the browser without its sandbox, at your own risk");
    app.add_flag("--verbose", given.verbose, "Say what the browser and the pages do");
}

void define(CLI::App& app, Arguments& given)
{
    app.description(kDescription);
    app.footer(kExitCodes);
    app.set_version_flag("--version", "vistrel-batch " VISTREL_VERSION);
    app.set_help_flag("-h,--help", "Print this help");
    defineInput(app, given);
    defineOutput(app, given);
    defineRendering(app, given);
    defineBrowser(app, given);
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
    defaults.format = formatName(values.ImageType);
    defaults.naming = values.NameAs == 1 ? "number" : "url";
    defaults.overwrite = values.Overwrite == 1;
    defaults.quality = values.JpgQuality;
    if (values.Thumbnail)
        defaults.thumbnail = std::to_string(values.ThumWidth) + "x" + std::to_string(values.ThumHeight);
    defaults.delay = values.DelayTime;
    defaults.timeout = values.TimeOut;
    defaults.script = values.EnableScript;
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

PageRequest pageOf(const Arguments& given)
{
    PageRequest page;
    page.timeout = millisecondsOf(given.timeout);
    page.delay = millisecondsOf(given.delay);
    page.allowScript = given.script;
    page.encoding = given.format == "jpeg" ? PagePicture::Encoding::Jpeg : PagePicture::Encoding::Png;
    page.jpegQuality = given.quality;
    return page;
}

Plan planOf(const Arguments& given)
{
    Plan plan;
    plan.lists = texts(given.lists);
    plan.addresses = texts(given.addresses);
    plan.outputFolder = QDir::cleanPath(QString::fromStdString(given.output));
    plan.format = *imageFormatOf(QString::fromStdString(given.format));
    plan.naming = given.naming == "number" ? Naming::Number : Naming::Url;
    plan.overwrite = given.overwrite;
    plan.jpegQuality = given.quality;
    if (!given.thumbnail.empty()) plan.thumbnail = sizeOf(given.thumbnail);
    plan.page = pageOf(given);
    plan.browser.program = QString::fromStdString(given.browser);
    plan.browser.sandbox = given.sandbox;
    plan.reportFile = QString::fromStdString(given.report);
    plan.verbose = given.verbose;
    return plan;
}

Answer usageError(const QString& what)
{
    return {ExitCode::Usage, u"vistrel-batch: %1\nTry vistrel-batch --help.\n"_s.arg(what)};
}

/// Parses arguments over the values that given holds; nothing when that went well.
std::optional<Answer> parseInto(Arguments& given, const QStringList& arguments)
{
    CLI::App app;
    app.name("vistrel-batch");
    define(app, given);
    std::vector<std::string> reversed;
    for (auto argument = arguments.crbegin(); argument != arguments.crend(); ++argument)
        reversed.push_back(argument->toStdString());
    try {
        app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        return Answer{ExitCode::Converted, QString::fromStdString(app.help())};
    } catch (const CLI::CallForVersion& version) {
        return Answer{ExitCode::Converted, QString::fromUtf8(version.what()) + u'\n'};
    } catch (const CLI::ParseError& problem) {
        return usageError(QString::fromUtf8(problem.what()));
    }
    return std::nullopt;
}

} // namespace

std::variant<Plan, Answer> parseCommandLine(const QStringList& arguments)
{
    Arguments given;
    if (const auto answer = parseInto(given, arguments)) return *answer;
    if (!given.config.empty()) {
        const QString config = QString::fromStdString(given.config);
        if (!QFileInfo(config).isReadable()) return usageError(config + u" cannot be read"_s);
        given = defaultsFrom(loadConfig(config));
        if (const auto answer = parseInto(given, arguments)) return *answer;
    }
    if (given.lists.empty() && given.addresses.empty())
        return usageError(u"there is nothing to convert: give a list file, or a page with --url"_s);
    return planOf(given);
}

} // namespace vistrel
