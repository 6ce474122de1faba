// Shared by the node tests of the engine stand-in: a project with one empty scene
// whose change manager is recorded, and a visitor that lists a walk.
#pragma once

#include "host/engine/HostAuthoring.h"
#include "host/engine/HostEngine.h"
#include "host/engine/SC_Project.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"
#include "support/EngineFixtures.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace Author = HostNodeAuthoring;

/// Lists the names of the nodes that a walk reaches, groups included, in walk order.
class NodeNameCollector : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(TUGroup& group) override
    {
        names << group.instanceName();
        MO_ModuleVisitor::visit(group);
    }
    void visit(MO_Module& module) override { names << module.instanceName(); }

    QStringList names;
};

/// A project with an empty scene "panel", posting to `manager`. Nothing is pending
/// when it is made.
class NodeBench
{
public:
    NodeBench()
        : project(HostAuthoring::createProject(&manager))
        , scene(project->createScene(QStringLiteral("panel")))
    {
        manager.clear();
    }

    TUGroup* root() const { return scene->getRootGroup(); }
    SC_SceneCommon* common() const { return scene->sceneCommon(); }

    /// The names that a walk of the root group reaches, the root excluded.
    QStringList walk() const
    {
        NodeNameCollector collector;
        root()->accept(collector);
        collector.names.removeFirst();
        return collector.names;
    }

    /// Delivers what is pending and answers the names that went out, by signal.
    QStringList deliver()
    {
        log.take();
        manager.notify();
        return log.nameLines();
    }

    TUSceneChangeManager manager;
    UT_SharedPtr<SC_Project> project;
    TUScene* scene;
    EngineChangeRecorder log { manager };
};

class NodesTest : public ::testing::Test, public NodeBench
{
};
