#include "toolkit/DVAbstractWindow2.h"

namespace DOVA {

DVAbstractWindow2::~DVAbstractWindow2() {
    dismantle();
}

void DVAbstractWindow2::showNormal() {
    emitters()->showNormal.emit();
}

void DVAbstractWindow2::showMinimized() {
    emitters()->showMinimized.emit();
}

void DVAbstractWindow2::showMaximized() {
    emitters()->showMaximized.emit();
}

bool DVAbstractWindow2::isMinimized() const {
    return emitters()->isMinimized.emit();
}

bool DVAbstractWindow2::isMaximized() const {
    return emitters()->isMaximized.emit();
}

void DVAbstractWindow2::setTitle(const std::u16string& title) {
    emitters()->setTitle.emit(title);
}

std::u16string DVAbstractWindow2::title() const {
    return emitters()->getTitle.emit();
}

void DVAbstractWindow2::setFrameGeometry(diagram::RectTemplate<int> geometry) {
    emitters()->setFrameGeometry.emit(geometry, false);
}

diagram::RectTemplate<int> DVAbstractWindow2::frameGeometry() const {
    return emitters()->getFrameGeometry.emit();
}

void DVAbstractWindow2::setGeometry(diagram::RectTemplate<int> geometry) {
    emitters()->setGeometry.emit(geometry);
}

diagram::RectTemplate<int> DVAbstractWindow2::geometry() const {
    return emitters()->getGeometry.emit();
}

diagram::RectTemplate<int> DVAbstractWindow2::frameOffset() const {
    return emitters()->getFrameOffset.emit();
}

void DVAbstractWindow2::setIconWithPath(const std::u16string& path) {
    emitters()->setIconWithPath.emit(path);
}

void DVAbstractWindow2::move(diagram::PointTemplate<int> position) {
    emitters()->move.emit(position);
}

void DVAbstractWindow2::close() {
    destroyImplementation();
}

}  // namespace DOVA
