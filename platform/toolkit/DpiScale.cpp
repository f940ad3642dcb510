#include "toolkit/DpiScale.h"

#include <atomic>
#include <cmath>

namespace DOVA {

namespace {

std::atomic<double> s_scale{1.0};

}  // namespace

double dpiScale() {
    return s_scale.load(std::memory_order_relaxed);
}

void setDpiScale(double scale) {
    if (std::isfinite(scale) && scale > 0) {
        s_scale.store(scale, std::memory_order_relaxed);
    }
}

}  // namespace DOVA
