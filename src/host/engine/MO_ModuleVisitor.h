// Module classes of the node network and the visitors that walk them.
#pragma once

#include <QByteArray>

#include <typeindex>
#include <typeinfo>

// Every module class of the engine, in the order of the visitor's virtual table.
// X(Class, Base, Kind): Kind ROOT is the root of the visit fallback (MO_Module),
// CORE classes carry state and are written by hand (MO_Node.h), PLAIN classes
// are stateless and generated from this list (MO_Modules.h).
// The default visit of each class falls back to the visit of Base.
#define HOST_MODULE_CLASSES(X)                                                                               \
    X(MO_ApplyBlendModeModule, MO_Module, PLAIN)                                                             \
    X(MO_BlendModeModule, MO_Module, PLAIN)                                                                  \
    X(TUGroup, MO_Module, CORE)                                                                              \
    X(MO_Module, MO_Node, ROOT)                                                                              \
    X(TD_FakeShadowModule, MO_Module, PLAIN)                                                                 \
    X(TD_OrthoLockModule, MO_Module, PLAIN)                                                                  \
    X(SM_ScriptModule, MO_Module, PLAIN)                                                                     \
    X(TUFieldChartModule, MO_Module, PLAIN)                                                                  \
    X(TUApplyPeg3Module2, MO_Module, PLAIN)                                                                  \
    X(TUApplyPeg3Module, MO_Module, PLAIN)                                                                   \
    X(TULayerSelectorModule, MO_Module, PLAIN)                                                               \
    X(TUUnderlayModule, MO_Module, PLAIN)                                                                    \
    X(TUColorArtModule, MO_Module, PLAIN)                                                                    \
    X(TUOverlayModule, MO_Module, PLAIN)                                                                     \
    X(TUGradientModule, MO_Module, PLAIN)                                                                    \
    X(TUColorCardModule, MO_Module, PLAIN)                                                                   \
    X(TUInputModule, MO_Module, PLAIN)                                                                       \
    X(MO_UnconnectedCompositeModule, MO_Module, PLAIN)                                                       \
    X(MO_ElementModule, MO_AnimatedModule, CORE)                                                             \
    X(MO_AnimatedModule, MO_Module, CORE)                                                                    \
    X(TUWriteModule, MO_Module, PLAIN)                                                                       \
    X(TUVariableBlurModule, MO_Module, PLAIN)                                                                \
    X(TUKVDOverrideModule, MO_Module, PLAIN)                                                                 \
    X(TUSetFocusModule, MO_Module, PLAIN)                                                                    \
    X(TUScaleZModule, MO_Module, PLAIN)                                                                      \
    X(TUScaleModule, MO_Module, PLAIN)                                                                       \
    X(TUResizeMatteModule, MO_Module, PLAIN)                                                                 \
    X(TURemoveTransparencyModule, MO_Module, PLAIN)                                                          \
    X(TURadialBlurModule, MO_Module, PLAIN)                                                                  \
    X(TUPluginModule, MO_Module, PLAIN)                                                                      \
    X(TUPlaceholderModule, MO_Module, PLAIN)                                                                 \
    X(TUPegModule, MO_AnimatedModule, CORE)                                                                  \
    X(TUNoteModule, MO_Module, PLAIN)                                                                        \
    X(TUMultiPort, MO_Module, PLAIN)                                                                         \
    X(TUMotionBlurModule, MO_Module, PLAIN)                                                                  \
    X(TUGlueModule, MO_Module, PLAIN)                                                                        \
    X(TUGenericCompositeModule, MO_Module, PLAIN)                                                            \
    X(TUFadeModule, MO_Module, PLAIN)                                                                        \
    X(TUExternalModule, MO_Module, PLAIN)                                                                    \
    X(TUDisplayModule, MO_Module, PLAIN)                                                                     \
    X(TUCutterModule, MO_Module, PLAIN)                                                                      \
    X(TUCropModule, MO_Module, PLAIN)                                                                        \
    X(TUCompositeModule, MO_Module, PLAIN)                                                                   \
    X(MO_ColorMaskModule, MO_Module, PLAIN)                                                                  \
    X(TUColorScaleModule, MO_Module, PLAIN)                                                                  \
    X(TULineArtModule, MO_Module, PLAIN)                                                                     \
    X(TUCameraModule, MO_Module, PLAIN)                                                                      \
    X(TUApplyPegModule, MO_Module, PLAIN)                                                                    \
    X(TUApplyFocusModule, MO_Module, PLAIN)

