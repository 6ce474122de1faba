#include "ProjectBoard.h"

#include "EngineFixtures.h"

#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"
#include "project/EngineLinks.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

void setCustom(KRC_ObjectName& name, QString const& value)
{
    if (value.isNull())
        return;
    name.setValue(value);
    name.setFlag(name.flag() | 2);
}

} // namespace

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

void ProjectBoard::nameShot(
    size_t index, QString const& name, QString const& sequence, QString const& act) const
{
    KRC_SceneInfo* info = shotAt(index).sceneInfo();
    ASSERT_NE(nullptr, info) << "shot " << index;
    setCustom(info->name(), name);
    setCustom(info->sequenceName(), sequence);
    setCustom(info->actName(), act);
}

void ProjectBoard::group(QString const& groups) const
{
    QStringList const shots = groups.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    ASSERT_EQ(board.shots.size(), size_t(shots.size())) << qPrintable(groups);
    for (int i = 0; i < shots.size(); ++i) {
        QStringList const parts = shots.at(i).split(QLatin1Char('/'));
        nameShot(size_t(i), QString(), parts.value(1), parts.value(0));
    }
    m_view->sequenceExistsMeta()->setValue(true);
}
