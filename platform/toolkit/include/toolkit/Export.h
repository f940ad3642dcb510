#pragma once

/// Marks what the toolkit offers; everything else stays hidden.
#define DOVA_TOOLKIT_EXPORT __attribute__((visibility("default")))
