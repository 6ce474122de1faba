// Which layers a panel has, in which order and of which kind.
#pragma once

#include "host/Host.h"
#include "project/Panel_t.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <list>
#include <map>
#include <memory>
#include <set>
#include <vector>

class KRC_KrolleProject;
class SL_Selection;
class KRC_PanelLayerManagerPrivate;

/// The one object of a project view that says which layers a panel has: the top-level
/// animated modules of the panel scene's root group, in the order of the engine's walk
/// (index 0 is the first reached), each named by its instance name. Names, not node
/// pointers, identify layers across panels and across time.
///
/// Nothing is cached: every query walks the scene afresh with a short-lived collector,
/// so a query is linear in the nodes of the scene and there is nothing to invalidate.
/// What the engine's node signals drive is the upkeep of each panel's KRC_LayerInfos
/// record (an entry per layer name, never removed) and the signals to the interface:
/// `layerInfoChanged` once per panel per engine signal, `layerDrawingModified` once per
/// modified drawing of a layer. Queries answer neutrally (false, null, 0,
/// invalidLayerIdx) for a null scene, an unknown id or a node that is no layer.
///
/// Owned by the project view, made after its drawing observer. Threading: the host's
/// thread, where the engine's change manager emits; no lock.
class KRC_PanelLayerManager : public QObject
{
    Q_OBJECT

public:
    /// Kinds of top-level module that a query accepts, as a bit mask.
    enum LayerType_t
    {
        LayerType_Other = 1, ///< an element whose key at frame 1 is neither 3D, Kvg nor bitmap
        LayerType_Drawing = 2, ///< an element showing a Kvg drawing or a bitmap at frame 1
        LayerType_3d = 4, ///< an element showing a 3D model at frame 1
        LayerType_Animated = 8, ///< any other animated module, a peg above all
        LayerType_All = 15
    };

    /// The host's drawing flags; the library gives meaning to 0 only, the flag of a
    /// layer without one.
    enum eDrawingFlag
    {
        DrawingFlag_None = 0
    };

    /// The answer of getLayerIdx for a node that is no layer.
    static unsigned const invalidLayerIdx = 0xFFFFFFFFu;
    /// The name of the pitch mode's layer, for the host; the library finds that layer
    /// by its flag, not by this name.
    static QString const pitchModeLayerName;

    /// One layer of the default template given to new panels: a plain value. The text
    /// form is one line of seven ";"-separated fields (name, locked*2+enabled, layer
    /// flags, export flags, current*2+selected, opacity, alignment); any text reads
    /// without failure, missing fields taking their defaults and non-numbers reading 0.
    struct LayerInfo
    {
        LayerInfo() = default;
        LayerInfo(QString const& name, bool locked, bool enabled, bool current, bool selected, int layerFlags,
            int exportFlags, double opacity, CameraAlignment cameraAlignment);
        explicit LayerInfo(QString const& text);

        QString asString() const;
        void fromString(QString const& text);

        QString name;
        bool locked = false;
        bool enabled = false;
        bool current = false;
        bool selected = false;
        int layerFlags = 0;
        int exportFlags = 0;
        double opacity = 0.0;
        CameraAlignment cameraAlignment = static_cast<CameraAlignment>(0);
    };
    using LayerInfoList = std::list<LayerInfo>;
    /// Selected layers by panel id, as the map forms of getSelectedLayers give them.
    using LayersByPanel = std::map<SC_Id, std::set<MO_Node*>>;

    /// Reads its preferences and the default layers ("DEFAULT_LAYERS"); the destructor
    /// writes the default layers back.
    explicit KRC_PanelLayerManager(KRC_KrolleProject* project);
    ~KRC_PanelLayerManager() override;
    KRC_PanelLayerManager(KRC_PanelLayerManager const&) = delete;
    KRC_PanelLayerManager& operator=(KRC_PanelLayerManager const&) = delete;

    /// Emits layerInfoChanged(scene), for callers that changed layers in ways the
    /// engine does not signal.
    void notifyChange(TUScene* scene);

