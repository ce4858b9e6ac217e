#pragma once

#include "convert/conversion_window.h"
#include "tests/convert/call_log.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace vistrel::test
{

using namespace Qt::StringLiterals;

struct FixedSettings : ConversionSettings {
    QString outputFolder = u"/out/"_s;
    qint32 imageType = 0, nameAs = 0, overwrite = 0, openOutput = 0;
    qint32 timeOut = 30, delayTime = 1, jpgQuality = 80;
    bool thumbnail = false;
    qint32 thumWidth = 50, thumHeight = 40;

    QString OutputFolder() const override { return outputFolder; }
    qint32 ImageType() const override { return imageType; }
    qint32 NameAs() const override { return nameAs; }
    qint32 Overwrite() const override { return overwrite; }
    qint32 OpenOutput() const override { return openOutput; }
    qint32 TimeOut() const override { return timeOut; }
    qint32 DelayTime() const override { return delayTime; }
    qint32 JpgQuality() const override { return jpgQuality; }
    bool Thumbnail() const override { return thumbnail; }
    qint32 ThumWidth() const override { return thumWidth; }
    qint32 ThumHeight() const override { return thumHeight; }
    bool EnableActiveX() const override { return true; }
    bool EnableJava() const override { return false; }
    bool EnableScript() const override { return true; }
};

/// Writes down every action, and answers from what the test has laid out.
class RecordingWindow : public ConversionWindow
{
public:
    explicit RecordingWindow(CallLog& log) : m_log(log) {}

    std::optional<FixedSettings> config{FixedSettings()}; ///< Empty: released.
    QString list, notice = u"Enter URLs"_s, tag;
    std::function<void()> onEvents = [] {};      ///< Runs whenever pending events are handled.
    std::function<void()> onDialog = [] {};      ///< Runs while the open-file dialog is shown.
    QList<std::optional<QString>> dialogAnswers; ///< Taken from the front; nothing: cancelled.
    QList<bool> questionAnswers;                 ///< Taken from the front.

    QString listText() const override { return list; }
    void setListText(const QString& text) override { list = text; }
    void moveListCaretToEnd() override { m_log.add(u"list caret to end"_s); }
    void focusList() override { m_log.add(u"focus list"_s); }
    void setConvertEnabled(bool enabled) override { able(enabled, u"fbConvert"_s); }
    void setStopEnabled(bool enabled) override { able(enabled, u"fbStop"_s); }
    void setListButtonsEnabled(bool enabled) override { able(enabled, u"list buttons"_s); }
    void setShowTimerOn(bool on) override { m_log.add(u"tmrShow"_s, on ? u"on"_s : u"off"_s); }
    void setDelayTimerOn(bool on) override { m_log.add(u"tmrDelay"_s, on ? u"on"_s : u"off"_s); }
    void setProgressVisible(bool visible) override { show(visible, u"progress"_s); }
    void clearProgressPicture() override { m_log.add(u"clear picProgress"_s); }
    void setProgressCaption(const QString& caption) override { m_log.add(u"progress:"_s, caption); }
    void setPercentageVisible(bool visible) override { show(visible, u"percentage"_s); }
    void setPercentageCaption(const QString& caption) override { m_log.add(u"percentage:"_s, caption); }
    QString noticeCaption() const override { return notice; }
    void setNoticeCaption(const QString& caption) override
    {
        notice = caption;
        m_log.add(u"notice: \"%1\""_s.arg(caption));
    }
    void setNoticeColour(quint32 colour) override
    {
        m_log.add(u"notice colour"_s, QString::number(colour, 16));
    }
    QString savedNotice() const override { return tag; }
    void setSavedNotice(const QString& text) override { tag = text; }
    void processPendingEvents() override
    {
        m_log.add(u"events"_s);
        onEvents();
    }
    bool ShowOpenDialog(QString& fileName, const OpenDialog& dialog) override
    {
        m_log.add(
            u"dialog \"%1\" must exist %2, multi %3, filter %4, title \"%5\", default %6"_s.arg(fileName)
                .arg(dialog.fileMustExist)
                .arg(dialog.multiSelect)
                .arg(dialog.filter, dialog.title, dialog.defaultExtension));
        onDialog();
        const std::optional<QString> answer = dialogAnswers.takeFirst();
        fileName = answer.value_or(fileName);
        return answer.has_value();
    }
    bool askYesNo(const QString& question) override
    {
        m_log.add(u"ask"_s, question);
        return questionAnswers.takeFirst();
    }
    void showInformation(const QString& message) override { m_log.add(u"tell \"%1\""_s.arg(message)); }
    void openFolder(const QString& folder) override { m_log.add(u"open"_s, folder); }

private:
    const ConversionSettings* liveSettings() const override { return config ? &*config : nullptr; }
    void able(bool enabled, const QString& what) { m_log.add(enabled ? u"enable"_s : u"disable"_s, what); }
    void show(bool visible, const QString& what) { m_log.add(visible ? u"show"_s : u"hide"_s, what); }

    CallLog& m_log;
};

} // namespace vistrel::test
