#pragma once

#include "app/frm_main_run.h"
#include "app/program.h"
#include "platform/forms/form.h"

namespace vistrel
{

/// The list as text: reset, load, save, add files, drop files. Failures are silent but for "Invalid file!".
class MainListFiles
{
public:
    /// Takes over the events of the list's buttons and of the list box. All outlive it.
    MainListFiles(Form& form, Program& program, MainRun& run);

private:
    void connectEvents();
    void fbClear_Click();
    void LoadList();
    void SaveList();
    [[nodiscard]] bool mayOverwrite();
    void fbAddFiles_Click();
    void addDroppedFiles(QStringList paths);

    Form& m_form;
    Program& m_program;
    MainRun& m_run;
};

} // namespace vistrel
