// The info fields of a project as the tool shows and edits them.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class KRC_InfoField;
class KRC_InfoFieldDesc;
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
    // A panel's values of those columns, by name, as plain text.
    static QJsonObject panelValues(const KRC_KrolleProject& view, const Krolle::Panel_t& panel);
};
