// Attributes of element modules: the drawing attribute and a plain double attribute.
#pragma once

#include "host/base/UT_SharedWeakPtr.h"
#include "host/engine/CA_CelKey.h"
#include "host/engine/HostNodeArena.h"

class HostNodeEdit;
class TUElementTimedValue;

/// The drawing attribute of an element module: which drawing of the element's
/// column is exposed at a frame. It reads the column (a TUElementTimedValue of the
/// scene) through a weak pointer, so it answers as empty once the column is gone:
/// element id -1 and invalid keys. Owned by its MO_ElementModule. Single-threaded.
class AT_DrawingAttr
{
    HOST_NODE_ARENA_OBJECT

public:
    explicit AT_DrawingAttr(TUElementTimedValue* column);
    AT_DrawingAttr(AT_DrawingAttr const&) = delete;
    AT_DrawingAttr& operator=(AT_DrawingAttr const&) = delete;
    ~AT_DrawingAttr();

    /// The element id of the column, or -1 without one.
    int getElementId() const;
    /// The key of the drawing exposed at a frame of the scene (a fractional frame lies
    /// in the whole frame below it); an invalid key where nothing is exposed.
    CA_CelKey key(double frame) const;
    /// The column, or null once it is gone.
    TUElementTimedValue* timedValue() const;

private:
    UT_SharedWeakPtr<TUElementTimedValue> m_column;
};

/// A double attribute of a node, here the opacity of an element in percent.
/// Owned by its node; changed through HostNodeAuthoring. Single-threaded.
class AT_DoubleAttr
{
    HOST_NODE_ARENA_OBJECT

public:
    explicit AT_DoubleAttr(double value);

    double localValue() const { return m_value; }

private:
    friend class HostNodeEdit;
    void setLocalValue(double value) { m_value = value; }

    double m_value;
};
