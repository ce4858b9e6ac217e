#include "gallery/gallery_case.h"
#include "gallery/render.h"
#include "tests/support/printers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QJsonArray index(const QDir& folder)
{
    QFile file(folder.filePath(u"index.json"_s));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).array();
}

} // namespace

TEST(RenderGallery, writesOnePictureOfTheRightSizePerCase)
{
    const QTemporaryDir folder;
    const QDir output(folder.filePath(u"new/pictures"_s));
    const auto count = renderGallery(output.path());
    ASSERT_TRUE(count.ok()) << count.error().text().toStdString();
    const QJsonArray entries = index(output);
    ASSERT_EQ(entries.size(), *count);
    QSet<QString> files;
    for (const auto& value : entries) {
        const QJsonObject entry = value.toObject();
        const QString file = entry[u"file"_s].toString();
        files.insert(file);
        EXPECT_EQ(QImage(output.filePath(file)).size(),
                  QSize(entry[u"width"_s].toInt(), entry[u"height"_s].toInt()))
            << file.toStdString();
    }
    EXPECT_EQ(files.size(), *count);
}

TEST(RenderGallery, showsEachStateInItsOwnWay)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(renderGallery(folder.path()).ok());
    const auto image = [&](const QString& name) { return QImage(folder.filePath(name + u".png"_s)); };
    for (const QString& state : {u"hover"_s, u"pressed"_s, u"disabled"_s, u"empty"_s})
        EXPECT_NE(image(u"FButton-"_s + state), image(u"FButton-resting"_s)) << state.toStdString();
    EXPECT_EQ(image(u"FButton-disabled-by-form"_s), image(u"FButton-resting"_s));
    EXPECT_NE(image(u"TextLine-hover"_s), image(u"TextLine-flat"_s));
    for (const QString& state : {u"-hover"_s, u"-pressed"_s, u"-disabled"_s, u"-checked"_s}) {
        for (const QString& kind : {u"Coolradiobutton-square"_s, u"Coolradiobutton-round"_s})
            EXPECT_NE(image(kind + state), image(kind)) << state.toStdString();
    }
    EXPECT_NE(image(u"coolCombo-focused"_s), image(u"coolCombo-selected"_s));
}

TEST(RenderGallery, showsTheWindowsThatAPoseOpens)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(renderGallery(folder.path()).ok());
    const auto size = [&](const QString& name) { return QImage(folder.filePath(name + u".png"_s)).size(); };
    EXPECT_GT(size(u"coolCombo-open"_s).height(), 3 * size(u"coolCombo-selected"_s).height());
    EXPECT_GT(size(u"cpvSlider-dragged"_s).height(), size(u"cpvSlider-picture-rail"_s).height() + 10);
    EXPECT_GT(size(u"cpvSlider-dragged-vertical"_s).width(), size(u"cpvSlider-new"_s).width() + 5);
}

TEST(RenderGallery, aFolderThatCannotBeMadeIsAnIoError)
{
    const QTemporaryDir folder;
    const QString occupied = folder.filePath(u"file"_s);
    QFile file(occupied);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto count = renderGallery(occupied);
    ASSERT_FALSE(count.ok());
    EXPECT_EQ(count.error().kind, Error::Kind::Io);
}

} // namespace vistrel
