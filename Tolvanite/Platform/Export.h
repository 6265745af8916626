// Marks what the shared library offers; everything else in it stays hidden.
#pragma once

#define TOLVANITE_EXPORT __attribute__((visibility("default")))
