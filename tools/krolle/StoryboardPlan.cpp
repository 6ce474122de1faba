#include "StoryboardPlan.h"

#include "NameWriter.h"
#include "NamingRulesEditor.h"
#include "ProgressBar.h"
#include "ProjectDocument.h"
#include "ToolError.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "project/KRC_KrolleProject.h"

#include <random>

namespace {

const unsigned kShortestPanel = 6;
const unsigned kPanelLengthSpread = 31;
const unsigned kLongestTransition = 12;

// The engine's compact form of one shot: "S[a,b,c]", with an optional warp suffix.
QString shotToken(const QVector<unsigned>& lengths, const QString& warp = QString())
{
    QStringList numbers;
    for (unsigned length : lengths)
        numbers << QString::number(length);
    return QStringLiteral("S[%1]%2").arg(numbers.join(QLatin1Char(',')), warp);
}

unsigned total(const QVector<unsigned>& lengths)
{
    unsigned sum = 0;
    for (unsigned length : lengths)
        sum += length;
    return sum;
}

// Names of the n-th of count groups over the shots: which group shot i falls in.
unsigned groupOf(unsigned shot, unsigned shots, unsigned groups)
{
    return static_cast<unsigned>(static_cast<unsigned long long>(shot) * groups / shots);
}

} // namespace

StoryboardPlan StoryboardPlan::generated(const GeneratorSettings& settings)
{
    StoryboardPlan plan;
    plan.m_sequences = settings.sequences > 0;
    std::mt19937 random(settings.seed);
    QVector<QVector<unsigned>> lengths(static_cast<int>(settings.shots));
    for (auto& shot : lengths) {
        for (unsigned panel = 0; panel < settings.panelsPerShot; ++panel)
            shot.append(kShortestPanel + random() % kPanelLengthSpread);
    }
    QStringList tokens;
    for (unsigned shot = 0; shot < settings.shots; ++shot) {
        tokens << shotToken(lengths.at(shot));
        const bool last = shot + 1 == settings.shots;
        if (settings.transitionEvery > 0 && !last && (shot + 1) % settings.transitionEvery == 0) {
            // Each shot keeps frames of its own between the transitions at its two ends.
            const unsigned room = qMin(total(lengths.at(shot)), total(lengths.at(shot + 1))) - 1;
            const unsigned wanted = 1 + random() % kLongestTransition;
            tokens << QStringLiteral("T%1").arg(qMax(1u, qMin(wanted, room / 2)));
        }
        Shot names;
        const unsigned sequence = groupOf(shot, settings.shots, settings.sequences);
        // Acts group whole sequences, so that no sequence crosses an act's end.
        if (settings.acts > 0)
            names.act = QStringLiteral("Act %1").arg(
                (plan.m_sequences ? groupOf(sequence, settings.sequences, settings.acts)
                                  : groupOf(shot, settings.shots, settings.acts))
                + 1);
        if (plan.m_sequences)
            names.sequence = QStringLiteral("SQ%1").arg((sequence + 1) * 10, 3, 10, QLatin1Char('0'));
        plan.m_shots.append(names);
        plan.m_panelCount += settings.panelsPerShot;
    }
    plan.m_timeline = tokens.join(QLatin1Char(' '));
    plan.m_layers = PanelLayerPlan::generated(settings.layersPerPanel);
    return plan;
}

