#pragma once

#include "app/program.h"
#include "controls/gradient_painter/cls_gradient.h"
#include "platform/forms/form.h"

namespace vistrel
{

class FButton;
class PictureBox;

/// The main window's head: its frame, the caption strip with icon, title and buttons, the strip below it, and
/// the buttons that switch between the pages and open the help book.
class MainChrome
{
public:
    /// Takes over the events of these controls. Both outlive it.
    MainChrome(Form& form, Program& program);

    /// Clips the window, places the caption's parts, paints the strips and sets the title. Once, before the
    /// window is shown.
    void DrawFormChrome();

    /// Shows page Index, with its button marked and its notice; 3 opens the help book and changes nothing.
    void fbMake_Click(int Index);

private:
    void winCmd_Click(int Index);
    void picCaption_MouseDown();
    void picLogo_Click();
    void connectEvents();
    void paintCaption();
    void paintTitel();
    void paintGradient(PictureBox& strip, float angle);

    Form& m_form;
    Program& m_program;
    PictureBox& m_picCaption;
    PictureBox& m_picTitel;
};

} // namespace vistrel
