// Bounds on what a document read from outside may ask of its reader.
#pragma once

#include <QByteArray>
#include <QString>

/// The limits every XML document from outside is held to as it is parsed (by
/// PO_XmlGuard, through which its reader reads), so that a hostile file costs a
/// sentence and no more: no document type declaration (hence no entity expansion and
/// no external fetch), no entity reference beyond the five predefined ones and
/// character references, bounded element nesting, element count, attribute count, and
/// length of any one attribute value or run of text. The bounds are stated in
/// src/host/persistence/README.md; they leave ample room for a project of 200,000
/// panels.
///
/// `readFile` looks at the file's type before opening it (a FIFO would block, a
/// directory is no document) and scans the bytes as they come, so an over-long token
/// or an over-large file is refused before it is held whole.
/// Threading: any thread; no state.
class PO_XmlLimits
{
public:
    static constexpr qint64 maxFileBytes = qint64(1) << 30;
    static constexpr qint64 maxTokenBytes = 16 * 1024 * 1024;
    static constexpr int maxDepth = 256;
    static constexpr qint64 maxElements = 50 * 1000 * 1000;
    static constexpr int maxAttributes = 256;

    /// The bytes of a regular file within the limits on size and token length; on
    /// refusal an empty array and a sentence in `error` (without the path).
    static QByteArray readFile(QString const& path, QString* error);
    /// Whether no run of bytes without '<' or '>' (hence no attribute value and no
    /// text) of a document held in memory is longer than `maxTokenBytes`, told from
    /// the bytes alone before any parser holds such a token whole; on refusal a
    /// sentence in `error`.
    static bool checkTokenLengths(QByteArray const& document, QString* error);
    /// Whether a document held in memory is free of NUL bytes, which XML never allows
    /// and which the parser does not always refuse (it may read the bytes around one
    /// as other characters); on refusal a located sentence in `error`.
    static bool checkNoNul(QByteArray const& document, QString* error);

    PO_XmlLimits() = delete;
};
