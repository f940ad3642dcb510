#include "toolkit/DVDialog2.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Implementation.h"

namespace DOVA {

namespace {

bool s_programPresses = false;

struct ProgramPresses {
    const bool outer = std::exchange(s_programPresses, true);
    ~ProgramPresses() { s_programPresses = outer; }
};

/// The modal dialogs, the one in front at the end.
std::vector<const DVDialog2*>& modals() {
    // Never destroyed: dialogs with static lifetime leave it while the process ends.
    static auto* dialogs = new std::vector<const DVDialog2*>;
    return *dialogs;
}

void forgetModal(const DVDialog2* dialog) {
    modals().erase(std::remove(modals().begin(), modals().end(), dialog), modals().end());
}

}  // namespace

DVDialog2::DVDialog2(DVObject* parent, DVFlags<DialogFlag> flags)
    : DVAbstractWindow2(std::make_unique<DVDialog2Emitters>()) {
    implement(factory(), &DVFactory2::createDialog2, this, parent, flags.value());
    goWith(parent);
    WIRO::connect(m_key, [this](const DVKeyEvent2& event) {
        Admission::judge(&event, s_programPresses || isInReach());
    });
    if (flags.has(DialogFlag::Modal)) {
        setModal(true);
    }
}

DVDialog2::~DVDialog2() {
    forgetModal(this);
    dismantle();
}

bool DVDialog2::keepsAway(const DVWidget2* child) const {
    // Behind a modal dialog are all windows but those modal ones that came to the front after it.
    const auto& all = modals();
    const auto self = std::find(all.begin(), all.end(), this);
    const auto from = self == all.end() ? all.begin() : self + 1;
    return std::any_of(from, all.end(), [](const auto* each) { return each->shutsOffOthers(); }) ||
           DVAbstractWindow2::keepsAway(child);
}

// One that was asked to close may have gone with its page, or is on its way.
bool DVDialog2::shutsOffOthers() const {
    return isModal() && isVisible() && !isMinimized() && emitters()->isAnnounced.emit();
}

void DVDialog2::cameToFront() {
    if (isModal()) {
        forgetModal(this);
        modals().push_back(this);
    }
}

// It is not put below the parent: that would be described with it, as part of it.
DVObject* DVDialog2::parent() const {
    DVObject* above = DVAbstractWindow2::parent();
    return above ? above : const_cast<DVObject2*>(companion());
}

void DVDialog2::setModal(bool modal) {
    emitters()->setModal.emit(modal);
    if (modal) {
        mayKeepAway();
        cameToFront();
    } else {
        forgetModal(this);
    }
}

void DVDialog2::sendAccKey(DVDialogAccel accelerator) {
    const ProgramPresses key;
    emitters()->sendAccKey.emit(accelerator);
}

}  // namespace DOVA
