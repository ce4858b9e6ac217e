#include "convert/converter.h"

#include "convert/entry_files.h"
#include "convert/naming.h"
#include "platform/runtime_error.h"

#include <QtNumeric>

#include <utility>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint32 imageHeld = 1;
constexpr qint32 manualScheme = 2;
constexpr quint32 white = 0x00FFFFFF;

qint32 millisecondsOf(qint32 seconds)
{
    qint32 milliseconds = 0;
    if (qMulOverflow(seconds, qint32(1000), &milliseconds))
        throw RuntimeError(RuntimeError::Number::Overflow);
    return milliseconds;
}

QString progressCaption(qint32 entryNumber, qint32 entryCount)
{
    const QString unit = entryCount == 1 ? u" URL"_s : u" URLs"_s;
    return QString::number(entryNumber) + u" of "_s + QString::number(entryCount) + unit;
}

} // namespace

Converter::Converter(ConversionWindow& window, HostFiles& files, PathStyle style,
                     PageCaptureFactory newOrdane2)
    : m_window(window),
      m_files(files),
      m_outputPath(window, files, style),
      m_newOrdane2(std::move(newOrdane2))
{
}

void Converter::fbConvert_Click()
{
    m_window.setProgressVisible(true);
    m_window.setConvertEnabled(false);
    m_window.setStopEnabled(true);
    m_window.setShowTimerOn(true);
    m_window.clearProgressPicture();
    m_bStop = false;
    m_window.setDelayTimerOn(false);
    m_window.setListButtonsEnabled(false);
    m_window.setPercentageVisible(true);
    try {
        ConvertNow();
    } catch (const RuntimeError&) {
        // The window stays in its running state, which is all that a failed run shows.
    }
}

void Converter::fbStop_Click()
{
    m_bStop = true;
    m_snap.release();
    m_window.setSavedNotice(m_window.noticeCaption());
    m_window.setNoticeCaption(u"Stoping, Please wait..."_s);
}

void Converter::ConvertNow()
{
    EntryList list = readEntryList(m_window.listText());
    if (list.count == 0) return RestoreControls();
    const QString intended = extensionForImageType(m_window.settings().ImageType());
    m_snap.hold(m_newOrdane2(intended), [this](qint32 nPos) { snap_OnProgress(nPos); });
    configureComponent();
    const QString extension = extensionForImageType(m_window.settings().ImageType());
    convertEntries(list, extension);
    m_snap.release();
    m_window.setDelayTimerOn(false);
    openOutputFolder();
    RestoreControls();
    m_window.showInformation(u"Conversion complete successfully!       "_s);
}

void Converter::configureComponent()
{
    m_snap->SetCaptureTimeout(millisecondsOf(m_window.settings().TimeOut()));
    m_snap->SetAllowActiveX(m_window.settings().EnableActiveX());
    m_snap->SetAllowJava(m_window.settings().EnableJava());
    m_snap->SetAllowScript(m_window.settings().EnableScript());
    m_snap->SetRenderDelay(millisecondsOf(m_window.settings().DelayTime()));
    m_snap->SetJpegQuality(m_window.settings().JpgQuality());
}

void Converter::convertEntries(EntryList& list, const QString& extension)
{
    qint32 entryNumber = 0;
    m_bStop = false;
    for (QString& entry : list.entries) {
        if (entry.isEmpty()) continue;
        ++entryNumber;
        m_window.setProgressCaption(progressCaption(entryNumber, list.count));
        m_window.processPendingEvents();
        if (m_bStop) return;
        ConvertEntry(entry, extension, entryNumber);
        if (m_bStop) return;
    }
}

void Converter::ConvertEntry(QString& entry, const QString& extension, qint32 entryNumber)
{
    const std::optional<QString> path = m_outputPath.choose(entry, extension, entryNumber);
    if (!path) return;
    if (m_files.exists(entry)) entry = GetShortPath(m_files, entry);
    m_snap->CapturePage(entry, u"*"_s);
    static_cast<void>(m_snap->GetCaptureStatus()); // Only the second answer counts.
    if (m_snap->GetCaptureStatus() == imageHeld) saveCapture(*path, extension);
    m_snap->ReleaseImage();
}

void Converter::saveCapture(const QString& imagePath, const QString& extension)
{
    const QString pattern = u"*."_s + extension;
    SaveBytes(m_files, imagePath, m_snap->GetImageBytes(pattern));
    if (m_window.settings().Thumbnail()) saveThumbnail(thumbnailPath(imagePath, extension), pattern);
}

void Converter::saveThumbnail(const QString& path, const QString& pattern)
{
    const qint32 width = m_window.settings().ThumWidth();
    const qint32 height = m_window.settings().ThumHeight();
    const QByteArray bytes = m_snap->GetThumbnailBytes(pattern, width, height, 0);
    deleteIfExists(m_files, path);
    SaveBytes(m_files, path, bytes);
}

void Converter::openOutputFolder()
{
    const bool asked = m_window.settings().OpenOutput() == 1;
    const bool folderKnown = m_window.settings().NameAs() != manualScheme;
    if (asked && folderKnown) m_window.openFolder(m_window.settings().OutputFolder());
}

void Converter::RestoreControls()
{
    m_window.setListButtonsEnabled(true);
    m_window.setDelayTimerOn(false);
    m_window.setProgressVisible(false);
    m_window.setConvertEnabled(true);
    m_window.setStopEnabled(false);
    m_window.setShowTimerOn(false);
    m_window.setNoticeColour(white);
    m_window.setNoticeCaption(m_window.savedNotice());
    m_window.setPercentageVisible(false);
}

void Converter::snap_OnProgress(qint32 nPos) { m_window.setPercentageCaption(QString::number(nPos) + u'%'); }

} // namespace vistrel
