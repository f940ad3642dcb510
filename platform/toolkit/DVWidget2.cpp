#include "toolkit/DVWidget2.h"

namespace DOVA {

DVWidget2::~DVWidget2() = default;

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
}

void DVWidget2::hide() {
    emitters()->hide.emit();
}

void DVWidget2::raise() {
    emitters()->raise.emit();
}

void DVWidget2::refresh() {
    emitters()->refresh.emit();
}

void DVWidget2::setFocus() {
    emitters()->setFocus.emit();
}

void DVWidget2::setVisible(bool visible) {
    emitters()->setVisible.emit(visible);
    if (visible) {
        visibilityGiven();
    }
}

bool DVWidget2::isVisible() const {
    return emitters()->isVisible.emit();
}

void DVWidget2::setEnabled(bool enabled) {
    emitters()->setEnabled.emit(enabled);
}

bool DVWidget2::isEnabled() const {
    return emitters()->isEnabled.emit();
}

void DVWidget2::setToolTip(const std::u16string& text) {
    emitters()->setToolTipU.emit(text);
}

std::u16string DVWidget2::toolTip() const {
    return emitters()->getToolTipU.emit();
}

void DVWidget2::setColor(ColorRole role, Color color) {
    emitters()->setColor.emit(role, color);
}

Color DVWidget2::color(ColorRole role) const {
    return emitters()->getColor.emit(role);
}

void DVWidget2::setPosition(diagram::RectTemplate<int> position) {
    emitters()->setPosition.emit(position);
}

diagram::RectTemplate<int> DVWidget2::position() const {
    return emitters()->getPosition.emit();
}

void DVWidget2::moveTo(diagram::PointTemplate<int> point) {
    emitters()->moveTo.emit(point);
}

void DVWidget2::setMinimumSize(diagram::TSize<int> size) {
    emitters()->setMinimumSize.emit(size);
}

diagram::TSize<int> DVWidget2::minimumSize() const {
    return emitters()->getMinimumSize.emit();
}

void DVWidget2::setMaximumSize(diagram::TSize<int> size) {
    emitters()->setMaximumSize.emit(size);
}

diagram::TSize<int> DVWidget2::maximumSize() const {
    return emitters()->getMaximumSize.emit();
}

void DVWidget2::setPreferredSize(diagram::TSize<int> size) {
    emitters()->setPreferredSize.emit(size);
}

diagram::TSize<int> DVWidget2::preferredSize() const {
    return emitters()->getPreferredSize.emit();
}

void DVWidget2::resize(diagram::TSize<int> size) {
    emitters()->resize.emit(size);
}

void DVWidget2::setObjectName(const std::string& name) {
    emitters()->setObjectName.emit(name);
}

std::string DVWidget2::objectName() const {
    return emitters()->getObjectName.emit();
}

void DVWidget2::showMessage(const std::u16string& level, const std::u16string& title,
                            const std::u16string& body, bool modal) {
    TextMessage message{{"level", level}, {"title", title}, {"body", body}};
    if (modal) {
        message["modal"] = u"true";
    }
    emitters()->sendTextMessage.emit(message);
}

}  // namespace DOVA
