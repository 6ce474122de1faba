// Umbrella header of the stand-in persistence library (records, XML writer and readers, memory files).
// The library proper includes this header rather than the individual files,
// so that the stand-in is free to arrange its files as it likes.
#pragma once

#include "host/persistence/DB_MemFile.h"
#include "host/persistence/PIO_Metadata.h"
#include "host/persistence/PIO_MetadataFactory.h"
#include "host/persistence/PIO_MetadataGeneric.h"
#include "host/persistence/PIO_MetadataUnknown.h"
#include "host/persistence/PIO_Metadatas.h"
#include "host/persistence/PIO_MetadatasXml.h"
#include "host/persistence/PIO_ReadingContext.h"
#include "host/persistence/PIO_WritingContext.h"
#include "host/persistence/PIO_XML_ComponentReader.h"
#include "host/persistence/PO_Utils.h"
#include "host/persistence/PO_XmlWriter.h"

#include <QXmlAttributes>
