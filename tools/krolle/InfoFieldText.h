// The info fields of a project as the tool shows and edits them.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

class KRC_InfoField;
class KRC_InfoFieldDesc;
class KRC_InfoFieldDescList;
class KRC_InfoFieldList;
class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
} // namespace Krolle

// Names, kinds and values of the library's info fields in the tool's words. Text
// values become rich text when the library reads a project; the tool shows them as
// plain text. Lookups
// by name fail with ToolError::failure (status 1) naming the file and the field.
// Single-threaded.
class InfoFieldText
{
public:
    // "project" or "panel".
    static QString level(bool panel);
    // "text", "image", "text comment", "image comment".
    static QString kind(const KRC_InfoFieldDesc& desc);
    // The id of the definition named `name` at that level; throws when there is none.
    static int fieldId(const KRC_KrolleProject& view, bool panel, const QString& name, const QString& file);
    // A field value as plain text: rich text is rendered, an image key shown as it is.
    static QString plain(const KRC_InfoField* field);
    // The visible panel field names, in order: the columns of `outline --fields`.
    static QStringList panelColumns(const KRC_KrolleProject& view);
    // A panel's values of those columns (of every panel field with `hiddenToo`), by name, as plain text.
    static QJsonObject panelValues(const KRC_KrolleProject& view, const Krolle::Panel_t& panel, bool hiddenToo = false);

    // The key of the panel's first image field that has one, or a null string: its picture.
    static QString imageKey(const Krolle::Panel_t& panel);

    // The list's value of a definition, made at its place among the definitions when missing.
    static KRC_InfoField* valueOf(KRC_InfoFieldList& list, const KRC_InfoFieldDescList& descs, const KRC_InfoFieldDesc& desc);

    // The panel field definitions in order, each {"name", "kind": "text"|"image", "hidden"}; and
    // the same made in a project that has none (refused names throw ToolError::file).
    static QJsonArray panelDefinitions(const KRC_KrolleProject& view);
    static void definePanelFields(KRC_KrolleProject& view, const QJsonArray& definitions);
    // Sets the panel's value of the panel field `name` (which must exist) to plain text.
    static void setPanelValue(KRC_KrolleProject& view, const Krolle::Panel_t& panel, const QString& name, const QString& value);
};
