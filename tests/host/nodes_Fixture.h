// Shared by the node tests of the engine stand-in: a project with one empty scene,
// a recorder of what the change manager delivers, and a visitor that lists a walk.
#pragma once

#include "host/engine/HostAuthoring.h"
#include "host/engine/HostEngine.h"
#include "host/engine/SC_Project.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>

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

/// Records the deliveries of a change manager: for each signal, the sorted names of
/// the nodes or timed values it carried ("<gone>" for a node that is no more).
class NodeChangeLog
{
public:
    explicit NodeChangeLog(TUSceneChangeManager& manager)
    {
        nodeSignal(manager, &TUSceneChangeManager::networkChanged, "network");
        nodeSignal(manager, &TUSceneChangeManager::subNetworkChanged, "subNetwork");
        nodeSignal(manager, &TUSceneChangeManager::childrenOrderingChanged, "ordering");
        nodeSignal(manager, &TUSceneChangeManager::nodeLinksChanged, "links");
        nodeSignal(manager, &TUSceneChangeManager::nodesChanged, "nodes");
        nodeSignal(manager, &TUSceneChangeManager::nodeInstanceNamesChanged, "names");
        valueSignal(manager, &TUSceneChangeManager::timedValuesAdded, "valuesAdded");
        valueSignal(manager, &TUSceneChangeManager::timedValuesRemoved, "valuesRemoved");
        valueSignal(manager, &TUSceneChangeManager::timedValuesChanged, "valuesChanged");
        QObject::connect(&manager, &TUSceneChangeManager::nodeChangeApplied, [this](MO_Node* node) {
            append("applied", node ? node->instanceName() : QStringLiteral("<gone>"));
        });
        QObject::connect(&manager, &TUSceneChangeManager::selectionChanged, [this] { ++selectionChanges; });
    }

    /// All deliveries, "kind: a b c" per signal, sorted by kind.
    QStringList lines() const
    {
        QStringList result;
        for (auto const& entry : byKind) {
            QStringList names = entry.second;
            names.sort();
            result << entry.first + ": " + names.join(' ');
        }
        return result;
    }
    void reset()
    {
        byKind.clear();
        selectionChanges = 0;
    }

    std::map<QString, QStringList> byKind;
    int selectionChanges = 0;

private:
    void append(QString const& kind, QString const& name) { byKind[kind] << name; }

    template <class Signal> void nodeSignal(TUSceneChangeManager& manager, Signal signal, char const* kind)
    {
        QObject::connect(&manager, signal, [this, kind](TUNodeSet const& nodes) {
            for (UT_SharedWeakPtr<MO_Node> const& node : nodes)
                append(kind, node ? node->instanceName() : QStringLiteral("<gone>"));
        });
    }
    template <class Signal> void valueSignal(TUSceneChangeManager& manager, Signal signal, char const* kind)
    {
        QObject::connect(&manager, signal, [this, kind](TUTvSet const& values) {
            for (TUTimedValue* value : values)
                append(kind, value->name());
        });
    }
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
    NodeBench(NodeBench const&) = delete;
    NodeBench& operator=(NodeBench const&) = delete;
    virtual ~NodeBench() = default;

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

    /// Delivers what is pending and answers what went out.
    QStringList deliver()
    {
        log.reset();
        manager.notify();
        return log.lines();
    }

    TUSceneChangeManager manager;
    UT_SharedPtr<SC_Project> project;
    TUScene* scene;
    NodeChangeLog log { manager };
};

class NodesTest : public ::testing::Test, public NodeBench
{
};
