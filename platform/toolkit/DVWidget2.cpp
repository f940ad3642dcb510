#include "toolkit/DVWidget2.h"

#include "KeptSettings.h"
#include "toolkit/Admission.h"
#include "toolkit/DVAbstractWindow2.h"
#include "toolkit/DVFactory2.h"

namespace DOVA {

namespace {

/// The living widgets that may keep a user away. While there are none, no event need be looked
/// at.
unsigned s_keepingAway = 0;

DVAbstractWindow2* windowOf(DVObject* object) {
    while (const auto* child = dynamic_cast<DVObject2*>(object)) {
        if (auto* window = dynamic_cast<DVAbstractWindow2*>(object)) {
            return window;
        }
        object = child->parent();
    }
    return nullptr;
}

}  // namespace

DVWidget2::~DVWidget2() {
    if (m_mayKeepAway) {
        --s_keepingAway;
    }
    if (m_isKept) {
        KeptSettings::forget(*this);
    }
}

template <class Setting>
void DVWidget2::keep(Setting setting, diagram::RectTemplate<int> value) {
    if (!isDescribedWhole()) {
        m_isKept = true;
        KeptSettings::keep(*this, setting, value);
    }
}

void DVWidget2::leftOutOfDescriptions() {
    keep(KeptSettings::Setting::Own);
}

void DVWidget2::described() {
    m_describedUpTo = lastIdentifier();
    KeptSettings::write(*this);
}

// A description names what there was at that time.
bool DVWidget2::isKnownToDisplay() const {
    bool isDescribed = false;
    const DVWidget2* top = this;
    for (const DVWidget2* at = this; at; at = dynamic_cast<const DVWidget2*>(at->parent())) {
        isDescribed = isDescribed || at->m_describedUpTo >= identifier();
        top = at;
        if (at->isWindow()) {
            break;
        }
    }
    return isDescribed && top->isOnDisplay();
}

void DVWidget2::mayKeepAway() {
    if (!m_mayKeepAway) {
        m_mayKeepAway = true;
        ++s_keepingAway;
    }
}

bool DVWidget2::isInReach() const {
    const DVWidget2* child = nullptr;
    for (const DVWidget2* at = s_keepingAway == 0 ? nullptr : this; at;) {
        if (at->keepsAway(child)) {
            return false;
        }
        child = at;
        at = at->isWindow() ? nullptr : dynamic_cast<const DVWidget2*>(at->parent());
    }
    return true;
}

bool DVWidget2::keepsAway(const DVWidget2*) const {
    const bool isKnown = emitters()->isVisible.numberOfConnections() > 0;
    return isKnown && !(isVisible() && isEnabled());
}

bool DVWidget2::admit(const void* event, bool isPossible) {
    const bool admitted = isPossible && isInReach();
    Admission::judge(event, admitted);
    if (DVFactory2* maker = admitted ? nullptr : livingFactory()) {
        maker->putBack.emit(identifier());
    }
    return admitted;
}

void DVWidget2::show() {
    endHiding();
    showImplementation();
}

// First, so that the description that follows says it, too.
void DVWidget2::endHiding() {
    if (!isVisible()) {
        emitters()->setVisible.emit(true);
    }
}

void DVWidget2::showImplementation() {
    emitters()->show.emit();
    described();
}

void DVWidget2::hide() {
    mayKeepAway();
    emitters()->hide.emit();
}

void DVWidget2::raise() {
    emitters()->raise.emit();
    cameToFront();
}

void DVWidget2::setFocus() {
    emitters()->setFocus.emit();
    if (!isWindow() && !isKnownToDisplay()) {
        m_isKept = true;
        KeptSettings::keepFocus(*this);
    }
}

void DVWidget2::setVisible(bool visible) {
    if (!visible) {
        mayKeepAway();
    }
    emitters()->setVisible.emit(visible);
    if (visible) {
        visibilityGiven();
    }
}

void DVWidget2::setEnabled(bool enabled) {
    if (!enabled) {
        mayKeepAway();
    }
    emitters()->setEnabled.emit(enabled);
}

void DVWidget2::setPosition(diagram::RectTemplate<int> position) {
    emitters()->setPosition.emit(position);
    keep(KeptSettings::Setting::Position, position);
}

void DVWidget2::moveTo(diagram::PointTemplate<int> point) {
    emitters()->moveTo.emit(point);
    keep(KeptSettings::Setting::Place, {point.x, point.y, 0, 0});
}

void DVWidget2::setMinimumSize(diagram::TSize<int> size) {
    emitters()->setMinimumSize.emit(size);
    keep(KeptSettings::Setting::MinimumSize, {0, 0, size.width, size.height});
}

void DVWidget2::setMaximumSize(diagram::TSize<int> size) {
    emitters()->setMaximumSize.emit(size);
    keep(KeptSettings::Setting::MaximumSize, {0, 0, size.width, size.height});
}

void DVWidget2::setPreferredSize(diagram::TSize<int> size) {
    emitters()->setPreferredSize.emit(size);
    keep(KeptSettings::Setting::PreferredSize, {0, 0, size.width, size.height});
}

void DVWidget2::resize(diagram::TSize<int> size) {
    emitters()->resize.emit(size);
    keep(KeptSettings::Setting::Size, {0, 0, size.width, size.height});
}

void DVWidget2::setObjectName(const std::string& name) {
    emitters()->setObjectName.emit(name);
    keep(KeptSettings::Setting::ObjectName);
}

void DVWidget2::showMessage(const std::u16string& level, const std::u16string& title,
                            const std::u16string& body, bool modal) {
    TextMessage message{{"level", level}, {"title", title}, {"body", body}};
    if (modal) {
        message["modal"] = u"true";
    }
    DVAbstractWindow2* window = windowOf(this);
    if (!window || !window->keepForPage(message)) {
        emitters()->sendTextMessage.emit(message);
    }
}

}  // namespace DOVA
