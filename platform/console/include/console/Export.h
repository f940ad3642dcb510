#pragma once

/// Marks what the console library offers; everything else stays hidden.
#define DOVA_CONSOLE_EXPORT __attribute__((visibility("default")))
