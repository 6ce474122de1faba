// Turns the engine's "this drawing was modified" into "this panel was modified".
#pragma once

#include "host/Host.h"

#include <QObject>

#include <memory>

class KRC_KrolleProject;
class KRC_DrawingObserverPrivate;

Q_DECLARE_METATYPE(SC_Id)

namespace Krolle {
class Panel_t;
} // namespace Krolle

/// Listens to the engine's cel cache and re-emits each modified drawing as the panel
/// (by id) and the node that show it: `drawingModified(panelId, node)`, the node null
/// when the drawing is no element's.
///
/// The first report of a key searches the panels in timeline order, and the first
/// panel that exposes the drawing wins; the answer is remembered in `knownDrawings`,
/// so every later report of that key is one map lookup and is passed on as it was
/// found, even after the panel or node is gone (receivers look the id up and find
/// nothing). Keys that no panel shows are not remembered and are searched again.
/// Invalid keys are dropped.
///
/// Owned by the project view, which makes it first of its managers, since the layer
/// manager and the tracking manager connect to it. Threading: the host's thread; the
/// cel cache's signal is taken directly.
class KRC_DrawingObserver : public QObject
{
    Q_OBJECT

public:
    explicit KRC_DrawingObserver(KRC_KrolleProject* project);
    ~KRC_DrawingObserver() override;
    KRC_DrawingObserver(KRC_DrawingObserver const&) = delete;
    KRC_DrawingObserver& operator=(KRC_DrawingObserver const&) = delete;

    /// How many keys are resolved so far.
    std::size_t knownDrawingCount() const;

signals:
    void drawingModified(SC_Id const& panelId, MO_Node const* node);

protected slots:
    /// `isFirstModif` is not looked at: every modification is treated alike.
    void onDrawingModified(CA_CelKey const& celkey, bool isFirstModif);

private:
    /// Searches the panels for the drawing; true with the panel's id and node when found.
    bool findDrawing(CA_CelKey const& celkey, SC_Id& panelId, MO_Node*& node) const;

    std::unique_ptr<KRC_DrawingObserverPrivate> const d;
};
