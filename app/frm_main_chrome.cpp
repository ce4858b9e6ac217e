#include "app/frm_main_chrome.h"

#include "app/mod_form.h"
#include "app/util/mod_functions.h"
#include "controls/flat_button/f_button.h"
#include "platform/forms/label.h"
#include "platform/forms/picture_box.h"
#include "platform/forms/placement.h"

#include <QIcon>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int helpIndex = 3;
constexpr std::array pageIndices = {0, 1};
constexpr Color blue = Color::rgb(0, 130, 198);
constexpr Color darkBlue = Color::rgb(0, 65, 99);
constexpr Color unselectedPage = Color::rgb(140, 220, 255);
constexpr Color selectedPage = Color::rgb(224, 224, 224);

QString element(const QString& array, int index) { return u"%1(%2)"_s.arg(array).arg(index); }

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(u":/icons/vistrel-%1.png"_s.arg(size));
    return icon;
}

} // namespace

MainChrome::MainChrome(Form& form, Program& program)
    : m_form(form),
      m_program(program),
      m_picCaption(form.control<PictureBox>(u"picCaption"_s)),
      m_picTitel(form.control<PictureBox>(u"picTitel"_s))
{
    connectEvents();
}

void MainChrome::connectEvents()
{
    for (const int index : {0, 1}) {
        QObject::connect(&m_form.control<FButton>(element(u"winCmd"_s, index)), &FButton::Click, &m_form,
                         [this, index] { winCmd_Click(index); });
    }
    for (const int index : {0, 1, helpIndex}) {
        QObject::connect(&m_form.control<FButton>(element(u"fbMake"_s, index)), &FButton::Click, &m_form,
                         [this, index] { fbMake_Click(index); });
    }
    QObject::connect(&m_picCaption, &PictureBox::MouseDown, &m_form, [this] { picCaption_MouseDown(); });
    QObject::connect(&m_picCaption, &PictureBox::Repaint, &m_form, [this] { paintCaption(); });
    QObject::connect(&m_picTitel, &PictureBox::Repaint, &m_form, [this] { paintTitel(); });
    auto& picLogo = m_form.control<PictureBox>(u"picLogo"_s);
    picLogo.setCursor(Qt::PointingHandCursor);
    QObject::connect(&picLogo, &PictureBox::Click, &m_form, [this] { picLogo_Click(); });
}

void MainChrome::DrawFormChrome()
{
    MakeFormRegion(m_form);
    auto& minimise = m_form.control<FButton>(u"winCmd(0)"_s);
    auto& close = m_form.control<FButton>(u"winCmd(1)"_s);
    minimise.move(m_form.width() - 2 * minimise.width() - 4, 1);
    close.move(m_form.width() - minimise.width() - 3, 1);
    m_picCaption.setGeometry(1, 1, m_form.width() - 2, m_picCaption.height());
    m_form.control<PictureBox>(u"picIcon"_s).move(3, 3);
    paintCaption();
    paintTitel();
    m_form.setWindowTitle(programTitle.toString());
    m_form.setWindowIcon(programIcon());
}

void MainChrome::paintCaption()
{
    paintGradient(m_picCaption, 0);
    Surface& strip = m_picCaption.canvas();
    strip.setCurrentX(25);
    strip.setCurrentY(3);
    strip.print(programTitle.toString());
}

void MainChrome::paintTitel() { paintGradient(m_picTitel, 270); }

void MainChrome::paintGradient(PictureBox& strip, float angle)
{
    clsGradient painter([this](const QString& text, const QString& title) {
        m_program.messageBoxes.exclamation(&m_form, text, title.isEmpty() ? programTitle.toString() : title);
    });
    painter.setColor1(blue);
    painter.setColor2(darkBlue);
    painter.setAngle(angle);
    painter.Draw(&strip.canvas());
}

void MainChrome::picCaption_MouseDown() { DragForm(m_form); }

void MainChrome::winCmd_Click(int Index)
{
    if (Index == 0)
        m_form.showMinimized();
    else
        m_form.close();
}

void MainChrome::fbMake_Click(int Index)
{
    if (Index == helpIndex) return m_program.open(&m_form, GetAppPath() + u"help.chm"_s);
    for (const int page : pageIndices) {
        m_form.control<FButton>(element(u"fbMake"_s, page)).setBackColor(unselectedPage);
        m_form.control<PictureBox>(element(u"picMain"_s, page)).hide();
    }
    m_form.control<PictureBox>(element(u"picMain"_s, Index)).show();
    auto& button = m_form.control<FButton>(element(u"fbMake"_s, Index));
    button.setBackColor(selectedPage);
    m_form.control<Label>(u"lblNotice"_s).setCaption(tagOf(button));
}

void MainChrome::picLogo_Click() { m_program.open(&m_form, tagOf(m_form.control<PictureBox>(u"picLogo"_s))); }

} // namespace vistrel
