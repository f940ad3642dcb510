#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "DocumentFilter.h"
#include "JsonText.h"
#include "TurnChanges.h"
#include "model/ModelElement.h"
#include "model/Ref.h"

namespace tdom {

/// Writes the changes of a turn as a JSON Patch (RFC 6902): an array of operations. Each operation
/// fits a document to which everything before it was applied.
class PatchText {
public:
    using Find = std::function<pf::zero::Ref<pf::zero::ModelElement>(const pf::zero::Uuid& uuid)>;

    /// `find` gives the elements that there are, as they are at the end of the turn. Only what is
    /// `wanted` is written.
    PatchText(Find find, const DocumentFilter& wanted)
        : m_find(std::move(find)), m_wanted(wanted) {}

    void write(const TurnChanges& changes);

    /// Whether nothing is different at the turn's end from what it was.
    bool empty() const noexcept { return m_text.size() == 0; }

    /// The array, once; the text is used up.
    std::string take();

private:
    void write(const TurnChanges::Element& element);
    void write(const std::string& parent, const TurnChanges::Scalar& scalar);
    void write(const std::string& parent, const TurnChanges::Sequence& sequence,
               const pf::zero::Uuid& uuid);
    void writeEdit(const std::string& path, const pf::zero::SequenceEdit& edit);
    void writeProperty(bool existed, const std::string& path, std::string_view name,
                       const pf::zero::Value& value);
    /// Writes a sequence as one value if that is shorter than `limit`, and says whether it is.
    bool writeWhole(const std::string& path, const TurnChanges::Sequence& sequence,
                    const pf::zero::Uuid& uuid, std::size_t limit);

    void begin(std::string_view operation, std::string_view path);

    Find m_find;
    const DocumentFilter& m_wanted;
    JsonText m_text;
};

}  // namespace tdom
