// What a project file was when it was read, to tell later whether it changed.
#pragma once

#include <QByteArray>
#include <QString>

/// Size, modification time and content hash of a file at one moment. A host takes one
/// when it loads a project (HostProjectFile::load hands it out) and asks
/// `changedOnDisk` before it saves over the file: another program, or another copy of
/// the host, may have written it meanwhile. The hash catches a rewrite that keeps size
/// and time. A null fingerprint (no file) differs from every file that exists.
/// Threading: a value; any thread.
class HostFileFingerprint
{
public:
    HostFileFingerprint() = default;

    /// The fingerprint of `bytes` as read from the file at `path` now.
    static HostFileFingerprint of(QString const& path, QByteArray const& bytes);
    /// The fingerprint of the file as it is on disk now; null when it cannot be read.
    static HostFileFingerprint ofFile(QString const& path);

    bool isNull() const { return m_hash.isEmpty(); }
    /// Whether the file at `path` is no longer what this fingerprint saw.
    bool changedOnDisk(QString const& path) const;

    bool operator==(HostFileFingerprint const& other) const;
    bool operator!=(HostFileFingerprint const& other) const { return !(*this == other); }

private:
    qint64 m_size = -1;
    qint64 m_modifiedNs = -1;
    QByteArray m_hash;
};
