#include "wiro/Thread.h"

namespace WIRO {

Thread Thread::getCurrentThread() {
    return Thread(std::this_thread::get_id());
}

}  // namespace WIRO
