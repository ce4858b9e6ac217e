#include "batch/option_set.h"

#include "batch/option_values.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr double kLongestSeconds = 86400;
constexpr int kMostPerHost = 64;
constexpr int kTallest = 1000000;

const char* const kDescription = R"(Turns lists of web pages into image files.

A list is a text file with one address or local HTML file a line; "-" reads it from standard input.
Lines that begin with "*" and lines of at most one character are left out.)";

const char* const kFooter =
    R"(Names: url, number, or a template of {index} {host} {path} {title} {date}
{width} {height}.
The output folder keeps a journal of the run; --resume goes on where the run ended, however it ended.
Exit codes: 0 all converted, 1 some entries failed or a report could not be written, 2 usage,
3 the browser could not be started, 129, 130 and 143 interrupted.)";

// The headings of the help.
const char* const kInput = "What to convert";
const char* const kImages = "Images";
const char* const kPages = "Pages";
const char* const kLook = "How pages look";
const char* const kRequests = "What servers are told";
const char* const kRun = "The run";
const char* const kProgram = "The program";

template<typename Value>
CLI::Validator check(Result<Value> (*read)(const QString&))
{
    const auto complain = [read](std::string& text) {
        const auto value = read(QString::fromStdString(text));
        return value ? std::string() : value.error().message.toStdString();
    };
    return {complain, ""};
}

/// Takes numbers from least to most; "nan" is none.
CLI::Validator within(double least, double most)
{
    const auto complain = [least, most](std::string& text) {
        const QString written = QString::fromStdString(text);
        bool isNumber = false;
        const double number = written.toDouble(&isNumber);
        if (isNumber && number >= least && number <= most) return std::string();
        return u"a number from %1 to %2 is needed, not %3"_s
            .arg(QString::number(least, 'g', 10), QString::number(most, 'g', 10), written)
            .toStdString();
    };
    return {complain, ""};
}

/// Makes a path mean the same from every folder: a run may be gone on with from another one.
CLI::Validator absolutePath()
{
    const auto change = [](std::string& path) {
        path = QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString();
        return std::string();
    };
    return {change, ""};
}

} // namespace

OptionSet::OptionSet(Arguments& arguments) : m_app(kDescription, "vistrel-batch")
{
    m_app.footer(kFooter);
    m_app.set_version_flag("--version", "vistrel-batch " VISTREL_VERSION)->group(kProgram);
    m_app.set_help_flag("-h,--help", "Print this help")->group(kProgram);
    defineInput(arguments);
    defineImages(arguments);
    definePages(arguments);
    defineLook(arguments);
    defineRequests(arguments);
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
    keep(m_app.add_option("--sitemap", given.sitemaps,
                          "All pages of a sitemap, an address or a file; may be repeated"))
        ->type_name("SITEMAP")
        ->allow_extra_args(false)
        ->check(check(readLine))
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
        ->check(check(readFormats))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_option("--name", given.naming, "Name the files by url, by number, or by a template"))
        ->type_name("NAMING")
        ->check(check(readNaming))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_flag("--overwrite,!--no-overwrite", given.overwrite,
                        "Replace files that are there already; else a free name is found"),
         &given.overwrite)
        ->group(kImages);
    keep(m_app.add_option("-q,--quality", given.quality,
                          "JPEG quality, 1 to 100; from 90 on with the colour of each pixel"))
        ->type_name("N")
        ->check(within(1, 100))
        ->capture_default_str()
        ->group(kImages);
    keep(m_app.add_option("--thumbnail", given.thumbnail, "Write a thumbnail of this size beside each image"))
        ->type_name("WxH")
        ->check(check(readSize))
        ->capture_default_str()
        ->group(kImages);
}

