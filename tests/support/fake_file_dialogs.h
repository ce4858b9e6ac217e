#pragma once

#include "platform/file_dialogs.h"

namespace vistrel::test
{

/// Answers as it is told and keeps what it was asked.
class FakeFileDialogs final : public FileDialogs
{
public:
    OpenFileReply openFile(const OpenFileRequest& asked) override
    {
        request = asked;
        return {confirms, confirms ? chosen.leftJustified(asked.buffer.size(), QChar::Null) : asked.buffer};
    }

    QString browseForFolder(WindowHandle askedOwner, const QString& asked) override
    {
        request.owner = askedOwner;
        prompt = asked;
        return confirms ? chosen : QString();
    }

    bool confirms = true;
    QString chosen; ///< What the user picks: a path, or folder and names separated by NULs.

    OpenFileRequest request; ///< Of the last call.
    QString prompt;
};

} // namespace vistrel::test
