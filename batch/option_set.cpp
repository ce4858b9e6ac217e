#include "batch/option_set.h"

#include "batch/output_names.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr double kLongestSeconds = 86400;
constexpr int kLongestSide = 10000;
constexpr int kMostJobs = 64;

const char* const kDescription = R"(Turns lists of web pages into image files.

A list is a text file with one address or local HTML file a line; "-" reads it from standard input.
Lines that begin with "*" and lines of at most one character are left out.)";

const char* const kFooter =
    R"(Names: url, number, or a template of {index} {host} {path} {date} {width} {height}.
The output folder keeps a journal of the run; --resume goes on where the run ended, however it ended.
Exit codes: 0 all converted, 1 some entries failed, 2 usage, 3 the browser could not be started,
130 and 143 interrupted.)";

// The headings of the help.
const char* const kInput = "What to convert";
const char* const kImages = "Images";
const char* const kPages = "Pages";
const char* const kRun = "The run";
const char* const kProgram = "The program";

std::string checkSize(const std::string& text)
{
    static const QRegularExpression pattern(u"^(\\d{1,5})[xX](\\d{1,5})$"_s);
    const auto match = pattern.match(QString::fromStdString(text));
    const int width = match.captured(1).toInt();
    const int height = match.captured(2).toInt();
    if (std::min(width, height) >= 1 && std::max(width, height) <= kLongestSide) return {};
    return "a size is written WIDTHxHEIGHT, in pixels up to 10000, not " + text;
}

std::string checkJobs(const std::string& text)
{
    bool isNumber = false;
    const int jobs = QString::fromStdString(text).toInt(&isNumber);
    if (text == "auto" || (isNumber && jobs >= 1 && jobs <= kMostJobs)) return {};
    return "the number of jobs is auto or 1 to 64, not " + text;
}

std::string checkFormats(const std::string& text)
{
    static const QRegularExpression pattern(u"^(png|jpeg|gif|bmp|tiff)(,(png|jpeg|gif|bmp|tiff))*$"_s);
    if (pattern.match(QString::fromStdString(text)).hasMatch()) return {};
    return "the formats are png, jpeg, gif, bmp and tiff, not " + text;
}

std::string checkNaming(const std::string& text)
{
    if (text == "url" || text == "number") return {};
    const auto checked = checkNameTemplate(QString::fromStdString(text));
    return checked ? std::string() : checked.error().message.toStdString();
}

CLI::Validator check(std::string (*function)(const std::string&)) { return {function, "", ""}; }

} // namespace

OptionSet::OptionSet(Arguments& arguments) : m_app(kDescription, "vistrel-batch")
{
    m_app.footer(kFooter);
    m_app.set_version_flag("--version", "vistrel-batch " VISTREL_VERSION)->group(kProgram);
    m_app.set_help_flag("-h,--help", "Print this help")->group(kProgram);
    defineInput(arguments);
    defineImages(arguments);
    definePages(arguments);
    defineRun(arguments);
    defineProgram(arguments);
}

void OptionSet::defineInput(Arguments& given)
{
    keep(m_app.add_option("LIST", given.lists, "List files, or - for standard input"))->type_name("");
    keep(m_app.add_option("--url", given.addresses, "One more page; may be repeated"))
        ->type_name("ADDRESS")
        ->allow_extra_args(false)
        ->group(kInput);
    m_app.add_option("--config", given.config, "Take the defaults from the settings file of the wizard")
        ->type_name("FILE")
        ->group(kInput);
}

void OptionSet::defineImages(Arguments& given)
{
    m_app.add_option("-o,--output", given.output, "Folder for the images, created if missing")
        ->type_name("DIR")
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_option("-f,--format", given.formats, "png, jpeg, gif, bmp or tiff; several with commas"))
        ->type_name("FORMAT")
        ->check(check(checkFormats))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_option("--name", given.naming, "Name the files by url, by number, or by a template"))
        ->type_name("NAMING")
        ->check(check(checkNaming))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_flag("--overwrite,!--no-overwrite", given.overwrite,
                        "Replace files that are there already; else a free name is found"),
         &given.overwrite)
        ->group(kImages);
    keep(m_app.add_option("-q,--quality", given.quality, "JPEG quality, 1 to 100"))
        ->type_name("N")
        ->check(CLI::Range(1, 100))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_option("--thumbnail", given.thumbnail, "Write a thumbnail of this size beside each image"))
        ->type_name("WxH")
        ->check(check(checkSize))
        ->capture_default_str()
        ->group(kImages);
}

