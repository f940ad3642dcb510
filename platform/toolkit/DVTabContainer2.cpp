#include "toolkit/DVTabContainer2.h"

#include <algorithm>

#include "Implementation.h"
#include "toolkit/DVTab2.h"

namespace DOVA {

namespace {

constexpr int s_none = -1;

}  // namespace

DVTabContainer2::DVTabContainer2(DVObject* parent)
    : DVWidget2(std::make_unique<DVTabContainer2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createTabContainer2, this);
    mayKeepAway();
    WIRO::connect(m_tabChanged, [this](const DVTabContainerEvent2& event) { judgeTurn(event); });
    WIRO::connect(m_closeRequest, [this](const DVTabContainerEvent2& event) { judgeClose(event); });
}

DVTabContainer2::~DVTabContainer2() {
    dismantle();
}

// A backend may take it for granted that a page has its implementation.
bool DVTabContainer2::mayTake(const DVTab2* tab) const {
    return tab && tab->emitters()->destroy.numberOfConnections() > 0 &&
           std::find(m_pages.begin(), m_pages.end(), tab->identifier()) == m_pages.end();
}

void DVTabContainer2::addTab(DVTab2* tab) {
    if (mayTake(tab)) {
        m_pages.push_back(tab->identifier());
        emitters()->addTab.emit(tab);
    }
}

void DVTabContainer2::insertTab(int index, DVTab2* tab) {
    if (mayTake(tab)) {
        const bool inside = index >= 0 && index < static_cast<int>(m_pages.size());
        m_pages.insert(inside ? m_pages.begin() + index : m_pages.end(), tab->identifier());
        emitters()->insertTab.emit(index, tab);
        if (emitters()->getCurrentTab() < 0) {
            setCurrentIndex(0);  // backends see to that for an added page alone
        }
        attachAgain(inside ? static_cast<std::size_t>(index) + 1 : m_pages.size());
    }
}

// Backends describe pages in the order in which they became children.
void DVTabContainer2::attachAgain(std::size_t from) {
    for (std::size_t index = from; index < m_pages.size(); ++index) {
        DVTab2* page = m_pages[index] == 0 ? nullptr : tab(static_cast<int>(index));
        if (page) {
            page->setParent(nullptr);
            page->setParent(this);
        }
    }
}

// The web backend would not come back from taking out a page that others follow.
void DVTabContainer2::removeTab(int index) {
    const bool isLast = index >= 0 && index == static_cast<int>(m_pages.size()) - 1;
    if (!isLast || m_pages.back() == 0) {
        return;
    }
    DVTab2* page = tab(index);
    m_pages.back() = 0;
    emitters()->removeTab.emit(index);
    if (page) {
        page->setParent(nullptr);
    }
}

void DVTabContainer2::setCurrentIndex(int index) {
    m_isAstray = false;
    emitters()->setCurrentTab.emit(index);
}

int DVTabContainer2::currentIndex() const {
    return m_isAstray ? s_none : emitters()->getCurrentTab.emit();
}

bool DVTabContainer2::hasPosition(int index) const {
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < m_pages.size() && m_pages[position] != 0;
}

// A page that was taken out may still be found under its position.
const DVTab2* DVTabContainer2::page(int index) const {
    const DVTab2* found = tab(index);
    return found && found->parent() == this ? found : nullptr;
}

// A page that was destroyed, or that has never been, is nobody's to turn to; but the display has
// turned there, and shows what comes after it.
void DVTabContainer2::judgeTurn(const DVTabContainerEvent2& event) {
    if (emitters()->getTab.numberOfConnections() == 0) {
        return Admission::judge(&event, true);
    }
    const DVTab2* target = page(event.index());
    const bool isAdmitted = admit(&event, !target || !target->keepsAway(nullptr));
    m_isAstray = isAdmitted && !target && !hasPosition(event.index());
    if (!target) {
        Admission::judge(&event, false);
    }
}

void DVTabContainer2::judgeClose(const DVTabContainerEvent2& event) {
    if (emitters()->getTab.numberOfConnections() == 0) {
        return Admission::judge(&event, true);
    }
    const DVTab2* target = page(event.index());
    admit(&event, isTabsClosable() && target && !target->keepsAway(nullptr));
}

// Where the current page has gone or is hidden, displays show the next one, else the last.
const DVTab2* DVTabContainer2::pageInFront() const {
    const auto shownAt = [this](int index) {
        const DVTab2* found = page(index);
        return found && found->isShown() ? found : nullptr;
    };
    const int current = emitters()->getCurrentTab.emit();
    const int count = std::max(tabCount(), static_cast<int>(m_pages.size()));
    const DVTab2* front = nullptr;
    for (int index = current; index >= 0 && !front && index < count; ++index) {
        front = shownAt(index);
    }
    for (int index = count - 1; current >= 0 && !front && index >= 0; --index) {
        front = shownAt(index);
    }
    return front;
}

bool DVTabContainer2::keepsAway(const DVWidget2* child) const {
    const auto* below = dynamic_cast<const DVTab2*>(child);
    return (below && below != pageInFront()) || DVWidget2::keepsAway(child);
}

}  // namespace DOVA
