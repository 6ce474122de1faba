#include "support/PropertyBlobs.h"

#include "properties/KRC_PropertyFromFile.h"
#include "properties/KRC_PropertyFromList.h"
#include "properties/KRC_PropertyFromRange.h"

#include <QDebug>

namespace PropertyBlobs {

QByteArray raw(int version, std::function<void(QDataStream&)> const& write)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    write(out);
    return bytes;
}

QByteArray store(KRC_Property const& property, int version, bool marked)
{
    return raw(version, [&](QDataStream& out) {
        if (marked) {
            out.setVersion(QDataStream::Qt_4_6);
            out << qint32(0xb0b00000) << qint32(473);
            out.setVersion(version);
        }
        property.store(out);
    });
}

QString summary(KRC_Property const& property)
{
    QString text;
    QDebug debug(&text);
    debug << property.propertyType() << property.name() << property.value() << property.ldesc()
          << property.sdesc() << property.isReadOnly() << property.isInternal();
    if (auto list = dynamic_cast<KRC_PropertyFromList const*>(&property))
        debug << list->possibleValues() << list->allowEmpty() << list->allowMultiple();
    if (auto range = dynamic_cast<KRC_PropertyFromRange const*>(&property))
        debug << range->min() << range->max();
    if (auto file = dynamic_cast<KRC_PropertyFromFile const*>(&property))
        debug << file->fileFilter();
    return text;
}

} // namespace PropertyBlobs
