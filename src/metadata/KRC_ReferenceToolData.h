// The project's record of the reference tool: placement, colour and options.
#pragma once

#include "host/base/HostBase.h"
#include "metadata/KRC_MetadataRecord.h"

#include <QColor>

class KRC_ReferenceToolDataPrivate;

/// Where and how the host's reference tool shows: position, scale, angle, colour with a
/// separate opacity (`alpha`), and option bits. One per project, on SC_Project's
/// collection; KRC_KrolleProject::referenceToolData() gives it.
///
/// A new record has position (0, 0), scale 1, angle 0, alpha 1, the colour kDefaultRgb
/// (255, 30, 255, opaque) and no options. Always valid. Keyword "referenceToolData",
/// version "1.0"; XML: element "referenceToolData" with the children "position" (x, y,
/// angle, scale), "color" (r, g, b, a; "a" is `alpha`, not the colour's own alpha) and
/// "options" (value), in that order. Reading: a child is stored only when its last
/// attribute parses (see ReferenceToolDataMetadataReader). `clone()` is made afresh and
/// then takes the source's identity and content. Threading: the host's thread.
class KRC_ReferenceToolData : public KRC_MetadataRecord<KRC_ReferenceToolData, KRC_ReferenceToolDataPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;
    /// The colour every reference tool starts with.
    static constexpr QRgb kDefaultRgb = qRgb(255, 30, 255);

    /// Bits of options().
    enum Option
    {
        ShowOnThumbnails = 0x1,
        AutoUpdateThumbnails = 0x2
    };

    /// The placement and colour, as one plain value.
    struct Data_t
    {
        Math::Point2d pos;
        double scale = 1.0;
        double angle = 0.0;
        double alpha = 1.0;
        QColor rgb = QColor(kDefaultRgb);

        /// Exact comparison of x, y, angle, scale, colour and alpha.
        bool operator==(Data_t const& other) const;
        bool operator!=(Data_t const& other) const { return !(*this == other); }
    };

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    Math::Point2d const& pos() const;
    void setPos(Math::Point2d const& pos);
    double angle() const;
    void setAngle(double angle);
    double scale() const;
    void setScale(double scale);
    QColor const& rgb() const;
    void setRgb(QColor const& rgb);
    double alpha() const;
    void setAlpha(double alpha);
    int options() const;
    void setOptions(int options);
    /// Sets one bit, keeping the others.
    void addOption(Option option);
    bool showOnThumbnails() const;
    bool autoUpdateThumbnails() const;
    Data_t const& data() const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};
