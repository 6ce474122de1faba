#include "host/engine/MO_Modules.h"

#include <QHash>

#include <functional>
#include <vector>

// The two per-class virtuals of every module class: double dispatch to the visit of
// the node's own class, and the class name that files store.
#define HOST_DEFINE_MODULE_DISPATCH(Class, Base, Kind)                                                       \
    void Class::accept(MO_AbstractModuleVisitor& visitor)                                                    \
    {                                                                                                        \
        visitor.visit(*this);                                                                                \
    }                                                                                                        \
    QString Class::typeName() const                                                                          \
    {                                                                                                        \
        return QStringLiteral(#Class);                                                                       \
    }
HOST_MODULE_CLASSES(HOST_DEFINE_MODULE_DISPATCH)
#undef HOST_DEFINE_MODULE_DISPATCH

namespace {

using ModuleMaker = std::function<MO_Node*(SC_SceneCommon*, QString const&)>;

struct ModuleClass
{
    QString name;
    ModuleMaker make;
};

std::vector<ModuleClass> const& moduleClasses()
{
#define HOST_MODULE_CLASS_ENTRY(Class, Base, Kind)                                                           \
    ModuleClass { QStringLiteral(#Class),                                                                    \
        [](SC_SceneCommon* scene, QString const& name) -> MO_Node* { return new Class(scene, name); } },
    static const std::vector<ModuleClass> classes { HOST_MODULE_CLASSES(HOST_MODULE_CLASS_ENTRY) };
#undef HOST_MODULE_CLASS_ENTRY
    return classes;
}

} // namespace

MO_Node* MO_ModuleFactory::create(QString const& typeName, SC_SceneCommon* scene, QString const& instanceName)
{
    static const QHash<QString, ModuleMaker> byName = [] {
        QHash<QString, ModuleMaker> table;
        for (ModuleClass const& entry : moduleClasses())
            table.insert(entry.name, entry.make);
        return table;
    }();
    const auto it = byName.constFind(typeName);
    return it == byName.constEnd() ? nullptr : (*it)(scene, instanceName);
}

QStringList MO_ModuleFactory::typeNames()
{
    QStringList names;
    for (ModuleClass const& entry : moduleClasses())
        names << entry.name;
    return names;
}
