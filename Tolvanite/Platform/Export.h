// Marks what the shared library offers; everything else in it stays hidden.
#pragma once

/// Stands before each exported class and function.
#define TOLVANITE_EXPORT __attribute__((visibility("default")))
