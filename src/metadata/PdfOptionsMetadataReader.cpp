#include "metadata/PdfOptionsMetadataReader.h"

#include "metadata/KRC_PdfOptions.h"
#include "properties/KRC_Property.h"
#include "properties/KRC_PropertyFactory.h"

#include <QDataStream>
#include <QXmlAttributes>

QString const PdfOptionsMetadataReader::kOption = QStringLiteral("option");
QString const PdfOptionsMetadataReader::kName = QStringLiteral("name");
QString const PdfOptionsMetadataReader::kType = QStringLiteral("type");
QString const PdfOptionsMetadataReader::kValue = QStringLiteral("value");
QString const PdfOptionsMetadataReader::kData = QStringLiteral("data");
quint32 const PdfOptionsMetadataReader::kBlobMark = 0xb0b00000u;
qint32 const PdfOptionsMetadataReader::kBlobMarkVersion = 473;
int const PdfOptionsMetadataReader::kBlobStreamVersion = QDataStream::Qt_4_6;
int const PdfOptionsMetadataReader::kLegacyStreamVersion = QDataStream::Qt_3_3;

namespace {

// Loads a current blob: the mark, then the property in the current stream version.
// That version is set here rather than left to Qt's default, which has moved past the
// writer's and would misread the values whose stream form changed since (dates).
bool loadMarked(KRC_Property& property, QByteArray const& bytes)
{
    QDataStream in(bytes);
    quint32 mark = 0;
    qint32 markVersion = 0;
    in >> mark >> markVersion;
    if (in.status() != QDataStream::Ok || mark != PdfOptionsMetadataReader::kBlobMark
        || markVersion != PdfOptionsMetadataReader::kBlobMarkVersion)
        return false;
    in.setVersion(PdfOptionsMetadataReader::kBlobStreamVersion);
    return property.load(in);
}

// Loads a blob of the earlier form, which has no mark, from its first byte.
void loadLegacy(KRC_Property& property, QByteArray const& bytes)
{
    QDataStream in(bytes);
    in.setVersion(PdfOptionsMetadataReader::kLegacyStreamVersion);
    property.load(in);
}

} // namespace

PdfOptionsMetadataReader::PdfOptionsMetadataReader(KRC_PdfOptions* record)
    : KRC_MetadataReader(record, Release::Never)
{
}

PdfOptionsMetadataReader::~PdfOptionsMetadataReader()
{
    dropPending();
}

UT_SharedPtr<PIO_XML::ComponentReader> PdfOptionsMetadataReader::handleStartElement(
    PIO_ReadingContext&, QString const& elementName, QXmlAttributes const& attributes)
{
    KRC_PdfOptions* options = recordAs<KRC_PdfOptions>();
    if (options && elementName == kOption)
        startOption(attributes);
    else if (options && elementName == kValue && m_pending)
        readValue(*options, attributes);
    return self();
}

bool PdfOptionsMetadataReader::handleEndElement(PIO_ReadingContext& context, QString const& elementName)
{
    if (elementName == kOption)
        dropPending();
    return KRC_MetadataReader::handleEndElement(context, elementName);
}

void PdfOptionsMetadataReader::startOption(QXmlAttributes const& attributes)
{
    const QString name = text(attributes, kName);
    const int type = uncheckedInt(attributes, kType);
    KRC_Property* made = KRC_PropertyFactory::create(type, name);
    dropPending();
    m_pending = made;
}

void PdfOptionsMetadataReader::readValue(KRC_PdfOptions& record, QXmlAttributes const& attributes)
{
    DB_MemFile file;
    if (getBinaryStreamFromAttribute(file, kData, attributes)) {
        const QByteArray bytes(reinterpret_cast<char const*>(file.GetBuffer()), file.GetLength());
        if (!loadMarked(*m_pending, bytes))
            loadLegacy(*m_pending, bytes);
        if (m_pending->isValid())
            record.addPdfOptions(m_pending);
    }
    dropPending();
}

void PdfOptionsMetadataReader::dropPending()
{
    delete m_pending;
    m_pending = nullptr;
}
