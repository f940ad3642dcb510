#include "PatchText.h"

#include <limits>

#include "DocumentText.h"
#include "model/PropertyDefault.h"

namespace tdom {

using pf::zero::Primitive;
using pf::zero::SequenceEdit;
using pf::zero::Uuid;
using pf::zero::Value;

namespace {

// What an operation with one item takes besides its path and its text.
constexpr std::size_t s_operationLength = 40;
// Items are looked through only while that costs no more than writing the operations.
constexpr std::size_t s_itemsPerOperation = 4;

/// A property's name as one step of a JSON Pointer (RFC 6901).
std::string pointerStep(std::string_view name) {
    std::string step = "/";
    for (const char letter : name) {
        step += letter == '~' ? "~0" : letter == '/' ? "~1" : std::string(1, letter);
    }
    return step;
}

std::size_t lengthOf(const SequenceEdit& edit) {
    std::size_t length = 0;
    for (const Primitive& item : edit.inserted) {
        const auto* text = std::get_if<std::u16string>(&item);
        length += text != nullptr ? text->size() + 3 : 6;
    }
    return length;
}

std::size_t lengthOf(const TurnChanges::Sequence& sequence, const std::string& path) {
    std::size_t length = sequence.moved * (path.size() + s_operationLength);
    for (const SequenceEdit& edit : sequence.edits) {
        length += lengthOf(edit);
    }
    return length;
}

}  // namespace

void PatchText::write(const TurnChanges& changes) {
    for (const TurnChanges::Element& element : changes.elements()) {
        write(element);
    }
}

std::string PatchText::take() {
    m_text.raw(empty() ? "[]" : "]");
    return m_text.take();
}

void PatchText::begin(std::string_view operation, std::string_view path) {
    m_text.raw(empty() ? R"([{"op":")" : R"(,{"op":")");
    m_text.raw(operation);
    m_text.raw(R"(","path":)");
    m_text.string(path);
}

void PatchText::write(const TurnChanges::Element& element) {
    const std::string path = "/" + element.uuid.toString();
    if (element.isNew) {
        begin(element.existed ? "replace" : "add", path);
        m_text.raw(R"(,"value":)");
        DocumentText::write(m_text, *m_find(element.uuid), m_wanted);
        m_text.raw('}');
    } else if (element.exists) {
        // Items before what refers to them, such as the index of the current one.
        for (const TurnChanges::Sequence& sequence : element.sequences) {
            write(path, sequence, element.uuid);
        }
        for (const TurnChanges::Scalar& scalar : element.scalars) {
            write(path, scalar);
        }
    } else if (element.existed) {
        begin("remove", path);
        m_text.raw('}');
    }
}

void PatchText::write(const std::string& parent, const TurnChanges::Scalar& scalar) {
    if (m_wanted.holds(scalar.name) && scalar.now != scalar.before) {
        const bool existed = !PropertyDefault::is(scalar.name, scalar.before);
        writeProperty(existed, parent + pointerStep(scalar.name), scalar.name, scalar.now);
    }
}

void PatchText::writeProperty(bool existed, const std::string& path, std::string_view name,
                              const Value& value) {
    if (PropertyDefault::is(name, value)) {
        begin("remove", path);
    } else {
        begin(existed ? "replace" : "add", path);
        m_text.raw(R"(,"value":)");
        DocumentText::write(m_text, value);
    }
    m_text.raw('}');
}

void PatchText::write(const std::string& parent, const TurnChanges::Sequence& sequence,
                      const Uuid& uuid) {
    if (!m_wanted.holds(sequence.name)) {
        return;
    }
    const std::string path = parent + pointerStep(sequence.name);
    if (sequence.wasEmpty) {
        if (sequence.sizeBefore > 0 || sequence.size > 0) {
            writeWhole(path, sequence, uuid, std::numeric_limits<std::size_t>::max());
        }
        return;
    }
    if (sequence.size <= sequence.moved * s_itemsPerOperation &&
        writeWhole(path, sequence, uuid, lengthOf(sequence, path))) {
        return;
    }
    for (const SequenceEdit& edit : sequence.edits) {
        writeEdit(path + "/", edit);
    }
}

bool PatchText::writeWhole(const std::string& path, const TurnChanges::Sequence& sequence,
                           const Uuid& uuid, std::size_t limit) {
    bool isWritten = false;
    m_find(uuid)->visitProperties([&](std::string_view name, const Value& value) {
        if (name == sequence.name && lengthOf(std::get<SequenceEdit>(value)) < limit) {
            writeProperty(sequence.sizeBefore > 0, path, name, value);
            isWritten = true;
        }
    });
    return isWritten;
}

void PatchText::writeEdit(const std::string& path, const SequenceEdit& edit) {
    for (std::size_t i = 0; i < edit.removed; ++i) {
        begin("remove", path + std::to_string(edit.index));
        m_text.raw('}');
    }
    // Counted positions and not "-": a document that is not what it should be is noticed then.
    for (std::size_t i = 0; i < edit.inserted.size(); ++i) {
        begin("add", path + std::to_string(edit.index + i));
        m_text.raw(R"(,"value":)");
        DocumentText::write(m_text, edit.inserted[i]);
        m_text.raw('}');
    }
}

}  // namespace tdom
