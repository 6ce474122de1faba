// The project's own plain records, the act and sequence names by frame, and the
// guards on the view's caches and lock.
#include "project/KRC_KrolleProject.h"

#include "metadata/KRC_SceneInfo.h"
#include "metadata/PIO_MetadataAccess.h"
#include "naming/KRC_NamingRules.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProjectPrivate.h"

namespace {

/// 36 mm, in inches: the film width of a project when the preferences have none.
double const kDefaultFilmWidth = 1.4173228346456694;

/// The project record of type T named `name`, added to the project's records when
/// missing; null without a project. Not kept: every read searches again.
template <class T> T* projectRecord(SC_Project* project, char const* name)
{
    return PIO_MetadataAccess<T>::findOrCreate(project ? project->metadatas() : nullptr, QLatin1String(name));
}

QString textOf(PIO_MetadataString const* record)
{
    return record ? record->valueString() : QString();
}

} // namespace

KRC_NamingRules* KRC_KrolleProject::namingRules() const
{
    PIO_Metadatas* records = project() ? project()->metadatas() : nullptr;
    return PIO_MetadataAccess<KRC_NamingRules>::findOrCreate(records, QString());
}

PIO_MetadataString* KRC_KrolleProject::titleMeta() const
{
    return projectRecord<PIO_MetadataString>(project(), "projectTitle");
}

PIO_MetadataString* KRC_KrolleProject::subTitleMeta() const
{
    return projectRecord<PIO_MetadataString>(project(), "projectSubTitle");
}

PIO_MetadataString* KRC_KrolleProject::episodeMeta() const
{
    return projectRecord<PIO_MetadataString>(project(), "projectEpisode");
}

PIO_MetadataString* KRC_KrolleProject::copyrightMeta() const
{
    return projectRecord<PIO_MetadataString>(project(), "projectCopyright");
}

PIO_MetadataInt* KRC_KrolleProject::startTimeMeta() const
{
    return projectRecord<PIO_MetadataInt>(project(), "projectStartTime");
}

PIO_MetadataDouble* KRC_KrolleProject::filmWidthMeta() const
{
    return projectRecord<PIO_MetadataDouble>(project(), "filmWidth");
}

PIO_MetadataBool* KRC_KrolleProject::sequenceExistsMeta() const
{
    return projectRecord<PIO_MetadataBool>(project(), "sequenceExists");
}

QString KRC_KrolleProject::title() const
{
    return textOf(titleMeta());
}

QString KRC_KrolleProject::subTitle() const
{
    return textOf(subTitleMeta());
}

QString KRC_KrolleProject::episode() const
{
    return textOf(episodeMeta());
}

QString KRC_KrolleProject::copyright() const
{
    return textOf(copyrightMeta());
}

int KRC_KrolleProject::startTime() const
{
    PIO_MetadataInt const* record = startTimeMeta();
    return record && record->isValid() ? record->valueInt() : 0;
}

double KRC_KrolleProject::filmWidth() const
{
    PIO_MetadataDouble* record = filmWidthMeta();
    if (record && record->isValid())
        return record->valueDouble();
    double const width = tuPref
        ? tuPref->getDoubleValue(QStringLiteral("KR_CAMERA_FILM_WIDTH"), kDefaultFilmWidth)
        : kDefaultFilmWidth;
    // Fixed into the project: a later change of the preference leaves this project alone.
    if (record)
        record->setValue(width);
    return width;
}

bool KRC_KrolleProject::sequenceExists() const
{
    PIO_MetadataBool const* record = sequenceExistsMeta();
    return record && record->valueBool();
}

QString KRC_KrolleProject::getActNameAt(unsigned frame, ResolutionPriority priority) const
{
    KRC_SceneInfo const* info = getShotAt(frame, priority).sceneInfo();
    return info ? info->actName().value() : QString();
}

QString KRC_KrolleProject::getSequenceNameAt(unsigned frame, ResolutionPriority priority) const
{
    KRC_SceneInfo const* info = getShotAt(frame, priority).sceneInfo();
    return info ? info->sequenceName().value() : QString();
}

KRC_KrolleProject::CacheActivator::CacheActivator(KRC_KrolleProject* project)
    : m_project(project)
    , m_wasEnabled(project->cacheEnabled())
{
    m_project->setCacheEnabled(true);
}

KRC_KrolleProject::CacheActivator::~CacheActivator()
{
    m_project->setCacheEnabled(m_wasEnabled);
}

KRC_KrolleProject::CacheDesactivator::CacheDesactivator(KRC_KrolleProject* project)
    : m_project(project)
    , m_wasEnabled(project->cacheEnabled())
{
    m_project->setCacheEnabled(false);
}

KRC_KrolleProject::CacheDesactivator::~CacheDesactivator()
{
    m_project->setCacheEnabled(m_wasEnabled);
}

KRC_KrolleProject::LockHelper::LockHelper(KRC_KrolleProject* project)
    : m_project(project)
{
    m_project->d->mutex.lock();
    m_project->d->locked = true;
}

KRC_KrolleProject::LockHelper::~LockHelper()
{
    m_project->d->locked = false;
    m_project->d->mutex.unlock();
}

bool KRC_KrolleProject::LockHelper::isLocked(KRC_KrolleProject* project)
{
    return project->d->locked;
}
