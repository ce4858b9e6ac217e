#include "app/frm_main_run.h"

#include "app/util/mod_functions.h"
#include "controls/flat_button/f_button.h"
#include "convert/busy_bar.h"
#include "platform/drawing/rounding.h"
#include "platform/forms/label.h"
#include "platform/forms/picture_box.h"
#include "platform/forms/placement.h"
#include "platform/forms/shape.h"
#include "platform/forms/text_box.h"
#include "platform/forms/timer.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color orange = {0x000080FF};
constexpr Color yellow = {0x0000FFFF};

} // namespace

MainRun::MainRun(Form& form, Program& program)
    : m_form(form),
      m_program(program),
      m_txtURLList(form.control<TextBox>(u"txtURLList"_s)),
      m_lblNotice(form.control<Label>(u"lblNotice"_s)),
      m_lblProgress(form.control<Label>(u"lblProgress"_s)),
      m_lblProgress1(form.control<Label>(u"lblProgress1"_s)),
      m_lblprogress2(form.control<Label>(u"lblprogress2"_s)),
      m_picProgress(form.control<PictureBox>(u"picProgress"_s)),
      m_sFrame(form.control<Shape>(u"sFrame"_s)),
      m_tmrShow(form.control<Timer>(u"tmrShow"_s)),
      m_tmrDelay(form.control<Timer>(u"tmrDelay"_s)),
      m_gradient([this](const QString& text, const QString& title) {
          m_program.messageBoxes.exclamation(&m_form, text,
                                             title.isEmpty() ? programTitle.toString() : title);
      }),
      m_barTwips(m_picProgress.width() * twipsPerPixel)
{
    m_gradient.setAngle(180);
    m_gradient.setColor1(orange);
    m_gradient.setColor2(yellow);
    QObject::connect(&m_tmrShow, &Timer::Tick, &form, [this] { tmrShow_Timer(); });
    keepBarInFrame();
}

// At its widest, shortly before it starts again, the bar would cover the frame's right side.
void MainRun::keepBarInFrame()
{
    const QRect inside = m_sFrame.geometry().adjusted(1, 1, -1, -1);
    m_picProgress.setMask(inside.translated(-m_picProgress.pos()));
}

FButton& MainRun::button(const QString& name) const { return m_form.control<FButton>(name); }

QString MainRun::listText() const { return m_txtURLList.Text(); }

void MainRun::setListText(const QString& text) { m_txtURLList.setText(text); }

void MainRun::moveListCaretToEnd() { m_txtURLList.moveCaretToEnd(); }

void MainRun::focusList() { m_txtURLList.setFocus(); }

void MainRun::setConvertEnabled(bool enabled) { button(u"fbConvert"_s).QWidget::setEnabled(enabled); }

void MainRun::setStopEnabled(bool enabled) { button(u"fbStop"_s).QWidget::setEnabled(enabled); }

void MainRun::setListButtonsEnabled(bool enabled)
{
    for (const QString& name : {u"fbLoadList"_s, u"fbClear"_s, u"fbSaveList"_s, u"fbAddFiles"_s})
        button(name).setEnabled(enabled);
}

void MainRun::setShowTimerOn(bool on) { m_tmrShow.setEnabled(on); }

void MainRun::setDelayTimerOn(bool on) { m_tmrDelay.setEnabled(on); }

void MainRun::setProgressVisible(bool visible)
{
    m_lblProgress.setVisible(visible);
    m_picProgress.setVisible(visible);
    m_sFrame.setVisible(visible);
}

void MainRun::clearProgressPicture() { m_picProgress.clearPicture(); }

void MainRun::setProgressCaption(const QString& caption) { m_lblProgress.setCaption(caption); }

void MainRun::setPercentageVisible(bool visible)
{
    m_lblProgress1.setVisible(visible);
    m_lblprogress2.setVisible(visible);
}

void MainRun::setPercentageCaption(const QString& caption)
{
    m_lblProgress1.setCaption(caption);
    m_lblprogress2.setCaption(caption);
}

QString MainRun::noticeCaption() const { return m_lblNotice.Caption(); }

void MainRun::setNoticeCaption(const QString& caption) { m_lblNotice.setCaption(caption); }

void MainRun::setNoticeColour(quint32 colour) { m_lblNotice.setForeColor({colour}); }

QString MainRun::savedNotice() const { return tagOf(m_lblProgress1); }

void MainRun::setSavedNotice(const QString& notice) { setTag(m_lblProgress1, notice); }

void MainRun::processPendingEvents() { QCoreApplication::processEvents(); }

bool MainRun::ShowOpenDialog(QString& fileName, const OpenDialog& dialog)
{
    return vistrel::ShowOpenDialog(m_program.fileDialogs, fileName, dialog.fileMustExist, dialog.multiSelect,
                                   dialog.filter, {}, dialog.title, dialog.defaultExtension, &m_form);
}

bool MainRun::askYesNo(const QString& question)
{
    using Button = MessageBoxes::Button;
    return m_program.messageBoxes.question(&m_form, question, Button::Yes) == Button::Yes;
}

void MainRun::showInformation(const QString& message)
{
    m_program.messageBoxes.information(&m_form, message);
}

void MainRun::openFolder(const QString& folder) { m_program.open(&m_form, folder); }

void MainRun::tmrShow_Timer()
{
    m_barTwips = nextBusyBarWidth(m_barTwips, m_sFrame.width() * twipsPerPixel);
    m_picProgress.setWidth(static_cast<float>(m_barTwips));
    m_gradient.Draw(&m_picProgress.canvas());
    m_picProgress.update();
    processPendingEvents();
}

} // namespace vistrel
