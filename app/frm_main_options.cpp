#include "app/frm_main_options.h"

#include "app/util/lenient_number.h"
#include "app/util/mod_folders.h"
#include "controls/check_button/coolradiobutton.h"
#include "controls/combo_box/cool_combo.h"
#include "controls/flat_button/f_button.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"
#include "platform/rounding.h"
#include "platform/runtime_error.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int mostSeconds = 300;

/// The whole number that text stands for; none when it is no number or too large.
std::optional<qint32> wholeNumber(const QString& text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber ? roundedTo<qint32>(number) : std::nullopt;
}

/// Runs the steps, each to its end or to its first error.
void skipFailing(std::initializer_list<std::function<void()>> steps)
{
    for (const auto& step : steps) {
        try {
            step();
        } catch (const RuntimeError&) {
            continue; // The control keeps what it shows; start-up goes on.
        }
    }
}

} // namespace

MainOptions::MainOptions(Form& form, Program& program)
    : m_form(form),
      m_program(program),
      m_cobFileType(form.control<coolCombo>(u"cobFileType"_s)),
      m_cobFileName(form.control<coolCombo>(u"cobFileName"_s)),
      m_csQuality(form.control<cpvSlider>(u"csQuality"_s)),
      m_txtOutputFolder(box(u"txtOutputFolder"_s)),
      m_txtThumWidth(box(u"txtThumWidth"_s)),
      m_txtThumHeight(box(u"txtThumHeight"_s))
{
    connectChoices();
    connectNumbers();
    connectButtons();
}

Coolradiobutton& MainOptions::check(const QString& name) const
{
    return m_form.control<Coolradiobutton>(name);
}

TextLine& MainOptions::box(const QString& name) const { return m_form.control<TextLine>(name); }

void MainOptions::addItems()
{
    for (const QString& format : {u"Png Images(*.png)"_s, u"Jpeg Images(*.jpg)"_s, u"Gif Images(*.gif)"_s,
                                  u"BitMap Images(*.bmp)"_s, u"Tagged Images(*.tif)"_s})
        m_cobFileType.AddItem(format);
    for (const QString& scheme : {u"URL"_s, u"Number"_s, u"Manual"_s})
        m_cobFileName.AddItem(scheme);
}

void MainOptions::showSettings()
{
    const auto text = [](qint32 number) { return QString::number(number); };
    skipFailing({
        [&] { m_txtOutputFolder.setText(config().OutputFolder()); },
        [&] { box(u"txtDelay"_s).setText(text(config().DelayTime())); },
        [&] { box(u"txtTimeOut"_s).setText(text(config().TimeOut())); },
        [&] { check(u"chkOverwrite"_s).setValue(config().Overwrite() == 1); },
        [&] { check(u"chkOpenOutput"_s).setValue(config().OpenOutput() == 1); },
        [&] { m_cobFileType.setListIndex(text(config().ImageType())); },
        [&] { m_cobFileName.setListIndex(text(config().NameAs())); },
        [&] { m_csQuality.setValue(config().JpgQuality()); },
        [&] { check(u"chkThum"_s).setValue(config().Thumbnail()); },
        [&] { enableSizeBoxes(config().Thumbnail()); },
        [&] { m_txtThumWidth.setText(text(config().ThumWidth())); },
        [&] { m_txtThumHeight.setText(text(config().ThumHeight())); },
        [&] { check(u"chkEnableActiveX"_s).setValue(config().EnableActiveX()); },
        [&] { check(u"chkEnableJava"_s).setValue(config().EnableJava()); },
        [&] { check(u"chkEnableScript"_s).setValue(config().EnableScript()); },
    });
}

