#include "toolkit/DVTab2.h"

#include "Implementation.h"
#include "toolkit/DVTabContainer2.h"

namespace DOVA {

DVTab2::DVTab2(DVObject* parent, const std::u16string& name)
    : DVContainer2(std::make_unique<DVTab2Emitters>()) {
    implement(factory(), &DVFactory2::createTab2, this, parent);
    if (!name.empty()) {
        setName(name);
    }
    if (auto* container = dynamic_cast<DVTabContainer2*>(parent)) {
        container->addTab(this);
    } else if (parent) {
        setParent(parent);
    }
}

DVTab2::~DVTab2() = default;

bool DVTab2::isPage() const {
    return dynamic_cast<DVTabContainer2*>(parent()) != nullptr;
}

// Backends take a page's parent for a tab container here, and need not come back from another one.

void DVTab2::setTabVisible(bool visible) {
    if (isPage()) {
        m_isTabHidden = !visible;
        if (visible) {
            endHiding();
        }
        emitters()->setTabVisible.emit(visible);
    }
}

bool DVTab2::isTabVisible() const {
    return isPage() && emitters()->isTabVisible.emit();
}

bool DVTab2::keepsAway(const DVWidget2* child) const {
    return m_isTabHidden || !isTabEnabled() || DVWidget2::keepsAway(child);
}

}  // namespace DOVA
