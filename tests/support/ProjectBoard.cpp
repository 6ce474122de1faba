#include "ProjectBoard.h"

#include "EngineFixtures.h"

#include "project/EngineLinks.h"

ProjectBoard::ProjectBoard(QString const& description)
    : board(engineBoard(description, &manager))
    , m_view(new KRC_KrolleProject(board.project.get()))
{
}

ProjectBoard::~ProjectBoard()
{
    m_view.reset();
    board = HostStoryboard();
}

TUSeqTimedValue* ProjectBoard::timeline() const
{
    return m_view->topSceneTv();
}
