// A panel or a transition, for walks that stop at both.
#pragma once

#include "project/Panel_t.h"
#include "project/Trans_t.h"

#include <QString>

#include <utility>

namespace Krolle {

/// Holds either a panel or a transition; the other half is the invalid handle.
///
/// The pair lives on the heap and a copy makes its own pair over the same private
/// objects. The common accessors answer for the transition half when it is valid,
/// otherwise for the panel half. Threading: the host's thread.
class PanelTrans_t
{
public:
    static PanelTrans_t const invalid;

    PanelTrans_t();
    PanelTrans_t(Panel_t const& panel);
    PanelTrans_t(Trans_t const& trans);
    PanelTrans_t(PanelTrans_t const& other);
    ~PanelTrans_t();
    /// Keeps only the half that the source holds: its transition if it has one,
    /// otherwise its panel.
    PanelTrans_t& operator=(PanelTrans_t const& other);

    bool isTrans() const { return m_pair->first.isValid(); }
    bool isPanel() const { return m_pair->second.isValid(); }
    bool isInvalid() const { return !isTrans() && !isPanel(); }
    bool isValid() const { return !isInvalid(); }

    Panel_t const& asPanel() const { return m_pair->second; }
    Panel_t& asPanel() { return m_pair->second; }
    Trans_t const& asTrans() const { return m_pair->first; }
    Trans_t& asTrans() { return m_pair->first; }

    SC_Id const& id() const;
    AT_FrameBlock* frameBlock() const;
    unsigned firstFrame() const;
    unsigned lastFrame() const;
    unsigned objNumOfFrame() const;
    QString name() const;

    bool operator==(PanelTrans_t const& other) const;
    bool operator==(Trans_t const& trans) const { return asTrans() == trans; }
    bool operator==(Panel_t const& panel) const { return asPanel() == panel; }
    bool operator!=(PanelTrans_t const& other) const { return !(*this == other); }
    bool operator!=(Trans_t const& trans) const { return !(*this == trans); }
    bool operator!=(Panel_t const& panel) const { return !(*this == panel); }

private:
    using Pair = std::pair<Trans_t, Panel_t>;

    Pair* m_pair;
};

} // namespace Krolle
