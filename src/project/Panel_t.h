// Value handle on a panel of the storyboard.
#pragma once

#include "project/PanelPrivate.h"
#include "project/SharedPtr.h"
#include "project/Shot_t.h"

namespace Krolle {

/// A panel: a block of its shot's symbol sequence, showing the panel's own scene.
/// The handle carries its shot, which does the frame arithmetic between the
/// symbol's frames and project frames.
///
/// Copies share one private object; an absent panel is `Panel_t::invalid`. Good
/// between two changes of the timeline, like every handle; keep the id across
/// changes. Threading: the host's thread.
class Panel_t : public SharedPtr<PanelPrivate>
{
public:
    static Panel_t const invalid;

    Panel_t() = default;
    Panel_t(AT_FrameBlock const* block, TUScene* symbol, Shot_t const& shot, ObjectNameHelper const* helper);
    virtual ~Panel_t();
    Panel_t(Panel_t const&) = default;
    Panel_t& operator=(Panel_t const&) = default;

    SC_Id const& id() const;
    AT_FrameBlock* frameBlock() const;
    /// The panel's scene, null once it is gone.
    TUScene* symbol() const;
    /// The id of the panel's scene; for valid panels (the default id without a block).
    SC_Id const& sceneId() const;
    Shot_t const& shot() const;

    /// The panel's record on its own scene, made with the panel's first handle; null
    /// without a scene.
    KRC_PanelInfo* panelInfo() const;
    /// The values of the panel's info fields, made on the first read; null without a
    /// scene.
    KRC_InfoFieldList* infoFieldList() const;
    /// Whether the panel is tracked, made with the panel's first handle; null without a
    /// scene.
    KRC_Tracking* tracking() const;
    /// The flags kept per layer of the panel, made with the panel's first handle; null
    /// without a scene.
    KRC_LayerInfos* layerInfos() const;
    /// The panel's exposure points, made with the panel's first handle; null without a
    /// scene.
    KRC_ExposurePoints* exposurePoints() const;
    /// The panel's sound annotations, made with the panel's first handle; null without a
    /// scene.
    KRC_SoundAnnotation* soundAnnotation() const;
    /// The panel's PDF export options, made with the panel's first handle; null without
    /// a scene.
    KRC_PdfOptions* pdfOptions() const;
    /// The record's custom name, else the name helper's automatic one (null without a
    /// helper).
    QString name() const;
    /// The names of the shot, its sequence and its act, as the shot answers them.
    QString shotName() const;
    QString sequenceName() const;
    QString actName() const;

    /// The panel's ends in project frames, through the shot's warp; 0 without a block.
    unsigned firstFrame() const;
    unsigned lastFrame() const;
    /// The ends counted from 1 inside the shot.
    unsigned relativeFirstFrame() const;
    unsigned relativeLastFrame() const;
    bool isFirstOfShot() const;
    bool isLastOfShot() const;
    /// Whether the shot holds another panel after (`forward`) or before this one.
    bool hasMoreKRPanelInCurKRScene(bool forward) const;
    unsigned objNumOfFrame() const;

    double projectFrameToPanelFrame(unsigned frame) const;
    unsigned panelFrameToProjectFrame(double frame) const;
    double shotFrameToPanelFrame(double frame) const;
    double panelFrameToShotFrame(double frame) const;

    /// Equal when ids, blocks and shots (by the shot's rule) are equal; ordered by id.
    bool operator==(Panel_t const& other) const;
    bool operator!=(Panel_t const& other) const { return !(*this == other); }
    bool operator<(Panel_t const& other) const;
    bool operator>(Panel_t const& other) const { return other < *this; }

private:
    ShotPrivate const* shotPrivate() const;
};

} // namespace Krolle
