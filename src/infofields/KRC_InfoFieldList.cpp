#include "infofields/KRC_InfoFieldList.h"

#include "infofields/InfoFieldFormat.h"
#include "infofields/InfoFieldIds.h"
#include "infofields/InfoFieldRecordReader.h"
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_InfoFieldDescList.h"
#include "infofields/KRC_InfoFieldImage.h"
#include "infofields/KRC_InfoFieldText.h"
#include "metadata/KRC_MetadataRecordImpl.h"

#include <QFont>
#include <QTextDocument>

#include <algorithm>

/// Nothing of its own: the values live in the list base.
class KRC_InfoFieldListPrivate
{
};

template class KRC_MetadataRecord<KRC_InfoFieldList, KRC_InfoFieldListPrivate>;

QString const KRC_InfoFieldList::kPIO_KRMETA_Keyword = QStringLiteral("infoFields");
QString const KRC_InfoFieldList::kPIO_KRMETA_Version = QStringLiteral("1.0");

namespace {

/// The rich text that a QTextDocument makes of plain text.
QString documentHtml(QString const& plain)
{
    QTextDocument document;
    document.setPlainText(plain);
    return document.toHtml(QByteArray());
}

/// The pieces of a QTextDocument's HTML around the lines of a plain text, for the
/// document's default font: what stands before the first paragraph, a paragraph's
/// opening, an empty paragraph and the end. A project read carries thousands of text
/// values, and a document per value would cost many times the read itself.
class RichTextFrame
{
public:
    /// The frame for the current default font, remade when that font changes; false
    /// when the document's output has a shape this frame does not know.
    static RichTextFrame const* current()
    {
        static RichTextFrame frame;
        const QFont font;
        if (!frame.m_made || !(frame.m_font == font)) {
            frame = RichTextFrame(font);
            frame.m_made = true;
        }
        return frame.m_usable ? &frame : nullptr;
    }

    /// Whether the lines of `plain` need no more than escaping of `&`, `<`, `>` and `"`.
    static bool fits(QString const& plain)
    {
        return std::all_of(plain.begin(), plain.end(), [](QChar c) {
            return (c.unicode() >= 0x20 && c.unicode() < 0x7f) || c == QLatin1Char('\n') || c == QLatin1Char('\t');
        });
    }

    QString html(QString const& plain) const
    {
        const QVector<QStringRef> lines = plain.splitRef(QLatin1Char('\n'));
        QString html;
        html.reserve(m_head.size() + m_tail.size() + lines.size() * (m_empty.size() + 8) + plain.size() * 2);
        html += m_head;
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                html += QLatin1Char('\n');
            if (lines[i].isEmpty())
                html += m_empty;
            else
                html += m_paragraph + lines[i].toString().toHtmlEscaped() + QLatin1String("</p>");
        }
        return html + m_tail;
    }

private:
    RichTextFrame() = default;
    explicit RichTextFrame(QFont const& font)
        : m_font(font)
    {
        // "x", an empty line, "x": every piece shows once, and the frame is checked
        // by making that document again from the pieces.
        const QString sample = QStringLiteral("x\n\nx");
        const QString made = documentHtml(sample);
        const int first = made.indexOf(QLatin1String("<p "));
        const int text = made.indexOf(QLatin1String(">x</p>"), first) + 1;
        const int empty = made.indexOf(QLatin1String("<p "), text);
        const int afterEmpty = made.indexOf(QLatin1Char('\n'), empty);
        const int last = made.lastIndexOf(QLatin1String("x</p>"));
        if (first < 0 || text <= 0 || empty < 0 || afterEmpty < 0 || last < 0)
            return;
        m_head = made.left(first);
        m_paragraph = made.mid(first, text - first);
        m_empty = made.mid(empty, afterEmpty - empty);
        m_tail = made.mid(last + 5);
        m_usable = html(sample) == made;
    }

    QFont m_font;
    QString m_head, m_paragraph, m_empty, m_tail;
    bool m_made = false;
    bool m_usable = false;
};

/// Plain text as the rich text that an editor of the field would store.
QString asRichText(QString const& plain)
{
    RichTextFrame const* frame = RichTextFrame::fits(plain) ? RichTextFrame::current() : nullptr;
    return frame ? frame->html(plain) : documentHtml(plain);
}