void OptionSet::definePages(Arguments& given)
{
    keep(m_app.add_option("--delay", given.delay, "Wait between a page being ready and its picture"))
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kLongestSeconds))
        ->capture_default_str()
        ->group(kPages);
    keep(m_app.add_option("--timeout", given.timeout, "The longest time for one page"))
        ->type_name("SECONDS")
        ->check(CLI::Range(0.1, kLongestSeconds))
        ->capture_default_str()
        ->group(kPages);
    keep(m_app.add_flag("--no-script", given.noScript, "Do not run the pages' scripts"), &given.noScript)
        ->group(kPages);
    keep(m_app.add_option("--confine", given.confinement, "Local pages see no file outside this folder"))
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory)
        ->group(kPages);
}

void OptionSet::defineRun(Arguments& given)
{
    m_app.add_option("-j,--jobs", given.jobs, "Pages at a time, or auto: by cores and memory")
        ->type_name("N")
        ->check(check(checkJobs))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--per-host", given.perHost, "Pages of one host at a time; 0: any number")
        ->type_name("N")
        ->check(CLI::Range(0, kMostJobs))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--per-host-delay", given.perHostDelay, "Pause between two pages of one host")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kLongestSeconds))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--retry", given.retries, "Further attempts after a fault that can pass")
        ->type_name("N")
        ->check(CLI::Range(0, 20))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_flag("--resume", given.resume, "Go on with the run in the output folder")->group(kRun);
    m_app.add_flag("--retry-failed", given.retryFailed, "The same, and run its failed entries again")
        ->group(kRun);
}

void OptionSet::defineProgram(Arguments& given)
{
    m_app
        .add_option("--report", given.report,
                    "Write a line for every entry: JSON Lines, or CSV by its ending")
        ->type_name("FILE")
        ->group(kProgram);
    m_app.add_option("--html", given.sheet, "Write a contact sheet: a page that shows every entry")
        ->type_name("FILE")
        ->group(kProgram);
    m_app.add_option("--browser", given.browser, "Chromium-family browser to use: a path or a name")
        ->type_name("PROGRAM")
        ->group(kProgram);
    m_app.add_flag("--no-sandbox", given.noSandbox, "Run the browser without its sandbox, at your own risk")
        ->group(kProgram);
    m_app.add_flag("--verbose", given.verbose, "Say what the browser and the pages do")->group(kProgram);
}

CLI::Option* OptionSet::keep(CLI::Option* option, const bool* flag)
{
    const auto& names = option->get_lnames();
    const std::string name = names.empty() ? option->get_name() : "--" + names.front();
    m_kept.insert(QString::fromStdString(name), {option, flag});
    return option;
}

void OptionSet::parse(const QStringList& arguments)
{
    std::vector<std::string> reversed;
    for (auto argument = arguments.crbegin(); argument != arguments.crend(); ++argument)
        reversed.push_back(argument->toStdString());
    m_app.parse(std::move(reversed));
}

OptionValues OptionSet::kept() const
{
    OptionValues values;
    for (auto kept = m_kept.cbegin(); kept != m_kept.cend(); ++kept) {
        QStringList list;
        if (kept->flag != nullptr)
            list.append(*kept->flag ? u"true"_s : u"false"_s);
        else if (kept->option->count() > 0)
            for (const std::string& value : kept->option->reduced_results())
                list.append(QString::fromStdString(value));
        else if (const std::string value = kept->option->get_default_str(); !value.empty() && value != "[]")
            list.append(QString::fromStdString(value));
        if (!list.isEmpty()) values.insert(kept.key(), list);
    }
    return values;
}

bool OptionSet::isGiven(const QString& name) const
{
    const auto kept = m_kept.constFind(name);
    return kept != m_kept.cend() && kept->option->count() > 0;
}

} // namespace vistrel