void OptionSet::definePages(Arguments& given)
{
    keep(m_app.add_option("--delay", given.delay, "Wait between a page being ready and its picture"))
        ->type_name("SECONDS")
        ->check(within(0.0, kLongestSeconds))
        ->capture_default_str()
        ->group(kPages);
    keep(m_app.add_option("--timeout", given.timeout, "The longest time for one page"))
        ->type_name("SECONDS")
        ->check(within(0.1, kLongestSeconds))
        ->capture_default_str()
        ->group(kPages);
    keep(m_app.add_option("--wait-for", given.awaitedElement,
                          "Wait until an element matches, within the time-out"))
        ->type_name("SELECTOR")
        ->check(check(readLine))
        ->group(kPages);
    keep(m_app.add_option("--wait-until", given.waitUntil,
                          "load, or idle: nothing fetched for 0.5 s; a quarter of the time-out at most"))
        ->type_name("STATE")
        ->check(CLI::IsMember({"load", "idle"}))
        ->capture_default_str()
        ->group(kPages);
    keep(m_app.add_flag("--no-script", given.noScript, "Do not run the pages' scripts"), &given.noScript)
        ->group(kPages);
    keep(m_app.add_option("--script", given.script,
                          "Run this file in each page once it is loaded; it may use await"))
        ->type_name("FILE")
        ->transform(absolutePath())
        ->group(kPages);
    keep(m_app.add_option("--confine", given.confinement, "Local pages see no file outside this folder"))
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory)
        ->transform(absolutePath())
        ->group(kPages);
}

void OptionSet::defineLook(Arguments& given)
{
    keep(m_app.add_option("--viewport", given.viewport, "Size of the window that the pages are laid out in"))
        ->type_name("WxH")
        ->check(check(readSize))
        ->capture_default_str()
        ->group(kLook);
    keep(m_app.add_option("--scale", given.scale, "Pixels of the image for one of the page, 0.5 to 4"))
        ->type_name("N")
        ->check(within(0.5, 4.0))
        ->capture_default_str()
        ->group(kLook);
    keep(m_app.add_flag("--visible-only", given.windowOnly, "Only what the window shows, not the whole page"),
         &given.windowOnly)
        ->group(kLook);
    keep(
        m_app.add_option("--max-height", given.maxHeight, "Cut pages that are taller, in pixels of the page"))
        ->type_name("N")
        ->check(within(1, kTallest))
        ->group(kLook);
    keep(m_app.add_option("--selector", given.element, "Only the first element that matches"))
        ->type_name("SELECTOR")
        ->check(check(readLine))
        ->group(kLook);
    keep(m_app.add_flag("--dark", given.dark, "Ask for dark colours"), &given.dark)->group(kLook);
    keep(m_app.add_option("--css", given.style, "Add the style rules in this file"))
        ->type_name("FILE")
        ->transform(absolutePath())
        ->group(kLook);
    keep(m_app.add_option("--hide", given.hidden, "Leave out the elements that match; may be repeated"))
        ->type_name("SELECTOR")
        ->allow_extra_args(false)
        ->check(check(readLine))
        ->group(kLook);
}

void OptionSet::defineRequests(Arguments& given)
{
    keep(m_app.add_option("--lang", given.languages, "Ask for pages in these languages, best first"))
        ->type_name("LANG,...")
        ->check(check(readLanguages))
        ->group(kRequests);
    keep(m_app.add_option("--user-agent", given.userAgent, "What the browser calls itself"))
        ->type_name("TEXT")
        ->check(check(readLine))
        ->group(kRequests);
    keep(m_app.add_option("--header", given.headers,
                          "Send \"Name: value\" to the pages' own hosts alone; may be repeated"))
        ->type_name("TEXT")
        ->allow_extra_args(false)
        ->check(check(readHeader))
        ->group(kRequests);
    keep(m_app.add_option("--cookie", given.cookies,
                          "Send \"name=value\" to the pages' own hosts alone; may be repeated"))
        ->type_name("TEXT")
        ->allow_extra_args(false)
        ->check(check(readCookie))
        ->group(kRequests);
    keep(m_app.add_option("--proxy", given.proxy, "Reach all hosts but this one through a proxy"))
        ->type_name("ADDRESS")
        ->check(check(readProxy))
        ->group(kRequests);
    keep(m_app.add_flag("--insecure", given.insecure, "Show pages whose certificates are not valid"),
         &given.insecure)
        ->group(kRequests);
}

void OptionSet::defineRun(Arguments& given)
{
    m_app
        .add_option("-j,--jobs", given.jobs,
                    "Pages at a time, or auto: by cores and memory, more while the machine is idle")
        ->type_name("N")
        ->check(check(readJobs))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--per-host", given.perHost, "Pages of one host at a time; 0: any number")
        ->type_name("N")
        ->check(within(0, kMostPerHost))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--per-host-delay", given.perHostDelay, "Pause between two pages of one host")
        ->type_name("SECONDS")
        ->check(within(0.0, kLongestSeconds))
        ->capture_default_str()
        ->group(kRun);
    m_app.add_option("--retry", given.retries, "Further attempts after a fault that can pass")
        ->type_name("N")
        ->check(within(0, 20))
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
