#include "host/persistence/DB_MemFile.h"

class DB_MemFile::DB_MemFilePrivate
{
public:
    QByteArray bytes;
};

DB_MemFile::DB_MemFile()
    : d(new DB_MemFilePrivate)
{
}

DB_MemFile::DB_MemFile(DB_MemFile const& other)
    : d(new DB_MemFilePrivate(*other.d))
{
}

DB_MemFile& DB_MemFile::operator=(DB_MemFile const& other)
{
    *d = *other.d;
    return *this;
}

DB_MemFile::~DB_MemFile()
{
    delete d;
}

unsigned char* DB_MemFile::GetBuffer()
{
    return reinterpret_cast<unsigned char*>(d->bytes.data());
}

unsigned char const* DB_MemFile::GetBuffer() const
{
    return reinterpret_cast<unsigned char const*>(d->bytes.constData());
}

int DB_MemFile::GetLength() const
{
    return d->bytes.size();
}

void DB_MemFile::Write(void const* data, int length)
{
    if (data && length > 0)
        d->bytes.append(static_cast<char const*>(data), length);
}

void DB_MemFile::Clear()
{
    d->bytes.clear();
}

QByteArray DB_MemFile::toByteArray() const
{
    return d->bytes;
}
