#include "capture/ordane2.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vistrel;

TEST(Ordane2, CapturesALocalPage)
{
    QTemporaryDir folder;
    QFile page(folder.filePath(u"page.html"_s));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    page.write("<!doctype html><body style='margin:0;height:3000px;background:#123456'>");
    page.close();
    Ordane2 component;
    QList<int> progress;
    component.setProgressHandler([&](int p) { progress << p; });
    component.SetCaptureTimeout(20000);
    component.CapturePage(page.fileName(), u"*"_s);
    ASSERT_EQ(component.GetCaptureStatus(), 1);
    for (const auto& f : {u"png"_s, u"jpg"_s, u"gif"_s, u"bmp"_s, u"tif"_s}) {
        const auto bytes = component.GetImageBytes(u"*.."_s + f);
        QFile out(u"/tmp/exp/ord."_s + f);
        out.open(QIODevice::WriteOnly);
        out.write(bytes);
        QFile out2(u"/tmp/exp/ordt."_s + f);
        out2.open(QIODevice::WriteOnly);
        out2.write(component.GetThumbnailBytes(u"*.."_s + f, 200, 150, 0));
    }
    component.CapturePage(qEnvironmentVariable("PAGE"), u"*"_s);
    EXPECT_EQ(component.GetCaptureStatus(), 1);
}