    // Layer lists. Each appends to the caller's container and never clears it.
    /// False for a null scene; else true when `out` is not empty afterwards.
    bool getLayers(TUScene const* scene, std::vector<MO_Node*>& out, LayerType_t mask = LayerType_All) const;
    /// True when the walk found a layer (also for the id forms, false for an unknown id).
    bool getLayers(TUScene const* scene, std::list<MO_Node*>& out, LayerType_t mask = LayerType_All) const;
    bool getLayers(SC_Id const& panelId, std::list<MO_Node*>& out, LayerType_t mask = LayerType_All) const;
    /// Instance names of the layers.
    bool getLayers(TUScene const* scene, QStringList& out, LayerType_t mask = LayerType_All) const;
    bool getLayers(SC_Id const& panelId, QStringList& out, LayerType_t mask = LayerType_All) const;
    bool getLayers(TUScene const* scene, std::set<QString>& out, LayerType_t mask = LayerType_All) const;
    bool getLayers(SC_Id const& panelId, std::set<QString>& out, LayerType_t mask = LayerType_All) const;

    // Layers by name and index, over all kinds. The id forms look the panel up.
    /// The first layer with that instance name, or null.
    MO_Node* getLayerByName(TUScene const* scene, QString const& name) const;
    MO_Node* getLayerByName(SC_Id const& panelId, QString const& name) const;
    /// The layer at `index`, or null past the end.
    MO_Node* getLayerByIdx(TUScene const* scene, unsigned index) const;
    MO_Node* getLayerByIdx(SC_Id const& panelId, unsigned index) const;
    /// The index of the node among the layers, or invalidLayerIdx.
    unsigned getLayerIdx(TUScene const* scene, MO_Node const* node) const;
    unsigned getLayerIdx(SC_Id const& panelId, MO_Node const* node) const;
    unsigned getLayersCount(TUScene const* scene) const;
    unsigned getLayersCount(SC_Id const& panelId) const;

    // Moves: whether a layer has a neighbour above (before) or below (after) it.
    /// False for a null argument or a node that is no layer; else unless it is first.
    bool canMoveLayerUp(TUScene const* scene, MO_Node const* node) const;
    /// False for a null argument or a node that is no layer; else unless it is last.
    bool canMoveLayerDown(TUScene const* scene, MO_Node const* node) const;
    bool canMoveLayerToTop(TUScene const* scene, MO_Node const* node) const;
    bool canMoveLayerToBottom(TUScene const* scene, MO_Node const* node) const;

    /// Sets `it` on `node` in `layers` and answers true; at the end and false if absent.
    static bool getLayerIterator(
        MO_Node const* node, std::vector<MO_Node*> const& layers, std::vector<MO_Node*>::const_iterator& it);

    // Static queries on nodes.
    /// Whether the node itself is a layer of a kind in `mask`.
    static bool isLayerOfType(MO_Node* node, LayerType_t mask);
    /// The ancestor without a parent (the node itself when it has none); null for null.
    static MO_Node* getTopLevelNode(MO_Node const* node);
    /// `node` first when `includeNode`, then every node of its scene whose top-level
    /// ancestor is `node`, at any depth, in walk order. Finds nothing under a node that
    /// has a parent itself.
    static void getNodeAndChildren(MO_Node const* node, std::vector<MO_Node*>& out, bool includeNode);
    static void getNodeAndChildren(MO_Node const* node, std::list<MO_Node*>& out, bool includeNode);
    static void getNodeAndChildren(MO_Node const* node, std::set<MO_Node*>& out, bool includeNode);
    /// An element's opacity in percent (100 without an opacity attribute); 100 for a
    /// peg and for any other node.
    static double getOpacityForLayer(MO_Node const* node);
    /// The module's alignment; CameraAlignment_None for a node that is not animated.
    static CameraAlignment getCameraAlignmentForLayer(MO_Node const* node);

    // Drawing flags, set by the host, cleared when the layer's drawing is modified.
    eDrawingFlag getLayerDrawingFlag(MO_Node const* node) const;
    /// Sets the flag; emits nothing.
    void setLayerDrawingFlag(MO_Node const* node, eDrawingFlag flag);

