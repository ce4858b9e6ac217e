#pragma once

#include "convert/conversion_window.h"
#include "convert/entry_list.h"
#include "convert/output_path.h"
#include "convert/page_capture.h"
#include "convert/page_capture_field.h"
#include "platform/host_files.h"
#include "platform/path_style.h"

#include <QString>

namespace vistrel
{

/// The conversion runs of the main window: Convert walks over the list and turns each entry into a picture,
/// Stop ends that early. One object serves all runs of a window, one after the other. It borrows the window
/// and the files; both outlive it, and it outlives every call of fbConvert_Click.
///
/// A run is one call on the window's thread. The event loop turns inside it: before each entry, during each
/// capture, while a free file name is looked for. That is when Stop and the option handlers get their turn.
class Converter
{
public:
    /// newOrdane2 makes the component instance of each run.
    Converter(ConversionWindow& window, HostFiles& files, PathStyle style, PageCaptureFactory newOrdane2);

    /// Puts the window into its running state, converts the list and puts the window back to idle. A run-time
    /// error on the way ends the run where it happens and is not reported: the window then stays in its
    /// running state, and `snap` keeps its instance.
    void fbConvert_Click();

    /// Ends the run under way at its next test of `bStop`, and releases the component at once. A Stop during
    /// a capture therefore makes the next call on the component fail, with the consequence described above.
    void fbStop_Click();

private:
    void ConvertNow();
    void configureComponent();
    void convertEntries(EntryList& list, const QString& extension);
    void ConvertEntry(QString& entry, const QString& extension, qint32 entryNumber);
    void saveCapture(const QString& imagePath, const QString& extension);
    void saveThumbnail(const QString& path, const QString& pattern);
    void openOutputFolder();
    void RestoreControls();
    void snap_OnProgress(qint32 nPos);

    ConversionWindow& m_window;
    HostFiles& m_files;
    OutputPath m_outputPath;
    PageCaptureFactory m_newOrdane2;
    PageCaptureField m_snap;
    bool m_bStop = false; // Stop was pressed in the run under way.
};

} // namespace vistrel
