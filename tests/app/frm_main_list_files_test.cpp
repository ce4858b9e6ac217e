#include "tests/app/wizard_test.h"

#include "platform/forms/list_edit.h"

#include <QDropEvent>
#include <QMimeData>

namespace vistrel::test
{

namespace
{

const QString listFile = u"/lists/pages.txt"_s;
const QString overwriteQuestion =
    u"question, default No: The specified file already exists, do you wish to overwrite the file?"_s;

class ListFilesTest : public WizardTest
{
protected:
    ListFilesTest()
    {
        startAgain();
        files.folders.insert(u"/lists/"_s);
        dialogs.chosen = listFile;
    }

    void load(const QByteArray& bytes)
    {
        files.contents[listFile] = bytes;
        click(u"fbLoadList"_s);
    }

    void drop(const QMimeData& data)
    {
        auto* field = widget(u"txtURLList"_s).findChild<ListEdit*>();
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(field->viewport(), &enter);
        QApplication::sendEvent(field->viewport(), &event);
    }
};

TEST_F(ListFilesTest, ClearLeavesTheTemplateWithoutFullStopThatCanBeSavedAndLoaded)
{
    click(u"fbClear"_s);
    const QString cleared = u"* The line starts with \"*\" will be treated as comment\r\n"_s;
    EXPECT_EQ(list(), cleared);
    click(u"fbSaveList"_s);
    click(u"fbLoadList"_s);
    EXPECT_EQ(list(), cleared + u"\r\n"_s + cleared);
}

TEST_F(ListFilesTest, LoadingAppendsAfterALineBreakEvenToNothing)
{
    setList({});
    load("a.example\r\nb.example");
    load("c.example");
    EXPECT_EQ(list(), u"\r\na.example\r\nb.example\r\nc.example"_s);
    EXPECT_EQ(control<TextBox>(u"txtURLList"_s).SelStart(), list().size());
    EXPECT_TRUE(listHasFocus());
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_EQ(dialogs.request.flags, OpenFileRequest::FileMustExist);
    EXPECT_EQ(dialogs.request.defaultExtension, u".txt"_s);
}

TEST_F(ListFilesTest, OnlyFilesOf3To65535BytesAreLists)
{
    setList(u"kept"_s);
    load("ab");
    load(QByteArray(65536, 'x'));
    EXPECT_EQ(messages.shown, QStringList({u"critical: Invalid file!"_s, u"critical: Invalid file!"_s}));
    EXPECT_EQ(list(), u"kept"_s);

    load("abc");
    load(QByteArray(65535, 'x'));
    EXPECT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(list(), u"kept\r\nabc\r\n"_s + QString(65535, u'x'));
}

TEST_F(ListFilesTest, WhatCannotBeReadOrWrittenIsLeftAloneSilently)
{
    setList(u"kept"_s);
    click(u"fbLoadList"_s);
    dialogs.chosen = u"/nowhere/pages.txt"_s;
    click(u"fbSaveList"_s);
    EXPECT_TRUE(files.contents.isEmpty());
    dialogs.confirms = false;
    load("not asked for");
    EXPECT_EQ(list(), u"kept"_s);
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST_F(ListFilesTest, SavingWritesTheTextAsItStandsInTheCodePage)
{
    program.codePage = CodePage("ISO-8859-1");
    setList(u"one\r\n\r\ncaf\u00e9 \u20ac\r\n"_s);
    click(u"fbSaveList"_s);
    EXPECT_EQ(files.contents.value(listFile), "one\r\n\r\ncaf\xe9 ?\r\n");
    EXPECT_EQ(dialogs.request.title, u"Select a file"_s);
    EXPECT_EQ(dialogs.request.flags, 0U);
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST_F(ListFilesTest, AnExistingFileEvenAnEmptyOneIsReplacedOnlyWhenTheUserSaysSo)
{
    setList(u"new"_s);
    for (const QByteArray& old : {QByteArray("a longer text than the new one"), QByteArray("")}) {
        files.contents[listFile] = old;
        messages.answer = MessageBoxes::Button::No;
        click(u"fbSaveList"_s);
        EXPECT_EQ(messages.shown.takeLast(), overwriteQuestion);
        EXPECT_EQ(files.contents.value(listFile), old);
        messages.answer = MessageBoxes::Button::Yes;
        click(u"fbSaveList"_s);
        EXPECT_EQ(files.contents.value(listFile), "new");
    }
    files.undeletable.insert(listFile);
    setList(u"X"_s);
    click(u"fbSaveList"_s);
    EXPECT_EQ(files.contents.value(listFile), "new") << "no mixture of both";
}

TEST_F(ListFilesTest, ChosenAndDroppedFilesAreAppendedOneLineEachAndLinksAsText)
{
    setList(u"first"_s);
    dialogs.chosen = u"/pages"_s + QChar::Null + u"a.html"_s + QChar::Null + u"b.htm"_s;
    click(u"fbAddFiles"_s);
    EXPECT_EQ(list(), u"first\r\n/pages/a.html\r\n\r\n/pages/b.htm\r\n"_s);

    const QString shortcut = folder.write(u"x.URL"_s, "[InternetShortcut]\r\nURL=https://a.example/\r\n");
    setList(u"first"_s);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/pages/a b.html"_s), QUrl::fromLocalFile(shortcut)});
    drop(data);
    EXPECT_EQ(list(), u"first\r\n/pages/a b.html\r\n\r\nhttps://a.example/\r\n"_s);
    EXPECT_EQ(control<TextBox>(u"txtURLList"_s).SelStart(), list().size());

    setList({});
    data.setUrls({QUrl(u"https://b.example/"_s)});
    data.setText(u"https://b.example/"_s);
    drop(data);
    EXPECT_EQ(list(), u"https://b.example/"_s);
}

} // namespace

} // namespace vistrel::test