class MO_Node;
#define HOST_DECLARE_MODULE_CLASS(Class, Base, Kind) class Class;
HOST_MODULE_CLASSES(HOST_DECLARE_MODULE_CLASS)
#undef HOST_DECLARE_MODULE_CLASS

/// Identity of a visitor's dynamic class: a small value type, compared and ordered
/// by the class it names. The default value names no class.
class UT_DynKey
{
public:
    UT_DynKey() = default;
    explicit UT_DynKey(std::type_info const& type)
        : m_type(type)
    {
    }

    bool isNull() const { return m_type == std::type_index(typeid(void)); }
    /// The implementation's name of the class (mangled on most compilers).
    QByteArray name() const { return isNull() ? QByteArray() : QByteArray(m_type.name()); }

    bool operator==(UT_DynKey const& other) const { return m_type == other.m_type; }
    bool operator!=(UT_DynKey const& other) const { return m_type != other.m_type; }
    bool operator<(UT_DynKey const& other) const { return m_type < other.m_type; }

private:
    std::type_index m_type { typeid(void) };
};

/// Root of the visitors of the node network: one pure `visit` per module class, in
/// the engine's fixed order, then `key()`. A node's `accept` calls the overload of
/// its own class. Visitors are short-lived stack objects; single-threaded.
class MO_AbstractModuleVisitor
{
public:
    virtual ~MO_AbstractModuleVisitor();

#define HOST_DECLARE_PURE_VISIT(Class, Base, Kind) virtual void visit(Class&) = 0;
    HOST_MODULE_CLASSES(HOST_DECLARE_PURE_VISIT)
#undef HOST_DECLARE_PURE_VISIT

    /// The visitor's own class.
    virtual UT_DynKey key() const;
};

/// A visitor whose `visit` of each module class falls back, one base class at a
/// time, to the visit of the base: a peg reaches visit(MO_AnimatedModule&) and then
/// visit(MO_Module&) unless an overload on the way is overridden. visit(MO_Module&)
/// is where every fallback ends; it stays for the derived class to define.
class MO_AbstractModuleVisitorWithModuleFallback : public MO_AbstractModuleVisitor
{
public:
    ~MO_AbstractModuleVisitorWithModuleFallback() override;

#define HOST_DECLARE_FALLBACK_VISIT_ROOT(Class, Base)
#define HOST_DECLARE_FALLBACK_VISIT_CORE(Class, Base) void visit(Class&) override;
#define HOST_DECLARE_FALLBACK_VISIT_PLAIN(Class, Base) HOST_DECLARE_FALLBACK_VISIT_CORE(Class, Base)
#define HOST_DECLARE_FALLBACK_VISIT(Class, Base, Kind) HOST_DECLARE_FALLBACK_VISIT_##Kind(Class, Base)
    HOST_MODULE_CLASSES(HOST_DECLARE_FALLBACK_VISIT)
#undef HOST_DECLARE_FALLBACK_VISIT
#undef HOST_DECLARE_FALLBACK_VISIT_PLAIN
#undef HOST_DECLARE_FALLBACK_VISIT_CORE
#undef HOST_DECLARE_FALLBACK_VISIT_ROOT

    using MO_AbstractModuleVisitor::visit;
};

/// The visitor that collectors derive from. visit(TUGroup&) goes on to every node of
/// the group in the group's order, depth first: a nested group is walked where it
/// stands. This order is stable between two edits of the network. visit(MO_Module&)
/// does nothing, so a module whose overloads are not overridden is passed over.
class MO_ModuleVisitor : public MO_AbstractModuleVisitorWithModuleFallback
{
public:
    ~MO_ModuleVisitor() override;

    using MO_AbstractModuleVisitorWithModuleFallback::visit;
    void visit(TUGroup& group) override;
    void visit(MO_Module& module) override;
};
