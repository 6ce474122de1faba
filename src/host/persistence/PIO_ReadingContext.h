// What a record's reader is given while a collection is read.
#pragma once

#include <QtGlobal>

class PIO_Metadata;
class QXmlStreamReader;

/// The position of the read in progress and the record being filled, for readers
/// that want to know where they are. Valid only during the call it is passed to.
/// Threading: the thread of the read.
class PIO_ReadingContext
{
public:
    PIO_ReadingContext(QXmlStreamReader const& stream, PIO_Metadata* meta);
    ~PIO_ReadingContext();
    PIO_ReadingContext(PIO_ReadingContext const&) = delete;
    PIO_ReadingContext& operator=(PIO_ReadingContext const&) = delete;

    qint64 lineNumber() const;
    qint64 columnNumber() const;
    /// The record that the entry being read is filling.
    PIO_Metadata* metadata() const;

private:
    class PIO_ReadingContextPrivate;
    PIO_ReadingContextPrivate* d;
};
