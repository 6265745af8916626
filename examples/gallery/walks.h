// The walks and transformations of a small matrix, drawn as frames of text.
#pragma once

#include <iosfwd>

namespace gallery {

void drawWalks(std::ostream& out);

}  // namespace gallery