StoryboardPlan StoryboardPlan::demo()
{
    StoryboardPlan plan;
    // Shot names count by ten, as many studios do, so that a shot inserted later finds a
    // free name between two others; the last shot keeps an automatic name (its position).
    plan.m_ruleSettings = QStringList { QStringLiteral("shot.autoIncrementRule=by-n"),
        QStringLiteral("shot.autoIncrementValue=10") };
    struct Row
    {
        const char* token;
        const char* act;
        const char* sequence;
        const char* name;
        QStringList panels;
    };
    const QVector<Row> rows {
        { "S[12,10,14,8]", "Opening", "SQ010", "SH010", {} },
        { "S[16,12,12]", "Opening", "SQ010", "SH020", {} },
        { "T6", nullptr, nullptr, nullptr, {} },
        { "S[10,10,10,10,10]~6:44=39", "Opening", "SQ010", "SH030", {} },
        { "S[20,12]", "Opening", "SQ020", "SH040", {} },
        { "S[8,8,8,8]", "Opening", "SQ020", "SH050", { QString(), QStringLiteral("2A") } },
        { "T8:wipe,90", nullptr, nullptr, nullptr, {} },
        { "S[24,12,12]", "Conflict", "SQ030", "SH060", {} },
        { "S[6,6,6,6,6,6]", "Conflict", "SQ030", "SH070", {} },
        { "S[10,10,10]~4:24=21", "Conflict", "SQ030", "SH080", {} },
        { "T4", nullptr, nullptr, nullptr, {} },
        { "S[30,10,20]", "Resolution", "SQ040", "SH090", {} },
        { "S[10,10,10,10]", "Resolution", "SQ040", "SH100", {} },
        { "S[18,18]", "Resolution", "SQ040", "SH110", {} },
        { "S[14,10,16]", "Resolution", "SQ050", nullptr, {} },
    };
    QStringList tokens;
    for (const Row& row : rows) {
        tokens << QString::fromLatin1(row.token);
        if (!row.act)
            continue;
        plan.m_shots.append({ QString::fromUtf8(row.act), QString::fromUtf8(row.sequence),
            row.name ? QString::fromUtf8(row.name) : QString(), row.panels, {} });
        plan.m_panelCount
            += static_cast<unsigned>(QString::fromLatin1(row.token).count(QLatin1Char(',')) + 1);
    }
    plan.m_timeline = tokens.join(QLatin1Char(' '));
    plan.m_layers = PanelLayerPlan::demo();
    // The project's camera stands back from the drawings, and SH040 pushes in in two
    // steps of its embedded camera.
    plan.m_cameraDistance = 12.0;
    plan.m_shots[3].cameraKeys = { { 1.0, 0.0, 0.0, 0.0 }, { 17.0, 0.0, 0.0, -0.5 }, { 25.0, 0.5, 0.0, -1.0 } };
    return plan;
}

StoryboardPlan StoryboardPlan::custom(const QString& timeline, const QVector<Shot>& shots,
    unsigned panelCount, bool sequences, const QStringList& ruleSettings, const HostStoryboard& ids)
{
    StoryboardPlan plan;
    plan.m_timeline = timeline;
    plan.m_shots = shots;
    plan.m_panelCount = panelCount;
    plan.m_sequences = sequences;
    plan.m_ruleSettings = ruleSettings;
    plan.m_ids = ids;
    return plan;
}

void StoryboardPlan::build(ProjectDocument& document) const
{
    buildTimeline(document);
    applyNames(document);
    m_layers.build(document, m_panelCount);
    applyCameras(document);
}

void StoryboardPlan::buildTimeline(ProjectDocument& document) const
{
    std::unique_ptr<ProgressBar> progress;
    if (m_panelCount >= ProgressBar::kMinimumTotal)
        progress.reset(new ProgressBar(QStringLiteral("building the timeline"), 0));
    QString error;
    const HostStoryboard storyboard
        = HostStoryboardBuilder::build(m_timeline, &error, document.changeManager(), &m_ids);
    if (!storyboard.isValid())
        throw ToolError::failure(QStringLiteral("the engine refused the storyboard: %1").arg(error));
    document.adopt(storyboard.project);
}

void StoryboardPlan::applyNames(ProjectDocument& document) const
{
    KRC_KrolleProject& view = document.view();
    if (!m_ruleSettings.isEmpty())
        NamingRulesEditor(*view.namingRules()).apply(m_ruleSettings);
    view.sequenceExistsMeta()->setValue(m_sequences);
    ProgressBar progress(QStringLiteral("naming shots"), static_cast<unsigned long long>(m_shots.size()));
    Krolle::Shot_t shot = view.first(Krolle::Shot_t::invalid);
    for (const Shot& names : m_shots) {
        KRC_SceneInfo* info = shot.sceneInfo();
        NameWriter::set(info->name(), names.name);
        NameWriter::set(info->actName(), names.act);
        NameWriter::set(info->sequenceName(), names.sequence);
        auto panel = view.beginPanel(shot);
        for (const QString& panelName : names.panelNames) {
            if (!panelName.isNull())
                NameWriter::set(panel->panelInfo()->name(), panelName);
            ++panel;
        }
        shot = view.next(shot);
        progress.advance();
    }
}

void StoryboardPlan::applyCameras(ProjectDocument& document) const
{
    KRC_KrolleProject& view = document.view();
    if (m_cameraDistance != 0.0)
        view.projectCommon()->setDefaultCameraMatrix(Math::Matrix4x4().translate(0.0, 0.0, m_cameraDistance));
    Krolle::Shot_t shot = view.first(Krolle::Shot_t::invalid);
    for (const Shot& plan : m_shots) {
        for (const Shot::CameraKey& key : plan.cameraKeys) {
            Math::Matrix4x4 matrix;
            matrix.translate(key.x, key.y, key.z);
            shot.symbol()->setEmbeddedCameraKey(key.frame, matrix);
        }
        shot = view.next(shot);
    }
    document.notify();
}
