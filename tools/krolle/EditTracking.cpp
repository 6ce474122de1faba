#include "EditTracking.h"

#include "metadata/KRC_Tracking.h"
#include "project/KRC_KrolleProject.h"
#include "project/Panel_t.h"
#include "tracking/KRC_TrackingManager.h"

const char* const EditTracking::kNowVariable = "KROLLE_NOW";

struct EditTracking::Private
{
    explicit Private(KRC_KrolleProject& owner)
        : view(owner)
        , scope(std::make_unique<KRC_TrackingManager::AccumScope>(owner.trackingManager()))
    {
    }

    KRC_KrolleProject& view;
    std::unique_ptr<KRC_TrackingManager::AccumScope> scope;
};

EditTracking::EditTracking(KRC_KrolleProject& view)
    : d(std::make_unique<Private>(view))
{
}

EditTracking::~EditTracking() = default;

QDateTime EditTracking::now()
{
    const QDateTime fixed = QDateTime::fromString(qEnvironmentVariable(kNowVariable), Qt::ISODate);
    return fixed.isValid() ? fixed : QDateTime::currentDateTime();
}

void EditTracking::writeRecords()
{
    const KRC_TrackingManager::AccumScope::Map touched = d->scope->result();
    // A new scope, so that the reports of the records written below are not gathered.
    d->scope.reset();
    const bool fixedTime = !qEnvironmentVariableIsEmpty(kNowVariable);
    for (const auto& [id, change] : touched) {
        KRC_Tracking* record = d->view.getPanelByID(id).tracking();
        if (!record)
            continue;
        record->setIsTracked(change.second);
        record->setTrackingDate(fixedTime ? now() : change.first);
        if (record->trackingNote().isNull())
            record->setTrackingNote(QString(QLatin1String("")));
        record->emitChanged(d->view.changeManager(), KRC_TrackingManager::kTrackingSetCode);
    }
    if (!touched.empty())
        d->view.changeManager()->notify();
    d->scope = std::make_unique<KRC_TrackingManager::AccumScope>(d->view.trackingManager());
}
