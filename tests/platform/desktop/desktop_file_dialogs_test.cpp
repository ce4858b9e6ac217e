#include "platform/desktop/desktop_file_dialogs.h"

#include "platform/text.h"
#include "tests/support/temp_folder.h"
#include "tests/support/with_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace vistrel;

namespace
{

OpenFileRequest request(const QString& folder, quint32 flags, qsizetype size = 260)
{
    return {.filter = u"Lists\0*.txt;*.url\0\0"_s,
            .buffer = QString(size, QChar::Null),
            .initialFolder = folder,
            .title = u"Select a file"_s,
            .flags = flags,
            .defaultExtension = u".txt"_s};
}

/// Types names and presses Enter, or cancels for no names.
void enter(QFileDialog& dialog, const QString& names)
{
    if (!names.isEmpty()) {
        dialog.findChild<QLineEdit*>()->setText(names);
        test::press(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isHidden()) << "not taken: " << names.toStdString();
    }
    if (!dialog.isHidden()) dialog.reject();
}

class DesktopFileDialogsTest : public testing::Test
{
protected:
    OpenFileReply type(const OpenFileRequest& asked, const QString& names)
    {
        OpenFileReply reply;
        test::withDialog<QFileDialog>([&] { reply = m_dialogs.openFile(asked); },
                                      [&](QFileDialog& dialog) {
                                          EXPECT_EQ(dialog.windowTitle(), u"Select a file"_s);
                                          enter(dialog, names);
                                      });
        return reply;
    }

    /// The path that the dialog gives for a typed name.
    QString pathOf(const QString& name, quint32 flags = 0)
    {
        const OpenFileReply reply = type(request(m_folder.path({}), flags), name);
        EXPECT_TRUE(reply.confirmed);
        EXPECT_EQ(reply.buffer.size(), 260);
        return StripNull(reply.buffer);
    }

    test::TempFolder m_folder;
    DesktopFileDialogs m_dialogs;
};

} // namespace

TEST_F(DesktopFileDialogsTest, ATypedNameGetsTheDefaultExtensionAndMayExist)
{
    EXPECT_EQ(pathOf(u"list"_s), m_folder.path(u"list.txt"_s));
    EXPECT_EQ(pathOf(u"list.csv"_s), m_folder.path(u"list.csv"_s));
    (void)m_folder.write(u"list.txt"_s, "x");
    EXPECT_EQ(pathOf(u"list"_s), m_folder.path(u"list.txt"_s));
    EXPECT_EQ(pathOf(u"list"_s, OpenFileRequest::FileMustExist), m_folder.path(u"list.txt"_s));
}

TEST_F(DesktopFileDialogsTest, SeveralFilesComeAsFolderAndNames)
{
    (void)m_folder.write(u"b.url"_s, "x");
    (void)m_folder.write(u"a b.txt"_s, "x");
    const OpenFileReply reply = type(request(m_folder.path({}), 0x181200, 4096), u"\"b.url\" \"a b.txt\""_s);
    EXPECT_TRUE(reply.confirmed);
    EXPECT_EQ(reply.buffer, (m_folder.path({}) + u"\0b.url\0a b.txt"_s).leftJustified(4096, QChar::Null));
}

TEST_F(DesktopFileDialogsTest, WhatIsCancelledOrDoesNotFitChangesNothing)
{
    OpenFileRequest tight = request(m_folder.path({}), 0);
    tight.buffer = u"old.txt\0\0"_s;
    for (const QString& typed : {QString(), u"new"_s}) {
        const OpenFileReply reply = type(tight, typed);
        EXPECT_FALSE(reply.confirmed);
        EXPECT_EQ(reply.buffer, tight.buffer);
    }
}

TEST_F(DesktopFileDialogsTest, ADialogStartsWithItsNameWhereTheLastOneWasConfirmed)
{
    (void)pathOf(u"first"_s);
    OpenFileRequest next = request({}, 0);
    next.buffer = u"second.txt"_s.leftJustified(260, QChar::Null);
    test::withDialog<QFileDialog>([&] { (void)m_dialogs.openFile(next); },
                                  [&](QFileDialog& dialog) {
                                      EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"second.txt"_s);
                                      EXPECT_EQ(dialog.directory().path(), m_folder.path({}));
                                      dialog.reject();
                                  });
}

TEST_F(DesktopFileDialogsTest, AFolderIsBrowsedForUnderItsPrompt)
{
    const auto browse = [&](const QString& typed) {
        QString folder;
        test::withDialog<QFileDialog>([&] { folder = m_dialogs.browseForFolder(nullptr, u"Where: "_s); },
                                      [&](QFileDialog& dialog) {
                                          EXPECT_EQ(dialog.windowTitle(), u"Where: "_s);
                                          enter(dialog, typed);
                                      });
        return folder;
    };
    EXPECT_EQ(browse(m_folder.path({})), m_folder.path({}));
    EXPECT_EQ(browse(QString()), QString());
}
