// Lookup of a project's scenes by id.
#pragma once

#include "host/engine/SC_Id.h"

class SC_SceneBase;

/// Finds the scenes of one project by id, in constant time. Scenes are registered by
/// SC_Project when made and unregistered when removed. Threading: the host's thread.
class SC_SceneManager
{
public:
    SC_SceneManager();
    SC_SceneManager(SC_SceneManager const&) = delete;
    SC_SceneManager& operator=(SC_SceneManager const&) = delete;
    ~SC_SceneManager();

    /// The scene with that id, or null.
    SC_SceneBase* find(SC_Id const& id) const;
    unsigned count() const;

    /// Registers a scene under its id; false (nothing done) if the id is taken or
    /// the scene is null.
    bool add(SC_SceneBase* scene);
    /// Unregisters the scene with that id; false if there is none.
    bool remove(SC_Id const& id);

private:
    class SC_SceneManagerPrivate;
    SC_SceneManagerPrivate* d;
};
