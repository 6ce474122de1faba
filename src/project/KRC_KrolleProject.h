// The storyboard's view of one engine project.
#pragma once

#include "host/Host.h"
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_InfoFieldDescList.h"
#include "project/EngineLinks.h"
#include "project/PanelTrans_t.h"
#include "project/objTransIterator.h"
#include "project/objiterator.h"

#include <QObject>
#include <QString>

#include <list>
#include <map>
#include <set>
#include <vector>

class KRC_HiddenInfoFieldList;
class KRC_InfoFieldList;
class KRC_DrawingObserver;
class KRC_KrolleProjectPrivate;
class KRC_PanelInfoFieldDescList;
class KRC_ProjectInfoFieldDescList;
class KRC_NameHelper;
class KRC_NamingRules;
class KRC_PanelLayerManager;
class KRC_TrackingManager;
class KRC_ReferenceToolData;

namespace Krolle {
template <class T> class ObjectCache;
struct IndexedPanel;
} // namespace Krolle

/// The storyboard's view of an engine project: shots, panels and transitions derived
/// on demand from the top scene's sequence of frame blocks, with caches that fill on
/// lookup and are thrown away whole on every change that the engine reports.
///
/// A lookup never fails: it answers the invalid handle (or `invalidNdx`, an empty
/// list, null) when nothing is found. Under a transition a frame belongs to two shots
/// and the caller picks the side with a ResolutionPriority. Handles are good until the
/// next change; keep ids across changes.
///
/// The view holds one reference on the engine project for its whole life and owns its
/// managers. Threading: the host's thread. Lookups write to the caches even through
/// const operations, so a host that shares the view between threads holds its lock
/// (LockHelper) around every call.
class KRC_KrolleProject : public QObject
{
    Q_OBJECT

public:
    /// Which side of a transition a frame lookup takes. Only 0 and non-zero differ.
    enum ResolutionPriority
    {
        PreferPrevious = 0,
        PreferNext = 1
    };

    /// The answer of every index lookup that finds nothing.
    static unsigned const invalidNdx = 0xFFFFFFFFu;

    explicit KRC_KrolleProject(SC_Project* project);
    ~KRC_KrolleProject() override;
    KRC_KrolleProject(KRC_KrolleProject const&) = delete;
    KRC_KrolleProject& operator=(KRC_KrolleProject const&) = delete;

    // The engine project and what hangs on it.
    SC_Project* project() const;
    SC_ProjectCommon* projectCommon() const;
    TUSceneChangeManager* changeManager() const;
    TUScene* topScene() const;
    TUSeqTimedValue* topSceneTv() const;
    /// The first direct child of the top scene's root group that is an element.
    MO_ElementModule* topSceneElemModule() const;
    /// The project's name, from the scene context.
    QString name() const;
    /// The project's reference tool record, made with the view; null without a project.
    KRC_ReferenceToolData* referenceToolData() const;
    /// The project's naming rules record, looked up at each call and added to the
    /// project's records when missing; null without a project.
    KRC_NamingRules* namingRules() const;
    /// The view's name helper, which every shot and panel of the view carries.
    KRC_NameHelper* nameHelper() const;
    /// The view's drawing observer: which panel a modified drawing belongs to.
    KRC_DrawingObserver* drawingObserver() const;
    /// The view's layer manager: which layers each panel has.
    KRC_PanelLayerManager* layerManager() const;
    /// The view's tracking manager: which panels changed. The host calls its `init()`.
    KRC_TrackingManager* trackingManager() const;

    // Caches.
    /// Drops every cache now.
    void invalidate();
    /// Turns the caches on or off; a real change drops them. Disabled, every lookup
    /// asks the engine and builds fresh handles.
    void setCacheEnabled(bool on);
    bool cacheEnabled() const;
    /// Kept for hosts that call it; checks nothing and prints nothing.
    void validateAndDump() const;

