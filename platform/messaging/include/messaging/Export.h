#pragma once

/// Marks what the messaging library offers; everything else stays hidden.
#define DOVA_MESSAGING_EXPORT __attribute__((visibility("default")))
