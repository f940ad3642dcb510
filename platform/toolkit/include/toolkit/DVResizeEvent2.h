#pragma once

#include "toolkit/Geometry.h"

namespace DOVA {

class DVObject2;

/// The size of a window changed. A backend that does not know the sizes leaves them all 0; the
/// receiver then asks the window for its geometry.
class DVResizeEvent2 {
public:
    DVResizeEvent2(DVObject2* receiver, diagram::TSize<int> oldSize, diagram::TSize<int> newSize)
        : m_receiver(receiver), m_oldSize(oldSize), m_newSize(newSize) {}
    DVObject2* receiver() const { return m_receiver; }
    diagram::TSize<int> oldSize() const { return m_oldSize; }
    diagram::TSize<int> newSize() const { return m_newSize; }

private:
    DVObject2* m_receiver;
    diagram::TSize<int> m_oldSize;
    diagram::TSize<int> m_newSize;
};

}  // namespace DOVA
