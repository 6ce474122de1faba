// The record of a panel's exposure points.
#pragma once

#include "metadata/KRC_MetadataRecord.h"

#include <set>

class KRC_ExposurePointsPrivate;

/// The points within a panel at which a drawing is exposed, as fractions of the panel's
/// length (0 the first frame, 1 the last), with one primary point.
///
/// The list is ascending and free of duplicates (exact float equality). The primary point
/// is stored as given and need not be in the list: only the first insertion into an
/// empty list sets it, and removing a point never touches it. The record is valid while
/// the primary point is at least 0. Keyword "exposurePoints", version "1.0"; XML: the
/// element with "primaryExposure", then one child "pt" with "value" per point, ascending.
/// Threading: the host's thread.
class KRC_ExposurePoints : public KRC_MetadataRecord<KRC_ExposurePoints, KRC_ExposurePointsPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;

    using ExposureList = std::set<float>;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    /// Adds the point; false (nothing changed) when it is already there. The first point
    /// of an empty list becomes the primary one as well.
    bool insertExposurePoint(float point);
    /// Erases the point; false when it was not there. The primary point stays.
    bool removeExposurePoint(float point);
    /// A hook for hosts that limit insertion; this record has no limit.
    bool canInsertExposurePoint() const;

    void setPrimaryExposurePoint(float point);
    bool isPrimaryExposurePoint(float point) const;
    /// The primary point, or 0 while the list is empty.
    float getPrimaryExposurePoint() const;
    /// The frame of getPrimaryExposurePoint() on a panel of `length` frames.
    int getPrimaryExposureFrame(int length) const;
    /// The 1-based frame of `point` on a panel of `length` frames. The arithmetic is kept
    /// in single precision where stored points live, since long panels round differently
    /// in double.
    static int getExposureFrame(int length, float point);

    quint64 getNumOfExposurePoint() const;
    ExposureList& exposureList();
    ExposureList const& exposureList() const;
    ExposureList::const_iterator beginExposureList() const;
    ExposureList::const_iterator endExposureList() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};
