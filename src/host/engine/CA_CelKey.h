// Keys of drawings: the key value type, its two kinds of source (a drawing of an
// element, a file by its path) and the manager that reads keys.
#pragma once

#include <QMetaType>
#include <QString>

#include <memory>

/// What a drawing is made of.
enum class CA_DrawingKind
{
    Other = 0,
    Kvg = 1,
    Bitmap = 2,
    Model3d = 3
};

/// A source of a drawing key. Keys of different classes can mean one drawing: an
/// element's drawing and a path key of the drawing's file are equivalent.
/// Immutable once made; a plain value of one thread.
class CA_AbstractCelKey
{
public:
    virtual ~CA_AbstractCelKey();

    virtual CA_AbstractCelKey* clone() const = 0;
    virtual bool isValid() const = 0;
    /// Rank of the class in the order of keys: keys of lower rank sort first.
    virtual int classRank() const = 0;
    /// Strict order among keys of the same class.
    virtual bool lessThan(CA_AbstractCelKey const& sameClass) const = 0;
    /// Element id, or -1 for a key that belongs to no element.
    virtual int elementId() const { return -1; }
    /// Drawing id within the element, or -1.
    virtual int drawingId() const { return -1; }
    /// Which image of the file the key means; 1 is the first.
    virtual int imageIndex() const { return 1; }
    /// The file that holds the drawing; empty when not known.
    virtual QString fileName() const = 0;
    virtual CA_DrawingKind kind() const = 0;
};

/// The key of a file by its path. `imageIndex` picks an image of a file that holds
/// several (1 is the first); `isProxy` marks a stand-in of lower quality, which is
/// still the same drawing. The kind follows the file's extension.
class CA_CelKeyPath : public CA_AbstractCelKey
{
public:
    CA_CelKeyPath(QString const& path, int imageIndex, bool isProxy);

    CA_AbstractCelKey* clone() const override;
    bool isValid() const override;
    int classRank() const override;
    bool lessThan(CA_AbstractCelKey const& sameClass) const override;
    QString fileName() const override;
    CA_DrawingKind kind() const override;

    int imageIndex() const override { return m_imageIndex; }
    QString path() const { return m_path; }
    bool isProxy() const { return m_isProxy; }

private:
    QString m_path;
    int m_imageIndex;
    bool m_isProxy;
};

/// The key of one drawing of an element, with the drawing's file as the element's
/// column knew it when the key was made.
class CA_CelKeyElement : public CA_AbstractCelKey
{
public:
    CA_CelKeyElement(int elementId, int drawingId, CA_DrawingKind kind, QString const& fileName);

    CA_AbstractCelKey* clone() const override;
    bool isValid() const override;
    int classRank() const override;
    bool lessThan(CA_AbstractCelKey const& sameClass) const override;
    int elementId() const override { return m_elementId; }
    int drawingId() const override { return m_drawingId; }
    QString fileName() const override { return m_fileName; }
    CA_DrawingKind kind() const override { return m_kind; }

private:
    int m_elementId;
    int m_drawingId;
    CA_DrawingKind m_kind;
    QString m_fileName;
};

/// A key to a drawing: a value that shares an immutable source. The default key is
/// not valid. Keys are strictly ordered (by class, then within the class), and two
/// keys are equal when neither sorts before the other. Copy freely; one thread.
class CA_CelKey
{
public:
    CA_CelKey() = default;
    /// A key on a copy of `source`.
    CA_CelKey(CA_AbstractCelKey const& source);
    /// A key on a copy of `source` made by `allocator` in one block with the count that
    /// the key's copies share: a holder of many keys (an element's column) places them
    /// beside itself, and a copy or a read touches one place in memory, not two.
    template <class Source, class Allocator>
    static CA_CelKey madeBy(Allocator const& allocator, Source const& source)
    {
        CA_CelKey key;
        key.m_source = std::allocate_shared<Source>(allocator, source);
        return key;
    }

    bool isValid() const;
    /// True when both keys mean one drawing: the same element and drawing, or the
    /// same file (and image of it), whatever the classes of the two keys. Two invalid
    /// keys mean nothing and are not equivalent.
    bool isEquivalent(CA_CelKey const& other) const;
    bool isKvg() const;
    bool isBitmap() const;
    bool is3d() const;
    /// The source, or null for the default key.
    CA_AbstractCelKey const* source() const { return m_source.get(); }
    /// A readable form for messages and test output.
    QString toString() const;

    bool operator<(CA_CelKey const& other) const;
    bool operator==(CA_CelKey const& other) const;
    bool operator!=(CA_CelKey const& other) const { return !(*this == other); }

private:
    CA_DrawingKind kind() const;

    std::shared_ptr<CA_AbstractCelKey const> m_source;
};

Q_DECLARE_METATYPE(CA_CelKey)

/// Reads keys: what the library needs to know of a key without knowing its class.
class CA_CelKeyMgr
{
public:
    /// The element id of the key; negative for a key that belongs to no element.
    static int id(CA_CelKey const& key);
    /// The drawing id within the element; -1 for a key of no element.
    static int drawingId(CA_CelKey const& key);
    /// The file to load the drawing from; empty for an invalid key.
    static QString loadFilename(CA_CelKey const& key);
};
