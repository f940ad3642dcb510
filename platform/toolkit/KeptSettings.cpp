#include "KeptSettings.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "toolkit/DVWidget2.h"

namespace DOVA {

namespace {

using Setting = KeptSettings::Setting;
using Rectangle = diagram::RectTemplate<int>;

struct Kept {
    std::vector<std::pair<Setting, Rectangle>> settings;
    std::uint64_t focus = 0;  // the later, the greater; 0 without the focus
};

std::unordered_map<const DVWidget2*, Kept>& all() {
    // Never destroyed: widgets with static lifetime leave it while the process ends.
    static auto* kept = new std::unordered_map<const DVWidget2*, Kept>;
    return *kept;
}

void writeShared(DVWidget2Emitters& widget, Setting setting, const Rectangle& value) {
    const diagram::TSize<int> size{value.width, value.height};
    switch (setting) {
        case Setting::MinimumSize:
            return widget.setMinimumSize.emit(size);
        case Setting::MaximumSize:
            return widget.setMaximumSize.emit(size);
        case Setting::PreferredSize:
            return widget.setPreferredSize.emit(size);
        case Setting::Size:
            return widget.resize.emit(size);
        case Setting::Position:
            return widget.setPosition.emit(value);
        case Setting::Place:
            return widget.moveTo.emit({value.x, value.y});
        case Setting::ObjectName:
            return widget.setObjectName.emit(widget.getObjectName.emit());
        case Setting::Own:
            return;
    }
}

template <class Visit>
void visitSubtree(const DVWidget2& top, Visit visit) {
    std::vector<const DVObject*> pending{&top};
    while (!pending.empty()) {
        const auto* next = dynamic_cast<const DVObject2*>(pending.back());
        pending.pop_back();
        if (next) {
            visit(dynamic_cast<const DVWidget2*>(next));
            const std::vector<DVObject*> children = next->children();
            pending.insert(pending.end(), children.rbegin(), children.rend());
        }
    }
}

}  // namespace

void KeptSettings::keep(const DVWidget2& widget, Setting setting, Rectangle value) {
    auto& settings = all()[&widget].settings;
    const auto before = std::find_if(settings.begin(), settings.end(),
                                     [=](const auto& entry) { return entry.first == setting; });
    const bool isLimit = setting == Setting::MinimumSize || setting == Setting::MaximumSize;
    if (before != settings.end() && isLimit) {
        value.width = value.width < 0 ? before->second.width : value.width;
        value.height = value.height < 0 ? before->second.height : value.height;
    }
    if (before != settings.end()) {
        settings.erase(before);
    }
    settings.emplace_back(setting, value);
}

void KeptSettings::keepFocus(const DVWidget2& widget) {
    static std::uint64_t last = 0;
    all()[&widget].focus = ++last;
}

void KeptSettings::forget(const DVWidget2& widget) {
    all().erase(&widget);
}

void KeptSettings::write(const DVWidget2& top) {
    if (all().empty()) {
        return;
    }
    std::pair<std::uint64_t, const DVWidget2*> focus{0, nullptr};
    visitSubtree(top, [&](const DVWidget2* widget) {
        const auto found = all().find(widget);
        if (found == all().end()) {
            return;
        }
        for (const auto& [setting, value] : found->second.settings) {
            writeShared(*widget->emitters(), setting, value);
            if (setting == Setting::Own) {
                widget->tellLeftOut();
            }
        }
        focus = std::max(focus, {std::exchange(found->second.focus, 0), widget});
    });
    if (focus.first > 0) {
        focus.second->emitters()->setFocus.emit();
    }
}

}  // namespace DOVA
