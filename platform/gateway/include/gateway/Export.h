#pragma once

/// Marks what the gateway library offers; everything else stays hidden.
#define DOVA_GATEWAY_EXPORT __attribute__((visibility("default")))
