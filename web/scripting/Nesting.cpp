#include "Nesting.h"

#include <algorithm>

#include "JSONText.h"

namespace DOVA::web {

namespace {

int countUpTo(const QJsonValue& value, int most);

template <class Container>
int countInside(const Container& container, int most) {
    int levels = 0;
    for (auto element = container.constBegin(); element != container.constEnd(); ++element) {
        if (levels == most) {
            break;
        }
        levels = std::max(levels, countUpTo(*element, most));
    }
    return levels;
}

/// On the stack, for it goes no deeper than `most`.
int countUpTo(const QJsonValue& value, int most) {
    if (most == 0 || !(value.isArray() || value.isObject())) {
        return 0;
    }
    return 1 + (value.isArray() ? countInside(value.toArray(), most - 1)
                                : countInside(value.toObject(), most - 1));
}

}  // namespace

int countLevels(const QJsonValue& value) {
    return countUpTo(value, s_mostLevels + 1);
}

bool checkLevels(int levels) {
    const bool fits = levels < s_mostLevels;
    if (!fits) {
        printError(QJsonParseError::DeepNesting);
    }
    return fits;
}

}  // namespace DOVA::web
