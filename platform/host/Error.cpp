#include "host/Error.h"

#include <utility>

namespace host {

Error::Error(std::string identifier, const std::string& text)
    : std::runtime_error(text), m_identifier(std::move(identifier)) {}

Error::~Error() = default;

}  // namespace host
