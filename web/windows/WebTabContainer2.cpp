#include "windows/WebTabContainer2.h"

#include "../core/BrokenInvariant.h"
#include "../core/PropertyNames.h"
#include "../core/TakenOver.h"
#include "../core/TextConversions.h"
#include "core/WebObjectService2.h"
#include "windows/WebTab2.h"

namespace DOVA {

namespace {

constexpr Position s_north{1};
constexpr Position s_south{2};
constexpr Position s_west{4};
constexpr Position s_east{8};

}  // namespace

WebTabContainer2::WebTabContainer2(DVTabContainer2* front, DVTabContainer2Emitters* emitters,
                                   DVObject*)
    : WebWidget2(front, emitters) {
    setProperty(names::type, utf8ToU16(kinds::tabContainer), false);
    doLower();
    bindPages(emitters);
    bindLooks(emitters);
}

void WebTabContainer2::bindPages(DVTabContainer2Emitters* emitters) {
    using Emitters = DVTabContainer2Emitters;
    bind(emitters, {binding<&Emitters::addTab, &WebTabContainer2::doAddTab>,
                    binding<&Emitters::insertTab, &WebTabContainer2::doInsertTab>,
                    binding<&Emitters::removeTab, &WebTabContainer2::doRemoveTab>,
                    binding<&Emitters::getTab, &WebTabContainer2::doGetTab>,
                    binding<&Emitters::currentTab, &WebTabContainer2::doCurrentTab>,
                    binding<&Emitters::setCornerWidget, &WebTabContainer2::doSetCornerWidget>,
                    binding<&Emitters::getTabIndex, &WebTabContainer2::doGetTabIndex>,
                    binding<&Emitters::getTabCount, &WebTabContainer2::doGetTabCount>,
                    binding<&Emitters::setCurrentTab, &WebTabContainer2::doSetCurrentTab>,
                    binding<&Emitters::moveTab, &WebTabContainer2::doMoveTab>,
                    binding<&Emitters::getCurrentTab, &WebTabContainer2::doGetCurrentTab>,
                    binding<&Emitters::setCurrentTabWithSideEffects,
                            &WebTabContainer2::doSetCurrentTabWithSideEffects>});
}

void WebTabContainer2::bindLooks(DVTabContainer2Emitters* emitters) {
    using Emitters = DVTabContainer2Emitters;
    bind(emitters, {binding<&Emitters::getTabsClosable, &WebTabContainer2::doGetTabsClosable>,
                    binding<&Emitters::getDocumentMode, &WebTabContainer2::doGetDocumentMode>,
                    binding<&Emitters::setTabToolTip, &WebTabContainer2::doSetTabToolTip>,
                    binding<&Emitters::setTabMovable, &WebTabContainer2::doSetTabMovable>,
                    binding<&Emitters::getTabMovable, &WebTabContainer2::doGetTabMovable>,
                    binding<&Emitters::setTabPosition, &WebTabContainer2::doSetTabPosition>,
                    binding<&Emitters::setTabsClosable, &WebTabContainer2::doSetTabsClosable>,
                    binding<&Emitters::setDocumentMode, &WebTabContainer2::doSetDocumentMode>,
                    binding<&Emitters::getVisible, &WebTabContainer2::doGetVisible>,
                    binding<&Emitters::getTabPosition, &WebTabContainer2::doGetTabPosition>,
                    binding<&Emitters::getTabAreaGlobalPosition,
                            &WebTabContainer2::doGetTabAreaGlobalPosition>});
}

WebTabContainer2::~WebTabContainer2() {
    endBindings();
    disableEventBroadcasting();
}

/// Makes the page a child of this container; false if there is no such page.
bool WebTabContainer2::adopt(DVTab2* tab) {
    WebObjectService2* service = getService();
    if (!service || !tab || !DVObject::isObjectValid(tab, seam::identifierOf(*tab))) {
        return false;
    }
    WebObject2* page = service->getObject(seam::identifierOf(*tab));
    if (!page) {
        stopOnBrokenInvariant(seam::identifierOf(*tab),
                              "this page of a tab container has no web object");
    }
    page->doSetParent(getHandle());
    return true;
}

void WebTabContainer2::setTabCount(int count) {
    m_tabCount = count;
    setProperty(names::tabcount, count, false);
}

int WebTabContainer2::doAddTab(DVTab2* tab) {
    std::lock_guard guard(DVObject::m_lock);
    if (!adopt(tab)) {
        return NoTab;
    }
    m_tabIds.push_back(seam::identifierOf(*tab));
    setTabCount(m_tabCount + 1);
    if (m_currentIndex == NoTab) {
        m_currentIndex = 0;
        setProperty(names::currentindex, m_currentIndex, false);
    }
    return 1;
}

int WebTabContainer2::doInsertTab(int index, DVTab2* tab) {
    if (!adopt(tab)) {
        return NoTab;
    }
    const bool inside = index >= 0 && index < static_cast<int>(m_tabIds.size());
    m_tabIds.insert(inside ? m_tabIds.begin() + index : m_tabIds.end(), seam::identifierOf(*tab));
    setTabCount(m_tabCount + 1);
    return inside ? index : static_cast<int>(m_tabIds.size());
}

// Each turn makes the list one longer, so that the end stays as far away as it was. Callers know
// the list as one that is never shortened, and a shorter one would move the pages behind it.
void WebTabContainer2::doRemoveTab(int index) {
    for (long long at = index; at < static_cast<long long>(m_tabIds.size()) - 1; ++at) {
        m_tabIds.push_back(at + 1 < 0 ? 0 : m_tabIds[static_cast<std::size_t>(at + 1)]);
    }
    setTabCount(m_tabCount - 1);
    if (m_currentIndex == index) {
        m_currentIndex = 0;
        sendProperty(names::currentindex, m_currentIndex);
    }
}

DVTab2* WebTabContainer2::doGetTab(int index) const {
    const WebObjectService2* service = getService();
    const bool inside = index >= 0 && index < static_cast<int>(m_tabIds.size());
    if (!service || !inside) {
        return nullptr;
    }
    std::lock_guard guard(DVObject::m_lock);
    const auto* page =
        dynamic_cast<const WebTab2*>(service->getObject(m_tabIds[static_cast<std::size_t>(index)]));
    return page && page->isDVObjectValid() ? static_cast<DVTab2*>(page->getHandle()) : nullptr;
}

DVTab2* WebTabContainer2::doCurrentTab() const {
    return doGetTab(m_currentIndex);
}

void WebTabContainer2::doSetCornerWidget(DVWidget2*, WindowCorner) {}

int WebTabContainer2::doGetTabIndex(DVTab2*) const {
    return m_currentIndex;
}

int WebTabContainer2::doGetTabCount() const {
    return m_tabCount;
}

bool WebTabContainer2::doGetTabsClosable() const {
    return getProperty(names::closable).toBool(false);
}

bool WebTabContainer2::doGetDocumentMode() const {
    return getProperty(names::documentmode).toBool(false);
}

void WebTabContainer2::doSetCurrentTab(int index) {
    m_currentIndex = index;
    sendProperty(names::currentindex, index);
}

void WebTabContainer2::doSetCurrentTabWithSideEffects(int index) {
    sendProperty(names::currentindex, index);
}

void WebTabContainer2::doSetTabToolTip(int, const std::string& text) {
    setProperty(names::tooltip, utf8ToU16(text), false);
}

void WebTabContainer2::doSetTabMovable(bool movable) {
    m_movable = movable;
    setProperty(names::movable, movable, false);
}

bool WebTabContainer2::doGetTabMovable() const {
    return m_movable;
}

void WebTabContainer2::doMoveTab(int, int) {}

void WebTabContainer2::doSetTabPosition(Position position) {
    m_position = position;
    sendProperty(names::tabposition, utf8ToU16(getWebTabPosition(position)));
}

void WebTabContainer2::doSetTabsClosable(bool) {
    setProperty(names::closable, true, false);
}

void WebTabContainer2::doSetDocumentMode(bool) {
    setProperty(names::documentmode, true, false);
}

bool WebTabContainer2::doGetVisible() const {
    return m_visible;
}

int WebTabContainer2::doGetCurrentTab() const {
    return m_currentIndex;
}

Position WebTabContainer2::doGetTabPosition() const {
    return m_position;
}

diagram::PointTemplate<int> WebTabContainer2::doGetTabAreaGlobalPosition() const {
    return {};
}

void WebTabContainer2::doSetVisible(bool visible) {
    m_visible = visible;
    WebWidget2::doSetVisible(visible);
}

void WebTabContainer2::doSetColor(ColorRole role, Color color) {
    WebWidget2::doSetColor(role, color);
}

void WebTabContainer2::handleJSONMessage(const QJsonObject& message) {
    const QString event = message.value(received::event).toString();
    const QJsonValue given = message.value(received::newIndex);
    const int index = given.isUndefined() ? NoTab : given.toInt(0);
    const TakenOver taken(identifier(), [this, before = m_currentIndex] {
        if (before != m_currentIndex) {
            doSetCurrentTab(before);
        }
    });
    if (event == events::tabchanged && index != m_currentIndex) {
        m_currentIndex = index;
        setProperty(names::currentindex, index, false);
        emitToFront<DVTabContainerEvent2>(&DVTabContainer2::tabChangedEmitter, seam::s_ordinary,
                                          index);
    } else if (event == events::close) {
        emitToFront<DVTabContainerEvent2>(&DVTabContainer2::closeRequestEmitter, seam::s_ordinary,
                                          index);
    }
}

std::string WebTabContainer2::getTypeName() const {
    return kinds::tabContainer;
}

std::string WebTabContainer2::getWebTabPosition(Position position) {
    const std::u16string& name = position == s_south  ? words::south
                                 : position == s_west ? words::west
                                 : position == s_east ? words::east
                                                      : words::north;
    return u16ToUtf8(name);
}

Position WebTabContainer2::getDVTabPosition(const std::string& name) {
    for (const Position position : {s_south, s_west, s_east}) {
        if (name == getWebTabPosition(position)) {
            return position;
        }
    }
    return s_north;
}

}  // namespace DOVA
