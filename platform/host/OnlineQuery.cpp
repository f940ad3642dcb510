#include "host/OnlineQuery.h"

namespace {

bool s_isVantrolOnline = false;

}  // namespace

namespace vnonline::util {

bool isVantrolOnline() noexcept {
    return s_isVantrolOnline;
}

}  // namespace vnonline::util

namespace host {

void setVantrolOnline(bool isOnline) noexcept {
    s_isVantrolOnline = isOnline;
}

}  // namespace host
