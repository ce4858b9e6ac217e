#include "app/frm_main.h"

#include "app/mod_form.h"
#include "controls/check_button/coolradiobutton.h"
#include "controls/combo_box/cool_combo.h"
#include "controls/flat_button/f_button.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"
#include "platform/forms/text_box.h"

#include <QCloseEvent>
#include <QFile>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Qt::WindowFlags chromelessWindow = Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                                             Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
enum Page { ConvertPage, OptionsPage };

} // namespace

QList<ControlDesign> frmMainDesign()
{
    QFile file(u":/forms/frmMain.design"_s);
    if (!file.open(QFile::ReadOnly)) qFatal("the program's resources hold no frmMain.design");
    auto design = readDesign(QString::fromUtf8(file.readAll()));
    if (!design) qFatal("frmMain.design: %s", qPrintable(design.error().text()));
    return *std::move(design);
}

const ControlClasses& frmMainControlClasses()
{
    static const ControlClasses classes = [] {
        ControlClasses all = hostControlClasses();
        all.insert({
            {u"Coolradiobutton"_s, makeControl<Coolradiobutton>},
            {u"FButton"_s, makeControl<FButton>},
            {u"TextLine"_s, makeControl<TextLine>},
            {u"coolCombo"_s, makeControl<coolCombo>},
            {u"cpvSlider"_s, makeControl<cpvSlider>},
        });
        return all;
    }();
    return classes;
}

frmMain::frmMain(Program& program) : Form(chromelessWindow), m_program(program)
{
    const auto created = create(frmMainDesign(), frmMainControlClasses());
    if (!created) qFatal("frmMain.design: %s", qPrintable(created.error().text()));
    m_chrome = std::make_unique<MainChrome>(*this, program);
    m_options = std::make_unique<MainOptions>(*this, program);
    m_run = std::make_unique<MainRun>(*this, program);
    m_listFiles = std::make_unique<MainListFiles>(*this, program, *m_run);
    m_converter = std::make_unique<Converter>(*m_run, program.files, PathStyle::host(), program.newOrdane2);
    connectRun();
    move(screen()->availableGeometry().center() - rect().center());
}

void frmMain::connectRun()
{
    connect(&control<FButton>(u"fbConvert"_s), &FButton::Click, this,
            [this] { m_converter->fbConvert_Click(); });
    connect(&control<FButton>(u"fbStop"_s), &FButton::Click, this, [this] { m_converter->fbStop_Click(); });
}

void frmMain::Form_Load()
{
    m_chrome->DrawFormChrome();
    InitControls();
    control<TextBox>(u"txtURLList"_s).moveCaretToEnd();
    if (m_program.Config->FirstTime() != 0)
        m_chrome->fbMake_Click(ConvertPage);
    else
        showFirstRun();
    m_program.Config->setFirstTime(1);
}

void frmMain::InitControls()
{
    m_options->addItems();
    m_program.Config = std::make_unique<clsConfig>(m_program.configFile);
    m_options->showSettings();
}

// The window is on the screen by then, so that the user sees what the message speaks of.
void frmMain::showFirstRun()
{
    m_chrome->fbMake_Click(OptionsPage);
    show();
    m_program.messageBoxes.information(
        this,
        u"This is the first time you use the Vistrel, please setup the default configuration for the software."_s);
}

void frmMain::Form_Unload()
{
    m_program.Config.reset();
    m_program.hShell32.reset();
}

void frmMain::closeEvent(QCloseEvent* event)
{
    event->accept();
    Form_Unload();
}

void frmMain::paintEvent(QPaintEvent* event)
{
    Form::paintEvent(event);
    QPainter painter(this);
    drawFormFrame(painter, size(), foreColor());
}

} // namespace vistrel
