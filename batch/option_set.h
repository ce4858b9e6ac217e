#pragma once

#include "batch/journal.h"

#include <CLI/CLI.hpp>

namespace vistrel
{

/// The options as they are written.
struct Arguments {
    std::vector<std::string> lists;
    std::vector<std::string> sitemaps;
    std::vector<std::string> addresses;
    std::string output = ".";
    std::string formats = "png"; // Separated by commas.
    std::string naming = "url";
    bool overwrite = false;
    int quality = 80;
    std::string thumbnail;
    double delay = 0;
    double timeout = 30;
    std::string awaitedElement;
    std::string waitUntil = "load";
    bool noScript = false;
    std::string script; // A file.
    std::string confinement;
    std::string viewport = "1280x800";
    double scale = 1;
    bool windowOnly = false;
    int maxHeight = 0;
    std::string element;
    bool dark = false;
    std::string style; // A file.
    std::vector<std::string> hidden;
    std::string languages;
    std::string userAgent;
    std::vector<std::string> headers;
    std::vector<std::string> cookies;
    std::string proxy;
    bool insecure = false;
    std::string config;
    std::string jobs = "auto";
    int perHost = 0;
    double perHostDelay = 0;
    int retries = 0;
    bool resume = false;
    bool retryFailed = false;
    std::string browser;
    bool noSandbox = false;
    std::string report;
    std::string sheet;
    bool verbose = false;
};

/// The program's options, bound to arguments: names, help, checks, and which of them decide what a run makes,
/// so that its journal has to keep them.
class OptionSet
{
public:
    /// The values that arguments holds are the defaults; it must outlive this object.
    explicit OptionSet(Arguments& arguments);

    /// Throws CLI::ParseError.
    void parse(const QStringList& arguments);
    [[nodiscard]] QString help() const { return QString::fromStdString(m_app.help()); }

    /// The options that a journal keeps, with the values that hold, defaults included.
    [[nodiscard]] OptionValues kept() const;
    /// Whether the option of that name was among the arguments parsed.
    [[nodiscard]] bool isGiven(const QString& name) const;

private:
    struct Kept {
        CLI::Option* option;
        const bool* flag; // Null for options with values.
    };
    void defineInput(Arguments& arguments);
    void defineImages(Arguments& arguments);
    void definePages(Arguments& arguments);
    void defineLook(Arguments& arguments);
    void defineRequests(Arguments& arguments);
    void defineRun(Arguments& arguments);
    void defineProgram(Arguments& arguments);
    CLI::Option* keep(CLI::Option* option, const bool* flag = nullptr);

    CLI::App m_app;
    QMap<QString, Kept> m_kept;
};

} // namespace vistrel