    // Lookups by frame. Frames are project frames counted from 1.
    Krolle::Shot_t getShotAt(unsigned frame, ResolutionPriority priority) const;
    Krolle::Panel_t getPanelAt(unsigned frame, ResolutionPriority priority) const;
    /// The panel at a frame counted from 1 inside the shot. A shot whose symbol is
    /// missing or shows nothing at that frame is reported to the user.
    Krolle::Panel_t getPanelIn(Krolle::Shot_t const& shot, unsigned frame) const;
    /// The transition covering a frame; frames under a single block have none.
    Krolle::Trans_t getTransAt(unsigned frame) const;
    /// The transition at a frame if there is one, otherwise the panel (previous side).
    Krolle::PanelTrans_t getPanelTransAt(unsigned frame) const;

    // Records of the project, each found by its name in the project's records and
    // added there on the first read.
    PIO_MetadataString* titleMeta() const;
    PIO_MetadataString* subTitleMeta() const;
    PIO_MetadataString* episodeMeta() const;
    PIO_MetadataString* copyrightMeta() const;
    PIO_MetadataInt* startTimeMeta() const;
    PIO_MetadataDouble* filmWidthMeta() const;
    PIO_MetadataBool* sequenceExistsMeta() const;
    /// The values; empty texts and 0 while a record holds none.
    QString title() const;
    QString subTitle() const;
    QString episode() const;
    QString copyright() const;
    int startTime() const;
    /// The film width in inches. The first read of a project without one fixes the
    /// preference "KR_CAMERA_FILM_WIDTH" (36 mm without preferences) into the project.
    double filmWidth() const;
    /// Whether the storyboard groups its shots in sequences; without it there are none.
    bool sequenceExists() const;

    /// The act or sequence name stored on the shot at a frame, custom or not; a null
    /// string where there is no shot.
    QString getActNameAt(unsigned frame, ResolutionPriority priority) const;
    QString getSequenceNameAt(unsigned frame, ResolutionPriority priority) const;

    /// Turns the caches on for its lifetime, then puts back the state it found.
    class CacheActivator
    {
    public:
        explicit CacheActivator(KRC_KrolleProject* project);
        ~CacheActivator();
        CacheActivator(CacheActivator const&) = delete;
        CacheActivator& operator=(CacheActivator const&) = delete;

    private:
        KRC_KrolleProject* m_project;
        bool m_wasEnabled;
    };

    /// Turns the caches off for its lifetime, then puts back the state it found.
    class CacheDesactivator
    {
    public:
        explicit CacheDesactivator(KRC_KrolleProject* project);
        ~CacheDesactivator();
        CacheDesactivator(CacheDesactivator const&) = delete;
        CacheDesactivator& operator=(CacheDesactivator const&) = delete;

    private:
        KRC_KrolleProject* m_project;
        bool m_wasEnabled;
    };

    /// Holds the view's lock for its lifetime, for a host that shares the view between
    /// threads. Not recursive: a second LockHelper on the same thread blocks for ever.
    /// The library itself neither takes nor tests it.
    class LockHelper
    {
    public:
        explicit LockHelper(KRC_KrolleProject* project);
        ~LockHelper();
        LockHelper(LockHelper const&) = delete;
        LockHelper& operator=(LockHelper const&) = delete;

        /// True exactly while a LockHelper holds the view's lock.
        static bool isLocked(KRC_KrolleProject* project);

    private:
        KRC_KrolleProject* m_project;
    };

