#pragma once

/// Marks what the log library offers; everything else stays hidden.
#define DOVA_LOG_EXPORT __attribute__((visibility("default")))
