#include "batch/gunzip.h"
#include "batch/sitemap_source.h"
#include "batch/web_file.h"
#include "tests/support/gzip.h"
#include "tests/support/scripted_server.h"
#include "tests/support/temp_folder.h"

using namespace Qt::StringLiterals;

namespace vistrel::test
{

namespace
{

QByteArray pages(const QByteArrayList& addresses)
{
    return "<urlset><url><loc>" + addresses.join("</loc></url><url><loc>") + "</loc></url></urlset>";
}

/// The addresses in a sitemap, then what went wrong, if anything did.
QStringList read(const QByteArray& xml)
{
    SitemapReader reader(xml);
    QStringList seen;
    for (;;) {
        const auto address = reader.next();
        if (!address) return seen + QStringList{u"error"_s};
        if (!*address) return seen;
        seen.append(**address);
    }
}

TEST(SitemapReader, TakesTheAddressesAndNothingElse)
{
    const QByteArray standard = "http://www.sitemaps.org/schemas/sitemap/0.9";
    const QList<std::pair<QByteArray, QStringList>> files{
        {"<?xml version='1.0' encoding='UTF-8'?><urlset xmlns='" + standard +
             "' xmlns:i='http://www.google.com/schemas/sitemap-image/1.1'><!-- <loc>x</loc> "
             "--><url><i:image><i:loc>no"
             "</i:loc></i:image><loc>\n http://a/?x=1&amp;y=2 "
             "</loc><lastmod>2024</lastmod><i:loc>no</i:loc></url>"
             "<other><loc>no</loc></other><url><loc/></url><url><loc><![CDATA[http://b/]]></loc></url></"
             "urlset>",
         {u"http://a/?x=1&y=2"_s, u"http://b/"_s}},
        {"<sitemapindex><sitemap><loc>c</loc></sitemap></sitemapindex>", {u"c"_s}},
        {"<urlset/>", {}},
        {"<urlset><url><loc>a</loc></url><url><loc>b", {u"a"_s, u"error"_s}},
        {"<!DOCTYPE urlset [<!ENTITY a 'aaaa'>]><urlset><url><loc>&a;</loc></url></urlset>", {u"error"_s}},
        {"<!doctype html><html><body>Not found</body></html>", {u"error"_s}},
        {"<html/>", {u"error"_s}},
        {"", {u"error"_s}}};
    for (const auto& [xml, expected] : files)
        EXPECT_EQ(read(xml), expected) << xml.constData();
}

TEST(Gunzip, UnpacksUpToItsLimit)
{
    const QByteArray packed = gzip(QByteArray(5'000'000, 'a'));
    EXPECT_TRUE(isGzip(packed));
    EXPECT_EQ(gunzip(packed, 5'000'000)->size(), 5'000'000);
    EXPECT_EQ(gunzip(packed, 4'000'000).error().kind, Error::Kind::TooLarge);
    EXPECT_EQ(gunzip(packed.chopped(10), 5'000'000).error().kind, Error::Kind::Format);
}

class SitemapSourceTest : public testing::Test
{
protected:
    /// Serves body at path, counting where the token of the plan was sent.
    void serve(const QString& path, const QByteArray& body)
    {
        m_server.on(path, [this, body](Exchange& exchange) {
            m_tokens[exchange.path()] = exchange.header("x-token") + exchange.header("cookie");
            exchange.reply(body, "text/xml");
        });
    }

    /// "address" or "address: problem" of each entry.
    QStringList entriesOf(const QString& sitemap)
    {
        SitemapSource source(m_plan, sitemap);
        QStringList seen;
        for (;;) {
            const auto entry = source.next();
            if (!entry) return seen + QStringList{u"error: "_s + entry.error().text()};
            if (!*entry) return seen;
            EXPECT_EQ((*entry)->list, sitemap);
            const QString& problem = (*entry)->problem;
            seen.append((*entry)->text + (problem.isEmpty() ? QString() : u": "_s + problem));
        }
    }

