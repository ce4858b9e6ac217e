#pragma once

#include "app/frm_main_chrome.h"
#include "app/frm_main_list_files.h"
#include "app/frm_main_options.h"
#include "app/frm_main_run.h"
#include "app/program.h"
#include "convert/converter.h"
#include "platform/forms/form.h"

namespace vistrel
{

/// The main window. This class is its lifecycle; what the user does in it is handled subject by subject:
/// MainChrome (frame, caption, pages, help), MainOptions (the Options page), MainListFiles (the list as text)
/// and MainRun (the window as a run sees it). The controls come from the design data in the program's
/// resources, ":/forms/frmMain.design".
class frmMain : public Form
{
    Q_OBJECT

public:
    /// Creates the controls. program outlives the window.
    explicit frmMain(Program& program);

    /// Fills the window from the settings and shows the Convert page; on the very first run the Options page
    /// and a message, and then it returns after the user has closed that.
    void Form_Load();

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void InitControls();
    void showFirstRun();
    void Form_Unload();
    void connectRun();

    Program& m_program;
    std::unique_ptr<MainChrome> m_chrome;
    std::unique_ptr<MainOptions> m_options;
    std::unique_ptr<MainListFiles> m_listFiles;
    std::unique_ptr<MainRun> m_run;
    std::unique_ptr<Converter> m_converter;
};

/// The window's design data, as the program's resources have it.
[[nodiscard]] QList<ControlDesign> frmMainDesign();
/// The classes of its controls: the system's own and the host's.
[[nodiscard]] const ControlClasses& frmMainControlClasses();

} // namespace vistrel
