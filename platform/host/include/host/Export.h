#pragma once

/// Marks what the host offers; everything else stays hidden.
#define DOVA_HOST_EXPORT __attribute__((visibility("default")))
