#pragma once

#include "app/program.h"
#include "controls/gradient_painter/cls_gradient.h"
#include "convert/conversion_window.h"
#include "platform/forms/form.h"

namespace vistrel
{

class FButton;
class Label;
class PictureBox;
class Shape;
class TextBox;
class Timer;

/// The main window as the conversion engine drives it, and the busy bar that moves while a run is under way.
class MainRun : public ConversionWindow
{
public:
    /// Takes over the events of the timer. Both outlive it.
    MainRun(Form& form, Program& program);

    [[nodiscard]] QString listText() const override;
    void setListText(const QString& text) override;
    void moveListCaretToEnd() override;
    void focusList() override;

    void setConvertEnabled(bool enabled) override;
    void setStopEnabled(bool enabled) override;
    void setListButtonsEnabled(bool enabled) override;

    void setShowTimerOn(bool on) override;
    void setDelayTimerOn(bool on) override;

    void setProgressVisible(bool visible) override;
    void clearProgressPicture() override;
    void setProgressCaption(const QString& caption) override;
    void setPercentageVisible(bool visible) override;
    void setPercentageCaption(const QString& caption) override;

    [[nodiscard]] QString noticeCaption() const override;
    void setNoticeCaption(const QString& caption) override;
    void setNoticeColour(quint32 colour) override;
    [[nodiscard]] QString savedNotice() const override;
    void setSavedNotice(const QString& notice) override;

    void processPendingEvents() override;

    bool ShowOpenDialog(QString& fileName, const OpenDialog& dialog) override;
    bool askYesNo(const QString& question) override;
    void showInformation(const QString& message) override;
    void openFolder(const QString& folder) override;

private:
    [[nodiscard]] const ConversionSettings* liveSettings() const override { return m_program.Config.get(); }
    [[nodiscard]] FButton& button(const QString& name) const;
    void keepBarInFrame();
    void tmrShow_Timer();

    Form& m_form;
    Program& m_program;
    TextBox& m_txtURLList;
    Label& m_lblNotice;
    Label& m_lblProgress;
    Label& m_lblProgress1;
    Label& m_lblprogress2;
    PictureBox& m_picProgress;
    Shape& m_sFrame;
    Timer& m_tmrShow;
    Timer& m_tmrDelay;
    clsGradient m_gradient;
    qint32 m_barTwips; // Width of picProgress before it is rounded to pixels.
};

} // namespace vistrel
