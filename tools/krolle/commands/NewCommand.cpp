#include "NewCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "ProjectSummary.h"
#include "StoryboardPlan.h"


namespace {

const unsigned kMostShots = 100000;
const unsigned kMostPanelsPerShot = 1000;
const unsigned kMostPanels = 2000000;
const unsigned kMostLayersPerPanel = 100;

GeneratorSettings readSettings(const ArgumentValues& arguments)
{
    GeneratorSettings settings;
    settings.shots = arguments.number(QStringLiteral("--shots"), settings.shots, 1, kMostShots);
    settings.panelsPerShot = arguments.number(
        QStringLiteral("--panels-per-shot"), settings.panelsPerShot, 1, kMostPanelsPerShot);
    settings.transitionEvery
        = arguments.number(QStringLiteral("--transition-every"), settings.transitionEvery, 0, settings.shots);
    settings.sequences
        = arguments.number(QStringLiteral("--sequences"), settings.sequences, 0, settings.shots);
    // Acts hold whole sequences: no more acts than sequences.
    settings.acts = arguments.number(
        QStringLiteral("--acts"), settings.acts, 0, settings.sequences > 0 ? settings.sequences : settings.shots);
    settings.seed = arguments.number(QStringLiteral("--seed"), settings.seed, 0, 0xFFFFFFFFu);
    settings.layersPerPanel
        = arguments.number(QStringLiteral("--layers"), settings.layersPerPanel, 0, kMostLayersPerPanel);
    if (static_cast<unsigned long long>(settings.shots) * settings.panelsPerShot > kMostPanels)
        throw ToolError::usage(
            QStringLiteral("--shots times --panels-per-shot must stay within %1 panels").arg(kMostPanels));
    return settings;
}

} // namespace

NewCommand::NewCommand()
    : Command(QStringLiteral("new"), QStringLiteral("generate a storyboard project of any size"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to write (- for standard output)"));
    parser.addOption(QStringLiteral("--shots"), QStringLiteral("N"), QStringLiteral("number of shots (10)"));
    parser.addOption(
        QStringLiteral("--panels-per-shot"), QStringLiteral("M"), QStringLiteral("panels in each shot (4)"));
    parser.addOption(QStringLiteral("--transition-every"), QStringLiteral("K"),
        QStringLiteral("a transition after every K-th shot (0: none)"));
    parser.addOption(QStringLiteral("--acts"), QStringLiteral("A"),
        QStringLiteral("acts, named \"Act 1\"..., each of whole sequences (1; 0: no acts; at most S)"));
    parser.addOption(QStringLiteral("--sequences"), QStringLiteral("S"),
        QStringLiteral("sequences, named SQ010, SQ020... (1; 0: no sequences)"));
    parser.addOption(QStringLiteral("--seed"), QStringLiteral("X"),
        QStringLiteral("seed of the panel and transition lengths (1)"));
    parser.addOption(QStringLiteral("--layers"), QStringLiteral("N"),
        QStringLiteral("layers drawn into each panel (0): background, drawings, pegs, 3D models"));
    parser.addFlag(QStringLiteral("--force"), QStringLiteral("overwrite FILE if it exists"));
    parser.setEpilogue(QStringLiteral(
        "Panels last 6 to 36 frames, transitions up to 12; the same options always give the same project.\n"
        "Shots and panels get automatic names; acts and sequences custom ones.\n"
        "\n"
        "example: krolle new big.xml --shots 2000 --panels-per-shot 10 --transition-every 10 --acts 3 "
        "--sequences 40"));
}

ExitStatus NewCommand::run(const ArgumentValues& arguments)
{
    const QString path = arguments.positional(QStringLiteral("FILE"));
    const GeneratorSettings settings = readSettings(arguments);
    refuseToOverwrite(path, arguments);
    ProjectDocument document;
    StoryboardPlan::generated(settings).build(document);
    document.save(path);
    reportWritten(path, QStringLiteral("wrote %1: %2\n").arg(path, ProjectSummary(document.view()).text()));
    return ExitStatus::Success;
}
