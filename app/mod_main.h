#pragma once

#include "app/frm_main.h"
#include "app/program.h"

#include <memory>

namespace vistrel
{

/// The start-up module. Needs the application object and outlives its event loop.
class modMain
{
public:
    /// program: with the services set and nothing else.
    explicit modMain(Program program) : m_program(std::move(program)) {}

    /// Prepares the host and shows the main window; on the very first run it returns after the user has
    /// closed the first-run message. From then on the program lives in the event loop, which ends with the
    /// window. A step that fails is skipped.
    void Main(std::unique_ptr<Shell> shell);

private:
    Program m_program;
    std::unique_ptr<frmMain> m_frmMain;
};

} // namespace vistrel
