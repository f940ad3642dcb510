#include "DovaWebNamespaceWrapper.h"

#include "CosJSONArray.h"
#include "CosJSONObject.h"
#include "CosJSONValue.h"
#include "core/KorvidOnlineFlag.h"
#include "host/Console.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/factory/Adapters.h"

namespace DOVA::web::mi {

using ribo::factory::makeMethod;

ribo::InternedString DovaWebNamespaceWrapper::getName() const {
    return ribo::internal::makeInterned("web");
}

void DovaWebNamespaceWrapper::listMembers(ribo::COSNamespace& self) const {
    self.addFunction(makeMethod("init", {}, [] { utPrintf("Initializing dova.web module.\n"); }));
    self.addFunction(makeMethod("KORVIDOnlineFlag", {}, &KorvidOnlineFlag::get));
    self.addFunction(makeMethod("KORVIDOnlineFlag", {}, &KorvidOnlineFlag::set));
    self.addFunction(makeMethod("resetKORVIDOnlineFlag", {}, &KorvidOnlineFlag::reset));
    self.addClass(seam::makeForHost<CosJSONObject>("JSONObject", "dova web JSONObject"));
    self.addClass(seam::makeForHost<CosJSONValue>("JSONValue", "dova web JSONValue"));
    self.addClass(seam::makeForHost<CosJSONArray>("JSONArray", "dova web JSONArray"));
}

}  // namespace DOVA::web::mi
