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

/// Records the deliveries of a change manager: for each signal, the names of the
/// nodes or timed values it carried ("<gone>" for a node that is no more).
class NodeChangeLog
{
public:
    explicit NodeChangeLog(TUSceneChangeManager& manager)
    {
        using M = TUSceneChangeManager;
        nodeSignal(manager, &M::networkChanged, "network");
        nodeSignal(manager, &M::subNetworkChanged, "subNetwork");
        nodeSignal(manager, &M::childrenOrderingChanged, "ordering");
        nodeSignal(manager, &M::nodeLinksChanged, "links");
        nodeSignal(manager, &M::nodesChanged, "nodes");
        nodeSignal(manager, &M::nodeInstanceNamesChanged, "names");
        valueSignal(manager, &M::timedValuesAdded, "valuesAdded");
        valueSignal(manager, &M::timedValuesRemoved, "valuesRemoved");
        valueSignal(manager, &M::timedValuesChanged, "valuesChanged");
        QObject::connect(&manager, &M::nodeChangeApplied, [this](MO_Node* node) { append("applied", node); });
        QObject::connect(&manager, &M::selectionChanged, [this] { ++selectionChanges; });
    }

    /// All deliveries, "kind: a b c" per signal with the names sorted, by kind.
    QStringList lines() const
    {
        QStringList result;
        for (auto entry : byKind) {
            entry.second.sort();
            result << entry.first + ": " + entry.second.join(' ');
        }
        return result;
    }

    std::map<QString, QStringList> byKind;
    int selectionChanges = 0;

private:
    void append(QString const& kind, MO_Node const* node)
    {
        byKind[kind] << (node ? node->instanceName() : QStringLiteral("<gone>"));
    }

    template <class Signal> void nodeSignal(TUSceneChangeManager& manager, Signal signal, char const* kind)
    {
        QObject::connect(&manager, signal, [this, kind](TUNodeSet const& nodes) {
            for (UT_SharedWeakPtr<MO_Node> const& node : nodes)
                append(kind, node.get());
        });
    }
    template <class Signal> void valueSignal(TUSceneChangeManager& manager, Signal signal, char const* kind)
    {
        QObject::connect(&manager, signal, [this, kind](TUTvSet const& values) {
            for (TUTimedValue* value : values)
                byKind[kind] << value->name();
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
        log.byKind.clear();
        log.selectionChanges = 0;
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
