#pragma once

/// Marks what the module offers to the toolkit and the host; everything else stays hidden.
#define DOVA_WEB_EXPORT __attribute__((visibility("default")))
