// The module classes without state of their own, and the factory of all module
// classes by name. Each is told apart by the visitor only; its default visit falls
// back to the visit of its base class.
#pragma once

#include "host/engine/MO_Node.h"

#include <QStringList>

#define HOST_DEFINE_MODULE_CLASS_ROOT(Class, Base)
#define HOST_DEFINE_MODULE_CLASS_CORE(Class, Base)
#define HOST_DEFINE_MODULE_CLASS_PLAIN(Class, Base)                                                          \
    class Class : public Base                                                                                \
    {                                                                                                        \
        HOST_MODULE_DISPATCH                                                                                 \
    public:                                                                                                  \
        using Base::Base;                                                                                    \
    };
#define HOST_DEFINE_MODULE_CLASS(Class, Base, Kind) HOST_DEFINE_MODULE_CLASS_##Kind(Class, Base)
HOST_MODULE_CLASSES(HOST_DEFINE_MODULE_CLASS)
#undef HOST_DEFINE_MODULE_CLASS
#undef HOST_DEFINE_MODULE_CLASS_PLAIN
#undef HOST_DEFINE_MODULE_CLASS_CORE
#undef HOST_DEFINE_MODULE_CLASS_ROOT

/// Makes module nodes by class name, for readers of stored networks.
class MO_ModuleFactory
{
public:
    /// A new node of the named module class, not yet in any group; null for a name
    /// that is no module class. The caller takes it into a UT_SharedPtr.
    static MO_Node* create(QString const& typeName, SC_SceneCommon* scene, QString const& instanceName);
    /// The names of all module classes, in the visitor's order.
    static QStringList typeNames();
};
