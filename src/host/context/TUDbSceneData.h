// The project's name and folder, from the stand-in scene context library.
#pragma once

#include <QString>

/// Where a project lives: its name and the folder that holds it. Both are null until
/// set; the engine sets them when a project is created or opened. Copies are
/// independent. Threading: host's thread.
class TUDbSceneData
{
public:
    TUDbSceneData();
    TUDbSceneData(QString const& sceneName, QString const& projectDir);
    TUDbSceneData(TUDbSceneData const& other);
    TUDbSceneData& operator=(TUDbSceneData const& other);
    ~TUDbSceneData();

    /// The project's name.
    QString sceneName() const;
    void setSceneName(QString const& name);
    /// The project's folder on disk.
    QString projectDir() const;
    void setProjectDir(QString const& dir);

private:
    class TUDbSceneDataPrivate;
    TUDbSceneDataPrivate* d;
};
