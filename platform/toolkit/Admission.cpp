#include "toolkit/Admission.h"

namespace DOVA {

const void* Admission::s_refused = nullptr;

}  // namespace DOVA