/// Appends one value per "field" with an integer "id", in document order.
class InfoFieldListMetadataReader : public InfoFieldRecordReader
{
public:
    using InfoFieldRecordReader::InfoFieldRecordReader;

protected:
    void readField(QXmlAttributes const& attributes) override
    {
        int id = 0;
        if (!readId(attributes, id))
            return;
        const KRC_InfoFieldDesc::Type type = InfoFieldFormat::readType(attributes);
        QString value = text(attributes, InfoFieldFormat::kValue);
        if (type == KRC_InfoFieldDesc::kText && !value.isEmpty() && !Qt::mightBeRichText(value))
            value = asRichText(value);
        KRC_InfoFieldList* list = recordAs<KRC_InfoFieldList>();
        list->insertInfoField(
            type, text(attributes, InfoFieldFormat::kName), id, KRC_InfoFieldDesc::kDefault, value, INT_MAX);
        const QString dragName = text(attributes, InfoFieldFormat::kDragName);
        if (!dragName.isEmpty())
            list->back()->setDragName(dragName);
    }
};

UT_SharedPtr<KRC_InfoField> makeField(KRC_InfoFieldDesc::Type type, int id, QString const& value, QString const& name)
{
    if (type == KRC_InfoFieldDesc::kImage)
        return UT_SharedPtr<KRC_InfoField>(new KRC_InfoFieldImage(id, value, name));
    return UT_SharedPtr<KRC_InfoField>(new KRC_InfoFieldText(id, value, name));
}

} // namespace

bool KRC_InfoFieldList::isValid() const
{
    return true;
}

PIO_XML::ComponentReader* KRC_InfoFieldList::componentReader()
{
    return KRC_MetadataReader::create<InfoFieldListMetadataReader>(this);
}

PIO_Metadata* KRC_InfoFieldList::clone() const
{
    KRC_InfoFieldList* copy = cloneKeepingIdentity();
    for (UT_SharedPtr<KRC_InfoField>& field : *copy) {
        if (field)
            field = field->clone();
    }
    return copy;
}

void KRC_InfoFieldList::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    InfoFieldFormat::dumpEntries(out, entries(), [](UT_SharedPtr<KRC_InfoField> const& field) {
        if (!field)
            return QString();
        return QStringLiteral("Field: name=%1, type=%2, size=%3, id=%4, value=%5\n")
            .arg(field->name(), InfoFieldFormat::typeName(field->type()),
                InfoFieldFormat::sizeName(field->size()))
            .arg(field->id())
            .arg(field->value());
    });
}

void KRC_InfoFieldList::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    if (empty())
        return;
    const bool forDrag = context.GetAttribute(InfoFieldFormat::kForDrag);
    writeRecordElement(context, [this, forDrag](PO_XmlWriter& writer) {
        for (UT_SharedPtr<KRC_InfoField> const& field : entries()) {
            if (!field)
                continue;
            writer.beginElement(InfoFieldFormat::kField);
            writer.encodeIntAttr(InfoFieldFormat::kId, field->id());
            if (field->isLocal())
                writer.encodeStringAttr(InfoFieldFormat::kName, field->name());
            if (forDrag)
                writer.encodeStringAttr(InfoFieldFormat::kDragName, field->name());
            InfoFieldFormat::writeType(writer, field->type());
            InfoFieldFormat::writeSize(writer, field->size());
            writer.encodeStringAttr(InfoFieldFormat::kValue, QString(field->value()).remove(QLatin1Char('\r')));
            writer.endElement();
        }
    });
}

KRC_InfoFieldList::iterator KRC_InfoFieldList::find(int id)
{
    return InfoFieldIds::find(entries(), id);
}

KRC_InfoFieldList::const_iterator KRC_InfoFieldList::find(int id) const
{
    return InfoFieldIds::find(entries(), id);
}

KRC_InfoFieldList::reverse_iterator KRC_InfoFieldList::rfind(int id)
{
    return std::find_if(
        rbegin(), rend(), [id](UT_SharedPtr<KRC_InfoField> const& field) { return field && field->id() == id; });
}

bool KRC_InfoFieldList::contain(int id) const
{
    return InfoFieldIds::contain(entries(), id);
}

UT_SharedPtr<KRC_InfoField> KRC_InfoFieldList::getInfoField(int id) const
{
    const const_iterator it = find(id);
    return it == end() ? UT_SharedPtr<KRC_InfoField>() : *it;
}

std::vector<KRC_InfoFieldImage const*> KRC_InfoFieldList::images() const
{
    std::vector<KRC_InfoFieldImage const*> found;
    for (UT_SharedPtr<KRC_InfoField> const& field : *this) {
        auto const* image = dynamic_cast<KRC_InfoFieldImage const*>(field.get());
        if (image && !image->key().isEmpty())
            found.push_back(image);
    }
    return found;
}

int KRC_InfoFieldList::insertInfoField(UT_SharedPtr<KRC_InfoField> field, int beforeId)
{
    const int id = InfoFieldIds::idOf(field);
    insert(find(beforeId), std::move(field));
    return id;
}

