#include "InfoFieldText.h"

#include "ToolError.h"

#include "infofields/KRC_InfoFieldImage.h"
#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_InfoFieldUtil.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "project/KRC_KrolleProject.h"

#include <QTextDocument>

QString InfoFieldText::level(bool panel)
{
    return panel ? QStringLiteral("panel") : QStringLiteral("project");
}

QString InfoFieldText::kind(const KRC_InfoFieldDesc& desc)
{
    const QString base = desc.isImage() ? QStringLiteral("image") : QStringLiteral("text");
    return desc.isComment() ? base + QStringLiteral(" comment") : base;
}

int InfoFieldText::fieldId(const KRC_KrolleProject& view, bool panel, const QString& name, const QString& file)
{
    const int id = view.getFieldByName(panel, name);
    if (id == INT_MAX)
        throw ToolError::failure(
            QStringLiteral("%1 has no %2 field named \"%3\"").arg(file, level(panel), name));
    return id;
}

QString InfoFieldText::plain(const KRC_InfoField* field)
{
    if (!field)
        return QString();
    if (field->isImage() || !Qt::mightBeRichText(field->value()))
        return field->value();
    QTextDocument document;
    document.setHtml(field->value());
    return document.toPlainText();
}

QStringList InfoFieldText::panelColumns(const KRC_KrolleProject& view)
{
    QStringList names;
    for (KRC_InfoFieldDesc const* desc : view.visiblePanelInfoFieldDescList())
        names << desc->name();
    return names;
}

QJsonObject InfoFieldText::panelValues(const KRC_KrolleProject& view, const Krolle::Panel_t& panel, bool hiddenToo)
{
    QJsonObject values;
    KRC_InfoFieldList const* list = panel.infoFieldList();
    auto add = [&](const KRC_InfoFieldDesc& desc) {
        values.insert(desc.name(), plain(list ? list->getInfoField(desc.id()).get() : nullptr));
    };
    if (hiddenToo) {
        for (const KRC_InfoFieldDesc& desc : *view.panelInfoFieldDescList())
            add(desc);
    } else {
        for (KRC_InfoFieldDesc const* desc : view.visiblePanelInfoFieldDescList())
            add(*desc);
    }
    return values;
}

QString InfoFieldText::imageKey(const Krolle::Panel_t& panel)
{
    const KRC_InfoFieldList* fields = panel.infoFieldList();
    const std::vector<const KRC_InfoFieldImage*> images = fields ? fields->images() : std::vector<const KRC_InfoFieldImage*>();
    return images.empty() ? QString() : images.front()->key();
}

KRC_InfoField* InfoFieldText::valueOf(KRC_InfoFieldList& list, const KRC_InfoFieldDescList& descs, const KRC_InfoFieldDesc& desc)
{
    if (!list.contain(desc.id())) {
        list.insertInfoField(desc.type(), desc.id(), INT_MAX);
        KRC_InfoFieldUtil::order_infofield_based_on_desc(descs, list);
    }
    return list.getInfoField(desc.id()).get();
}

QJsonArray InfoFieldText::panelDefinitions(const KRC_KrolleProject& view)
{
    QJsonArray definitions;
    for (const KRC_InfoFieldDesc& desc : *view.panelInfoFieldDescList())
        definitions.append(QJsonObject { { QStringLiteral("name"), desc.name() },
            { QStringLiteral("kind"), desc.isImage() ? QStringLiteral("image") : QStringLiteral("text") },
            { QStringLiteral("hidden"), !view.isInfoFieldVisible(desc.name()) } });
    return definitions;
}

void InfoFieldText::definePanelFields(KRC_KrolleProject& view, const QJsonArray& definitions)
{
    for (const QJsonValue& value : definitions) {
        const QJsonObject definition = value.toObject();
        const QString name = definition.value(QStringLiteral("name")).toString();
        const bool image = definition.value(QStringLiteral("kind")).toString() == QLatin1String("image");
        if (name.isEmpty() || view.getFieldByName(true, name) != INT_MAX)
            throw ToolError::file(QStringLiteral("a panel field is named \"%1\" twice or not at all").arg(name));
        view.insertInfoField(true, image ? KRC_InfoFieldDesc::kImage : KRC_InfoFieldDesc::kText, name, INT_MAX, INT_MAX, false);
        if (definition.value(QStringLiteral("hidden")).toBool())
            view.setInfoFieldVisible(name, false);
    }
}

void InfoFieldText::setPanelValue(
    KRC_KrolleProject& view, const Krolle::Panel_t& panel, const QString& name, const QString& value)
{
    const KRC_InfoFieldDesc& desc = *view.getInfoFieldDesc(true, view.getFieldByName(true, name));
    valueOf(*panel.infoFieldList(), *view.panelInfoFieldDescList(), desc)->setValue(value);
}
