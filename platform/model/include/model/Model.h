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
/// The model registers its elements by UUID and does not own them; an element that loses its last
/// reference leaves. Elements may outlive the model: they keep their values and record nothing.
/// A model and everything in it belong to one thread; nothing here locks.
class DOVA_MODEL_EXPORT Model {
public:
    /// While one lives, changes collect; when the outermost one of the model ends they are
    /// committed as one batch, in the order they were made. An empty `model` makes a group that
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
    /// Deletes the model with the last reference. Its elements are not changed by that.
    void removeRef() noexcept;

    /// Makes `listener`, not owned, the one that hears every change from now on; null for nobody.
    /// Records that were not yet delivered are dropped: a new listener starts from the state as it
    /// is, for example from `forEachElement`. The listener unsets itself before it is destroyed.
    void setChangeListener(ChangeListener* listener) noexcept;

    /// Whether changes are recorded, which is when there is a listener.
    bool isRecording() const noexcept { return m_listener != nullptr; }
    /// Whether changes of this property are: when the listener hears them.
    bool isRecording(std::string_view property) const noexcept {
        return m_listener != nullptr && m_listener->hears(property);
    }

    /// Whether records wait for their batch to be complete: a group is open, or a listener is being
    /// called. A listener hears of them for certain, so it may put off what needs their end.
    bool hasUncommitted() const noexcept { return !m_pending.empty(); }

    /// Registers an element, for the libraries that define elements. Gives false and changes
    /// nothing when the element is already in a model or its UUID is taken in this one.
    bool insert(ModelElement& element);

    /// The element of that name; empty when there is none.
    Ref<ModelElement> find(const Uuid& uuid) const;

    std::size_t elementCount() const noexcept;

    /// Calls `visitor` for each element in the order they came. The visitor may add and remove
    /// elements: the new ones are not visited, the removed ones still are.
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
