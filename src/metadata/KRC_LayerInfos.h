// The record of a panel's layers: export and layer flags, by layer name.
#pragma once

#include "host/base/HostBase.h"
#include "metadata/KRC_MetadataRecord.h"

#include <QString>

#include <list>
#include <vector>

class KRC_LayerInfosPrivate;

/// Bits of a layer's export flag word. A new entry has ExportDefault (13).
enum EXPORT_FLAGS
{
    EXPORT_Image = 0x1,
    EXPORT_Movie = 0x2,
    EXPORT_Pdf = 0x4,
    EXPORT_Flash = 0x8,
    EXPORT_Default = EXPORT_Image | EXPORT_Pdf | EXPORT_Flash
};

/// Bits of a layer's flag word. LAYER_PitchMode marks the layer of pitch mode.
enum LAYER_FLAGS
{
    LAYER_None = 0,
    LAYER_Hidden = 0x1,
    LAYER_Locked = 0x2,
    LAYER_Light = 0x4,
    LAYER_Overlay = 0x8,
    LAYER_PitchMode = 0x10
};

/// Combines layer flags without a cast.
LAYER_FLAGS operator|(LAYER_FLAGS a, LAYER_FLAGS b);

/// The flags that a panel keeps per layer beside what the engine's nodes hold, keyed by
/// the layer's instance name, in a list whose order is the order of writing.
///
/// Entries are shared (`UT_SharedPtr<LayerInfo_t>`): `add` keeps the pointer it is
/// given, copies of the record share their entries with the source, and only `clone`
/// makes new ones. Names are unique when entries come through `add` or
/// `info(name, true)`; a file may bring two entries of one name, and lookups then find
/// the first. `setExportFlags` and `setLayerFlags` never create an entry.
///
/// Keyword "layerInfos", version "1.0", on each panel's scene. XML: element
/// "layerInfos" with one child "layer" (name, exportFlag, layerFlag) per entry. Reading
/// replaces the list (componentReader() empties it first); a "layer" whose flag does
/// not parse ends the read with a null reader and is dropped, the entries read before
/// it stay. Valid when the list is not empty. Threading: the host's thread.
class KRC_LayerInfos : public KRC_MetadataRecord<KRC_LayerInfos, KRC_LayerInfosPrivate>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;
    static int const kDefaultExportFlags = EXPORT_Default;

    /// One layer's flags.
    class LayerInfo_t : public UT_ShareBase
    {
    public:
        explicit LayerInfo_t(QString const& layerName = QString());

        QString name;
        int exportFlags = kDefaultExportFlags;
        int layerFlags = LAYER_None;
    };
    using Entry = UT_SharedPtr<LayerInfo_t>;
    using Entries = std::list<Entry>;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    Entries::const_iterator begin() const;
    Entries::const_iterator end() const;
    void Clear();

    /// Replaces the entry of the same name, if any, and appends `entry` at the end.
    void add(Entry const& entry);
    /// Removes the first entry of that name, if any.
    void remove(QString const& name);
    /// The first entry of that name, or null.
    Entry info(QString const& name) const;
    /// As above; with `create`, a missing entry is made with the defaults and added.
    Entry info(QString const& name, bool create);

    /// The entry's flags; 0 without an entry.
    int exportFlags(QString const& name) const;
    int layerFlags(QString const& name) const;
    /// Stores the flags in an existing entry; does nothing without one.
    void setExportFlags(QString const& name, EXPORT_FLAGS flags);
    void setLayerFlags(QString const& name, LAYER_FLAGS flags);

    /// Appends to `out`, in list order, every entry sharing a bit with `flags`; true
    /// when `out` is not empty afterwards (it is never cleared).
    bool infoByLayerFlags(LAYER_FLAGS flags, std::vector<Entry>& out) const;

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;

private:
    friend class LayerInfoMetadataReader;
    /// Appends without removing an entry of the same name, as a file states it.
    void append(Entry const& entry);
};
