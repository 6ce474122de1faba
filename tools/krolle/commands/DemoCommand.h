// krolle demo: builds the bundled sample storyboard and shows it.
#pragma once

#include "Command.h"

// Builds the sample storyboard of StoryboardPlan::demo(), saves it when asked
// (--out FILE) and prints its outline.
class DemoCommand : public Command
{
public:
    DemoCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
