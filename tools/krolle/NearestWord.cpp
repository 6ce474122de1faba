#include "NearestWord.h"

#include <QVector>
#include <algorithm>

namespace {

// Up to one edit in four letters, at least one: "--fsp" is near "--fps", "zap" near nothing.
int mostEdits(const QString& word)
{
    return std::max(1, static_cast<int>(word.size()) / 4);
}

} // namespace

int NearestWord::distance(const QString& from, const QString& to)
{
    const int rows = from.size() + 1;
    const int columns = to.size() + 1;
    QVector<int> cost(rows * columns);
    for (int i = 0; i < rows; ++i)
        cost[i * columns] = i;
    for (int j = 0; j < columns; ++j)
        cost[j] = j;
    for (int i = 1; i < rows; ++i) {
        for (int j = 1; j < columns; ++j) {
            const int substitute = from.at(i - 1) == to.at(j - 1) ? 0 : 1;
            int best = std::min({ cost[(i - 1) * columns + j] + 1, cost[i * columns + j - 1] + 1,
                cost[(i - 1) * columns + j - 1] + substitute });
            if (i > 1 && j > 1 && from.at(i - 1) == to.at(j - 2) && from.at(i - 2) == to.at(j - 1))
                best = std::min(best, cost[(i - 2) * columns + j - 2] + 1);
            cost[i * columns + j] = best;
        }
    }
    return cost.last();
}

QString NearestWord::among(const QString& word, const QStringList& candidates)
{
    QString nearest;
    int best = mostEdits(word) + 1;
    for (const QString& candidate : candidates) {
        const int edits = distance(word, candidate);
        if (edits < best) {
            best = edits;
            nearest = candidate;
        }
    }
    return nearest;
}

QString NearestWord::hint(const QString& word, const QStringList& candidates)
{
    const QString nearest = among(word, candidates);
    return nearest.isNull() ? QString() : QStringLiteral("; did you mean '%1'?").arg(nearest);
}
