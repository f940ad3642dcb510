#include "LivingModels.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace pf::zero {

namespace {

struct Shared {
    std::mutex mutex;
    std::vector<Model*> models;
    LivingModels::Observer observer;
};

// Never destroyed: models go at the end of the process, too.
Shared& shared() {
    static Shared& instance = *new Shared;
    return instance;
}

}  // namespace

void LivingModels::add(Model& model) {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    shared().models.push_back(&model);
}

void LivingModels::remove(Model& model) noexcept {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    auto& models = shared().models;
    models.erase(std::find(models.begin(), models.end(), &model));
}

void LivingModels::announce(const Ref<Model>& model) {
    Observer observer;
    {
        const std::lock_guard<std::mutex> lock(shared().mutex);
        observer = shared().observer;
    }
    if (observer) {
        observer(model);
    }
}

void LivingModels::observe(const Observer& observer) {
    std::vector<Ref<Model>> present;
    {
        const std::lock_guard<std::mutex> lock(shared().mutex);
        if (observer) {
            for (Model* model : shared().models) {
                present.emplace_back(model);
            }
        }
        shared().observer = observer;
    }
    for (const Ref<Model>& model : present) {
        observer(model);
    }
}

}  // namespace pf::zero
