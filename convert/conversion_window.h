#pragma once

#include "convert/settings.h"

#include <QString>

namespace vistrel
{

/// What an open-file dialog shows; it starts in no particular folder.
struct OpenDialog {
    bool fileMustExist = false;
    bool multiSelect = false;
    QString filter = {}; ///< Description and pattern, separated by "|".
    QString title = {};  ///< Empty: the host's own.
    QString defaultExtension = {};
};

/// The main window as the conversion engine drives it. Each method is one plain action on the controls that
/// its comment names; what happens when, and in which order, is the engine's business. No action fails.
class ConversionWindow
{
public:
    virtual ~ConversionWindow() = default;

    /// The live settings. RuntimeError ObjectNotSet once the window has released them, which it may do while
    /// a run is under way. Ask anew for every value; the reference lasts until the event loop runs next.
    [[nodiscard]] const ConversionSettings& settings() const;

    /// txtURLList's whole text, its lines separated by "\r\n".
    [[nodiscard]] virtual QString listText() const = 0;
    virtual void setListText(const QString& text) = 0;
    virtual void moveListCaretToEnd() = 0;
    virtual void focusList() = 0;

    /// fbConvert.
    virtual void setConvertEnabled(bool enabled) = 0;
    /// fbStop.
    virtual void setStopEnabled(bool enabled) = 0;
    /// fbLoadList, fbClear, fbSaveList and fbAddFiles.
    virtual void setListButtonsEnabled(bool enabled) = 0;

    /// tmrShow, whose ticks move the busy bar (see busy_bar.h).
    virtual void setShowTimerOn(bool on) = 0;
    /// tmrDelay.
    virtual void setDelayTimerOn(bool on) = 0;

    /// lblProgress, picProgress and sFrame.
    virtual void setProgressVisible(bool visible) = 0;
    /// Clears picProgress's picture.
    virtual void clearProgressPicture() = 0;
    /// lblProgress.
    virtual void setProgressCaption(const QString& caption) = 0;
    /// lblProgress1 and lblprogress2.
    virtual void setPercentageVisible(bool visible) = 0;
    /// lblProgress1 and lblprogress2, the same caption in both.
    virtual void setPercentageCaption(const QString& caption) = 0;

    /// lblNotice.
    [[nodiscard]] virtual QString noticeCaption() const = 0;
    virtual void setNoticeCaption(const QString& caption) = 0;
    /// colour is laid out 0x00BBGGRR.
    virtual void setNoticeColour(quint32 colour) = 0;
    /// lblProgress1's Tag, empty at start: the notice that was shown when Stop was last pressed.
    [[nodiscard]] virtual QString savedNotice() const = 0;
    virtual void setSavedNotice(const QString& notice) = 0;

    /// Handles the events that are pending, then returns.
    virtual void processPendingEvents() = 0;

    /// Shows the open-file dialog, holding fileName, and waits. True when the user confirmed. Afterwards
    /// fileName is the chosen path; with multiSelect it is the unprocessed answer: folder and names separated
    /// by NUL, or one full path, followed by two NUL or more.
    virtual bool ShowOpenDialog(QString& fileName, const OpenDialog& dialog) = 0;
    /// Asks in a message box (question icon, Yes and No, the program's title). True for Yes.
    virtual bool askYesNo(const QString& question) = 0;
    /// Tells in a message box (information icon, OK, the program's title).
    virtual void showInformation(const QString& message) = 0;
    /// Opens folder with the desktop's default action, whether that works or not.
    virtual void openFolder(const QString& folder) = 0;

private:
    /// Null before the settings exist and once they have been released.
    [[nodiscard]] virtual const ConversionSettings* liveSettings() const = 0;
};

} // namespace vistrel
