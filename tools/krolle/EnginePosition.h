// Library handles turned into the positions the engine's authoring takes.
#pragma once

class SC_Id;
class SC_Project;

// The engine counts panels among all the blocks of a shot's symbol, also those its
// warp does not show, so a panel's place there can differ from its number in the view.
class EnginePosition
{
public:
    // The position of the panel in its shot's symbol; the panel count when it is not there.
    static unsigned ofPanel(const SC_Project* project, const SC_Id& shot, const SC_Id& panel);
};
