#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "model/Change.h"
#include "model/ChangeListener.h"
#include "model/Export.h"
#include "model/ModelConstellation.h"
#include "model/ModelElement.h"
#include "model/Ref.h"

namespace pf::zero {

/// A document of elements that tells one listener, in order, what changes in it.
///
/// The model knows its elements by UUID and does not own them: an element leaves it with the last
/// reference. Elements may outlive the model; they keep their values and record nothing. A model
/// and everything in it belong to one thread; nothing here locks.
class DOVA_MODEL_EXPORT Model {
public:
    /// While a group lives, changes collect. When the outermost group of the model ends they are
    /// committed as one batch, in the order in which they were made. With an empty `model` a group
    /// does nothing.
    class DOVA_MODEL_EXPORT ChangeGroup {
    public:
        explicit ChangeGroup(Ref<Model> model) noexcept;
        ~ChangeGroup();
        ChangeGroup(const ChangeGroup&) = delete;
        ChangeGroup& operator=(const ChangeGroup&) = delete;

    private:
        Ref<Model> m_model;
    };

    /// A new, empty model; it lives as long as references to it.
    static Ref<Model> create(const ModelConstellation& constellation);

    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    void addRef() noexcept { ++m_references; }
    /// Deletes the model with the last reference. Its elements keep their values.
    void removeRef() noexcept;

    /// Makes `listener`, not owned, the one that hears every change from now on; null for nobody.
    /// Drops the records that were not delivered yet: a new listener starts from the state as it
    /// is, for example with `forEachElement`. Set another listener, or null, before one is
    /// destroyed.
    void setChangeListener(ChangeListener* listener) noexcept;

    /// Whether changes are recorded, which is when there is a listener.
    bool isRecording() const noexcept { return m_listener != nullptr; }
    /// Whether changes of this property are recorded, which is when the listener hears it.
    bool isRecording(std::string_view property) const noexcept {
        return m_listener != nullptr && m_listener->hears(property);
    }

    /// Whether records wait for their batch to be complete, because a group is open or the listener
    /// is being called. The listener gets them later, so it may put off what needs them.
    bool hasUncommitted() const noexcept { return !m_pending.empty(); }

    /// Adds an element, for the libraries that define elements. Gives false and changes nothing
    /// when the element is in a model already, or this model has its UUID already.
    bool insert(ModelElement& element);

    /// The element with that UUID; empty when there is none.
    Ref<ModelElement> find(const Uuid& uuid) const;

    std::size_t elementCount() const noexcept;

    /// Calls `visitor` for each element, in the order in which they came. The visitor may add and
    /// remove elements: new ones are not visited, removed ones still are.
    void forEachElement(const std::function<void(const ModelElement&)>& visitor) const;

private:
    friend class ModelElement;
    struct Registry;

    Model();
    ~Model();
    void remove(ModelElement& element) noexcept;
    void record(Change change);
    void commit() noexcept;

    std::uint32_t m_references = 0;
    std::uint32_t m_openGroups = 0;
    bool m_isDelivering = false;
    ChangeListener* m_listener = nullptr;
    std::vector<Change> m_pending;
    std::vector<Change> m_batch;
    std::unique_ptr<Registry> m_registry;
};

}  // namespace pf::zero
