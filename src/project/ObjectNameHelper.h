// The interface through which shot and panel handles ask for their automatic names.
#pragma once

#include <QString>

namespace Krolle {

class Panel_t;
class Shot_t;

/// Computes the automatic name of a shot or a panel from its place on the timeline.
///
/// A handle asks its helper only when its info record holds no custom name. The
/// project view owns the one implementation (KRC_NameHelper) and hands it to every
/// shot and panel it makes; transitions have none. Threading: the host's thread.
class ObjectNameHelper
{
public:
    virtual ~ObjectNameHelper() = default;

    virtual QString getPanelName(Panel_t const& panel) const = 0;
    virtual QString getSceneName(Shot_t const& shot) const = 0;
};

} // namespace Krolle
