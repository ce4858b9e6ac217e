#include "capture/page/address.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

QStringList texts(const QString& entry)
{
    const auto addresses = resolveAddress(entry);
    if (!addresses) return {addresses.error().kind == Error::Kind::Usage ? u"refused"_s : u"wrong kind"_s};
    QStringList result;
    for (const QUrl& address : *addresses)
        result += QString::fromUtf8(address.toEncoded());
    return result;
}

TEST(Address, IsTakenAsAnAddressBarWouldTakeIt)
{
    EXPECT_EQ(texts(u"https://example.org/a b?q=1#x"_s), QStringList{u"https://example.org/a%20b?q=1#x"_s});
    EXPECT_EQ(texts(u"example.org/a"_s),
              (QStringList{u"https://example.org/a"_s, u"http://example.org/a"_s}));
    EXPECT_EQ(texts(u"HTTP://Example.org"_s), QStringList{u"http://example.org"_s});
    EXPECT_EQ(texts(u"localhost:8080/x"_s), QStringList{u"http://localhost:8080/x"_s});
    EXPECT_EQ(texts(u"example.org:8080"_s), QStringList{u"http://example.org:8080"_s});
    EXPECT_EQ(texts(u"127.0.0.1/x"_s), QStringList{u"http://127.0.0.1/x"_s});
    EXPECT_EQ(texts(u"[::1]/x"_s), QStringList{u"http://[::1]/x"_s});
    EXPECT_EQ(texts(u"bücher.example"_s).first(), u"https://xn--bcher-kva.example"_s);
}

TEST(Address, OfAFileIsItsFileAddress)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"ä page #1.html"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(texts(path), QStringList{QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded())});
    EXPECT_EQ(texts(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)), texts(path));
    EXPECT_EQ(texts(texts(path).first() + u"?a=1%202#/b"_s),
              QStringList{texts(path).first() + u"?a=1%202#/b"_s});
    EXPECT_EQ(texts(folder.path()), QStringList{u"refused"_s}) << "a folder is no page";
    EXPECT_EQ(texts(path + u"x"_s), QStringList{u"refused"_s});
    const QString fifo = folder.filePath(u"fifo.html"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    EXPECT_EQ(texts(fifo), QStringList{u"refused"_s});
    EXPECT_EQ(texts(u"file://server/share/page.html"_s), QStringList{u"refused"_s});
}

TEST(Address, WhatIsNoPageIsRefused)
{
    for (const QString& entry :
         {u""_s, u"   "_s, u"javascript:alert(1)"_s, u" JavaScript:alert(1)"_s, u"chrome://crash"_s,
          u"about:blank"_s, u"view-source:http://x.org"_s, u"blob:http://x.org/1"_s, u"data:text/html,x"_s,
          u"devtools://x"_s, u"ftp://x.org/"_s, u"hello world"_s, u"word"_s, u"mistyped.html"_s, u"http://"_s,
          u"http:///path"_s, u"http://a b/"_s, u"http://x.org/\nsecond"_s, u"/no/such/file.html"_s})
        EXPECT_EQ(texts(entry), QStringList{u"refused"_s}) << entry.toStdString();
}

} // namespace
} // namespace vistrel::test
