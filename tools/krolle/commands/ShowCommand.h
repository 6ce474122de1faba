// krolle show: everything the library knows of one shot, panel or transition.
#pragma once

#include "Command.h"

// Prints one object found by its address: numbers, id, frames, names with their
// custom and locked flags, and the records kept on its scene, as a two-column table
// or as the "show" JSON document.
class ShowCommand : public Command
{
public:
    ShowCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
