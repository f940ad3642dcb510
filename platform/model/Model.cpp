#include "model/Model.h"

#include <boost/multi_index/hashed_index.hpp>
#include <boost/multi_index/mem_fun.hpp>
#include <boost/multi_index/sequenced_index.hpp>
#include <boost/multi_index_container.hpp>
#include <utility>

#include "LivingModels.h"

namespace pf::zero {

namespace {

namespace mi = boost::multi_index;

struct ByOrder;
struct ByUuid;
using UuidKey = mi::const_mem_fun<ModelElement, const Uuid&, &ModelElement::getUuid>;
using Elements = mi::multi_index_container<
    ModelElement*, mi::indexed_by<mi::sequenced<mi::tag<ByOrder>>,
                                  mi::hashed_unique<mi::tag<ByUuid>, UuidKey, std::hash<Uuid>>>>;

}  // namespace

struct Model::Registry {
    Elements elements;
};

Model::ChangeGroup::ChangeGroup(Ref<Model> model) noexcept : m_model(std::move(model)) {
    if (m_model) {
        ++m_model->m_openGroups;
    }
}

Model::ChangeGroup::~ChangeGroup() {
    if (m_model) {
        --m_model->m_openGroups;
        m_model->commit();
    }
}

Ref<Model> Model::create(const ModelConstellation&) {
    Ref<Model> model(new Model);
    LivingModels::announce(model);
    return model;
}

Model::Model() : m_registry(std::make_unique<Registry>()) {
    LivingModels::add(*this);
}

Model::~Model() {
    LivingModels::remove(*this);
    for (ModelElement* element : m_registry->elements) {
        element->m_model = nullptr;
    }
}

void Model::removeRef() noexcept {
    if (--m_references == 0) {
        delete this;
    }
}

void Model::setChangeListener(ChangeListener* listener) noexcept {
    m_listener = listener;
    m_pending.clear();
}

bool Model::insert(ModelElement& element) {
    if (element.m_model != nullptr || !m_registry->elements.push_back(&element).second) {
        return false;
    }
    element.m_model = this;
    if (isRecording()) {
        record({Change::Kind::Created, element.getUuid(), element.typeName(), {}});
    }
    return true;
}

Ref<ModelElement> Model::find(const Uuid& uuid) const {
    const auto& byUuid = m_registry->elements.get<ByUuid>();
    const auto found = byUuid.find(uuid);
    return Ref<ModelElement>(found == byUuid.end() ? nullptr : *found);
}

std::size_t Model::elementCount() const noexcept {
    return m_registry->elements.size();
}

void Model::forEachElement(const std::function<void(const ModelElement&)>& visitor) const {
    std::vector<Ref<ModelElement>> held;
    held.reserve(elementCount());
    for (ModelElement* element : m_registry->elements) {
        held.emplace_back(element);
    }
    for (const Ref<ModelElement>& element : held) {
        visitor(*element);
    }
}

void Model::remove(ModelElement& element) noexcept {
    m_registry->elements.get<ByUuid>().erase(element.getUuid());
    element.m_model = nullptr;
    if (isRecording()) {
        record({Change::Kind::Removed, element.getUuid(), element.typeName(), {}});
    }
}

void Model::record(Change change) {
    m_pending.push_back(std::move(change));
    commit();
}

void Model::commit() noexcept {
    if (m_openGroups > 0 || m_isDelivering) {
        return;
    }
    const Ref<Model> keptAlive(this);  // the listener may drop the last other reference
    m_isDelivering = true;
    while (m_listener != nullptr && !m_pending.empty()) {
        m_batch.swap(m_pending);
        m_listener->onChanges(m_batch);
        m_batch.clear();
    }
    m_isDelivering = false;
}

}  // namespace pf::zero
