// Shared base of the readers that fill this library's records from XML.
#pragma once

#include "host/persistence/HostPersistence.h"

#include <QString>

#include <new>

class KRC_MetadataReaderPrivate;

/// A flat reader bound to one record: every element of the record's entry arrives here,
/// and a reader answers each one with itself (`self()`), so child elements come to the
/// same reader as their parent.
///
/// The record is held by plain pointer; the reader neither owns it nor touches it in its
/// destructor. When the reader lets go of its record is chosen at construction
/// (`Release`), and `handleEndElement` applies it and always answers true. Once the
/// record is let go, later elements have nowhere to go and are ignored.
///
/// Attribute helpers come in the two strengths of this library's formats:
/// - checked: a value is stored only when it parses, so a bad or missing attribute keeps
///   the record's default;
/// - unchecked: the conversion's result is stored whatever it is, so a bad or missing
///   attribute gives 0 (false for a bool).
/// A missing text attribute reads as an empty string. Readers never report a format
/// error. Threading: the thread of the read.
class KRC_MetadataReader : public PIO_XML::ComponentReader
{
public:
    enum class Release
    {
        AtFirstEnd, ///< at the first end of any element
        AtOwnEnd, ///< at the end of the element named like the record's metaType
        Never ///< kept until the reader goes
    };

    KRC_MetadataReader(PIO_Metadata* record, Release release);
    ~KRC_MetadataReader() override;

    /// A new `Reader` bound to `record`, or null when memory runs out: a record's
    /// componentReader() answers a failed allocation with null, not an exception.
    template <class Reader, class Record> static Reader* create(Record* record) noexcept
    {
        try {
            return new Reader(record);
        } catch (std::bad_alloc const&) {
            return nullptr;
        }
    }

    bool handleEndElement(PIO_ReadingContext& context, QString const& elementName) override;

    static QString text(QXmlAttributes const& attributes, QString const& name);

    static int uncheckedInt(QXmlAttributes const& attributes, QString const& name);
    static double uncheckedDouble(QXmlAttributes const& attributes, QString const& name);
    static bool uncheckedBool(QXmlAttributes const& attributes, QString const& name);

    /// Each stores into `value` and answers true only when the attribute parses.
    static bool checkedInt(QXmlAttributes const& attributes, QString const& name, int& value);
    static bool checkedDouble(QXmlAttributes const& attributes, QString const& name, double& value);
    static bool checkedBool(QXmlAttributes const& attributes, QString const& name, bool& value);

protected:
    /// The record being filled, null once let go.
    PIO_Metadata* record() const;
    template <class Record> Record* recordAs() const { return static_cast<Record*>(record()); }
    /// The record when `elementName` is its own element (named like its class's
    /// keyword) and it is not let go yet; null otherwise.
    template <class Record> Record* recordForElement(QString const& elementName) const
    {
        return elementName == Record::kPIO_KRMETA_Keyword ? recordAs<Record>() : nullptr;
    }
    /// Lets go of the record now.
    void releaseRecord();
    /// This reader as the answer of handleStartElement.
    UT_SharedPtr<PIO_XML::ComponentReader> self();

private:
    KRC_MetadataReader(KRC_MetadataReader const&) = delete;
    KRC_MetadataReader& operator=(KRC_MetadataReader const&) = delete;

    KRC_MetadataReaderPrivate* d;
};