    /// How selectLayer changes the selection.
    enum eLayerSelectionMode
    {
        eSelectClear = 0, ///< clear, then select the node if one is given
        eSelectReplace = 1, ///< clear, then select the node
        eSelectRange = 2, ///< add the layers from the current one to the node
        eSelectAdd = 3, ///< add the node unless its name is remembered
        eSelectRemove = 4, ///< remove the node if its name is remembered
        eSelectToggle = 5, ///< remove the node if its name is remembered, else add it
        eSelectEngineOnly = 6 ///< add the node to the engine's selection alone
    };

    // Selection. The engine's SL_Selection holds the nodes selected now; the manager
    // remembers layer names per panel (or one shared list under global navigation or a
    // brush preset) and applies them again with selectPreferedLayers.
    /// The session's selection; the host sets it before any selection operation.
    void setSelection(SL_Selection* selection);
    bool brushPresetSelection() const;
    bool globalLayerNavigation() const;
    /// A non-empty name makes the preset active with that one layer; empty turns it off.
    void setBrushPresetLayer(QString const& name);
    void clearBrushPresetLayer();

    bool isSelected(TUScene const* scene, MO_Node const* node) const;
    bool isSelected(TUScene const* scene, QString const& name) const;
    MO_Node* getCurrentLayer(TUScene const* scene) const;
    /// Appends the layers whose names are remembered; answers the current layer.
    MO_Node* getSelectedLayers(TUScene const* scene, std::list<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    MO_Node* getSelectedLayers(TUScene const* scene, std::set<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    QString getSelectedLayers(TUScene const* scene, QStringList& out, LayerType_t type, bool onlySelected) const;
    /// Inserted under the panel's id; the entry is made even when nothing is selected.
    MO_Node* getSelectedLayers(TUScene const* scene, LayersByPanel& out, LayerType_t type, bool onlySelected) const;
    /// The panel's forms by id: a null answer and nothing added for an unknown id.
    MO_Node* getSelectedLayers(SC_Id const& panelId, std::list<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    MO_Node* getSelectedLayers(SC_Id const& panelId, std::set<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    MO_Node* getSelectedLayers(SC_Id const& panelId, LayersByPanel& out, LayerType_t type, bool onlySelected) const;
    QString getSelectedLayers(SC_Id const& panelId, QStringList& out, LayerType_t type, bool onlySelected) const;
    /// Each valid panel in order; names are appended once.
    void getSelectedLayers(std::vector<SC_Id> const& panelIds, QStringList& out, LayerType_t type,
        bool onlySelected) const;
    void getSelectedLayers(std::vector<SC_Id> const& panelIds, std::list<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    void getSelectedLayers(std::vector<SC_Id> const& panelIds, std::set<MO_Node*>& out, LayerType_t type,
        bool onlySelected) const;
    void getSelectedLayers(std::vector<SC_Id> const& panelIds, LayersByPanel& out, LayerType_t type,
        bool onlySelected) const;
    /// The nodes of the selection that are layers of `type` of this panel.
    static void layerSetFromSelection(Krolle::Panel_t const& panel, SL_Selection* selection,
        std::set<MO_Node*>& out, LayerType_t type);
    /// The one layer that the panel's record flags 16; null when none or several are.
    MO_Node* getPitchModeLayer(TUScene const* scene) const;
    MO_Node* getPitchModeLayer(SC_Id const& panelId) const;

    void addSelectedLayer(TUScene const* scene, QString const& name, bool notify);
    void addSelectedLayer(SC_Id const& panelId, QString const& name, bool notify);
    /// Remembers those of the names that are layers of the panel; SL_Selection stays.
    void setSelectedLayers(TUScene const* scene, QStringList const& names, bool notify);
    void setSelectedLayers(SC_Id const& panelId, QStringList const& names, bool notify);
    void setSelectedLayers(std::vector<SC_Id> const& panelIds, QStringList const& names, bool notify);
    bool selectLayer(TUScene const* scene, MO_Node const* node, eLayerSelectionMode mode, bool notify);
    bool selectLayer(TUScene const* scene, QString const& name, eLayerSelectionMode mode, bool notify);
    bool selectLayers(TUScene const* scene, std::list<MO_Node*> const& nodes, bool notify);
    bool selectAllLayers(TUScene const* scene, bool notify);
    /// Applies the remembered names to SL_Selection, falling back to the first unlocked
    /// layer unless `keepEmpty` or a brush preset; always emits layerInfoChanged.
    void selectPreferedLayers(TUScene const* scene, bool keepEmpty, bool includeLocked);
    void selectPreferedLayers(SC_Id const& panelId, bool keepEmpty, bool includeLocked);
    void selectPreferedLayers(std::vector<SC_Id> const& panelIds, bool keepEmpty, bool includeLocked);
    MO_Node* selectPitchModeLayer(TUScene const* scene, bool notify);
    MO_Node* selectPitchModeLayer(SC_Id const& panelId, bool notify);
    /// Clears SL_Selection and the shared list; the panels' own lists stay.
    bool clearSelection(bool notify);

    // Default layers: the user's template for new panels, kept in the preferences.
    LayerInfoList::const_iterator beginDefaultLayers() const;
    LayerInfoList::const_iterator endDefaultLayers() const;
    LayerInfoList::const_reverse_iterator rbeginDefaultLayers() const;
    LayerInfoList::const_reverse_iterator rendDefaultLayers() const;
    /// Replaces the template by a snapshot of the panel's layers; nothing for an unknown
    /// id or a panel without layers. Emits nothing; saved when the manager goes.
    void updateDefaultLayers(SC_Id const& panelId);
    /// The template that a stored "DEFAULT_LAYERS" text gives: its ";;"-separated
    /// entries, or the built-in "A" and "BG" when it has none.
    static LayerInfoList defaultLayersFromText(QString const& stored);

signals:
    /// Something about the layers of this panel changed; null stands for any panel.
    void layerInfoChanged(TUScene* scene);
    /// A drawing of a layer of this panel was modified.
    void layerDrawingModified(TUScene* scene);

private slots:
    void loadPreferences();

public slots:
    /// Emits layerInfoChanged(nullptr) and nothing else.
    void updateLayerList();
    /// Updates the panel of the node; nothing for a null node or a node of no panel.
    void updateLayerList(MO_Node* node);
    /// Updates each panel of the nodes once, in the set's order; gone nodes are skipped.
    void updateLayerList(TUNodeSet const& nodes);
    /// Adds a KRC_LayerInfos entry for each layer name the record lacks (reporting the
    /// record's change once with code 10), then emits layerInfoChanged(panel's scene).
    /// Nothing for an invalid panel.
    void doUpdateLayerList(Krolle::Panel_t const& panel);

protected slots:
    /// Clears the node's drawing flag and emits layerDrawingModified for the panel of
    /// that id, if it is still there. Nothing for a null node.
    void onDrawingModified(SC_Id const& panelId, MO_Node const* node);

private:
    /// The steps of selectLayer after its checks, inside the caller's batch scope.
    bool applySelection(TUScene const* scene, MO_Node const* node, eLayerSelectionMode mode, bool notify);
    /// Emits layerInfoChanged(scene) when `notify`.
    void changedIf(bool notify, TUScene const* scene);
    void loadDefaultLayers();
    void saveDefaultLayers() const;
    /// The scene of the panel with that id; null when there is none.
    TUScene const* sceneOf(SC_Id const& panelId) const;
    /// The names of the layers into a temporary list, then into `out`.
    template <class Names> bool appendNames(TUScene const* scene, Names& out, LayerType_t mask) const;
    /// Where the node stands among all layers, as an index; invalidLayerIdx when absent.
    static unsigned indexIn(std::vector<MO_Node*> const& layers, MO_Node const* node);

    std::unique_ptr<KRC_PanelLayerManagerPrivate> const d;
};

Q_DECLARE_METATYPE(TUScene*)
