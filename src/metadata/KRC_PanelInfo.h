// The record of a panel: its name and export flags.
#pragma once

#include "metadata/KRC_MetadataRecord.h"
#include "metadata/KRC_ObjInfo.h"

class KRC_PanelInfoPrivate;

/// Identity of a panel, kept on the panel's own scene: the panel's name (from
/// KRC_ObjInfo) and its export flag word, which this record only stores.
///
/// A new record has a null automatic name (flag 0) and export flag 13, and is valid;
/// only a custom name left empty is invalid. Keyword "panelInfo", version "1.0"; XML:
/// one element "panelInfo" with the attributes name, nameFlag, exportFlag, in that
/// order. `clone()` keeps the source's identity. Threading: the host's thread.
class KRC_PanelInfo : public KRC_MetadataRecord<KRC_PanelInfo, KRC_PanelInfoPrivate, KRC_ObjInfo>
{
public:
    static QString const kPIO_KRMETA_Keyword;
    static QString const kPIO_KRMETA_Version;
    static int const kDefaultExportFlag = 13;

    using KRC_MetadataRecord::KRC_MetadataRecord;

    bool isValid() const override;
    PIO_XML::ComponentReader* componentReader() override;
    PIO_Metadata* clone() const override;
    void dumpToString(QString& out) const override;

    int exportFlag() const;
    /// Stores the word and returns the one it replaces.
    int setExportFlag(int exportFlag);

protected:
    void writeMetadataSubnodes(PIO_WritingContext& context) const override;
};
