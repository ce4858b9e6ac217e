#include "platform/desktop/desktop_file_dialogs.h"

#include "tests/support/temp_folder.h"
#include "tests/support/with_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace vistrel;

namespace
{

class DesktopFileDialogsTest : public testing::Test
{
protected:
    [[nodiscard]] OpenFileRequest request(quint32 flags) const
    {
        return {.filter = u"Text file(*.txt)\0*.txt\0\0"_s,
                .buffer = QString(260, QChar::Null),
                .initialFolder = m_folder.path({}),
                .title = u"Select a file"_s,
                .flags = flags,
                .defaultExtension = u".txt"_s};
    }

    /// The reply to request after the user has typed names and pressed Enter, or Escape for no names.
    OpenFileReply type(const OpenFileRequest& request, const QString& names)
    {
        OpenFileReply reply;
        test::withDialog<QFileDialog>([&] { reply = m_dialogs.openFile(request); },
                                      [&](QFileDialog& dialog) {
                                          m_title = dialog.windowTitle();
                                          m_filters = dialog.nameFilters();
                                          enter(dialog, names);
                                      });
        return reply;
    }

    static void enter(QFileDialog& dialog, const QString& names)
    {
        if (names.isEmpty()) return dialog.reject();
        dialog.findChild<QLineEdit*>()->setText(names);
        test::press(dialog, Qt::Key_Return);
        if (!dialog.isHidden()) {
            ADD_FAILURE() << "the dialog did not take " << names.toStdString();
            dialog.reject();
        }
    }

    [[nodiscard]] QString padded(const QString& text, qsizetype size = 260) const
    {
        return text.leftJustified(size, QChar::Null);
    }

    test::TempFolder m_folder;
    DesktopFileDialogs m_dialogs;
    QString m_title;
    QStringList m_filters;
};

} // namespace

TEST_F(DesktopFileDialogsTest, ANewNameGetsTheDefaultExtension)
{
    const OpenFileReply reply = type(request(0), u"list"_s);
    EXPECT_TRUE(reply.confirmed);
    EXPECT_EQ(reply.buffer, padded(m_folder.path(u"list.txt"_s)));
    EXPECT_EQ(m_title, u"Select a file"_s);
    EXPECT_EQ(m_filters, QStringList{u"Text file (*.txt)"_s});
    EXPECT_EQ(type(request(0), u"list.csv"_s).buffer, padded(m_folder.path(u"list.csv"_s)));
}

TEST_F(DesktopFileDialogsTest, AnExistingNameIsTakenWithoutAQuestion)
{
    const QString path = m_folder.write(u"list.txt"_s, "x");
    EXPECT_EQ(type(request(0), u"list"_s).buffer, padded(path));
    EXPECT_EQ(type(request(OpenFileRequest::FileMustExist), u"list"_s).buffer, padded(path));
}

TEST_F(DesktopFileDialogsTest, SeveralFilesComeAsFolderAndNames)
{
    (void)m_folder.write(u"b.url"_s, "x");
    (void)m_folder.write(u"a b.txt"_s, "x");
    OpenFileRequest several = request(0x181200);
    several.filter = u"Pages\0*.txt;*.url\0\0"_s;
    several.buffer = QString(4096, QChar::Null);
    const OpenFileReply reply = type(several, u"\"b.url\" \"a b.txt\""_s);
    EXPECT_TRUE(reply.confirmed);
    EXPECT_EQ(reply.buffer, padded(m_folder.path({}) + u"\0b.url\0a b.txt"_s, 4096));
}

TEST_F(DesktopFileDialogsTest, WhatIsCancelledOrDoesNotFitChangesNothing)
{
    OpenFileRequest tight = request(0);
    tight.buffer = padded(u"old.txt"_s, 12);
    for (const QString& typed : {QString(), u"new"_s}) {
        const OpenFileReply reply = type(tight, typed);
        EXPECT_FALSE(reply.confirmed);
        EXPECT_EQ(reply.buffer, tight.buffer);
    }
}

TEST_F(DesktopFileDialogsTest, ADialogStartsWithItsNameWhereTheLastOneWasConfirmed)
{
    OpenFileRequest next = request(0);
    (void)type(next, u"first"_s);
    next.initialFolder.clear();
    next.buffer = padded(u"second.txt"_s);
    QString name, folder;
    test::withDialog<QFileDialog>([&] { (void)m_dialogs.openFile(next); },
                                  [&](QFileDialog& dialog) {
                                      name = dialog.findChild<QLineEdit*>()->text();
                                      folder = dialog.directory().path();
                                      dialog.reject();
                                  });
    EXPECT_EQ(name, u"second.txt"_s);
    EXPECT_EQ(folder, m_folder.path({}));
}

TEST_F(DesktopFileDialogsTest, AFolderIsBrowsedForUnderItsPrompt)
{
    QDir().mkpath(m_folder.path(u"out"_s));
    QString folder;
    const auto browse = [&](const QString& typed) {
        test::withDialog<QFileDialog>([&] { folder = m_dialogs.browseForFolder(nullptr, u"Where: "_s); },
                                      [&](QFileDialog& dialog) {
                                          EXPECT_EQ(dialog.windowTitle(), u"Where: "_s);
                                          enter(dialog, typed);
                                      });
        return folder;
    };
    EXPECT_EQ(browse(m_folder.path(u"out"_s)), m_folder.path(u"out"_s));
    EXPECT_EQ(browse(QString()), QString());
}
