#pragma once

/// Marks what a shared library of the embedded platform offers; everything else stays hidden.
#define DOVA_PLATFORM_EXPORT __attribute__((visibility("default")))
