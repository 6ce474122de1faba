#include "host/context/TUDbSceneData.h"

class TUDbSceneData::TUDbSceneDataPrivate
{
public:
    QString sceneName;
    QString projectDir;
};

TUDbSceneData::TUDbSceneData()
    : d(new TUDbSceneDataPrivate)
{
}

TUDbSceneData::TUDbSceneData(QString const& sceneName, QString const& projectDir)
    : d(new TUDbSceneDataPrivate { sceneName, projectDir })
{
}

TUDbSceneData::TUDbSceneData(TUDbSceneData const& other)
    : d(new TUDbSceneDataPrivate(*other.d))
{
}

TUDbSceneData& TUDbSceneData::operator=(TUDbSceneData const& other)
{
    *d = *other.d;
    return *this;
}

TUDbSceneData::~TUDbSceneData()
{
    delete d;
}

QString TUDbSceneData::sceneName() const
{
    return d->sceneName;
}

void TUDbSceneData::setSceneName(QString const& name)
{
    d->sceneName = name;
}

QString TUDbSceneData::projectDir() const
{
    return d->projectDir;
}

void TUDbSceneData::setProjectDir(QString const& dir)
{
    d->projectDir = dir;
}