// A check button raises Click before it flips: the new state is the opposite of the Value that is read.
void MainOptions::connectChoices()
{
    const auto onCombo = [this](coolCombo& combo, WholeNumberSetter store) {
        QObject::connect(&combo, &coolCombo::Click, &m_form,
                         [this, &combo, store] { (config().*store)(combo.ListIndex().toInt()); });
    };
    onCombo(m_cobFileType, &clsConfig::setImageType);
    onCombo(m_cobFileName, &clsConfig::setNameAs);

    const auto onCheck = [this](const QString& name, const auto& store) {
        Coolradiobutton& button = check(name);
        QObject::connect(&button, &Coolradiobutton::Click, &m_form,
                         [this, &button, store] { (config().*store)(!button.Value()); });
    };
    onCheck(u"chkOverwrite"_s, &clsConfig::setOverwrite);
    onCheck(u"chkOpenOutput"_s, &clsConfig::setOpenOutput);
    onCheck(u"chkEnableActiveX"_s, &clsConfig::setEnableActiveX);
    onCheck(u"chkEnableJava"_s, &clsConfig::setEnableJava);
    onCheck(u"chkEnableScript"_s, &clsConfig::setEnableScript);
    QObject::connect(&check(u"chkThum"_s), &Coolradiobutton::Click, &m_form, [this] { chkThum_Click(); });
}

void MainOptions::connectNumbers()
{
    QObject::connect(&m_csQuality, &cpvSlider::ValueChanged, &m_form,
                     [this] { config().setJpgQuality(m_csQuality.Value()); });
    const auto onValidate = [this](const QString& name, const auto& handler) {
        QObject::connect(&box(name), &TextLine::Validate, &m_form, handler);
    };
    onValidate(u"txtDelay"_s, [this] {
        validateSeconds(box(u"txtDelay"_s), {0, u"0"_s}, &clsConfig::setDelayTime);
    });
    onValidate(u"txtTimeOut"_s, [this] {
        validateSeconds(box(u"txtTimeOut"_s), {10, u"60"_s}, &clsConfig::setTimeOut);
    });
    onValidate(u"txtThumWidth"_s,
               [this] { validateSize(m_txtThumWidth, config().ThumWidth(), &clsConfig::setThumWidth); });
    onValidate(u"txtThumHeight"_s,
               [this] { validateSize(m_txtThumHeight, config().ThumHeight(), &clsConfig::setThumHeight); });
}

void MainOptions::connectButtons()
{
    // After the press that may have brought the focus: that puts the caret somewhere.
    QObject::connect(
        &m_txtOutputFolder, &TextLine::GotFocus, &m_form, [this] { txtOutputFolder_DblClick(); },
        Qt::QueuedConnection);
    QObject::connect(&m_txtOutputFolder, &TextLine::DblClick, &m_form,
                     [this] { txtOutputFolder_DblClick(); });
    QObject::connect(&m_form.control<FButton>(u"fbOutpath"_s), &FButton::Click, &m_form,
                     [this] { fbOutpath_Click(); });
    QObject::connect(&m_form.control<FButton>(u"fbInternetOptions"_s), &FButton::Click, &m_form,
                     [this] { fbInternetOptions_Click(); });
}

void MainOptions::chkThum_Click()
{
    enableSizeBoxes(!check(u"chkThum"_s).Value());
    config().setThumbnail(m_txtThumHeight.Enabled());
}

void MainOptions::enableSizeBoxes(bool enabled)
{
    m_txtThumWidth.setEnabled(enabled);
    m_txtThumHeight.setEnabled(enabled);
}

void MainOptions::validateSeconds(TextLine& box, const SecondsRule& rule, WholeNumberSetter store)
{
    const double number = leadingNumber(box.Text());
    const bool isAccepted = number >= rule.least && number <= mostSeconds;
    box.setText(isAccepted ? numberText(number) : rule.instead);
    if (const auto seconds = wholeNumber(box.Text())) (config().*store)(*seconds);
}

void MainOptions::validateSize(TextLine& box, qint32 previous, WholeNumberSetter store)
{
    const auto number = wholeNumber(box.Text());
    if (number)
        (config().*store)(*number);
    else
        box.setText(QString::number(previous));
}

void MainOptions::txtOutputFolder_DblClick()
{
    m_txtOutputFolder.setSelStart(0);
    m_txtOutputFolder.setSelLength(static_cast<qint32>(m_txtOutputFolder.Text().size()));
}

void MainOptions::fbOutpath_Click()
{
    const QString folder = BrowseForFolder(m_program.fileDialogs, &m_form, {});
    if (folder.isEmpty()) return;
    m_txtOutputFolder.setText(folder);
    config().setOutputFolder(m_txtOutputFolder.Text());
}

void MainOptions::fbInternetOptions_Click()
{
    if (m_program.hShell32) m_program.hShell32->internetOptions(&m_form);
}

} // namespace vistrel
