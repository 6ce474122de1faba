// The storyboards the tool generates: their timeline and the names given to them.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"
#include "host/engine/SC_Project.h"
#include "PanelLayerPlan.h"

#include <QString>
#include <QStringList>
#include <QVector>

class ProjectDocument;

// The size and shape of a generated storyboard (krolle new).
struct GeneratorSettings
{
    unsigned shots = 10;
    unsigned panelsPerShot = 4;
    unsigned transitionEvery = 0; // a transition after every K-th shot; 0 for none
    unsigned acts = 1; // 0 leaves the shots without act names
    unsigned sequences = 1; // 0 makes a project without sequences
    unsigned seed = 1;
    unsigned layersPerPanel = 0; // layers drawn into each panel; 0 leaves panels empty
};

// A storyboard to build: the timeline in the engine's compact description, and
// for each shot its act, sequence and custom names (a null name stays
// automatic, so the library computes it from the shot's or panel's place).
// build() makes the engine project through the engine's builder and then
// writes the names into the shots' and panels' info records through the
// library's handles, with a progress bar for large plans. Plans are values;
// the same settings always give the same plan.
class StoryboardPlan
{
public:
    struct Shot
    {
        QString act;
        QString sequence;
        QString name;
        QStringList panelNames; // by position in the shot; missing or null entries stay automatic
        // Keys of the camera embedded in the shot's scene: a translation at a frame of the shot.
        struct CameraKey
        {
            double frame;
            double x, y, z;
        };
        QVector<CameraKey> cameraKeys;
    };

    // A storyboard of any size for trying a host at scale; panel lengths and
    // transitions vary with the seed.
    static StoryboardPlan generated(const GeneratorSettings& settings);
    // The bundled sample: several acts and sequences, custom and automatic
    // names, shots cut by their time warps, transitions.
    static StoryboardPlan demo();
    // A storyboard described elsewhere (an imported cut): the engine's compact
    // timeline, the names of its shots in order, naming rules to set, and the ids
    // its objects had (see HostStoryboardBuilder::build).
    static StoryboardPlan custom(const QString& timeline, const QVector<Shot>& shots, unsigned panelCount,
        bool sequences, const QStringList& ruleSettings, const HostStoryboard& ids);

    const QString& timeline() const { return m_timeline; }
    const QVector<Shot>& shots() const { return m_shots; }
    unsigned panelCount() const { return m_panelCount; }

    // Builds the project into the document (which must be empty), then names it.
    void build(ProjectDocument& document) const;

private:
    void buildTimeline(ProjectDocument& document) const;
    void applyNames(ProjectDocument& document) const;
    // Sets the shots' embedded camera keys, where the plan has them.
    void applyCameras(ProjectDocument& document) const;

    QString m_timeline;
    QVector<Shot> m_shots;
    unsigned m_panelCount = 0;
    bool m_sequences = true;
    QStringList m_ruleSettings; // naming rules to set, in the form of "krolle rules --set"
    HostStoryboard m_ids; // ids to restore, where the plan has them
    PanelLayerPlan m_layers = PanelLayerPlan::none();
    double m_cameraDistance = 0.0; // the project's default camera stands this far back along z
};
