#include "EnginePosition.h"

#include "host/engine/HostEngine.h"

unsigned EnginePosition::ofPanel(const SC_Project* project, const SC_Id& shot, const SC_Id& panel)
{
    const unsigned count = HostAuthoring::panelCount(project, shot);
    unsigned position = 0;
    while (position < count && HostAuthoring::panelId(project, shot, position) != panel)
        ++position;
    return position;
}
