#include "host/engine/CA_CelKey.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <tuple>

namespace {

enum KeyClassRank
{
    ElementKeyRank = 0,
    PathKeyRank = 1
};

CA_DrawingKind kindOfFile(QString const& path)
{
    static const QSet<QString> bitmaps { "png", "jpg", "jpeg", "bmp", "tga", "tif", "tiff", "psd", "gif",
        "exr" };
    static const QSet<QString> models { "obj", "fbx", "3ds", "abc", "dae", "osb" };
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("kvg"))
        return CA_DrawingKind::Kvg;
    if (bitmaps.contains(suffix))
        return CA_DrawingKind::Bitmap;
    if (models.contains(suffix))
        return CA_DrawingKind::Model3d;
    return CA_DrawingKind::Other;
}

} // namespace

CA_AbstractCelKey::~CA_AbstractCelKey() = default;

CA_CelKeyPath::CA_CelKeyPath(QString const& path, int imageIndex, bool isProxy)
    : m_path(path)
    , m_imageIndex(imageIndex)
    , m_isProxy(isProxy)
{
}

CA_AbstractCelKey* CA_CelKeyPath::clone() const
{
    return new CA_CelKeyPath(*this);
}

bool CA_CelKeyPath::isValid() const
{
    return !m_path.isEmpty();
}

int CA_CelKeyPath::classRank() const
{
    return PathKeyRank;
}

bool CA_CelKeyPath::lessThan(CA_AbstractCelKey const& sameClass) const
{
    auto const& other = static_cast<CA_CelKeyPath const&>(sameClass);
    return std::make_tuple(m_path, m_imageIndex, m_isProxy)
        < std::make_tuple(other.m_path, other.m_imageIndex, other.m_isProxy);
}

QString CA_CelKeyPath::fileName() const
{
    return m_path;
}

CA_DrawingKind CA_CelKeyPath::kind() const
{
    return kindOfFile(m_path);
}

CA_CelKeyElement::CA_CelKeyElement(int elementId, int drawingId, CA_DrawingKind kind, QString const& fileName)
    : m_elementId(elementId)
    , m_drawingId(drawingId)
    , m_kind(kind)
    , m_fileName(fileName)
{
}

CA_AbstractCelKey* CA_CelKeyElement::clone() const
{
    return new CA_CelKeyElement(*this);
}

bool CA_CelKeyElement::isValid() const
{
    return m_elementId >= 0 && m_drawingId >= 0;
}

int CA_CelKeyElement::classRank() const
{
    return ElementKeyRank;
}

bool CA_CelKeyElement::lessThan(CA_AbstractCelKey const& sameClass) const
{
    auto const& other = static_cast<CA_CelKeyElement const&>(sameClass);
    return std::make_pair(m_elementId, m_drawingId) < std::make_pair(other.m_elementId, other.m_drawingId);
}

CA_CelKey::CA_CelKey(CA_AbstractCelKey const& source)
    : m_source(source.clone())
{
}

bool CA_CelKey::isValid() const
{
    return m_source && m_source->isValid();
}

bool CA_CelKey::isEquivalent(CA_CelKey const& other) const
{
    if (!isValid() || !other.isValid())
        return false;
    if (m_source->elementId() >= 0 && other.m_source->elementId() >= 0)
        return m_source->elementId() == other.m_source->elementId()
            && m_source->drawingId() == other.m_source->drawingId();
    const QString file = m_source->fileName();
    return !file.isEmpty() && QDir::cleanPath(file) == QDir::cleanPath(other.m_source->fileName())
        && m_source->imageIndex() == other.m_source->imageIndex();
}

CA_DrawingKind CA_CelKey::kind() const
{
    return isValid() ? m_source->kind() : CA_DrawingKind::Other;
}

bool CA_CelKey::isKvg() const
{
    return kind() == CA_DrawingKind::Kvg;
}

bool CA_CelKey::isBitmap() const
{
    return kind() == CA_DrawingKind::Bitmap;
}

bool CA_CelKey::is3d() const
{
    return kind() == CA_DrawingKind::Model3d;
}

QString CA_CelKey::toString() const
{
    if (!m_source)
        return QStringLiteral("CA_CelKey()");
    if (m_source->elementId() >= 0)
        return QStringLiteral("CA_CelKey(element %1, drawing %2, \"%3\")")
            .arg(m_source->elementId())
            .arg(m_source->drawingId())
            .arg(m_source->fileName());
    return QStringLiteral("CA_CelKey(\"%1\", image %2)")
        .arg(m_source->fileName())
        .arg(m_source->imageIndex());
}

bool CA_CelKey::operator<(CA_CelKey const& other) const
{
    // The default key sorts before every other key.
    if (!m_source || !other.m_source)
        return !m_source && other.m_source;
    if (m_source->classRank() != other.m_source->classRank())
        return m_source->classRank() < other.m_source->classRank();
    return m_source->lessThan(*other.m_source);
}

bool CA_CelKey::operator==(CA_CelKey const& other) const
{
    return !(*this < other) && !(other < *this);
}

int CA_CelKeyMgr::id(CA_CelKey const& key)
{
    return key.isValid() ? key.source()->elementId() : -1;
}

int CA_CelKeyMgr::drawingId(CA_CelKey const& key)
{
    return key.isValid() ? key.source()->drawingId() : -1;
}

QString CA_CelKeyMgr::loadFilename(CA_CelKey const& key)
{
    return key.isValid() ? key.source()->fileName() : QString();
}
