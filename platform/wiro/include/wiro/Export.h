#pragma once

/// Marks what the signal library offers; everything else stays hidden.
#define DOVA_WIRO_EXPORT __attribute__((visibility("default")))
