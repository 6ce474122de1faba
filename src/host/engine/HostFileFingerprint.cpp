#include "host/engine/HostFileFingerprint.h"

#include <QCryptographicHash>
#include <QFile>

#include <sys/stat.h>

namespace {

bool statFile(QString const& path, qint64& size, qint64& modifiedNs)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    size = qint64(status.st_size);
    modifiedNs = qint64(status.st_mtim.tv_sec) * 1000000000 + qint64(status.st_mtim.tv_nsec);
    return true;
}

} // namespace

HostFileFingerprint HostFileFingerprint::of(QString const& path, QByteArray const& bytes)
{
    HostFileFingerprint print;
    if (!statFile(path, print.m_size, print.m_modifiedNs))
        return HostFileFingerprint();
    print.m_hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return print;
}

HostFileFingerprint HostFileFingerprint::ofFile(QString const& path)
{
    qint64 size = 0;
    qint64 modified = 0;
    if (!statFile(path, size, modified))
        return HostFileFingerprint();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return HostFileFingerprint();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!hash.addData(&file))
        return HostFileFingerprint();
    HostFileFingerprint print;
    print.m_size = size;
    print.m_modifiedNs = modified;
    print.m_hash = hash.result();
    return print;
}

bool HostFileFingerprint::changedOnDisk(QString const& path) const
{
    qint64 size = 0;
    qint64 modified = 0;
    // Size and time first: a changed file is told without reading it.
    if (!statFile(path, size, modified) || size != m_size || modified != m_modifiedNs)
        return true;
    return ofFile(path) != *this;
}

bool HostFileFingerprint::operator==(HostFileFingerprint const& other) const
{
    return m_size == other.m_size && m_modifiedNs == other.m_modifiedNs && m_hash == other.m_hash;
}
