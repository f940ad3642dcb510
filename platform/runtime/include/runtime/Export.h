#pragma once

/// Marks what the runtime library offers; everything else stays hidden.
#define DOVA_RUNTIME_EXPORT __attribute__((visibility("default")))
