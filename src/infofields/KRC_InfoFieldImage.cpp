#include "infofields/KRC_InfoFieldImage.h"

QString KRC_InfoFieldImage::fileOf(QString const& folder, QString const& key)
{
    return key.isEmpty() ? QString() : folder + QLatin1Char('/') + key;
}
