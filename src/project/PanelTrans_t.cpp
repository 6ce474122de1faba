#include "project/PanelTrans_t.h"

namespace Krolle {

PanelTrans_t::PanelTrans_t()
    : m_pair(new Pair())
{
}

PanelTrans_t::PanelTrans_t(Panel_t const& panel)
    : m_pair(new Pair(Trans_t(), panel))
{
}

PanelTrans_t::PanelTrans_t(Trans_t const& trans)
    : m_pair(new Pair(trans, Panel_t()))
{
}

PanelTrans_t::PanelTrans_t(PanelTrans_t const& other)
    : m_pair(new Pair(*other.m_pair))
{
}

PanelTrans_t::~PanelTrans_t()
{
    delete m_pair;
}

PanelTrans_t& PanelTrans_t::operator=(PanelTrans_t const& other)
{
    if (this == &other)
        return *this;
    Pair* fresh
        = other.isTrans() ? new Pair(other.asTrans(), Panel_t()) : new Pair(Trans_t(), other.asPanel());
    delete m_pair;
    m_pair = fresh;
    return *this;
}

SC_Id const& PanelTrans_t::id() const
{
    return isTrans() ? asTrans().id() : asPanel().id();
}

AT_FrameBlock* PanelTrans_t::frameBlock() const
{
    return isTrans() ? asTrans().frameBlock() : asPanel().frameBlock();
}

unsigned PanelTrans_t::firstFrame() const
{
    return isTrans() ? asTrans().firstFrame() : asPanel().firstFrame();
}

unsigned PanelTrans_t::lastFrame() const
{
    return isTrans() ? asTrans().lastFrame() : asPanel().lastFrame();
}

unsigned PanelTrans_t::objNumOfFrame() const
{
    return lastFrame() - firstFrame() + 1;
}

QString PanelTrans_t::name() const
{
    return isTrans() ? asTrans().name() : asPanel().name();
}

bool PanelTrans_t::operator==(PanelTrans_t const& other) const
{
    if (isInvalid() != other.isInvalid() || isTrans() != other.isTrans())
        return false;
    if (isTrans() && asTrans() != other.asTrans())
        return false;
    return asPanel().isInvalid() || asPanel() == other.asPanel();
}

} // namespace Krolle
