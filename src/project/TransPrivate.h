// The private object of a transition handle.
#pragma once

#include "project/ObjectPrivate.h"

#include <QString>

namespace Krolle {

/// A transition's block in the top scene's sequence. `name` stays null until a
/// handle asks for it, then holds the transition type's display name for every copy.
/// Threading: the host's thread.
class TransPrivate : public ObjectPrivate
{
public:
    explicit TransPrivate(AT_FrameBlock const* block);
    ~TransPrivate() override;

    /// The private object of every invalid transition: null block, invalid id.
    static TransPrivate* invalidInstance();

    QString name;
};

} // namespace Krolle
