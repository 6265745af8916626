// Marks what the shared library offers; everything else in it stays hidden.
#pragma once

/// Marks what the shared library offers; everything else in it is hidden.
#define TOLVANITE_EXPORT __attribute__((visibility("default")))
