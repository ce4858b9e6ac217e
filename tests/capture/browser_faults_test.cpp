#include "tests/capture/page_fixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

/// Each test runs against a browser program of its own that misbehaves as its name says.
class BrowserFaults : public testing::Test
{
protected:
    /// The fake browser under the given name, where the browser's account can start it.
    QString program(const QString& name)
    {
        const auto everyone =
            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        QFile::setPermissions(folder.path(), everyone);
        const QString path = folder.filePath(name);
        QFile::copy(QStringLiteral(FAKE_BROWSER), path);
        QFile::setPermissions(path, everyone);
        return path;
    }

    static BrowserOptions optionsFor(const QString& path, std::chrono::milliseconds limit = 10s)
    {
        BrowserOptions options;
        options.program = path;
        options.startLimit = limit;
        return options;
    }

    /// Starts it.
    Result<void> start(const QString& name, std::chrono::milliseconds limit = 10s)
    {
        browser = Browser::create();
        return await(browser->start(optionsFor(program(name), limit)));
    }

    Result<PageShot> captureWith(const QString& name, std::chrono::milliseconds timeout = 2s,
                                 QSize viewport = PageRequest().viewport)
    {
        const auto started = start(name);
        if (!started) return started.error();
        PageRequest request;
        request.viewport = viewport;
        request.addresses = {QUrl(u"http://x.test/"_s)};
        request.timeout = timeout;
        return await(PageRun::create(browser, request)->run());
    }

    /// Why it failed; empty for a success.
    static std::string failure(const Result<PageShot>& shot)
    {
        return shot ? "" : shot.error().text().toStdString();
    }

    QTemporaryDir folder;
    std::shared_ptr<Browser> browser;
};

TEST_F(BrowserFaults, OneThatDoesNotStartIsQuotedWithTheRemedy)
{
    const auto unlinked = start(u"unlinked"_s);
    ASSERT_FALSE(unlinked);
    EXPECT_TRUE(unlinked.error().text().contains(u"libnss3.so"));
    const auto unsafe = start(u"no-sandbox-here"_s);
    ASSERT_FALSE(unsafe);
    EXPECT_TRUE(unsafe.error().text().contains(u"user namespaces")) << unsafe.error().text().toStdString();
    const auto silent = start(u"silent"_s, 300ms);
    ASSERT_FALSE(silent);
    EXPECT_TRUE(silent.error().text().contains(u"0.3 s")) << silent.error().text().toStdString();
    const auto missing = await(BrowserKeeper(optionsFor(u"/no/such/browser"_s)).browser(1s));
    ASSERT_FALSE(missing);
    EXPECT_TRUE(missing.error().text().contains(u"/no/such/browser"));
}

TEST_F(BrowserFaults, OnlyATruePictureIsASuccess)
{
    EXPECT_EQ(failure(captureWith(u"good"_s)), "");
    EXPECT_EQ(captureWith(u"empty-picture"_s).error().kind, Error::Kind::Format);
    EXPECT_EQ(captureWith(u"wrong-size"_s).error().kind, Error::Kind::Format);
    EXPECT_EQ(captureWith(u"crashing"_s).error().kind, Error::Kind::Page);
    EXPECT_EQ(captureWith(u"hangs"_s, 500ms).error().kind, Error::Kind::Timeout);
}

TEST_F(BrowserFaults, OneThatBreaksOffIsFaulty)
{
    EXPECT_EQ(captureWith(u"torn"_s).error().kind, Error::Kind::Protocol);
    EXPECT_FALSE(browser->isUsable());
    for (const QString& way : {u"closing"_s, u"leaving"_s}) {
        EXPECT_EQ(captureWith(way).error().kind, Error::Kind::Closed) << way.toStdString();
        EXPECT_FALSE(browser->isUsable()) << way.toStdString();
    }
}

TEST_F(BrowserFaults, OneThatDoesNotCloseItsPagesIsFaulty)
{
    EXPECT_EQ(failure(captureWith(u"never-closes"_s)), "");
    QElapsedTimer clock;
    clock.start();
    while (browser->isUsable() && clock.elapsed() < 8000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    EXPECT_FALSE(browser->isUsable());
}

TEST_F(BrowserFaults, OneThatDrawsWrongTakesNoTallPictures)
{
    EXPECT_EQ(failure(captureWith(u"good"_s, 2s, {1280, 8192})), "");
    const auto refused = captureWith(u"good"_s, 2s, {1280, 8193});
    ASSERT_FALSE(refused);
    EXPECT_TRUE(refused.error().text().contains(u"does not draw right"))
        << refused.error().text().toStdString();
    const auto late = captureWith(u"hangs"_s, 500ms, {1280, 8193}); // It hangs while it is checked.
    ASSERT_FALSE(late);
    EXPECT_TRUE(late.error().text().contains(u"time-out of 0.5 s")) << late.error().text().toStdString();
    browser->kill(late.error()); // The check would go on for a while.
}

TEST_F(BrowserFaults, LateRepliesAndAFloodOfErrorsDoNotDisturb)
{
    EXPECT_EQ(failure(captureWith(u"late"_s)), "");
    EXPECT_EQ(failure(captureWith(u"chatty"_s, 20s)), "");
}

/// A pipe that turns out to be broken when something is sent.
class BreakingTransport : public Transport
{
public:
    void send(const QByteArray& /*message*/) override { Q_EMIT received("torn"); }
};

TEST_F(BrowserFaults, OneThatDiesUnderADialogEndsWhoeverWatchesThePage)
{
    auto* pipe = new BreakingTransport;
    Connection connection{std::unique_ptr<Transport>(pipe)};
    const auto session = connection.openSession(u"S"_s);
    auto watch = std::make_unique<PageWatch>(*session);
    const auto flow = [&]() -> Task<> {
        (void)co_await session->until([] { return false; }, 60s, u"never"_s);
        watch.reset();
    };
    const Task<> task = flow();
    Q_EMIT pipe->received("{\"method\":\"Page.javascriptDialogOpening\",\"params\":{},\"sessionId\":\"S\"}");
    EXPECT_EQ(watch, nullptr); // And nothing was done with it after that.
}

TEST_F(BrowserFaults, NothingIsLeftBehind)
{
    const auto left = [] {
        return QDir(QDir::tempPath()).entryList({u"vistrel-browser-%1-*"_s.arg(getpid())}).size();
    };
    ASSERT_TRUE(start(u"good"_s).ok());
    EXPECT_EQ(left(), 1);
    const QString process = u"/proc/%1"_s.arg(browser->processId());
    EXPECT_TRUE(QFile::exists(process));
    browser.reset();
    EXPECT_EQ(left(), 0);
    EXPECT_FALSE(QFile::exists(process));
}

TEST_F(BrowserFaults, FoldersOfKilledRunsAreSwept)
{
    const QString stale = QDir::tempPath() + u"/vistrel-browser-999999999-1-abcdef"_s;
    ASSERT_TRUE(QDir().mkpath(stale + u"/profile/deep"_s));
    ASSERT_TRUE(start(u"good"_s).ok());
    EXPECT_FALSE(QDir(stale).exists());
    EXPECT_TRUE(QDir(browser->folder().path()).exists()) << "ours is in use";
}

} // namespace
} // namespace vistrel::test