    ScriptedServer m_server;
    QMap<QString, QByteArray> m_tokens; // By path.
    Plan m_plan;
};

TEST_F(SitemapSourceTest, FollowsAnIndexInOrderAndNamesWhatCannotBeRead)
{
    const auto url = [this](const QString& path) { return m_server.url(path).toUtf8(); };
    serve(u"/a.xml.gz"_s, gzip(pages({"http://a/1", "http://a/2", "file:///etc/passwd", "page.html"})));
    serve(u"/cut.xml"_s, "<urlset><url><loc>http://c/1</loc></url><url>");
    serve(u"/b.xml"_s, pages({"http://b/1"}));
    m_server.on(u"/moved.xml"_s, [](Exchange& exchange) { exchange.redirect("/b.xml"); });
    const QByteArrayList sitemaps{url(u"/a.xml.gz"_s), url(u"/gone.xml"_s), url(u"/index.xml"_s),
                                  url(u"/cut.xml"_s),  "/etc/passwd",       url(u"/moved.xml"_s)};
    serve(u"/index.xml"_s, "<sitemapindex><sitemap><loc>" + sitemaps.join("</loc></sitemap><sitemap><loc>") +
                               "</loc></sitemap></sitemapindex>");
    const QStringList entries = entriesOf(m_server.url(u"/index.xml"_s));
    ASSERT_EQ(entries.size(), 9) << entries.join(u'\n').toStdString();
    EXPECT_EQ(entries.first(2), (QStringList{u"http://a/1"_s, u"http://a/2"_s}));
    EXPECT_TRUE(entries[2].startsWith(u"file:///etc/passwd: "_s));
    EXPECT_TRUE(entries[3].startsWith(u"page.html: "_s));
    EXPECT_TRUE(entries[4].contains(u"/gone.xml cannot be read: HTTP 404"_s)) << entries[4].toStdString();
    EXPECT_EQ(entries[5], u"http://c/1"_s);
    EXPECT_TRUE(entries[6].contains(u"/cut.xml cannot be read: line 1"_s)) << entries[6].toStdString();
    EXPECT_TRUE(entries[7].startsWith(u"/etc/passwd: "_s));
    EXPECT_EQ(entries[8], u"http://b/1"_s);
}

TEST_F(SitemapSourceTest, OneThatCannotBeReadAtAllIsAnErrorThatNamesIt)
{
    const TempFolder folder;
    m_server.on(u"/loop.xml"_s, [](Exchange& exchange) { exchange.redirect("/loop.xml"); });
    m_server.on(u"/local.xml"_s, [](Exchange& exchange) { exchange.redirect("file:///etc/passwd"); });
    serve(u"/deep.xml"_s, QByteArray("<a>").repeated(100000));
    for (const QString& sitemap :
         {m_server.url(u"/loop.xml"_s), m_server.url(u"/local.xml"_s), m_server.url(u"/none.xml"_s),
          m_server.url(u"/deep.xml"_s), u"http://127.0.0.1:1/x.xml"_s, folder.path(u"none.xml"_s),
          folder.write(u"damaged.xml.gz"_s, "\x1f\x8b\x08 and so on")}) {
        const QStringList entries = entriesOf(sitemap);
        ASSERT_EQ(entries.size(), 1);
        EXPECT_TRUE(entries[0].startsWith(u"error: "_s) && entries[0].contains(sitemap))
            << entries[0].toStdString();
    }
    EXPECT_EQ(entriesOf(folder.write(u"good.xml"_s, pages({"http://a/"}))), QStringList{u"http://a/"_s});
}

TEST_F(SitemapSourceTest, TheHeadersOfTheUserGoToItsHostAlone)
{
    m_plan.page.headers = {{u"X-Token"_s, u"abc"_s}};
    m_plan.page.cookies = {{u"a"_s, u"b"_s}};
    const QByteArray elsewhere = "http://localhost:" + QByteArray::number(m_server.port());
    m_server.on(u"/away.xml"_s,
                [elsewhere](Exchange& exchange) { exchange.redirect(elsewhere + "/other.xml"); });
    serve(u"/index.xml"_s, "<sitemapindex><sitemap><loc>" + m_server.url(u"/own.xml"_s).toUtf8() +
                               "</loc></sitemap><sitemap><loc>" + elsewhere +
                               "/foreign.xml</loc></sitemap><sitemap><loc>" +
                               m_server.url(u"/away.xml"_s).toUtf8() + "</loc></sitemap></sitemapindex>");
    for (const QString& path : {u"/own.xml"_s, u"/foreign.xml"_s, u"/other.xml"_s})
        serve(path, pages({"http://a/"}));
    EXPECT_EQ(entriesOf(m_server.url(u"/index.xml"_s)).size(), 3);
    EXPECT_EQ(m_tokens.value(u"/index.xml"_s), "abca=b");
    EXPECT_EQ(m_tokens.value(u"/own.xml"_s), "abca=b");
    EXPECT_EQ(m_tokens.value(u"/foreign.xml"_s, "not asked"), "");
    EXPECT_EQ(m_tokens.value(u"/other.xml"_s, "not asked"), "");
}

TEST(SitemapEntries, TheHeadersOfTheUserGoToPagesOfTheSitemapsHostAlone)
{
    const QString sitemap = u"https://a.example/sitemap.xml"_s;
    const QList<std::tuple<QString, QString, bool>> pages{
        {sitemap, u"https://a.example/x"_s, true},
        {sitemap, u"https://b.example/x"_s, false},
        {sitemap, u"http://a.example/x"_s, false},
        {sitemap, u"https://a.example:8443/x"_s, false},
        {u"http://a.example/s"_s, u"https://a.example/"_s, true},
        {u"sitemap.xml"_s, u"https://b.example/"_s, true},
        {u""_s, u"b.example"_s, true}};
    Entry entry;
    for (const auto& [list, page, may] : pages) {
        entry.list = list;
        entry.target = page;
        EXPECT_EQ(mayTakeHeaders(entry), may) << list.toStdString() << " " << page.toStdString();
    }
}

TEST_F(SitemapSourceTest, AFileThatNeverEndsDoes)
{
    m_server.on(u"/endless.xml"_s, [](Exchange& exchange) {
        exchange.begin("text/xml");
        exchange.send(QByteArray(300'000, ' '));
    });
    const QUrl address(m_server.url(u"/endless.xml"_s));
    EXPECT_EQ(fetchFile(address, address, m_plan, 200'000).error().kind, Error::Kind::TooLarge);
}

} // namespace

} // namespace vistrel::test
