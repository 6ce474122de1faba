#include "NameChanges.h"

#include "TextTable.h"
#include "Wording.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "project/KRC_KrolleProject.h"

#include <QHash>
#include <QJsonObject>

#include <functional>

namespace {

struct Name
{
    QString text;
    bool custom;
};

// Calls visit(kind, id, number, shot number, name) for every shot and panel in timeline order.
using Visitor = std::function<void(const char*, const SC_Id&, unsigned, unsigned, const Name&)>;

void walk(const KRC_KrolleProject& view, const Visitor& visit)
{
    unsigned shotNumber = 0;
    for (auto shot = view.beginShot(), end = view.endShot(); shot != end; ++shot) {
        ++shotNumber;
        const KRC_SceneInfo* info = shot->sceneInfo();
        visit("shot", shot->id(), shotNumber, 0, Name { shot->name(), info && info->name().isCustom() });
        unsigned panelNumber = 0;
        for (auto panel = view.beginPanel(*shot), last = view.endPanel(*shot); panel != last; ++panel) {
            const KRC_PanelInfo* panelInfo = panel->panelInfo();
            visit("panel", panel->id(), ++panelNumber, shotNumber,
                Name { panel->name(), panelInfo && panelInfo->name().isCustom() });
        }
    }
}

} // namespace

struct NameChanges::Private
{
    QHash<SC_Id, Name> before;
};

NameChanges::NameChanges(const KRC_KrolleProject& view)
    : d(new Private)
{
    walk(view, [this](const char*, const SC_Id& id, unsigned, unsigned, const Name& name) {
        d->before.insert(id, name);
    });
}

NameChanges::~NameChanges() = default;

QJsonArray NameChanges::since(const KRC_KrolleProject& view) const
{
    QJsonArray changes;
    walk(view, [&](const char* kind, const SC_Id& id, unsigned number, unsigned shot, const Name& now) {
        const auto was = d->before.constFind(id);
        if (was == d->before.constEnd() || was->text == now.text || (was->custom && now.custom))
            return;
        QJsonObject change { { QStringLiteral("kind"), QLatin1String(kind) }, { QStringLiteral("id"), id.toString() },
            { QStringLiteral("number"), static_cast<qint64>(number) }, { QStringLiteral("before"), was->text },
            { QStringLiteral("after"), now.text } };
        if (shot)
            change.insert(QStringLiteral("shot"), static_cast<qint64>(shot));
        changes.append(change);
    });
    return changes;
}

QString NameChanges::table(const QJsonArray& changes)
{
    if (changes.isEmpty())
        return QString();
    TextTable rows;
    rows.setHeader({ QStringLiteral("object"), QStringLiteral("id"), QStringLiteral("before"), QStringLiteral("after") });
    for (const QJsonValue& value : changes) {
        const QJsonObject change = value.toObject();
        QString object = QStringLiteral("%1 %2").arg(change.value(QStringLiteral("kind")).toString(),
            QString::number(change.value(QStringLiteral("number")).toInt()));
        if (change.contains(QStringLiteral("shot")))
            object += QStringLiteral(" of shot %1").arg(change.value(QStringLiteral("shot")).toInt());
        rows.addRow({ object, change.value(QStringLiteral("id")).toString(),
            change.value(QStringLiteral("before")).toString(), change.value(QStringLiteral("after")).toString() });
    }
    return QStringLiteral("\n%1 moved:\n\n").arg(Wording::counted(changes.size(), "name", "names")) + rows.toString();
}
