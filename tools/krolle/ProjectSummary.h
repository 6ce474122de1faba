// The counts of a project, as the library gives them.
#pragma once

#include <QJsonObject>
#include <QString>

class KRC_KrolleProject;

// Acts, sequences, shots, panels, transitions and frames of a project, from
// the library's counts (actCount, sequenceCount, shotCount, panelCount,
// transCount, getNumOfFrames), read once at construction.
class ProjectSummary
{
public:
    explicit ProjectSummary(const KRC_KrolleProject& view);

    // The "counts" object of the JSON schema.
    QJsonObject json() const;
    // "3 acts, 4 sequences, 12 shots, 47 panels, 3 transitions, 452 frames"
    QString text() const;
    // The same sentence from a "counts" object.
    static QString describe(const QJsonObject& counts);

    unsigned shots() const { return m_shots; }
    unsigned panels() const { return m_panels; }
    unsigned frames() const { return m_frames; }

private:
    unsigned m_acts;
    unsigned m_sequences;
    unsigned m_shots;
    unsigned m_panels;
    unsigned m_transitions;
    unsigned m_frames;
};
