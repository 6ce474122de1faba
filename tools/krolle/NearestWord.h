// The word a mistyped one was probably meant to be.
#pragma once

#include <QString>
#include <QStringList>

// Picks, among the words a command line accepts, the one closest to a word it
// did not: by edit distance (insertions, deletions, substitutions, and swaps of
// neighbours), and only when the distance is small beside the word's length, so
// that a word unlike any is not matched to one at random. Ties go to the first.
class NearestWord
{
public:
    // The candidate nearest to word, or the null string when none is near.
    static QString among(const QString& word, const QStringList& candidates);
    // "; did you mean 'x'?" for the nearest candidate, or the empty string.
    static QString hint(const QString& word, const QStringList& candidates);

    static int distance(const QString& from, const QString& to);
};
