// Test helper: readable GoogleTest output for Qt strings and string lists.
#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(QString const& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringList const& list, std::ostream* out)
{
    *out << "{ ";
    for (QString const& text : list) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << '}';
}
