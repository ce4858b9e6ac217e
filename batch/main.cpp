#include "batch/program.h"
#include "platform/terminal.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    vistrel::Streams streams{std::cin,
                             std::cout,
                             std::cerr,
                             vistrel::errorStreamIsTerminal(),
                             vistrel::outputStreamIsTerminal(),
                             vistrel::terminalColumns};
    return int(vistrel::runProgram(QCoreApplication::arguments().mid(1), streams));
}
