#include "batch/contact_sheet.h"

#include "capture/browser/page_target.h"
#include "capture/browser_keeper.h"
#include "tests/support/await.h"
#include "tests/support/scripted_server.h"
#include "tests/support/temp_folder.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace vistrel
{

namespace
{

TEST(ContactSheet, NothingOfAnEntryReachesThePageAsMarkup)
{
    const test::TempFolder folder;
    ContactSheet sheet;
    ASSERT_TRUE(sheet.open(folder.path(u"sheet.html"_s)));
    Entry entry;
    entry.text = u"http://u:secret@h/</script><img src=x onerror=alert(1)>"_s;
    Outcome outcome = Outcome::failed(u"<!-- </SCRIPT>"_s);
    outcome.file = folder.path(u"a #1%.png"_s);
    sheet.add(entry, outcome);
    sheet.add(entry, outcome);
    ASSERT_TRUE(sheet.close());
    const QByteArray html = folder.read(u"sheet.html"_s);
    EXPECT_EQ(html.toLower().count("</script"), 1);
    EXPECT_FALSE(html.contains("<img src=x"));
    EXPECT_FALSE(html.contains("secret"));
    EXPECT_TRUE(html.contains("\"./a%20%231%25.png\""));
}

TEST(ContactSheet, AFolderThatIsNotThereIsAnError)
{
    ContactSheet sheet;
    EXPECT_FALSE(sheet.open(u"/no/such/folder/sheet.html"_s));
}

/// A contact sheet in the real browser.
class OpenSheet
{
public:
    explicit OpenSheet(const QByteArray& html)
    {
        m_server.page(u"/sheet.html"_s, html);
        const auto browser = test::await(m_keeper.browser(30s));
        if (browser) m_page = *test::await(PageTarget::open(*browser, 10s));
        const QJsonObject address{{u"url"_s, m_server.url(u"/sheet.html"_s)}};
        EXPECT_TRUE(browser && call(u"Page.navigate"_s, address));
    }

    /// What a script in the page comes to, as text.
    QString evaluate(const QString& script)
    {
        const auto reply =
            call(u"Runtime.evaluate"_s, {{u"expression"_s, script}, {u"returnByValue"_s, true}});
        return reply ? reply->result.value(u"result"_s)[u"value"].toVariant().toString() : QString();
    }

    QString shownOfAll() { return evaluate(u"document.getElementById('count').textContent"_s); }

    void press(const QString& state)
    {
        evaluate(
            u"[...document.querySelectorAll('button')].find(b => b.textContent.startsWith('%1')).click()"_s
                .arg(state));
    }

    void search(const QString& words)
    {
        evaluate(u"search.value = '%1'; search.dispatchEvent(new Event('input'))"_s.arg(words));
    }

private:
    Result<Reply> call(const QString& method, const QJsonObject& params)
    {
        return test::await([](auto session, QString name, QJsonObject with) -> Task<Result<Reply>> {
            co_return co_await session->call(name, with);
        }(m_page->session(), method, params));
    }

    test::ScriptedServer m_server;
    BrowserKeeper m_keeper{{}};
    std::shared_ptr<PageTarget> m_page;
};

/// 10,000 entries: 8,910 converted, 1,980 of them with a note, 990 failed, 100 skipped.
QByteArray largeSheet(const test::TempFolder& folder)
{
    ContactSheet sheet;
    EXPECT_TRUE(sheet.open(folder.path(u"sheet.html"_s)));
    for (int number = 1; number <= 10000; ++number) {
        Entry entry;
        entry.number = entry.line = number;
        entry.text = u"http://site%1.example/page/%2"_s.arg(number % 50).arg(number);
        Outcome outcome = number % 10 == 0 ? Outcome::failed(u"ERR_TIMED_OUT"_s) : Outcome();
        if (number % 10 != 0) {
            outcome.state = EntryState::Converted;
            outcome.size = {1280, 900};
        }
        if (number % 10 == 1) outcome.note = u"HTTP 404"_s;
        if (number % 10 == 2) outcome.note = u"the page never finished loading"_s;
        if (number > 9900) outcome = Outcome::skipped(u"the run was ended before"_s);
        sheet.add(entry, outcome);
    }
    EXPECT_TRUE(sheet.close());
    return folder.read(u"sheet.html"_s);
}

TEST(ContactSheet, TenThousandEntriesAreSearchedAndFilteredInABrowser)
{
    const test::TempFolder folder;
    const QByteArray html = largeSheet(folder);
    QElapsedTimer clock;
    clock.start();
    OpenSheet sheet(html);
    while (sheet.shownOfAll() != u"10000 of 10000" && clock.elapsed() < 10000) {
    }
    EXPECT_LT(clock.elapsed(), 5000) << "from the browser's start to the first entries";
    EXPECT_LT(sheet.evaluate(u"document.querySelectorAll('article').length"_s).toInt(), 200);
    sheet.press(u"failed"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"990 of 10000");
    EXPECT_EQ(sheet.evaluate(u"document.querySelector('article small').textContent"_s), u"line 10 · failed");
    sheet.search(u"site20.example TIMED"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"198 of 10000");
    sheet.press(u"all"_s);
    sheet.search(u"/page/4321"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"1 of 10000");
    EXPECT_EQ(sheet.evaluate(u"document.querySelector('article p').title"_s),
              u"http://site21.example/page/4321");
    sheet.search({});
    sheet.press(u"skipped"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"100 of 10000");
    sheet.press(u"HTTP error"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"990 of 10000");
    sheet.press(u"doubtful"_s);
    EXPECT_EQ(sheet.shownOfAll(), u"990 of 10000");
    EXPECT_EQ(sheet.evaluate(u"scrollTo(0, 1e9); draw(); [...drawn.keys()].pop().text"_s),
              u"http://site42.example/page/9892");
}

} // namespace

} // namespace vistrel
