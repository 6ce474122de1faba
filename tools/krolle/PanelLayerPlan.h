// The layers the tool draws into the panels of the storyboards it builds.
#pragma once

class ProjectDocument;
class TUGroup;

// What goes into each panel's scene: nothing, the demo's layers, or N generated
// layers. The demo's panels all have a bitmap background and a characters peg with a
// drawing under it; some have a camera peg, a 3D set, a locked notes layer, a disabled
// rough with half opacity or a group holding an effect drawing. Generated panels
// cycle background (bitmap), two drawings (Kvg), a peg and a 3D model. build() makes
// them through the engine's node authoring, one drawing per element exposed over the
// whole panel, then notifies, so the view's layer manager records every layer.
class PanelLayerPlan
{
public:
    static PanelLayerPlan none() { return PanelLayerPlan(Recipe::None, 0); }
    static PanelLayerPlan demo() { return PanelLayerPlan(Recipe::Demo, 0); }
    static PanelLayerPlan generated(unsigned layersPerPanel)
    {
        return PanelLayerPlan(Recipe::Generated, layersPerPanel);
    }

    // `panelCount` sizes the progress bar.
    void build(ProjectDocument& document, unsigned panelCount) const;

private:
    enum class Recipe
    {
        None,
        Demo,
        Generated
    };

    PanelLayerPlan(Recipe recipe, unsigned count)
        : m_recipe(recipe)
        , m_count(count)
    {
    }

    // The layers of the panel numbered `panel` (from 1), `length` frames long.
    void addDemoLayers(TUGroup* root, unsigned panel, int length) const;
    void addGeneratedLayers(TUGroup* root, unsigned panel, int length) const;

    Recipe m_recipe;
    unsigned m_count;
};
