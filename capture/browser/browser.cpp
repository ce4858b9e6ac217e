#include "capture/browser/browser.h"

#include "capture/browser/browser_arguments.h"
#include "capture/browser/browser_locator.h"
#include "capture/browser/page_target.h"
#include "capture/protocol/pipe_transport.h"
#include "platform/log.h"

#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Nothing of the user's session reaches the browser: its home and its temporary files lie in folder.
QProcessEnvironment browserEnvironment(const QString& folder)
{
    const QProcessEnvironment ours = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment environment;
    for (const QString& name :
         {u"PATH"_s, u"LANG"_s, u"LC_ALL"_s, u"TZ"_s, u"FONTCONFIG_FILE"_s, u"FONTCONFIG_PATH"_s,
          u"http_proxy"_s, u"https_proxy"_s, u"no_proxy"_s, u"LD_LIBRARY_PATH"_s}) {
        if (ours.contains(name)) environment.insert(name, ours.value(name));
    }
    for (const QString& name :
         {u"HOME"_s, u"TMPDIR"_s, u"XDG_CONFIG_HOME"_s, u"XDG_CACHE_HOME"_s, u"XDG_RUNTIME_DIR"_s})
        environment.insert(name, folder);
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    return environment;
}

/// Longer than what comes between two pages of a list, short enough for what goes on in a page that is done
/// with.
constexpr std::chrono::milliseconds kIdleTime = std::chrono::seconds(1);

QString lastLines(const QByteArray& errors)
{
    const QList<QByteArray> lines = errors.trimmed().split('\n');
    return QString::fromUtf8(lines.mid(qMax(0, lines.size() - 3)).join("; "));
}

QString remedy(const QByteArray& errors)
{
    if (errors.contains("sandbox"))
        return u"; its sandbox needs user namespaces (kernel.unprivileged_userns_clone=1, or an AppArmor "
               u"profile "
               u"that allows them)"_s;
    if (errors.contains("error while loading shared libraries"))
        return u"; a library that it needs is missing"_s;
    return {};
}

} // namespace

std::shared_ptr<Browser> Browser::create() { return std::shared_ptr<Browser>(new Browser); }

Task<Result<void>> Browser::start(BrowserOptions options)
{
    const auto self = shared_from_this();
    const auto launched = launch(options);
    if (!launched) co_return launched.error().during(u"starting the browser"_s);

    const auto version =
        co_await m_connection->browser().call(u"Browser.getVersion"_s, {}, options.startLimit);
    if (!version) co_return startFailure(version.error());
    m_product = version->result.value(u"product"_s).toString();
    qCDebug(logBrowser) << "started" << m_product << "process" << processId();
    co_return Result<void>();
}

Result<void> Browser::launch(const BrowserOptions& options)
{
    const auto program = locateBrowser(options.program);
    if (!program) return program.error();
    if (!options.sandbox) qCWarning(logBrowser) << "the browser runs without its sandbox, as was asked for";
    m_account = browserAccount();
    sweepScratchFolders();
    auto folder = ScratchFolder::create(m_account);
    if (!folder) return folder.error();
    m_folder = std::move(*folder);
    return launchProcess(options, *program);
}

Result<void> Browser::launchProcess(const BrowserOptions& options, const QString& program)
{
    const auto profile = m_folder->makeSubfolder(u"profile"_s);
    if (!profile) return profile.error();
    auto process = PipedProcess::start(
        {program, browserArguments(options, *profile), browserEnvironment(*profile), m_account});
    if (!process) return process.error();
    m_process = std::move(*process);
    m_connection = std::make_unique<Connection>(std::make_unique<PipeTransport>(m_process->pipe()));
    return {};
}

Error Browser::startFailure(const Error& cause) const
{
    m_process->killGroup();
    m_process->waitForEnd(std::chrono::seconds(1)); // Collects its last words.
    const QByteArray& errors = m_process->recentErrors();
    const QString words =
        errors.isEmpty() ? cause.message : cause.message + u"; its last words: "_s + lastLines(errors);
    return Error{Error::Kind::Io, words + remedy(errors), u"starting the browser"_s};
}

// The browser of a killed run may have gone on for a moment when this one was started, and left its folder.
Browser::~Browser() { sweepScratchFolders(); }

Task<Result<std::shared_ptr<PageTarget>>> Browser::openPage(Session::Limit limit)
{
    return PageTarget::open(shared_from_this(), limit);
}

void Browser::keepPage(IdlePage page)
{
    page.end.setRemainingTime(kIdleTime);
    m_idlePages.append(std::move(page));
    QTimer::singleShot(kIdleTime, this, &Browser::closeIdlePages);
}

std::shared_ptr<PageTarget> Browser::reusePage(const QString& setup)
{
    const auto suits = [&setup](const IdlePage& page) { return page.setup == setup; };
    const auto page = std::find_if(m_idlePages.rbegin(), m_idlePages.rend(), suits);
    if (page == m_idlePages.rend()) return nullptr;
    const IdlePage found = *page;
    m_idlePages.erase(std::next(page).base());
    return PageTarget::reopen(shared_from_this(), found);
}

void Browser::closeIdlePages()
{
    const auto over = std::stable_partition(m_idlePages.begin(), m_idlePages.end(),
                                            [](const IdlePage& page) { return !page.end.hasExpired(); });
    const QList<IdlePage> closed(over, m_idlePages.end());
    m_idlePages.erase(over, m_idlePages.end());
    for (const IdlePage& page : closed)
        PageTarget::reopen(shared_from_this(), page); // Closed with its only reference.
}

void Browser::kill(const Error& reason)
{
    m_faulty = true;
    if (m_process) m_process->killGroup();
    if (m_connection) m_connection->close(reason);
}

bool Browser::isUsable() const { return !m_faulty && m_connection && m_connection->isOpen(); }

} // namespace vistrel
