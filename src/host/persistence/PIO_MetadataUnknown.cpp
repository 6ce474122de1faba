#include "host/persistence/PIO_MetadataUnknown.h"

#include "host/persistence/PIO_WritingContext.h"
#include "host/persistence/PIO_XML_ComponentReader.h"
#include "host/persistence/PO_XmlWriter.h"

#include <QPair>
#include <QVector>
#include <QXmlAttributes>

#include <algorithm>

namespace {

// One event of the kept XML, replayed in order when the record is written.
struct Token
{
    enum Kind
    {
        Start,
        End,
        Text,
    };
    Kind kind;
    QString text; // element name or character data
    QVector<QPair<QString, QString>> attributes;
};

} // namespace

class PIO_MetadataUnknown::PIO_MetadataUnknownPrivate
{
public:
    QVector<Token> tokens;
};

// Records every event it is handed; flat, so it sees the whole entry.
class PIO_MetadataUnknownReader : public PIO_XML::ComponentReader
{
public:
    explicit PIO_MetadataUnknownReader(PIO_MetadataUnknown* meta)
        : m_tokens(meta->d->tokens)
    {
    }

    UT_SharedPtr<ComponentReader> handleStartElement(
        PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes) override
    {
        Token token { Token::Start, elementName, {} };
        for (int i = 0; i < attributes.count(); ++i)
            token.attributes.append(qMakePair(attributes.qName(i), attributes.value(i)));
        m_tokens.append(token);
        return UT_SharedPtr<ComponentReader>(this);
    }

    bool handleEndElement(PIO_ReadingContext&, QString const& elementName) override
    {
        m_tokens.append(Token { Token::End, elementName, {} });
        return true;
    }

    bool handleCDATA(QString const& text) override
    {
        // Pieces of one text (characters beside a CDATA section) are kept as one,
        // which is how they read back once written.
        if (!m_tokens.isEmpty() && m_tokens.last().kind == Token::Text)
            m_tokens.last().text += text;
        else
            m_tokens.append(Token { Token::Text, text, {} });
        return true;
    }

private:
    QVector<Token>& m_tokens;
};

PIO_MetadataUnknown::PIO_MetadataUnknown(
    QString const& metaType, QString const& metaName, QString const& creator, QString const& version)
    : PIO_Metadata(metaType, metaName, creator, version)
    , d(new PIO_MetadataUnknownPrivate)
{
}

PIO_MetadataUnknown::PIO_MetadataUnknown(PIO_MetadataUnknown const& other)
    : PIO_Metadata(other)
    , d(new PIO_MetadataUnknownPrivate(*other.d))
{
}

PIO_MetadataUnknown& PIO_MetadataUnknown::operator=(PIO_MetadataUnknown const& other)
{
    PIO_Metadata::operator=(other);
    *d = *other.d;
    return *this;
}

PIO_MetadataUnknown::~PIO_MetadataUnknown()
{
    delete d;
}

PIO_XML::ComponentReader* PIO_MetadataUnknown::componentReader()
{
    d->tokens.clear();
    return new PIO_MetadataUnknownReader(this);
}

PIO_Metadata* PIO_MetadataUnknown::clone() const
{
    return new PIO_MetadataUnknown(*this);
}

void PIO_MetadataUnknown::dumpToString(QString& out) const
{
    PIO_Metadata::dumpToString(out);
    out += QStringLiteral("kept as read: %1 elements\n").arg(elementCount());
}

int PIO_MetadataUnknown::elementCount() const
{
    return int(std::count_if(
        d->tokens.begin(), d->tokens.end(), [](Token const& token) { return token.kind == Token::Start; }));
}

void PIO_MetadataUnknown::writeMetadataSubnodes(PIO_WritingContext& context) const
{
    PO_XmlWriter& writer = context.writer();
    for (Token const& token : d->tokens) {
        switch (token.kind) {
        case Token::Start:
            writer.beginElement(token.text);
            for (auto const& attribute : token.attributes)
                writer.encodeStringAttr(attribute.first, attribute.second);
            break;
        case Token::End:
            writer.endElement();
            break;
        case Token::Text:
            writer.writeCharacters(token.text);
            break;
        }
    }
}
