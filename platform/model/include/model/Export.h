#pragma once

/// Marks what the model library offers; everything else stays hidden.
#define DOVA_MODEL_EXPORT __attribute__((visibility("default")))
