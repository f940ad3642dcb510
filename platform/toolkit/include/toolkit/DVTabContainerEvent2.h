#pragma once

namespace DOVA {

class DVTabContainer2;

/// The user turned to a page, or wants one closed.
class DVTabContainerEvent2 {
public:
    DVTabContainerEvent2(DVTabContainer2* container, int index)
        : m_container(container), m_index(index) {}
    DVTabContainer2* container() const { return m_container; }
    /// The position of the page, from 0, as the display reports it; -1 if it did not say which.
    int index() const { return m_index; }

private:
    DVTabContainer2* m_container;
    int m_index;
};

}  // namespace DOVA
