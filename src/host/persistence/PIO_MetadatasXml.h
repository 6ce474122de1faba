// Writes and reads a collection of records as XML.
#pragma once

#include <QByteArray>
#include <QString>

class PIO_Metadata;
class PIO_Metadatas;
class PIO_WritingContext;
class PO_XmlGuard;

/// The collection driver of the persistence library. The element form:
///
///     <metadatas>
///       <metadata type="sceneInfo" creator="krolle" version="1.0">
///         ...what the record's writeMetadataSubnodes writes...
///       </metadata>
///     </metadatas>
///
/// "type" is always there; "name", "creator" and "version" are left out when the
/// record's string is null, so every identity string reads back as it was written.
///
/// Reading asks the registered factory (PIO_MetadataFactory::instance()) for each
/// entry, then drives the record's component reader element by element. An entry that
/// no factory knows is kept as a PIO_MetadataUnknown. Reading is all or nothing: on any
/// fault the target collection is left exactly as it was and the error names the line
/// and column. Document type declarations and entity references (other than the five
/// predefined ones and character references) are refused.
/// Threading: the thread of the save or load.
class PIO_MetadatasXml
{
public:
    static QString const collectionElement; // "metadatas"
    static QString const entryElement; // "metadata"

    /// Writes the collection's element and every record in order.
    static void write(PIO_Metadatas const& metas, PIO_WritingContext& context);
    /// Writes one entry: the frame with the record's identity, and the record inside.
    static void writeEntry(PIO_Metadata const& meta, PIO_WritingContext& context);

    /// Reads the collection at which `stream` stands (a start element "metadatas") and
    /// appends its records to `target`. On success the stream stands on the collection's
    /// end element. On failure returns false, leaves `target` untouched, sets
    /// `errorMessage` ("line L, column C: ...") if given, and raises the error on the
    /// stream so that the caller's own loop stops too.
    static bool read(PO_XmlGuard& stream, PIO_Metadatas& target, QString* errorMessage = nullptr);

    /// A whole document holding one collection. `forDrag` sets the writing flag "for_drag".
    /// Empty when a record holds a character that XML cannot carry (a control
    /// character, an unpaired surrogate): the writer would drop it, or break the document.
    static QByteArray toDocument(PIO_Metadatas const& metas, bool forDrag = false);
    /// Reads a whole document written by toDocument; all or nothing, as `read`, and held
    /// to the limits of PO_XmlLimits as it is read.
    static bool fromDocument(
        QByteArray const& document, PIO_Metadatas& target, QString* errorMessage = nullptr);

    PIO_MetadatasXml() = delete;
};
