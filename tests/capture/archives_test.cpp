#include "tests/capture/page_fixture.h"

#include <QFile>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

const QByteArray kPage = "<!doctype html><body style='margin:0;background:green;height:1500px'>"
                         "<img src='http://x.test/red.png' width=40 height=40 style='display:block'>";

/// Saved pages in one file, as several programs write them.
class Archives : public PageTest
{
protected:
    static QByteArray part(const QByteArray& headers, const QByteArray& body)
    {
        return headers + "\r\n\r\n" + body + "\r\n";
    }

    static QByteArray page(const QByteArray& encoding, const QByteArray& body = kPage)
    {
        return part("Content-Type: text/html; charset=utf-8\r\nContent-Location: http://x.test/\r\n"
                    "Content-Transfer-Encoding: " +
                        encoding,
                    body);
    }

    static QByteArray redDot()
    {
        return part(
            "Content-Type: image/png\r\nContent-Location: http://x.test/red.png\r\n"
            "Content-Transfer-Encoding: base64",
            "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGP4z8AAAAMBAQDJ/pLvAAAAAElFTkSuQmCC");
    }

    static QByteArray
    archive(const QByteArrayList& parts,
            const QByteArray& type = "multipart/related; boundary=\"B\"; type=\"text/html\"")
    {
        return "From: x\r\nMIME-Version: 1.0\r\nContent-Type: " + type + "\r\n\r\nno part\r\n--B\r\n" +
               parts.join("--B\r\n") + "--B--\r\n";
    }

    Result<PageShot> captureArchive(const QByteArray& bytes, PageRequest request = {})
    {
        QFile file(folder.filePath(u"saved%1.mht"_s.arg(++pages)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return capture(file.fileName(), std::move(request));
    }

    QTemporaryDir folder;
};

TEST_F(Archives, WhatManyProgramsWriteIsShownInFull)
{
    const QByteArray quoted = QByteArray(kPage).replace("=", "=3D").replace("height:", "hei=\r\nght:");
    const QByteArray good = archive({page("8bit"), redDot()});
    const QByteArrayList archives{
        good,
        archive({page("quoted-printable", quoted), redDot()}),
        archive({page("base64", kPage.toBase64()), redDot()}),
        archive({page("binary"), redDot()}, "multipart/related;\r\n\ttype=\"text/html\";\r\n\tboundary=B"),
        archive({redDot(), page("7bit")}),
        archive(
            {"Content-Type: multipart/alternative; boundary=C\r\n\r\n--C\r\n" + page("7bit") + "--C--\r\n",
             redDot()}),
        archive({page("7bit", kPage + "<script>document.body.style.background = 'red'</script>"), redDot()}),
        QByteArray(good).replace("\r\n", "\n")};
    for (const QByteArray& bytes : archives) {
        const QImage shown = image(captureArchive(bytes));
        EXPECT_EQ(shown.height(), 1500) << bytes.constData();
        EXPECT_EQ(pixel(shown, 600, 1400), 0x008000u) << bytes.constData();
        EXPECT_EQ(pixel(shown, 20, 20), 0xff0000u) << bytes.constData();
    }
    const QImage frames = image(captureArchive(archive(
        {page("7bit",
              "<!doctype html><body style='margin:0'><iframe style='border:0' src='http://x.test/f'></iframe>"
              "<iframe style='border:0' src='cid:g@x'></iframe>"),
         part("Content-Type: text/html\r\nContent-Location: http://x.test/f",
              "<body style='background:red'>"),
         part("Content-Type: text/html\r\nContent-ID: <g@x>", "<body style='background:blue'>")})));
    EXPECT_EQ(pixel(frames, 100, 100), 0xff0000u);
    EXPECT_EQ(pixel(frames, 400, 100), 0x0000ffu);
}

TEST_F(Archives, OneThatCannotBeReadIsNoBlankPicture)
{
    const QByteArray good = archive({page("8bit"), redDot()});
    const QByteArrayList broken{{},
                                kPage,
                                QByteArray(20000, '\xe5'),
                                good.first(good.size() / 2),
                                QByteArray(good).replace("--B\r\n", "--X\r\n"),
                                archive({page("8bit")}, "multipart/related"),
                                archive({})};
    for (const QByteArray& bytes : broken) {
        const auto shot = captureArchive(bytes);
        ASSERT_FALSE(shot.ok()) << bytes.constData();
        EXPECT_TRUE(shot.error().text().contains(u"archive")) << shot.error().text().toStdString();
    }
}

TEST_F(Archives, AConfinementDoesNotKeepThePageItselfOut)
{
    PageRequest confined;
    confined.confinement = folder.path();
    const QByteArray copied = archive({page("8bit")}).replace("\r\n", "\n"); // For its line ends.
    EXPECT_EQ(image(captureArchive(copied, confined)).height(), 1500);
}

} // namespace
} // namespace vistrel::test