int KRC_InfoFieldList::insertInfoField(
    Type type, QString const& name, int id, Size size, QString const& value, int beforeId)
{
    if (id == INT_MAX)
        id = getUniqId();
    UT_SharedPtr<KRC_InfoField> field = makeField(type, id, value, id >= 0 ? QString() : name);
    field->setSize(size);
    return insertInfoField(std::move(field), beforeId);
}

int KRC_InfoFieldList::insertInfoField(Type type, QString const& name, int id, QString const& value, int beforeId)
{
    return insertInfoField(type, name, id, KRC_InfoFieldDesc::kDefault, value, beforeId);
}

int KRC_InfoFieldList::insertInfoField(Type type, int id, QString const& value, int beforeId)
{
    return insertInfoField(type, QString(), id, value, beforeId);
}

int KRC_InfoFieldList::insertInfoField(Type type, int id, int beforeId)
{
    return insertInfoField(type, QString(), id, QString(), beforeId);
}

UT_SharedPtr<KRC_InfoField> KRC_InfoFieldList::removeInfoField(int id)
{
    const iterator it = find(id);
    if (it == end())
        return UT_SharedPtr<KRC_InfoField>();
    UT_SharedPtr<KRC_InfoField> field = *it;
    if (field)
        field->setNextId(InfoFieldIds::idBehind(entries(), it));
    erase(it);
    return field;
}

bool KRC_InfoFieldList::remove(std::set<int> const& ids)
{
    return InfoFieldIds::remove(entries(), ids);
}

bool KRC_InfoFieldList::removeInfoField(std::set<int> const& ids)
{
    return remove(ids);
}

int KRC_InfoFieldList::move(int id, int beforeId)
{
    return InfoFieldIds::move(entries(), id, beforeId);
}

int KRC_InfoFieldList::moveInfoField(int id, int beforeId)
{
    return move(id, beforeId);
}

bool KRC_InfoFieldList::remap(std::map<int, int> const& ids)
{
    return InfoFieldIds::remap(entries(), ids);
}

bool KRC_InfoFieldList::remapInfoField(std::map<int, int> const& ids)
{
    return remap(ids);
}

int KRC_InfoFieldList::renameInfoField(int id, QString const& name, QString& oldName)
{
    if (id >= 0)
        return INT_MAX;
    const iterator it = find(id);
    if (it == end() || !*it)
        return INT_MAX;
    oldName = (*it)->name();
    (*it)->setName(name);
    return id;
}

int KRC_InfoFieldList::renameInfoField(int id, QString const& name)
{
    QString oldName;
    return renameInfoField(id, name, oldName);
}

void KRC_InfoFieldList::getIds(std::set<int>& ids) const
{
    InfoFieldIds::getIds(entries(), ids);
}

void KRC_InfoFieldList::getIds(std::list<int>& ids) const
{
    InfoFieldIds::getIds(entries(), ids);
}

int KRC_InfoFieldList::getUniqId() const
{
    return InfoFieldIds::freeId(entries(), -1, -1);
}

int KRC_InfoFieldList::getPreviousGlobalInfoField(int id) const
{
    if (id >= 0 || id == INT_MIN)
        return id;
    const auto local = std::find_if(
        crbegin(), crend(), [id](UT_SharedPtr<KRC_InfoField> const& field) { return field && field->id() == id; });
    if (local == crend())
        return id;
    const auto global = std::find_if(
        local, crend(), [](UT_SharedPtr<KRC_InfoField> const& field) { return field && field->isGlobal(); });
    return global == crend() ? InfoFieldIds::idOf(front()) : (*global)->id();
}

void KRC_InfoFieldList::reserveInfoFields(KRC_InfoFieldDescList const& descs)
{
    clear();
    for (KRC_InfoFieldDesc const& desc : descs)
        insertInfoField(desc.type(), desc.id(), INT_MAX);
}

void KRC_InfoFieldList::reserveExtraInfoFields(KRC_ExtraInfoFieldDescList const& extras)
{
    for (KRC_ExtraInfoFieldDesc const& extra : extras)
        insertInfoField(extra.type(), extra.name(), INT_MAX, KRC_InfoFieldDesc::kDefault, QString(), extra.position());
}

void KRC_InfoFieldList::copyExtra(KRC_ExtraInfoFieldDescList* out) const
{
    for (auto it = begin(); it != end(); ++it) {
        UT_SharedPtr<KRC_InfoField> const& field = *it;
        if (!field || field->isGlobal() || field->name().isEmpty())
            continue;
        const auto global = std::find_if(std::next(it), end(),
            [](UT_SharedPtr<KRC_InfoField> const& next) { return next && next->isGlobal(); });
        out->push_back(
            KRC_ExtraInfoFieldDesc(field->type(), field->name(), global == end() ? INT_MAX : (*global)->id()));
    }
}
