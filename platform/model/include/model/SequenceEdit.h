#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace pf::zero {

/// One item of a sequence.
using Primitive = std::variant<bool, std::int32_t, std::u16string>;

/// One modification of a sequence of `sizeBefore` items: at position `index`, counted from 0,
/// `removed` items went and `inserted` took their place. A whole sequence is the edit that makes it
/// from an empty one.
struct SequenceEdit {
    std::size_t index = 0;
    std::size_t removed = 0;
    std::vector<Primitive> inserted;
    std::size_t sizeBefore = 0;

    std::size_t sizeAfter() const { return sizeBefore - removed + inserted.size(); }

    friend bool operator==(const SequenceEdit& left, const SequenceEdit& right) {
        return left.index == right.index && left.removed == right.removed &&
               left.inserted == right.inserted && left.sizeBefore == right.sizeBefore;
    }
    friend bool operator!=(const SequenceEdit& left, const SequenceEdit& right) {
        return !(left == right);
    }
};

}  // namespace pf::zero
