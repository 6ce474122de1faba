// Growing in-memory buffer of the stand-in persistence library.
#pragma once

#include <QByteArray>

/// A byte buffer that grows as data is written to its end; binary attributes are
/// decoded into one. `GetBuffer` is valid until the next write or clear.
/// Copies are independent. Threading: one thread at a time.
class DB_MemFile
{
public:
    DB_MemFile();
    DB_MemFile(DB_MemFile const& other);
    DB_MemFile& operator=(DB_MemFile const& other);
    ~DB_MemFile();

    unsigned char* GetBuffer();
    unsigned char const* GetBuffer() const;
    int GetLength() const;

    /// Appends `length` bytes.
    void Write(void const* data, int length);
    void Clear();
    QByteArray toByteArray() const;

private:
    class DB_MemFilePrivate;
    DB_MemFilePrivate* d;
};
