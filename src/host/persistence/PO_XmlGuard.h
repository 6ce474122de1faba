// The one pass over a document from outside, held to its limits as it is read.
#pragma once

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <functional>
#include <memory>

/// Reads a document from outside token by token for its reader, and holds each token
/// to the limits of PO_XmlLimits as it comes (no document type declaration, no entity
/// reference beyond the predefined and character ones, nesting, element count,
/// attribute count, length of any one token), so that the document is parsed once.
/// The reader moves only through the guard; it looks at the token through `stream`.
///
/// A breach stops the reading as an error would (the next token is Invalid, `hasError`
/// holds); a reader that stops at a fault of its own does the same by `raiseError`.
/// `refusal` then tells whether the limits refuse the document: when the reader
/// stopped before the end, the guard walks the rest of the tokens first (building
/// nothing), so that a breach anywhere outranks the reader's own fault and the answer
/// is the same whether the reader stops early or not. The sentence names the line and
/// column of the offending token.
/// Threading: one document on one thread.
class PO_XmlGuard
{
public:
    /// A further bound of one kind of document, told of each start element and its
    /// depth (the root's is 1) once the general bounds hold; a non-null answer is the
    /// reason to refuse the document.
    using ElementCheck = std::function<QString(QXmlStreamReader const& xml, int depth)>;

    explicit PO_XmlGuard(QByteArray const& document, ElementCheck extra = {});
    ~PO_XmlGuard();
    PO_XmlGuard(PO_XmlGuard const&) = delete;
    PO_XmlGuard& operator=(PO_XmlGuard const&) = delete;

    /// The token at which the reading stands.
    QXmlStreamReader const& stream() const;

    /// As QXmlStreamReader's, each token passing the limits first.
    QXmlStreamReader::TokenType readNext();
    bool readNextStartElement();
    void skipCurrentElement();
    bool atEnd() const;
    bool hasError() const;
    QString errorString() const;
    /// Stops the reading at a fault of the reader's own.
    void raiseError(QString const& message);

    /// The sentence on which the limits refuse the document (walking what the reader
    /// left unread), or a null string when it keeps them.
    QString refusal();

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
