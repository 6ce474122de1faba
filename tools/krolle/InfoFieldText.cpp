#include "InfoFieldText.h"

#include "ToolError.h"

#include "infofields/KRC_InfoFieldList.h"
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

QJsonObject InfoFieldText::panelValues(const KRC_KrolleProject& view, const Krolle::Panel_t& panel)
{
    QJsonObject values;
    KRC_InfoFieldList const* list = panel.infoFieldList();
    for (KRC_InfoFieldDesc const* desc : view.visiblePanelInfoFieldDescList())
        values.insert(desc->name(), plain(list ? list->getInfoField(desc->id()).get() : nullptr));
    return values;
}
