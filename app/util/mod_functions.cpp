#include "app/util/mod_functions.h"

#include "platform/folders.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace vistrel
{

namespace
{

constexpr qsizetype singleBufferSize = 260;
constexpr qsizetype multiBufferSize = 4096;

quint32 flagsFor(bool FileMustExist, bool MultiSelect)
{
    using Request = OpenFileRequest;
    const quint32 multi = Request::AllowMultiSelect | Request::Explorer | Request::NoDereferenceLinks;
    return (MultiSelect ? multi : 0) | (FileMustExist ? Request::FileMustExist : 0);
}

QString padded(const QString& FileName, qsizetype size)
{
    if (FileName.size() > size) throw RuntimeError(RuntimeError::Number::BadFileName);
    return FileName.leftJustified(size, QChar::Null);
}

} // namespace

bool ShowOpenDialog(FileDialogs& dialogs, QString& FileName, bool FileMustExist, bool MultiSelect,
                    const QString& Filter, const QString& InitDir, const QString& Title,
                    const QString& DefExt, WindowHandle hWndOwner)
{
    const OpenFileReply reply = dialogs.openFile({
        .owner = hWndOwner,
        .filter = QString(Filter).replace(u'|', QChar::Null) + QString(2, QChar::Null),
        .buffer = padded(FileName, MultiSelect ? multiBufferSize : singleBufferSize),
        .initialFolder = InitDir,
        .title = Title,
        .flags = flagsFor(FileMustExist, MultiSelect),
        .defaultExtension = DefExt,
    });
    FileName = MultiSelect ? trimBlanks(reply.buffer) : StripNull(reply.buffer);
    return reply.confirmed;
}

QString GetAppPath(PathStyle style) { return style.withTrailingSeparator(programFolder()); }

} // namespace vistrel