    // Navigation. Each step asks the timeline: there is no table of shots. Acts and
    // sequences are runs of neighbouring shots with equal act (sequence) names; there
    // are no sequences while sequenceExists() is false. An invalid argument comes back
    // as it is from next and prev; nothing to go to gives the invalid handle.
    Krolle::Shot_t next(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t prev(Krolle::Shot_t const& shot) const;
    /// The project's first and last shot; the argument only picks the kind.
    Krolle::Shot_t first(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t last(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t firstInAct(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t lastInAct(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t firstInSequence(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t lastInSequence(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t firstInPrevSequence(Krolle::Shot_t const& shot) const;
    Krolle::Shot_t firstInNextSequence(Krolle::Shot_t const& shot) const;

    /// Panels step within their shot, then on to the first (last) panel of the next
    /// (previous) shot.
    Krolle::Panel_t next(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t prev(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t first(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t last(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t firstInAct(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t lastInAct(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t firstInSequence(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t lastInSequence(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t firstInPrevSequence(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t firstInNextSequence(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t firstInShot(Krolle::Panel_t const& panel) const;
    Krolle::Panel_t lastInShot(Krolle::Panel_t const& panel) const;

    Krolle::Trans_t next(Krolle::Trans_t const& trans) const;
    Krolle::Trans_t prev(Krolle::Trans_t const& trans) const;
    Krolle::Trans_t first(Krolle::Trans_t const& trans) const;
    Krolle::Trans_t last(Krolle::Trans_t const& trans) const;

    /// Whether a transition joins the end (start) of the panel's shot to the next
    /// (previous) block, for the shot's last (first) panel only; the transition goes to
    /// `trans` when given, which is set to the invalid transition first. The shot forms
    /// ask about the shot's last (first) panel.
    bool isFollowedByTrans(Krolle::Panel_t const& panel, Krolle::Trans_t* trans = nullptr) const;
    bool isPrecededByTrans(Krolle::Panel_t const& panel, Krolle::Trans_t* trans = nullptr) const;
    bool isFollowedByTrans(Krolle::Shot_t const& shot, Krolle::Trans_t* trans = nullptr) const;
    bool isPrecededByTrans(Krolle::Shot_t const& shot, Krolle::Trans_t* trans = nullptr) const;

    /// Whether the neighbour after (`forward`) or before the object is in the same run.
    bool hasMoreKRSceneInCurKRSequence(Krolle::Shot_t const& shot, bool forward) const;
    bool hasMoreKRSceneInCurKRAct(Krolle::Shot_t const& shot, bool forward) const;
    bool hasMoreKRPanelInCurKRSequence(Krolle::Panel_t const& panel, bool forward) const;
    bool hasMoreKRPanelInCurKRAct(Krolle::Panel_t const& panel, bool forward) const;
    /// The length of the object's run, itself included; 0 for sequences while there are
    /// none.
    unsigned numOfKRScenesInCurKRSequence(Krolle::Shot_t const& shot) const;
    unsigned numOfKRScenesInCurKRAct(Krolle::Shot_t const& shot) const;
    unsigned numOfKRPanelsInCurKRSequence(Krolle::Panel_t const& panel) const;
    unsigned numOfKRPanelsInCurKRAct(Krolle::Panel_t const& panel) const;

    // Iterators
    // Walkers in frame order. An end iterator stands on the invalid handle, except
    // endPanel(shot), which stands on the panel after the shot's last one.
    Krolle::objiterator<Krolle::Shot_t> beginShot() const;
    Krolle::objiterator<Krolle::Shot_t> endShot() const;
    Krolle::reverse_objiterator<Krolle::Shot_t> rbeginShot() const;
    Krolle::reverse_objiterator<Krolle::Shot_t> rendShot() const;
    Krolle::objiterator<Krolle::Panel_t> beginPanel() const;
    Krolle::objiterator<Krolle::Panel_t> endPanel() const;
    Krolle::reverse_objiterator<Krolle::Panel_t> rbeginPanel() const;
    Krolle::reverse_objiterator<Krolle::Panel_t> rendPanel() const;
    /// The panels of one shot: from its first panel up to, not including, `next` of its
    /// last panel.
    Krolle::objiterator<Krolle::Panel_t> beginPanel(Krolle::Shot_t const& shot) const;
    Krolle::objiterator<Krolle::Panel_t> endPanel(Krolle::Shot_t const& shot) const;
    Krolle::reverse_objiterator<Krolle::Panel_t> rbeginPanel(Krolle::Shot_t const& shot) const;
    Krolle::reverse_objiterator<Krolle::Panel_t> rendPanel(Krolle::Shot_t const& shot) const;
    Krolle::objiterator<Krolle::Trans_t> beginTrans() const;
    Krolle::objiterator<Krolle::Trans_t> endTrans() const;
    Krolle::reverse_objiterator<Krolle::Trans_t> rbeginTrans() const;
    Krolle::reverse_objiterator<Krolle::Trans_t> rendTrans() const;
    Krolle::objTransIterator<Krolle::Shot_t> beginShotTrans() const;
    Krolle::objTransIterator<Krolle::Shot_t> endShotTrans() const;
    Krolle::objTransIterator<Krolle::Panel_t> beginPanelTrans() const;
    Krolle::objTransIterator<Krolle::Panel_t> endPanelTrans() const;
    Krolle::reverse_objTransIterator<Krolle::Panel_t> rbeginPanelTrans() const;
    Krolle::reverse_objTransIterator<Krolle::Panel_t> rendPanelTrans() const;
    /// A mixed iterator on the transition at a frame (on the panel that ends with it,
    /// else the one that starts with it), otherwise on the panel at the frame.
    Krolle::objTransIterator<Krolle::Panel_t> panelTransAt(unsigned frame) const;

    // Walks, counts, indices and reverse lookups
    // All answer by walking with the iterators; nothing keeps an index. Not found gives
    // the invalid handle, invalidNdx or an empty list.
    /// Totals, kept until the caches go (and recounted at every call while the cache
    /// is disabled).
    unsigned shotCount() const;
    unsigned panelCount() const;
    unsigned transCount() const;
    /// The panels that lie wholly within the shot's time warp; never cached.
    unsigned panelCount(Krolle::Shot_t const& shot) const;
    /// The object at a 0-based place in frame order; linear in the index.
    Krolle::Shot_t getShotByNdx(unsigned ndx) const;
    Krolle::Panel_t getPanelByNdx(unsigned ndx) const;
    Krolle::Trans_t getTransByNdx(unsigned ndx) const;
    /// A cached object by a hash lookup, otherwise by a walk that fills the cache.
    Krolle::Shot_t getShotByID(SC_Id const& id) const;
    Krolle::Panel_t getPanelByID(SC_Id const& id) const;
    Krolle::Trans_t getTransByID(SC_Id const& id) const;
    /// The transition with that id, otherwise the panel.
    Krolle::PanelTrans_t getPanelTransById(SC_Id const& id) const;
    /// Whether an id kept across a change still names an object.
    bool isShotValid(SC_Id const& id) const;
    bool isPanelValid(SC_Id const& id) const;
    bool isTransValid(SC_Id const& id) const;
    /// The first shot with that name in that sequence (any sequence when empty). With
    /// `upperCase` the shot's names are also compared in upper case with the arguments.
    Krolle::Shot_t getShotByName(QString const& name, QString const& sequenceName, bool upperCase) const;
    /// The last frame of the last shot; 0 without shots.
    unsigned getNumOfFrames() const;
    /// The first and last shot of the first run with that sequence name.
    Krolle::Shot_t firstInSequence(QString const& name, bool upperCase) const;
    Krolle::Shot_t lastInSequence(QString const& name, bool upperCase) const;
    /// Ids of the panels from `a` to `b` in order, both ends with `inclusive`, neither
    /// without. `a` must not lie after `b`.
    std::vector<SC_Id> panelsIdBetween(
        Krolle::Panel_t const& a, Krolle::Panel_t const& b, bool inclusive) const;
    std::vector<SC_Id> panelsIdIn(Krolle::Shot_t const& shot) const;
    /// Ids of all shots with that sequence name, in every run of it.
    std::vector<SC_Id> shotsIdInSequence(QString const& name) const;
    /// Runs of neighbouring shots with equal act (sequence) names; kept like the totals.
    unsigned actCount() const;
    unsigned sequenceCount() const;
    bool sequenceNameExists(QString const& name) const;
    /// The index of the act: the first shot (panel) of an act answers with the index of
    /// the act before it. By name: 0 when any shot has that act name.
    unsigned getActNdx(Krolle::Shot_t const& shot) const;
    unsigned getActNdx(Krolle::Panel_t const& panel) const;
    unsigned getActNdx(QString const& name) const;
    /// The index of the sequence run of the shot or panel, or of the first run with that
    /// name.
    unsigned getSequenceNdx(Krolle::Shot_t const& shot) const;
    unsigned getSequenceNdx(Krolle::Panel_t const& panel) const;
    unsigned getSequenceNdx(QString const& name) const;
    unsigned getShotNdx(Krolle::Shot_t const& shot) const;
    /// The index of the first shot with that name.
    unsigned getShotNdx(QString const& name) const;
    /// The place among all panels, or with `inShot` among the panels of its shot.
    unsigned getPanelNdx(Krolle::Panel_t const& panel, bool inShot) const;
    /// Engine objects back to handles, through tables filled on first use and dropped
    /// with the caches (also kept while the cache is disabled).
    Krolle::Shot_t sceneCommonToShot(SC_SceneCommon const* sceneCommon) const;
    Krolle::Panel_t sceneCommonToPanel(SC_SceneCommon const* sceneCommon) const;
    Krolle::Shot_t tvToShot(TUTimedValue const* tv) const;
    Krolle::Panel_t tvToPanel(TUTimedValue const* tv) const;
    Krolle::Panel_t nodeToPanel(MO_Node const* node) const;
    /// Whether every id names a panel of the first id's shot. The list must not be empty.
    bool areAllPanelsOfSameScene(std::vector<SC_Id>& panelIds) const;
    /// Whether the run of panels from `first` to `last` has a neighbour, before `first`
    /// or after `last`, in the shot of that end.
    bool neighborIsOfSameScene(SC_Id first, SC_Id last) const;
    /// A mixed iterator on the transition or panel with that id.
    Krolle::objTransIterator<Krolle::Panel_t> panelTransById(SC_Id const& id) const;

    // Info fields (KRC_KrolleProjectInfoFields.cpp)
    // The one door through which fields change. A project field (`panel` false) has its
    // definition in infoFieldDescList() and its value in the project's infoFieldList();
    // a panel field (`panel` true) has its definition in panelInfoFieldDescList() and a
    // value in the list of every panel, made on demand. Ids as in InfoFieldIds.h:
    // `INT_MAX` the end or "none", `INT_MIN` the first. Where a `report` argument is
    // given, the records that change report to changeManager() with the codes 3 (added,
    // or a name shown), 4 (ids remapped), 5 (renamed), 6 (removed, or a name hidden), 7
    // (moved); the forms without it always report. Every record is made on its first
    // read; each accessor is null without a project.
    using InfoFieldType = KRC_InfoFieldDesc::Type;
    using InfoFieldSize = KRC_InfoFieldDesc::Size;
    KRC_ProjectInfoFieldDescList* infoFieldDescList() const;
    KRC_PanelInfoFieldDescList* panelInfoFieldDescList() const;
    KRC_ExtraInfoFieldDescList* panelExtraInfoFieldDescList() const;
    KRC_InfoFieldList* infoFieldList() const;
    KRC_InfoFieldDescList_t::iterator beginProjectInfoFieldDesc();
    KRC_InfoFieldDescList_t::iterator endProjectInfoFieldDesc();
    KRC_InfoFieldDescList_t::iterator beginPanelInfoFieldDesc();
    KRC_InfoFieldDescList_t::iterator endPanelInfoFieldDesc();
    KRC_ExtraInfoFieldDescList_t::iterator beginPanelExtraInfoFields();
    KRC_ExtraInfoFieldDescList_t::iterator endPanelExtraInfoFields();
    /// Defines a field in front of `beforeId` (a new id for `INT_MAX`; an existing id is
    /// replaced, without a removal report) and gives each owner a value: the entries of
    /// `values` in turn, each at the place its `nextId` names (what removeInfoField
    /// handed out, panel by panel in walk order), then empty values. Answers the id.
    int insertInfoField(bool panel, InfoFieldType type, QString const& name, int id, InfoFieldSize size,
        KRC_InfoFieldList const& values, int beforeId, bool report);
    int insertInfoField(
        bool panel, InfoFieldType type, QString const& name, int id, InfoFieldSize size, int beforeId, bool report);
    int insertInfoField(bool panel, InfoFieldType type, QString const& name, int id, int beforeId, bool report);
    int insertInfoField(
        bool panel, KRC_InfoFieldDesc const& desc, KRC_InfoFieldList const& values, int beforeId, bool report);
    int insertInfoField(bool panel, KRC_InfoFieldDesc const& desc, int beforeId, bool report);
    /// A text comment named "Comments" for all panels.
    int insertPitchModeInfoField(int id, int beforeId, bool report);
    /// The first panel definition with the comment bit, else the first named
    /// "Comments", else `INT_MAX`.
    int getPitchModeField() const;
    /// Takes the definition out (into `desc`) and every owner's value (appended to
    /// `values`, one entry per owner, null where an owner had none). Answers the id that
    /// followed the definition (`INT_MAX` when last), or `id` itself when unknown.
    int removeInfoField(
        bool panel, int id, KRC_InfoFieldDesc& desc, KRC_InfoFieldList& values, bool report);
    bool removeInfoField(bool panel, std::set<int> const& ids);
    /// Moves the definition and every value; answers the definition list's `move`.
    int moveInfoField(bool panel, int id, int beforeId, bool report);
    bool remapInfoField(bool panel, std::map<int, int> const& ids);
    /// Renames the definition only; answers the id, or `INT_MAX` when unknown.
    int renameInfoField(bool panel, int id, QString const& name, QString& oldName, bool report);
    int renameInfoField(bool panel, int id, QString const& name, bool report);
    /// Empties the definitions (always reporting 6); values stay on their owners.
    void clearInfoFields(bool panel);
    void clearPanelExtraInfoFields();
    void insertExtraInfoField(KRC_ExtraInfoFieldDesc const& desc);
    void insertExtraInfoField(InfoFieldType type, QString const& name, int position);
    /// The id of the first definition with that name, else of the first value of
    /// `local` with it, else `INT_MAX`.
    int getFieldByName(bool panel, QString const& name, KRC_InfoFieldList const* local = nullptr) const;
    /// The definition, else for a negative id a description of the local value of
    /// `local` (one static object, overwritten by the next such answer), else null.
    KRC_InfoFieldDesc* getInfoFieldDesc(bool panel, int id, KRC_InfoFieldList const* local = nullptr) const;
    void getInfoFieldIds(bool panel, std::set<int>& ids) const;
    /// `base` when free among the definitions (and `local`'s names), else "base 2",
    /// "base 3", ...
    QString getUniqInfoFieldName(QString const& base, bool panel, KRC_InfoFieldList const* local = nullptr) const;
    /// The same from "Sketch" for kind 2 exactly, from "Untitled" otherwise.
    QString getUniqInfoFieldName(InfoFieldType type, bool panel, KRC_InfoFieldList const* local = nullptr) const;
    /// Hides or shows a name, for definitions and extra definitions alike; reports 3
    /// (shown) or 6 (hidden) only on a real change.
    void setInfoFieldVisible(QString const& name, bool visible);
    bool isInfoFieldVisible(QString const& name) const;
    /// Replaces the hidden names; on a real change reports 3, then 6.
    void setHiddenInfoFields(std::set<QString> const& names);
    /// Pointers into the lists, in order, to the entries whose name is not hidden;
    /// good until the list changes.
    std::list<KRC_InfoFieldDesc*> visiblePanelInfoFieldDescList() const;
    std::list<KRC_ExtraInfoFieldDesc*> visibleExtraPanelInfoFieldDescList() const;
    quint64 getNumPanelInfoFields() const;
    quint64 getNumProjectPanelInfoFields() const;

protected:
    /// Walks all panels, then all transitions, filling the caches on the way.
    void buildAll() const;
    /// The first transition from `block` on, itself included, walking back with
    /// `backwards`; the invalid transition at the end of the list or for a null block.
    Krolle::Trans_t following_transition(
        bool backwards, AT_FrameBlock const* block, TUSeqTimedValue* tv) const;
    /// The names of the hidden info fields, made on the first read.
    KRC_HiddenInfoFieldList* getHiddenInfofields() const;

protected slots:
    void onSceneChanged();
    void onTimedValuesChanged(const TUTvSet& values);

private:
    // Info fields: the definitions of project (`panel` false) or panel fields, and the
    // report of one record's change when `report` asks for it.
    KRC_InfoFieldDescList* descListOf(bool panel) const;
    void reportInfoFieldChange(PIO_Metadata* record, int code, bool report) const;

    Krolle::Shot_t shotOfBlock(AT_FrameBlock const* block) const;
    // The frame lookups as the engine answers them, beside the timeline index.
    Krolle::Shot_t shotAtByEngine(unsigned frame, ResolutionPriority priority) const;
    Krolle::Panel_t panelAtByEngine(unsigned frame, ResolutionPriority priority) const;
    // The panel slot of a frame in a span of the index, its panels cut on first use.
    Krolle::IndexedPanel* indexedPanel(std::size_t span, unsigned frame) const;
    // The shot's symbol sequence when the index can cut it, else null.
    TUSeqTimedValue const* symbolSequenceIndexed(Krolle::Shot_t const& shot) const;
    Krolle::Panel_t makePanel(Krolle::Shot_t const& shot, Krolle::ObjectCache<Krolle::Panel_t>& cache,
        AT_FrameBlock const* block, TUScene* scene) const;
    void reportPanelNotFound(Krolle::Shot_t const& shot, unsigned frame) const;
    Krolle::Shot_t neighbourShot(Krolle::Shot_t const& shot, bool forward) const;
    // The shot of the first scene block from `block` on (back), `block` included.
    Krolle::Shot_t shotFromBlock(AT_FrameBlock const* block, bool forward) const;
    Krolle::Trans_t transOfBlock(AT_FrameBlock const* block) const;
    Krolle::Panel_t firstPanelOf(Krolle::Shot_t const& shot) const;
    Krolle::Panel_t lastPanelOf(Krolle::Shot_t const& shot) const;
    // The panel of the first block from `block` (or `beyond` it) on, or back, that the shot shows.
    Krolle::Panel_t panelFrom(
        Krolle::Shot_t const& shot, AT_FrameBlock const* block, bool forward, bool beyond) const;
    // The first or last panel the shot shows.
    Krolle::Panel_t endPanelOf(Krolle::Shot_t const& shot, bool last) const;
    // The first (last) panel of the first shot from `shot` on (back) that has one.
    Krolle::Panel_t panelOfShots(Krolle::Shot_t shot, bool forward) const;
    /// The panel beside a transition of the shot's end (`atEnd`) or start, if any.
    bool isBesideTrans(Krolle::Panel_t const& panel, bool atEnd, Krolle::Trans_t* trans) const;
    /// A mixed iterator standing on the transition, next to its panel.
    Krolle::objTransIterator<Krolle::Panel_t> panelTransOn(Krolle::Trans_t const& trans) const;

    KRC_KrolleProjectPrivate* d;
};
