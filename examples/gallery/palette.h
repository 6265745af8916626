// The colour half of the gallery.
#pragma once

#include <iosfwd>

namespace gallery {

/// Writes the named colours, and the schemes, variants and mixtures of some of them, as one HTML
/// page that needs nothing else. What goes wrong stays with the stream.
void writePalette(std::ostream& out);

}  // namespace gallery
