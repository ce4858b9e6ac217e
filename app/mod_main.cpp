#include "app/mod_main.h"

#include "platform/drawing/color.h"

#include <QApplication>
#include <QDateTime>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// One look for the toolkit's own widgets, whatever the desktop's theme.
void initialiseCommonControls()
{
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(classicPalette());
}

void seedRandomNumbers() { std::srand(static_cast<unsigned>(QDateTime::currentMSecsSinceEpoch())); }

} // namespace

void modMain::Main(std::unique_ptr<Shell> shell)
{
    m_program.hShell32 = std::move(shell);
    initialiseCommonControls();
    seedRandomNumbers();
    m_frmMain = std::make_unique<frmMain>(m_program);
    m_frmMain->Form_Load();
    m_frmMain->show();
}

} // namespace vistrel
