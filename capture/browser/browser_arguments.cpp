#include "capture/browser/browser_arguments.h"

#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint64 kEnoughSharedMemory = 1024LL * 1024 * 1024;

/// What a batch of untrusted pages neither needs nor may do.
QStringList quietArguments()
{
    return {
        u"--no-first-run"_s,
        u"--no-default-browser-check"_s,
        u"--no-pings"_s,
        u"--mute-audio"_s,
        u"--disable-background-networking"_s,
        u"--disable-breakpad"_s,
        u"--disable-component-update"_s,
        u"--disable-default-apps"_s,
        u"--disable-extensions"_s,
        u"--disable-sync"_s,
        u"--deny-permission-prompts"_s,
        u"--block-new-web-contents"_s,
        u"--autoplay-policy=user-gesture-required"_s,
        u"--password-store=basic"_s,
        u"--use-mock-keychain"_s,
        u"--disable-features=Translate,MediaRouter,OptimizationHints,HttpsUpgrades,DialMediaRouteProvider"_s};
}

/// The same picture on every machine, drawn at full speed in a window that nobody sees. Animated images show
/// their first frame. What lies outside of the window is drawn too, for pictures of whole pages: the
/// protocol's own captureBeyondViewport lays a page out in a window of one pixel in between, which shows.
QStringList drawingArguments()
{
    return {u"--hide-scrollbars"_s,
            u"--blink-settings=imageAnimationPolicy=2,mainFrameClipsContent=false"_s,
            u"--disable-gpu"_s,
            u"--force-color-profile=srgb"_s,
            u"--font-render-hinting=none"_s,
            u"--disable-lcd-text"_s,
            u"--disable-background-timer-throttling"_s,
            u"--disable-backgrounding-occluded-windows"_s,
            u"--disable-renderer-backgrounding"_s};
}

/// Who the browser is to its servers, and how it gets there.
QStringList networkArguments(const BrowserOptions& options)
{
    QStringList arguments;
    if (!options.language.isEmpty()) arguments += u"--accept-lang="_s + options.language;
    if (!options.userAgent.isEmpty()) arguments += u"--user-agent="_s + options.userAgent;
    if (!options.proxy.isEmpty()) arguments += u"--proxy-server="_s + options.proxy;
    if (options.takeBadCertificates) arguments += u"--ignore-certificate-errors"_s;
    return arguments;
}

} // namespace

QStringList browserArguments(const BrowserOptions& options, const QString& profileFolder)
{
    QStringList arguments{u"--headless"_s, u"--remote-debugging-pipe"_s,
                          u"--user-data-dir="_s + profileFolder};
    arguments += quietArguments() + drawingArguments() + networkArguments(options);
    if (QStorageInfo(u"/dev/shm"_s).bytesTotal() < kEnoughSharedMemory)
        arguments += u"--disable-dev-shm-usage"_s;
    if (!options.sandbox) arguments += u"--no-sandbox"_s;
    arguments += u"--no-startup-window"_s;
    return arguments;
}

} // namespace vistrel
